#include "addin/quickview/launch.h"

#include "addin/createnote/new_contact.h"
#include "addin/filing/address_resolution.h"
#include "addin/ground/presence.h"
#include "addin/ground/product.h"
#include "addin/ground/status_windows.h"
#include "addin/host/shell.h"
#include "addin/quickview/quick_view.h"
#include "addin/records/database.h"
#include "addin/records/names.h"

namespace addin::quickview {

using automation::Text;
using automation::TextView;
using automation::Value;
using createnote::NewContact;
using createnote::NewContactPlan;
using filing::ReadSender;
using filing::Variant;
using host::family::MainAddIn;
using host::family::SafeMailItem;
using host::outlook::Folder;
using host::outlook::Item;
namespace property = records::property;

namespace {

constexpr TextView no_safe_mail = u"TarnwellOMG did not initialize";
constexpr TextView searching = u"Searching for ";
constexpr TextView alerts_programs[] = {u"TarnwellUtility.exe Alerts;;AccountID;",
                                        u"TarnwellUpdate.exe Alerts;;AccountID;"};

struct LaunchRow {
    Variant variant;
    bool in_mail_folders_only;
    bool tests_safe_mail;
    bool leads_first;     ///< a lead that matches is opened, and that is all
    bool searches_again;  ///< with an empty filter, which no host takes
    bool offers_contact;  ///< for want of a contact; or else the dialog opens or makes one
    bool tells_record;    ///< fills in what the panel's button needs
};
constexpr LaunchRow rows[] = {
    // variant                     mail folders  safe  leads   again   offers  tells
    {Variant::quick_view_launch, true, true, true, false, true, true},
    {Variant::tarnwell_launch, false, false, false, true, false, false},
};

/// Where a field of the window comes from.
enum class Source { field, property, mail_id, parent_store, literal };
struct FieldRow {
    ControlName control;
    Source source;
    TextView name;
    bool of_record = false;  ///< not with every launch
};
constexpr FieldRow fields[] = {
    {u"Contactname", Source::field, u"FullName"},
    {u"CompanyName", Source::field, u"CompanyName"},
    {u"Street1", Source::field, u"BusinessAddressStreet"},
    {u"City", Source::field, u"BusinessAddressCity"},
    {u"State", Source::field, u"BusinessAddressState"},
    {u"Zip", Source::field, u"BusinessAddressPostalCode"},
    {u"Phone", Source::field, u"BusinessTelephoneNumber"},
    {u"Fax", Source::field, u"BusinessFaxNumber"},
    {u"ContactID", Source::property, property::contact_id},
    {u"AccountID", Source::property, property::account_id},
    {u"EmailID", Source::mail_id, u""},
    {u"cmbFolders", Source::literal, choose_folder},
    {u"AccountManager", Source::property, property::account_manager},
    {u"Team", Source::property, property::team},
    {u"Alignment", Source::property, property::alignment},
    {u"EntryID", Source::field, u"EntryID", true},
    {u"MessageClass", Source::field, u"MessageClass", true},
    {u"StoreID", Source::parent_store, u"", true},
};

Text property_text(const Item& item, TextView name) {
    return item.UserProperties().Item(name).value().to_text();
}

Text value_of(const FieldRow& row, const Item& contact, const SafeMailItem& mail) {
    switch (row.source) {
        case Source::field:
            return contact.get(row.name).to_text();
        case Source::property:
            return property_text(contact, row.name);
        case Source::mail_id:
            return mail.EntryID();
        case Source::parent_store:
            return Folder(contact.Parent()).StoreID();
        case Source::literal:
            break;
    }
    return Text(row.name);
}

/// One launch, as far as it has come.
class Run {
  public:
    Run(State& state, const LaunchRow& row, Item mail)
        : here_(state.session), state_(state), session_(state.session), row_(row), mail_(std::move(mail)) {}

    void go() {
        if (steps_.possibly([&] { return mail_.EntryID().empty(); })) return;
        if (steps_.possibly([&] { return mail_.Sensitivity() != host::outlook::sensitivity_normal; })) return;
        if (!make_objects()) return;
        steps_.run([&] { safe_mail_.Item(mail_); });
        const filing::VariantRow& variant = filing::variant_row(row_.variant);
        const std::optional<ReadSender> sender =
            filing::read_sender(session_, variant, safe_mail_, [&] { give_way(); });
        if (!sender || filing::stops_without_to_line(session_, variant, safe_mail_, sender->addresses))
            return;

        steps_.set(profiles_, [&] {
            return records::open_folder(session_.desktop, main_add_in_, records::folder::account_profiles);
        });
        give_way();
        steps_.run([&] { session_.SearchForm.window()->status(Text(searching) + safe_mail_.SenderName()); });
        steps_.run([&] { session_.SearchForm.show(); });
        give_way();
        if (row_.leads_first && opens_lead(sender->filter)) return;
        const Item contact = find_contact(sender->filter);
        give_way();
        if (contact) {
            start_alerts(contact);
            show(contact);
        } else if (row_.offers_contact) {
            offer_contact(sender->address);
        } else {
            open_contact();
        }
    }

