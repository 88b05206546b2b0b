#include "addin/conversions/contact_conversion.h"

#include <array>
#include <span>

#include "addin/conversions/shown_item.h"
#include "addin/ground/keyed.h"
#include "addin/ground/question.h"
#include "addin/ground/status.h"
#include "addin/ground/steps.h"
#include "addin/records/accounts.h"
#include "addin/records/database.h"
#include "addin/records/stamp.h"

namespace addin::conversions {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::family::SafeRecordItem;
using host::outlook::Folder;
using host::outlook::Item;
using records::AccountToContact;
namespace property = records::property;

namespace {

/// What differs between the two conversions.
struct ConversionRow {
    TextView question;
    records::Name message_class;
    records::Name folder;
    bool beside_accounts;  ///< the folder lies beside "Account Profiles", or else below it
    bool has_account;      ///< the account is looked for
    TextView done;         ///< told after the new contact's name
};
constexpr ConversionRow to_contact = {u"Would you like to convert this contact to a Tarnwell Contact? ",
                                      records::message_class::account_contact,
                                      records::folder::account_contacts,
                                      false,
                                      true,
                                      u" was created as a Tarnwell Contact."};
constexpr ConversionRow to_lead = {u"Would you like to convert this contact to a Tarnwell Lead? ",
                                   records::message_class::lead,
                                   records::folder::leads,
                                   true,
                                   false,
                                   u" was created as a Tarnwell Lead."};

constexpr TextView account_question = u"Would you like to search for an Account? ";
constexpr TextView key_start = u"C";
constexpr std::uint32_t pause = 1000;  // milliseconds

/// Where the picker's answer holds the entry id of the first chosen account.
constexpr std::int32_t entry_id_row = 0, entry_id_column = 7;

/// The mail addresses, which are read by the ids of their properties in the set of contacts' properties. Both
/// are published with the property schema.
constexpr TextView contact_properties = u"{00062004-0000-0000-C000-000000000046}";
struct AddressField {
    std::int32_t id;
    records::Name field;
};
constexpr AddressField addresses[] = {
    {0x8083, records::field::email1}, {0x8093, records::field::email2}, {0x80A3, records::field::email3}};

/// The fields that are copied, in their order.
constexpr TextView copied_fields[] = {
    u"Email1DisplayName",
    u"Email2DisplayName",
    u"Email3DisplayName",
    u"Body",
    u"Account",
    u"Anniversary",
    u"AssistantName",
    u"AssistantTelephoneNumber",
    u"BillingInformation",
    u"Birthday",
    u"Business2TelephoneNumber",
    u"BusinessAddressCity",
    u"BusinessAddressCountry",
    u"BusinessAddressPostalCode",
    u"BusinessAddressPostOfficeBox",
    u"BusinessAddressState",
    u"BusinessAddressStreet",
    u"BusinessFaxNumber",
    u"BusinessHomePage",
    u"BusinessTelephoneNumber",
    u"CallbackTelephoneNumber",
    u"CarTelephoneNumber",
    u"Categories",
    u"Children",
    u"Companies",
    u"CompanyName",
    u"CustomerID",
    u"Department",
    u"FileAs",
    u"FirstName",
    u"HomeAddress",
    u"HomeFaxNumber",
    u"HomeTelephoneNumber",
    u"JobTitle",
    u"LastName",
    u"MailingAddress",
    u"ManagerName",
    u"MiddleName",
    u"Mileage",
    u"MobileTelephoneNumber",
    u"NickName",
    u"OfficeLocation",
    u"OtherAddress",
    u"OtherFaxNumber",
    u"OtherTelephoneNumber",
    u"Profession",
    u"PrimaryTelephoneNumber",
    u"Spouse",
    u"Suffix",
    u"Title",
    u"WebPage",
};
static_assert(std::size(copied_fields) == 51 && is_keyed(copied_fields, std::identity()));

/// What the new contact takes from its account. The account's name is written twice.
constexpr AccountToContact always_taken[] = {
    {property::account_id, property::account_id, true},
    {property::account_name, property::account_name, true},
    {property::account_name, property::account_name, true},
    {property::account_name, u"CompanyName", false},
    {property::team, property::team, true},
    {property::alignment, property::alignment, true},
};
constexpr AccountToContact taken_address[] = {
    {property::account_address, u"BusinessAddressStreet", false},
    {property::account_city, u"BusinessAddressCity", false},
    {property::account_state, u"BusinessAddressState", false},
    {property::account_zip, u"BusinessAddressPostalCode", false},
};
/// Each of these is taken on its own, if the contact has none.
constexpr AccountToContact taken_if_empty[] = {
    {property::account_phone, u"BusinessTelephoneNumber", false},
    {property::account_web, u"WebPage", false},
};

/// What is read of an account that the user chose, before it is taken over.
constexpr records::Name read_of_choice[] = {property::account_id, property::account_name,
                                            property::account_manager, property::team, property::alignment};

class ContactConversion {
  public:
    ContactConversion(Session& session, const ConversionRow& row)
        : session_(session), desktop_(session.desktop), row_(row) {}

    void run();

  private:
    host::outlook::Application application() const {
        return host::outlook::Application(desktop_.application());
    }
    void make_contact(const Text& key, const Text& user);
    SafeRecordItem make_safe_contact();
    void copy_fields(const SafeRecordItem& source, const SafeRecordItem& target);
    void find_account();
    void choose_account();
    void take_over(const Item& account);
    void take(const Item& account, const AccountToContact& row);
    bool has_no(TextView field);

