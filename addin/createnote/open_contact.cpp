// Opening the contact of a mail, or the record that a personal contact is linked with. The dialog isn't
// shown.
#include "addin/createnote/new_contact.h"
#include "addin/filing/address_resolution.h"
#include "addin/ground/presence.h"
#include "addin/ground/product.h"
#include "addin/ground/status.h"
#include "addin/ground/status_windows.h"
#include "addin/records/database.h"
#include "addin/records/names.h"
#include "addin/records/property_filters.h"

namespace addin::createnote {

using automation::Text;
using automation::TextView;
using host::family::SafeMailItem;
using host::outlook::Folder;
using host::outlook::Item;
namespace tag = host::family::tag;

namespace {

constexpr TextView received_only = u"Please use the Open Contact button for received emails only.";
constexpr TextView dead_link = u"Tarnwell Contact was not found";
constexpr TextView searching_for = u"Searching for ";

}  // namespace

void dlgSend::OpenContact() {
    host::Desktop& desktop = session_.desktop;
    const Presence here(session_);
    const Steps steps(session_);
    here.give_way();
    const auto application = [&] { return host::outlook::Application(desktop.application()); };
    SafeMailItem safe_mail;
    host::outlook::Inspector inspector;
    Item item;
    steps.set(inspector, [&] { return application().ActiveInspector(); });
    steps.set(safe_mail, [&] { return records::make_safe_mail(desktop); });
    steps.set(item, [&] { return inspector.CurrentItem(); });
    if (!item) steps.set(item, [&] { return application().ActiveExplorer().Selection().Item(1); });
    steps.run([&] { safe_mail.Item(item); });
    if (steps.possibly([&] { return safe_mail.SenderName().empty(); })) {
        desktop.message_box(received_only, project_title, host::box::ok);
        return;
    }
    if (steps.possibly([&] { return safe_mail.To().empty(); })) return;
    if (steps.possibly([&] { return item.EntryID().empty(); })) steps.run([&] { item.Save(); });

    const filing::FilterTerms& terms = filing::terms_of_open_contact();
    filing::Addresses addresses;
    Text address;
    steps.set(addresses.sender_name, [&] { return safe_mail.SenderName(); });
    steps.set(addresses.native, [&] { return automation::trimmed(safe_mail.Fields(tag::sender_address)); });
    Text filter;
    if (steps.possibly([&] {
            return automation::upper(safe_mail.Fields(tag::sender_address_type)) == filing::type_smtp;
        })) {
        address = addresses.native;
        filter = filing::contact_filter(terms, true, addresses);
    } else {
        steps.set(addresses.smtp,
                  [&] { return automation::trimmed(safe_mail.sender().Fields(tag::smtp_address)); });
        address = addresses.smtp;
        filter = filing::contact_filter(terms, false, addresses);
    }

    const records::Database database = records::open_database(session_);
    const Folder& profiles = database.account_profiles;
    Folder contacts;
    steps.set(contacts, [&] { return profiles.Folders().Item(records::folder::account_contacts); });
    steps.run([&] { show_status(session_, Text(searching_for) + addresses.sender_name); });
    here.give_way();
    Item contact;
    steps.set(contact, [&] { return contacts.Items().Find(filter); });
    steps.run([&] { session_.SearchForm.hide(); });
    steps.run([&] { session_.SearchForm.unload(); });
    here.give_way();
    if (contact) {
        if (steps.possibly([&] { return contact.Class() == host::outlook::object_class::contact; })) {
            steps.run([&] { contact.Display(); });
        }
        return;
    }

    const NewContactPlan plan{.row = new_contact_row(records::Path::open_contact_new_contact),
                              .address = address,
                              .name = addresses.sender_name,
                              .main_add_in = database.main_add_in,
                              .account_profiles = profiles,
                              .before_choice = [this] { unload(); }};
    const std::optional<NewContact> made = offer_new_contact(session_, plan);
    if (made) post_note_for_new_contact(session_, plan, *made, safe_mail);
}

void dlgSend::OpenTarnwellContact() {
    host::Desktop& desktop = session_.desktop;
    const Steps steps(session_);
    const Folder profiles = records::open_database(session_).account_profiles;
    Folder target;
    const auto account_contacts = [&] { return profiles.Folders().Item(records::folder::account_contacts); };
    steps.set(target, [&] { return Folder(profiles.Parent()).Folders().Item(records::folder::leads); });
    if (steps.possibly([&] { return target.Name() != records::folder::leads; })) {
        steps.set(target, account_contacts);
    }
    Item item;
    steps.set(item, [&] {
        return host::outlook::Application(desktop.application()).ActiveInspector().CurrentItem();
    });
    Text filter;
    steps.set(filter, [&] { return records::equality(records::property::contact_id, item.CustomerID()); });
    Item record;
    int answers = 0;
    const auto search = [&] {
        if (filter.empty()) return;
        if (steps.set(record, [&] { return target.Items().Find(filter); })) ++answers;
    };
    search();
    host::family::SafeRecordItem safe_record;
    steps.set(safe_record, [&] { return host::family::SafeRecordItem::of_contact(desktop); });
    steps.run([&] { safe_record.Item(record); });
    if (!record) {
        steps.set(target, account_contacts);
        search();
        steps.run([&] { safe_record.Item(record); });
    }
    if (!record) {
        desktop.message_box(dead_link, product_title, host::box::ok);
        // where a search gave no answer the link may be good: what the user has entered stays, in its window
        // too
        constexpr int both = 2;
        if (answers != both) return;
        steps.run([&] { item.CustomerID(u""); });
        steps.run([&] { item.Account(u""); });
        if (!steps.run([&] { item.Save(); })) return;
    }
    steps.run([&] { item.Close(host::outlook::discard_changes); });
    steps.run([&] { safe_record.Display(); });
}

}  // namespace addin::createnote
