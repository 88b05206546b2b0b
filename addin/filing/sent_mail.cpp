#include "addin/filing/sent_mail.h"

#include <functional>

#include "addin/filing/address_resolution.h"
#include "addin/ground/presence.h"
#include "addin/ground/status_windows.h"
#include "addin/records/database.h"
#include "addin/records/stamp.h"

namespace addin::filing {

using automation::Text;
using automation::TextView;
using host::family::SafeAddressEntry;
using host::family::SafeMailItem;
using host::outlook::Folder;
using host::outlook::Item;
namespace tag = host::family::tag;

namespace {

constexpr std::uint32_t reading_time = 1000;  // milliseconds in which the user can read a result

constexpr TextView checking = u"Checking names - ", checked = u"Checking names  ";
constexpr TextView searching = u"Searching for ", not_found = u" - NOT FOUND", saving = u" - Saving";

/// The filing of one mail.
class Sending {
  public:
    Sending(Session& session, const Item& mail) : here_(session), session_(session), mail_(mail) {}

    void run();

  private:
    enum class Next { recipient, leave };
    Next file_for(std::int32_t index);

    /// What `file_for` searches with; nothing if the recipient is passed over.
    std::optional<Text> filter_for(std::int32_t index);

    /// A text that can't be put together leaves the one that is shown.
    void status(const std::function<Text()>& text);
    void status(const Text& text) {
        status([&] { return text; });
    }
    void wait();  ///< so that the user can read the status

    Presence here_;  ///< goes last
    Session& session_;
    const Item& mail_;
    Steps steps_{session_};
    host::family::MainAddIn main_add_in_;
    SafeMailItem safe_mail_;
    Text name_;  // what fails for one recipient keeps the value of the one before
    SafeAddressEntry entry_;
    Text address_, native_;
    Folder account_profiles_, folder_;
    Item note_;
};

void Sending::run() {
    if (steps_.certainly(Reason::not_for_everybody,
                         [&] { return mail_.Sensitivity() != host::outlook::sensitivity_normal; })) {
        return;
    }
    steps_.set(main_add_in_, [&] { return records::make_main_add_in(session_.desktop); });
    steps_.set(safe_mail_, [&] { return records::make_safe_mail(session_.desktop); });
    steps_.run([&] { safe_mail_.Item(mail_); });
    steps_.run([&] { safe_mail_.ResolveAll(); });
    steps_.run([&] { safe_mail_.Recipients().ResolveAll(); });
    std::int32_t count = 0;
    steps_.set(count, [&] { return safe_mail_.Recipients().Count(); });
    if (steps_.certainly(Reason::no_recipients, [&] { return count < 1; })) return;
    for (std::int32_t i = 1; i <= count; ++i) {
        if (file_for(i) == Next::leave) return;
    }
}

Sending::Next Sending::file_for(std::int32_t index) {
    steps_.set(name_, [&] { return safe_mail_.Recipients().Item(index).name(); });
    status(Text(checking) + name_);
    const std::optional<Text> filter = filter_for(index);
    if (!filter) return Next::recipient;
    status(Text(checked) + name_);
    if (stops_without_to_line(session_, variant_row(Variant::sent), safe_mail_, {.native = native_}))
        return Next::leave;

    const records::PathRow& path = records::path_row(records::Path::automatic_sent);
    steps_.set(account_profiles_, [&] {
        return records::open_folder(session_.desktop, main_add_in_, records::folder::account_profiles);
    });
    folder_ = records::choose_folder(session_, account_profiles_, path.folder, folder_);
    status(Text(searching) + name_);
    Item contact;
    if (!filter->empty()) contact = find_contact(session_, account_profiles_, *filter);
    if (steps_.certainly({Reason::no_contact, address_}, [&] { return !contact; })) {
        status(Text(searching) + name_ + Text(not_found));
        wait();
        return Next::recipient;
    }
    status([&] { return Text(searching) + contact.FullName() + Text(saving); });
    wait();
    note_ = records::file_note(session_, path,
                               {.folder = folder_,
                                .mail = {.safe = safe_mail_, .item = mail_},
                                .sources = {records::of_contact(contact)},
                                .before = note_});
    here_.give_way();
    return Next::recipient;
}

std::optional<Text> Sending::filter_for(std::int32_t index) {
    const VariantRow& variant = variant_row(Variant::sent);
    steps_.set(entry_, [&] { return safe_mail_.Recipients().Item(index).AddressEntry(); });
    if (steps_.possibly([&] { return automation::upper(entry_.Fields(tag::address_type)) == type_smtp; })) {
        steps_.set(address_, [&] { return safe_mail_.Recipients().Item(index).Address(); });
        if (steps_.certainly(Reason::no_recipient_address,
                             [&] { return variant.empty_address_stops && address_.empty(); })) {
            return std::nullopt;
        }
        return contact_filter(variant.terms, true, {.native = address_});
    }
    // the first half of the test looks at the mail's sender, not at the recipient
    if (steps_.certainly([&] {
            const Text sender = automation::upper(safe_mail_.Fields(tag::sender_address_type));
            const Text recipient = automation::upper(entry_.Fields(tag::address_type));
            return why_shut(session_, variant, {sender, recipient});
        })) {
        return std::nullopt;
    }
    steps_.set(address_, [&] { return automation::trimmed(entry_.Fields(tag::smtp_address)); });
    steps_.set(native_, [&] { return automation::trimmed(entry_.Fields(tag::address)); });
    return contact_filter(variant.terms, false, {.native = native_, .smtp = address_});
}

void Sending::status(const std::function<Text()>& text) {
    steps_.run([&] { session_.SearchForm.window()->status(text()); });
    here_.give_way();
}

void Sending::wait() {
    steps_.run([&] { session_.desktop.sleep(reading_time); });
    here_.give_way();
}

}  // namespace

void AutomaticCreateNoteSend(Session& session, const Item& item) {
    const Presence here(session);
    const Steps steps(session);
    here.give_way();
    if (steps.possibly([&] { return item.EntryID().empty(); })) steps.run([&] { item.Save(); });
    Sending(session, item).run();
    steps.run([&] { session.SearchForm.hide(); });
    steps.run([&] { session.SearchForm.unload(); });
}

}  // namespace addin::filing