    Session& session_;
    host::Desktop& desktop_;
    const ConversionRow& row_;
    Steps steps_{session_};
    Item source_, contact_;
    Folder profiles_;
};

void ContactConversion::run() {
    if (!asks(desktop_, row_.question)) return;
    steps_.set(source_, [&] { return shown_item(application(), host::outlook::object_class::contact); });
    const records::Database database = records::open_database(session_);
    profiles_ = database.account_profiles;
    Text id, user;
    steps_.set(id, [&] { return database.main_add_in.generateid(); });
    steps_.set(user, [&] { return database.main_add_in.GetUserName(); });
    const Text key = Text(key_start) + id;
    steps_.run([&] { source_.CustomerID(key); });
    const bool saved = steps_.run([&] { source_.Save(); });

    make_contact(key, user);
    const SafeRecordItem safe_source = make_safe_contact(), safe_contact = make_safe_contact();
    steps_.run([&] { safe_source.Item(source_); });
    steps_.run([&] { safe_contact.Item(contact_); });
    copy_fields(safe_source, safe_contact);
    if (row_.has_account && steps_.possibly([&] { return !source_.CompanyName().empty(); })) find_account();

    steps_.run([&] { safe_contact.Save(); });
    steps_.run([&] { ShowMessage(session_, contact_.FullName() + Text(row_.done)); });
    steps_.run([&] { desktop_.sleep(pause); });
    if (!saved) return;  // what the user has entered would go with the window
    steps_.run([&] { source_.Close(host::outlook::discard_changes); });
    steps_.run([&] { safe_source.Close(host::outlook::discard_changes); });
}

void ContactConversion::make_contact(const Text& key, const Text& user) {
    steps_.set(contact_, [&] {
        const Folder above = row_.beside_accounts ? Folder(profiles_.Parent()) : profiles_;
        return above.Folders().Item(row_.folder).Items().Add(row_.message_class);
    });
    records::write_property(session_, contact_, property::contact_id, [&] { return Value(key); });
    records::write_property(session_, contact_, property::account_manager, [&] { return Value(user); });
    records::write_property(session_, contact_, property::team, [&] { return Value(user); });
}

SafeRecordItem ContactConversion::make_safe_contact() {
    SafeRecordItem safe;
    steps_.set(safe, [&] { return SafeRecordItem::of_contact(desktop_); });
    return safe;
}

void ContactConversion::copy_fields(const SafeRecordItem& source, const SafeRecordItem& target) {
    constexpr std::size_t count = std::size(addresses);
    std::array<Text, count> tags, values;
    for (std::size_t i = 0; i < count; ++i) {
        steps_.set(tags[i], [&] {
            const std::int32_t tag =
                source.GetIDsFromNames(contact_properties, addresses[i].id).to_integer() |
                host::family::tag::text_type;
            return automation::to_text(static_cast<long long>(tag));
        });
    }
    for (std::size_t i = 0; i < count; ++i) {
        steps_.set(values[i], [&] { return source.Fields(Value(tags[i])); });
    }
    for (std::size_t i = 0; i < count; ++i) {
        steps_.run([&] { target.put(addresses[i].field, Value(values[i])); });
    }
    for (const TextView field : copied_fields) {
        steps_.run([&] { target.put(field, source.get(field)); });
    }
}

void ContactConversion::find_account() {
    Item account;
    steps_.set(account, [&] {
        const host::outlook::Items items = profiles_.Items();
        // the values go in as they stand: an apostrophe in one fails the search
        return items.Find(u"[Account Name] = '" + source_.CompanyName() + u"' AND [Accountzip] = '" +
                          source_.get(u"BusinessAddressPostalCode").to_text() + u"'");
    });
    if (account) {
        take_over(account);
    } else if (asks(desktop_, account_question)) {
        choose_account();
    }
}

void ContactConversion::choose_account() {
    const host::family::ListPicker picker = records::make_account_picker(session_, profiles_);
    steps_.run([&] { picker.searchany(records::account_definition, records::account_list_title); });
    if (steps_.possibly([&] { return picker.dialogcancel(); })) return;
    automation::Array chosen;
    Item account;
    steps_.set(chosen, [&] { return picker.slist(); });
    steps_.set(account, [&] {
        return application().GetNamespace(u"MAPI").GetItemFromID(
            chosen.at(entry_id_row, entry_id_column).to_text(), picker.StoreID());
    });
    // the contact takes them from the account itself below
    for (const records::Name name : read_of_choice) {
        steps_.run([&] { account.UserProperties().Item(name).value(); });
    }
    take_over(account);
}

void ContactConversion::take_over(const Item& account) {
    if (account) {
        for (const AccountToContact& row : always_taken) take(account, row);
        if (has_no(taken_address[0].contact_field)) {
            for (const AccountToContact& row : taken_address) take(account, row);
        }
    }
    for (const AccountToContact& row : taken_if_empty) {
        if (has_no(row.contact_field)) take(account, row);
    }
}

void ContactConversion::take(const Item& account, const AccountToContact& row) {
    records::write_contact_field(session_, contact_, row,
                                 [&] { return account.UserProperties().Item(row.account_property).value(); });
}

bool ContactConversion::has_no(TextView field) {
    return steps_.possibly([&] { return contact_.get(field).to_text().empty(); });
}

}  // namespace

void convert_to_contact(Session& session) { ContactConversion(session, to_contact).run(); }

void convert_to_lead(Session& session) { ContactConversion(session, to_lead).run(); }

}  // namespace addin::conversions
