#include "addin/filing/received_mail.h"

#include "addin/filing/address_resolution.h"
#include "addin/ground/presence.h"
#include "addin/records/database.h"
#include "addin/records/stamp.h"

namespace addin::filing {

void goInbox_ItemAdd(Session&, const host::outlook::Item&) {}

void goInbox_ItemChange(Session& session, const host::outlook::Item& item) {
    const Presence here(session);
    const Steps steps(session);
    // both halves of a test are always asked, and one that can't be answered stops nothing
    if (steps.certainly([&] {
            const bool is_mail = item.MessageClass() == records::message_class::mail;
            const bool is_read = !item.UnRead();
            if (!is_mail) return Reason::other_class;
            return is_read ? Reason::none : Reason::unread;
        })) {
        return;
    }
    here.give_way();
    if (steps.certainly([&] {
            const bool unmarked = item.BillingInformation() != records::auto_filed;
            const bool open_to_all = item.Sensitivity() == host::outlook::sensitivity_normal;
            if (!unmarked) return Reason::filed_already;
            return open_to_all ? Reason::none : Reason::not_for_everybody;
        })) {
        return;
    }
    steps.run([&] { AutomaticCreateNote(session, item); });
}

void AutomaticCreateNote(Session& session, const host::outlook::Item& item) {
    const Presence here(session);
    const Steps steps(session);
    here.give_way();
    if (steps.certainly(Reason::not_for_everybody,
                        [&] { return item.Sensitivity() != host::outlook::sensitivity_normal; })) {
        return;
    }
    host::family::MainAddIn main_add_in;
    steps.set(main_add_in, [&] { return records::make_main_add_in(session.desktop); });
    if (steps.certainly(Reason::received_filing_off,
                        [&] { return main_add_in.getEmailAutoFile() != u"1"; })) {
        return;
    }

    const std::optional<Sender> sender = resolve_sender(session, variant_row(Variant::received), item);
    if (!sender) return;

    const records::PathRow& path = records::path_row(records::Path::automatic_received);
    host::outlook::Folder account_profiles;
    steps.set(account_profiles, [&] {
        return records::open_folder(session.desktop, main_add_in, records::folder::account_profiles);
    });
    const host::outlook::Folder folder = records::choose_folder(session, account_profiles, path.folder);
    const host::outlook::Item contact = find_contact(session, account_profiles, sender->filter);
    if (steps.certainly({Reason::no_contact, sender->address}, [&] { return !contact; })) return;

    here.give_way();
    records::file_note(session, path,
                       {.folder = folder,
                        .mail = {.safe = sender->mail, .item = item},
                        .sources = {records::of_contact(contact)}});
    here.give_way();
}

}  // namespace addin::filing