  private:
    void give_way() { here_.give_way(); }
    void end_search() {
        steps_.run([&] { session_.SearchForm.hide(); });
    }

    /// Makes what the launch works through; whether it goes on.
    bool make_objects() {
        host::Desktop& desktop = session_.desktop;
        steps_.set(main_add_in_, [&] { return records::make_main_add_in(desktop); });
        give_way();
        steps_.set(safe_mail_, [&] { return records::make_safe_mail(desktop); });
        if (!row_.tests_safe_mail || safe_mail_) return true;
        desktop.message_box(no_safe_mail, product_title, host::box::critical);
        return false;
    }

    bool opens_lead(const Text& filter) {
        Folder leads;
        steps_.set(leads, [&] { return Folder(profiles_.Parent()).Folders().Item(records::folder::leads); });
        Item lead;
        if (leads) steps_.set(lead, [&] { return leads.Items().Find(filter); });
        if (!lead) return false;
        steps_.run([&] { lead.Display(); });
        end_search();
        return true;
    }

    Item find_contact(const Text& filter) {
        Item contact = filing::find_contact(session_, profiles_, filter);
        if (contact || !row_.searches_again) return contact;
        steps_.set(contact, [&] { return filing::contact_items(session_, profiles_).Find(u""); });
        return contact;
    }

    /// A program of the family reminds of what is due with the account. Whether it does isn't looked after.
    void start_alerts(const Item& contact) {
        host::WshShell shell;
        steps_.set(shell, [&] { return host::WshShell(session_.desktop.create(host::WshShell::prog_id)); });
        steps_.run([&] { shell.CurrentDirectory(main_add_in_.GetDLLPath()); });
        for (const TextView program : alerts_programs) {
            const auto start = [&] {
                shell.Run(Text(program) + property_text(contact, property::account_id));
            };
            if (steps_.run(start)) break;
        }
        shell.reset();
        end_search();
        give_way();
    }

    void show(const Item& contact) {
        const std::shared_ptr<QuickView> window = state_.QuickView.window();
        steps_.run([&] { window->control(ControlName(u"lstItems")).list().clear(); });
        for (const FieldRow& field : fields) {
            if (field.of_record && !row_.tells_record) continue;
            steps_.run([&] { window->control(field.control).text(value_of(field, contact, safe_mail_)); });
        }
        steps_.run([&] { window->show(); });
        give_way();
    }

    void offer_contact(const Text& address) {
        Text name;
        steps_.set(name, [&] { return safe_mail_.SenderName(); });
        const NewContactPlan plan{.row = createnote::new_contact_row(records::Path::quick_view_new_contact),
                                  .address = address,
                                  .name = name,
                                  .main_add_in = main_add_in_,
                                  .account_profiles = profiles_};
        const std::optional<NewContact> made = createnote::offer_new_contact(session_, plan);
        if (made) createnote::post_note_for_new_contact(session_, plan, *made, safe_mail_);
        give_way();
        end_search();
    }

    void open_contact() {
        steps_.run([&] { std::make_shared<createnote::dlgSend>(state_.createnote)->OpenContact(); });
        give_way();
        end_search();
    }

    Presence here_;  ///< goes last
    State& state_;
    Session& session_;
    const LaunchRow& row_;
    Steps steps_{session_};
    Item mail_;
    MainAddIn main_add_in_;
    SafeMailItem safe_mail_;
    Folder profiles_;
};

}  // namespace

void launch(State& state, const automation::Sink& goExplorer, Launch which, Value& selection) {
    const LaunchRow& row = rows[static_cast<std::size_t>(which)];
    const Presence here(state.session);
    const Steps steps(state.session);
    if (row.in_mail_folders_only && steps.possibly([&] {
            return host::outlook::Explorer(goExplorer.source()).CurrentFolder().DefaultMessageClass() !=
                   records::message_class::mail;
        })) {
        return;
    }
    steps.set(selection, [&] { return Value(host::outlook::Selection(selection.to_object()).Item(1)); });
    Item mail;
    steps.set(mail, [&] { return Item(selection.to_object()); });
    here.give_way();
    Run(state, row, mail).go();
}

}  // namespace addin::quickview
