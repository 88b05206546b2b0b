#include "addin/createnote/new_contact.h"

#include <algorithm>
#include <stdexcept>

#include "addin/ground/keyed.h"
#include "addin/ground/question.h"
#include "addin/records/accounts.h"
#include "addin/records/names.h"
#include "addin/records/stamp.h"

namespace addin::createnote {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::family::ListPicker;
using host::outlook::Item;
namespace property = records::property;

namespace {

constexpr TextView no_contact_start = u"Tarnwell Account/Contact ", no_contact_end = u" NOT FOUND!";
constexpr TextView create_question = u"\rWould you like to Create an Account/Contact";
constexpr TextView account_question = u"Would you like to search for an Account Name? ";
constexpr TextView commercial_end = u".com", web_start = u"www.";

// clang-format off
constexpr NewContactRow new_contacts[] = {
    // path                                     picker              keeps values  alignment of kept  address is domain
    {records::Path::quick_view_new_contact,     PickerForm::search, true,         false,             false},
    {records::Path::open_contact_new_contact,   PickerForm::dialog, true,         true,              true},
    {records::Path::create_new_contact,         PickerForm::dialog, false,        false,             true},
};
// clang-format on
static_assert(is_keyed(new_contacts, &NewContactRow::path));

/// Where the picker's answer holds the entry id of the chosen account: a search counts the rows first, the
/// dialog the columns.
constexpr std::int32_t first_choice = 0, entry_id_place = 7;

Text property_text(const Item& item, TextView name) {
    return item.UserProperties().Item(name).value().to_text();
}

void show_picker(const Session& session, const ListPicker& picker, PickerForm form) {
    const Steps steps(session);
    if (form == PickerForm::search) {
        steps.run([&] { picker.searchany(records::account_definition, records::account_list_title); });
        return;
    }
    steps.run([&] { picker.loaddialog(); });
    steps.run([&] { picker.refreshaccounts(); });
    steps.run([&] { picker.showdialog(); });
}

/// The account that the user chooses; Nothing if none is chosen.
Item choose_account(Session& session, const NewContactPlan& plan) {
    const Steps steps(session);
    const ListPicker picker = records::make_account_picker(session, plan.account_profiles);
    show_picker(session, picker, plan.row.picker);
    Item account;
    if (steps.possibly([&] { return !picker.dialogcancel(); })) {
        automation::Array chosen;
        steps.set(chosen, [&] { return picker.slist(); });
        const bool rows_first = plan.row.picker == PickerForm::search;
        steps.set(account, [&] {
            const Value& id = rows_first ? chosen.at(first_choice, entry_id_place)
                                         : chosen.at(entry_id_place, first_choice);
            return host::outlook::Application(session.desktop.application())
                .GetNamespace(u"MAPI")
                .GetItemFromID(id.to_text(), plan.account_profiles.StoreID());
        });
    }
    return account;
}

/// Copies what a contact takes from its account. The company's name is set by the caller.
void copy_account(const Session& session, const Item& account, const NewContactPlan& plan,
                  NewContact& contact) {
    const Steps steps(session);
    for (const records::AccountToContact& pair : records::account_to_contact) {
        const bool name = pair.account_property == property::account_name;
        if (name) continue;
        const auto value = [&] {
            const bool kept =
                pair.account_property == property::alignment && plan.row.kept_alignment_is_copied;
            return kept ? Value(contact.alignment)
                        : account.UserProperties().Item(pair.account_property).value();
        };
        records::write_contact_field(session, contact.item, pair, value);
    }
    steps.set(contact.account_id, [&] { return property_text(account, property::account_id); });
    steps.set(contact.company, [&] { return property_text(account, property::account_name); });
}

/// What is kept of the account that was chosen.
Value kept_value(const NewContact& made, records::Name name) {
    const std::pair<records::Name, const Text*> values[] = {
        {property::account_id, &made.account_id},
        {property::account_name, &made.company},
        {property::account_manager, &made.account_manager},
        {property::team, &made.team},
        {property::alignment, &made.alignment}};
    for (const auto& [known, value] : values) {
        if (known == name) return *value;
    }
    throw std::logic_error("a new contact keeps no " + automation::to_utf8(name));
}

}  // namespace

Domain domain_of(const Text& address, bool address_is_domain) {
    const std::size_t at = address.find(u'@');
    if (at == Text::npos && !address_is_domain) return {};
    const Text domain = at == Text::npos ? address : address.substr(at + 1);
    return {domain.substr(0, domain.find(commercial_end)), Text(web_start) + domain};
}

const NewContactRow& new_contact_row(records::Path path) {
    return *std::ranges::find(new_contacts, path, &NewContactRow::path);
}

std::optional<NewContact> offer_new_contact(Session& session, const NewContactPlan& plan) {
    const Steps steps(session);
    if (!asks(session.desktop,
              Text(no_contact_start) + plan.address + Text(no_contact_end) + Text(create_question))) {
        return std::nullopt;
    }
    const Domain domain = domain_of(plan.address, plan.row.address_is_domain);
    NewContact contact;
    contact.company = domain.company;
    steps.set(contact.contact_id, [&] { return plan.main_add_in.generateid(); });
    if (plan.before_choice) plan.before_choice();

    Item account;
    if (asks(session.desktop, account_question)) {
        account = choose_account(session, plan);
        if (account) {
            steps.set(contact.account_id, [&] { return property_text(account, property::account_id); });
        }
        if (account && plan.row.keeps_account_values) {
            steps.set(contact.company, [&] { return property_text(account, property::account_name); });
            steps.set(contact.account_manager,
                      [&] { return property_text(account, property::account_manager); });
            steps.set(contact.team, [&] { return property_text(account, property::team); });
            steps.set(contact.alignment, [&] { return property_text(account, property::alignment); });
        }
    }

    steps.set(contact.item, [&] {
        return plan.account_profiles.Folders()
            .Item(records::folder::account_contacts)
            .Items()
            .Add(records::message_class::account_contact);
    });
    const auto set = [&](TextView name, const std::function<Value()>& value) {
        records::write_property(session, contact.item, name, value);
    };
    set(property::account_id, [&] { return Value(contact.account_id); });
    set(property::contact_id, [&] { return Value(contact.contact_id); });
    set(property::account_manager, [&] { return Value(plan.main_add_in.GetUserName()); });
    set(property::team, [&] { return Value(plan.main_add_in.GetUserName()); });
    set(property::alignment, [&] { return Value(plan.main_add_in.GetAlignment()); });
    if (account) copy_account(session, account, plan, contact);
    set(property::account_name, [&] { return Value(contact.company); });
    steps.run([&] { contact.item.CompanyName(contact.company); });
    steps.run([&] { contact.item.WebPage(domain.web_page); });
    steps.run([&] { contact.item.FullName(plan.name); });
    steps.run([&] { contact.item.Subject(plan.name); });
    steps.run([&] { contact.item.Email1Address(plan.address); });
    steps.run([&] { contact.item.Save(); });
    steps.run([&] { contact.item.Display(); });
    return contact;
}

void post_note_for_new_contact(Session& session, const NewContactPlan& plan, const NewContact& made,
                               const host::family::SafeMailItem& mail) {
    const records::PathRow& path = records::path_row(plan.row.path);
    records::file_note(
        session, path,
        {.folder = records::choose_folder(session, plan.account_profiles, path.folder),
         .mail = {.safe = mail},
         .sources = {
             {records::From::chosen_account, [&](records::Name name) { return kept_value(made, name); }},
             {records::From::new_id, [&](records::Name) { return Value(made.contact_id); }}}});
}

}  // namespace addin::createnote
