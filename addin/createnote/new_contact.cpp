#include "createnote/new_contact.h"

#include "core/question.h"
#include "records/accounts.h"
#include "records/stamp.h"

namespace addin::createnote {

using host::Text;
using host::TextView;
using host::Value;
using host::family::ListPicker;
using host::outlook::Item;
namespace property = records::property;

namespace {

constexpr TextView not_found_start = u"Tarnwell Account/Contact ", not_found_end = u" NOT FOUND!";
constexpr TextView create_question = u"\rWould you like to Create an Account/Contact";
constexpr TextView account_question = u"Would you like to search for an Account Name? ";
constexpr TextView commercial_end = u".com", web_start = u"www.";

/// Where the chooser's answer holds the entry id of the chosen account.
constexpr std::int32_t entry_id_row = 7, entry_id_column = 0;

Text property_text(const Item& item, TextView name) {
    return item.UserProperties().Item(name).value().to_text();
}

/// What an address tells of its owner's company.
struct Domain {
    Text company, web_page;
};
Domain domain_of(const Text& address) {
    const std::size_t at = address.find(u'@');
    const Text domain = at == Text::npos ? address : address.substr(at + 1);
    return {domain.substr(0, domain.find(commercial_end)), Text(web_start) + domain};
}

/// The account that the user chooses; Nothing if none is chosen.
Item choose_account(Steps& steps, Session& session, const NewContactPlan& plan) {
    const ListPicker picker = records::make_account_picker(steps, session.desktop, plan.account_profiles);
    steps.run([&] { picker.loaddialog(); });
    steps.run([&] { picker.refreshaccounts(); });
    steps.run([&] { picker.showdialog(); });
    Item account;
    if (steps.holds([&] { return !picker.dialogcancel(); })) {
        host::Array chosen;
        steps.set(chosen, [&] { return picker.slist(); });
        steps.set(account, [&] {
            return host::outlook::Application(session.desktop.application())
                .GetNamespace(u"MAPI")
                .GetItemFromID(chosen.at(entry_id_row, entry_id_column).to_text(),
                               plan.account_profiles.StoreID());
        });
    }
    return account;
}

/// Copies what a contact takes from its account. The company's name is set by the caller.
void copy_account(Steps& steps, const Item& account, const NewContactPlan& plan, NewContact& contact) {
    for (const records::AccountToContact& pair : records::account_to_contact) {
        const bool name = pair.account_property == property::account_name;
        if (name) continue;
        const auto value = [&] {
            const bool kept = pair.account_property == property::alignment && plan.keeps_account_values;
            return kept ? Value(contact.alignment)
                        : account.UserProperties().Item(pair.account_property).value();
        };
        records::write_contact_field(steps, contact.item, pair, value);
    }
    steps.set(contact.account_id, [&] { return property_text(account, property::account_id); });
    steps.set(contact.company, [&] { return property_text(account, property::account_name); });
}

}  // namespace

std::optional<NewContact> offer_new_contact(Steps& steps, Session& session, const NewContactPlan& plan) {
    if (!asks(session.desktop,
              Text(not_found_start) + plan.address + Text(not_found_end) + Text(create_question))) {
        return std::nullopt;
    }
    const Domain domain = domain_of(plan.address);
    NewContact contact;
    contact.company = domain.company;
    steps.set(contact.contact_id, [&] { return plan.main_add_in.generateid(); });
    if (plan.before_choice) plan.before_choice();

    Item account;
    if (asks(session.desktop, account_question)) {
        account = choose_account(steps, session, plan);
        if (account) {
            steps.set(contact.account_id, [&] { return property_text(account, property::account_id); });
        }
        if (account && plan.keeps_account_values) {
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
        records::write_property(steps, contact.item, name, value);
    };
    set(property::account_id, [&] { return Value(contact.account_id); });
    set(property::contact_id, [&] { return Value(contact.contact_id); });
    set(property::account_manager, [&] { return Value(plan.main_add_in.GetUserName()); });
    set(property::team, [&] { return Value(plan.main_add_in.GetUserName()); });
    set(property::alignment, [&] { return Value(plan.main_add_in.GetAlignment()); });
    if (account) copy_account(steps, account, plan, contact);
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

}  // namespace addin::createnote
