// A personal contact becomes a record: a contact of an account, or a lead.
#include <span>

#include "tests/world/account_picker.h"
#include "tests/world/bars.h"
#include "tests/world/host_numbers.h"
#include "tests/world/item_state.h"
#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

constexpr TextView search_question = u"Would you like to search for an Account? ";
const std::string account_box = "Tarnwell, 4: Would you like to search for an Account? ";

/// What differs between the two conversions.
struct Kind {
    TextView tag;  ///< of the button
    TextView question;
    TextView message_class;
    std::string told;  ///< after the contact's name
};
const Kind to_contact{u"ConvertContactButton",
                      u"Would you like to convert this contact to a Tarnwell Contact? ",
                      u"IPM.Contact.Account Contact", " was created as a Tarnwell Contact."};
const Kind to_lead{u"ConvertLeadButton", u"Would you like to convert this contact to a Tarnwell Lead? ",
                   u"IPM.Contact.Lead", " was created as a Tarnwell Lead."};

std::string box_of(const Kind& kind) { return "Tarnwell, 4: " + shown(kind.question); }

class ContactConversion : public Acceptance {
  protected:
    World& furnished() {
        World& made = with({});
        made.family(u"UserName", u"Tom Prior");
        made.family(u"Alignment", u"South");
        return made;
    }

    Folder folder_of(const Kind& kind) {
        if (&kind == &to_contact) return world().below(u"Account Contacts");
        return Folder(world().account_profiles().Parent()).Folders().Item(u"Leads");
    }

    Item personal(const Fields& fields) {
        const Item contact = new_item(world(), contacts, u"IPM.Contact");
        for (const auto& [name, value] : fields) contact.put(name, value);
        contact.Save();
        return contact;
    }

    /// Presses the button in a contact's window, answers the questions, and waits until it is over.
    void convert(const Kind& kind, const Item& contact, std::int32_t search = no) {
        OpenedItem window(contact);
        window.show();
        convert_shown(kind, window.window, search);
        EXPECT_EQ(world().application().Inspectors().Count(), 0) << "the window has closed";
    }
    void convert_shown(const Kind& kind, const Object& window, std::int32_t search) {
        answer(world(), kind.question, yes);
        answer(world(), search_question, search);
        press(world(), window, item_bar, kind.tag);
    }

    /// The last record that was made.
    Item record(const Kind& kind) {
        const host::outlook::Items items = folder_of(kind).Items();
        return items.Count() == 0 ? Item() : items.Item(items.Count());
    }
};

/// All fields that are copied, with a value for each.
struct Copied {
    TextView field, value;
};
constexpr Copied copied[] = {
    {u"Email1DisplayName", u"Ann at work"},
    {u"Email2DisplayName", u"Ann at home"},
    {u"Email3DisplayName", u"Ann elsewhere"},
    {u"Body", u"Met at the fair.\r\nLikes tea."},
    {u"Account", u"4711"},
    {u"Anniversary", u"2001-06-09 00:00:00"},
    {u"AssistantName", u"Bea Moss"},
    {u"AssistantTelephoneNumber", u"101"},
    {u"BillingInformation", u"monthly"},
    {u"Birthday", u"1970-02-03 00:00:00"},
    {u"Business2TelephoneNumber", u"102"},
    {u"BusinessAddressCity", u"York"},
    {u"BusinessAddressCountry", u"England"},
    {u"BusinessAddressPostalCode", u"YO1 7AB"},
    {u"BusinessAddressPostOfficeBox", u"12"},
    {u"BusinessAddressState", u"Yorkshire"},
    {u"BusinessAddressStreet", u"1 Mill Lane"},
    {u"BusinessFaxNumber", u"103"},
    {u"BusinessHomePage", u"www.mill.example/ann"},
    {u"BusinessTelephoneNumber", u"104"},
    {u"CallbackTelephoneNumber", u"105"},
    {u"CarTelephoneNumber", u"106"},
    {u"Categories", u"Fair, Tea"},
    {u"Children", u"Cid, Dot"},
    {u"Companies", u"Old Mill"},
    {u"CompanyName", u"North Mill Ltd"},
    {u"Department", u"Sales"},
    {u"FileAs", u"Lee, Ann (the mill)"},
    {u"FirstName", u"Ann"},
    {u"HomeAddress", u"2 Hill Road, York"},
    {u"HomeFaxNumber", u"107"},
    {u"HomeTelephoneNumber", u"108"},
    {u"JobTitle", u"Buyer"},
    {u"LastName", u"Lee"},
    {u"MailingAddress", u"3 Post Street, York"},
    {u"ManagerName", u"Eve North"},
    {u"MiddleName", u"Mary"},
    {u"Mileage", u"12 miles"},
    {u"MobileTelephoneNumber", u"109"},
    {u"NickName", u"Annie"},
    {u"OfficeLocation", u"B 12"},
    {u"OtherAddress", u"4 Other Way, York"},
    {u"OtherFaxNumber", u"110"},
    {u"OtherTelephoneNumber", u"111"},
    {u"Profession", u"Miller"},
    {u"PrimaryTelephoneNumber", u"112"},
    {u"Spouse", u"Fred"},
    {u"Suffix", u"Jr."},
    {u"Title", u"Dr."},
    {u"WebPage", u"www.mill.example"},
};
constexpr std::size_t copied_count = 51;
static_assert(std::size(copied) + 1 == copied_count, "the customer id is the key");

constexpr Copied copied_addresses[] = {{u"Email1Address", u"ann@mill.example"},
                                       {u"Email2Address", u"ann@home.example"},
                                       {u"Email3Address", u"ann@else.example"}};

constexpr TextView not_copied[] = {u"Hobby", u"User1", u"PagerNumber", u"User2", u"FTPSite"};

TEST_F(ContactConversion, CopiesEveryFieldAndMarksTheSourceAlone) {
    World& world = furnished();
    for (const Kind* kind : {&to_contact, &to_lead}) {
        SCOPED_TRACE(shown(kind->message_class));
        const Item source = new_item(world, contacts, u"IPM.Contact");
        for (const Copied& row : copied_addresses) source.put(row.field, Value(row.value));
        for (const Copied& row : copied) source.put(row.field, Value(row.value));
        for (const TextView field : not_copied) source.put(field, u"not copied");
        const Text account = source.Account();
        source.Account(u"");
        source.Save();
        OpenedItem window(source);
        window.show();
        source.Account(account);  // with one from the start there are no buttons
        const ItemState before = state_of(source);
        const std::int32_t boxes_before = count_messages(world);
        const std::size_t statuses_before = statuses(world).size();
        convert_shown(*kind, window.window, no);

        EXPECT_EQ(boxes(world, boxes_before),
                  kind == &to_contact ? (Lines{box_of(*kind), account_box}) : Lines{box_of(*kind)});
        EXPECT_EQ(statuses(world, statuses_before), Lines{"Dr. Ann Mary Lee Jr." + kind->told});
        EXPECT_FALSE(window_of(world, u"Tarnwell").get(u"Visible").to_boolean());
        EXPECT_EQ(world.application().Inspectors().Count(), 0);

        const Item made = record(*kind);
        ASSERT_TRUE(made);
        EXPECT_TRUE(made.Saved());
        EXPECT_EQ(made.MessageClass(), kind->message_class);
        for (const auto& rows :
             {std::span<const Copied>(copied_addresses), std::span<const Copied>(copied)}) {
            for (const Copied& row : rows)
                EXPECT_EQ(shown(world.text(made, row.field)), shown(row.value)) << shown(row.field);
        }
        for (const TextView field : not_copied) EXPECT_EQ(made.get(field).to_text(), u"") << shown(field);
        EXPECT_EQ(made.FullName(), u"Dr. Ann Mary Lee Jr.");

        const std::string key = shown(World::property(made, u"ContactID"));
        EXPECT_EQ(key.substr(0, 1), "C");
        EXPECT_GT(key.size(), 1U);
        EXPECT_EQ(shown(made.CustomerID()), key) << "the source has it by the time it is copied";
        EXPECT_EQ(told_note(made), (Lines{"Subject: Dr. Ann Mary Lee Jr.", "ContactID: " + key,
                                          "Account Manager: Tom Prior", "Team: Tom Prior"}));
        EXPECT_EQ(changes(before, state_of(source)), Lines{"CustomerID: " + key + " instead of "})
            << "what was typed before is saved with it";
        EXPECT_TRUE(source.Saved());
        EXPECT_EQ(folder_of(*kind).Items().Count(), 1);
    }
    EXPECT_EQ(count_in(world, u"Account Contacts"), 1);
}

const Fields mill_of_york = {{u"AccountID", u"A-1"},
                             {u"Account Name", u"North Mill Ltd"},
                             {u"Account Manager", u"Mia Hart"},
                             {u"Team", u"Sales"},
                             {u"Alignment", u"North"},
                             {u"AccountAddress1", u"1 Mill Lane"},
                             {u"AccountCity", u"York"},
                             {u"AccountState", u"Yorkshire"},
                             {u"Accountzip", u"YO1"},
                             {u"AccountPhone", u"111"},
                             {u"Account Fax", u"222"},
                             {u"Account Web", u"www.mill.example"}};
const Fields mill_of_leeds = {{u"AccountID", u"A-2"},
                              {u"Account Name", u"North Mill Ltd"},
                              {u"Accountzip", u"LS1"},
                              {u"AccountCity", u"Leeds"}};
const Fields omalley = {{u"AccountID", u"A-3"}, {u"Account Name", u"O'Malley"}, {u"Accountzip", u"D02"}};

void add_accounts(World& world) {
    add_account(world, mill_of_leeds, u"North Mill");
    add_account(world, mill_of_york, u"North Mill");
    add_account(world, omalley, u"O'Malley");
}

/// The fields that an account can give.
constexpr TextView account_fields[] = {u"CompanyName",
                                       u"BusinessAddressStreet",
                                       u"BusinessAddressCity",
                                       u"BusinessAddressState",
                                       u"BusinessAddressPostalCode",
                                       u"BusinessTelephoneNumber",
                                       u"WebPage"};
std::string told_fields(const Item& record) {
    std::string told;
    for (const TextView field : account_fields) told += shown(record.get(field).to_text()) + "|";
    return told;
}

/// What of a record's user properties comes from an account or the user.
std::string told_owner(const Item& record) {
    std::string told;
    for (const TextView name : {u"AccountID", u"Account Name", u"Account Manager", u"Team", u"Alignment"})
        told += shown(World::property(record, name)) + "|";
    return told;
}
const std::string of_york = "A-1|North Mill Ltd|Tom Prior|Sales|North|";
const std::string untied = "||Tom Prior|Tom Prior||";

struct AccountCase {
    const char* name;
    Fields contact;
    bool asks;  ///< whether to search for an account
    std::string owner, fields;
};
const AccountCase account_cases[] = {
    {"all of the account's",
     {{u"CompanyName", u"North Mill Ltd"}, {u"BusinessAddressPostalCode", u"YO1"}},
     false,
     of_york,
     "North Mill Ltd|1 Mill Lane|York|Yorkshire|YO1|111|www.mill.example|"},
    {"the account of that postal code; what it lacks, its team too, becomes empty",
     {{u"CompanyName", u"north mill ltd"}, {u"BusinessAddressPostalCode", u"LS1"}},
     false,
     "A-2|North Mill Ltd|Tom Prior|||",
     "North Mill Ltd||Leeds||LS1|||"},
    {"another postal code",
     {{u"CompanyName", u"North Mill Ltd"}, {u"BusinessAddressPostalCode", u"YO"}},
     true,
     untied,
     "North Mill Ltd||||YO|||"},
    {"a street of its own keeps the address, even without a city",
     {{u"CompanyName", u"North Mill Ltd"},
      {u"BusinessAddressPostalCode", u"YO1"},
      {u"BusinessAddressStreet", u"5 Own Street"}},
     false,
     of_york,
     "North Mill Ltd|5 Own Street|||YO1|111|www.mill.example|"},
    {"telephone and web page each by itself",
     {{u"CompanyName", u"North Mill Ltd"},
      {u"BusinessAddressPostalCode", u"YO1"},
      {u"BusinessAddressCity", u"Hull"},
      {u"BusinessTelephoneNumber", u"999"}},
     false,
     of_york,
     "North Mill Ltd|1 Mill Lane|York|Yorkshire|YO1|999|www.mill.example|"},
    {"a web page of its own, and the account's telephone",
     {{u"CompanyName", u"North Mill Ltd"},
      {u"BusinessAddressPostalCode", u"YO1"},
      {u"WebPage", u"ann.example"}},
     false,
     of_york,
     "North Mill Ltd|1 Mill Lane|York|Yorkshire|YO1|111|ann.example|"},
    {"an apostrophe breaks the search",
     {{u"CompanyName", u"O'Malley"}, {u"BusinessAddressPostalCode", u"D02"}},
     true,
     untied,
     "O'Malley||||D02|||"},
    {"no company", {{u"BusinessAddressPostalCode", u"YO1"}}, false, untied, "||||YO1|||"},
};

TEST_F(ContactConversion, TiesTheContactToTheAccountOfItsCompanyAndPostalCode) {
    World& world = furnished();
    add_accounts(world);
    for (const AccountCase& one : account_cases) {
        SCOPED_TRACE(one.name);
        Fields fields = one.contact;
        fields.emplace_back(u"FullName", u"Ann Lee");
        const std::int32_t before = count_messages(world);
        const Item source = personal(fields);
        const ItemState of_source = state_of(source);
        convert(to_contact, source);
        EXPECT_EQ(changes(of_source, state_of(source)),
                  Lines{"CustomerID: " + shown(source.CustomerID()) + " instead of "});
        EXPECT_EQ(boxes(world, before),
                  one.asks ? (Lines{box_of(to_contact), account_box}) : Lines{box_of(to_contact)});
        const Item made = record(to_contact);
        ASSERT_TRUE(made);
        EXPECT_EQ(told_owner(made), one.owner);
        EXPECT_EQ(told_fields(made), one.fields);
        EXPECT_EQ(World::property(made, u"ContactID"), made.CustomerID());
        empty_folder(folder_of(to_contact));
    }
}

TEST_F(ContactConversion, TiesALeadToNoAccount) {
    World& world = furnished();
    add_accounts(world);
    convert(to_lead, personal(account_cases[0].contact));
    EXPECT_EQ(boxes(world), Lines{box_of(to_lead)});
    EXPECT_EQ(told_fields(record(to_lead)), "North Mill Ltd||||YO1|||");
    EXPECT_EQ(told_note(record(to_lead)).size(), 4U) << "subject, id, manager and team";
    EXPECT_EQ(count_in(world, u"Account Contacts"), 0);
}

TEST_F(ContactConversion, LetsTheUserChooseTheAccount) {
    World& world = furnished();
    add_accounts(world);
    Fields bell = mill_of_york;
    bell[0].second = u"A-4";
    bell[1].second = u"Bell & Sons";
    add_account(world, bell, u"Bell & Sons");
    const std::string of_bell = "A-4|Bell & Sons|Tom Prior|Sales|North|";
    const AccountPicker picker(world);
    struct Case {
        const char* name;
        TextView chosen;  ///< nothing: the picker is cancelled
        bool found;       ///< or else the chosen account has gone
        Fields own;
        std::string owner, fields;
    };
    const Case cases[] = {
        {"one that tells little",
         u"O'Malley",
         true,
         {{u"BusinessTelephoneNumber", u"999"}},
         "A-3|O'Malley|Tom Prior|||",
         "O'Malley||||D02|999||"},
        {"one that tells all",
         u"Bell & Sons",
         true,
         {},
         of_bell,
         "Bell & Sons|1 Mill Lane|York|Yorkshire|YO1|111|www.mill.example|"},
        {"beside a street of its own",
         u"Bell & Sons",
         true,
         {{u"BusinessAddressStreet", u"5 Own Street"}},
         of_bell,
         "Bell & Sons|5 Own Street||||111|www.mill.example|"},
        {"one that can't be opened", u"Bell & Sons", false, {}, untied, "The Mill|||||||"},
        {"none", u"", true, {{u"BusinessTelephoneNumber", u"999"}}, untied, "The Mill|||||999||"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        Fields fields = {{u"FullName", u"Ann Lee"}, {u"CompanyName", u"The Mill"}};
        fields.insert(fields.end(), one.own.begin(), one.own.end());
        const Item source = personal(fields);
        const ItemState of_source = state_of(source);
        const std::size_t calls_before = world.family_calls().size();
        OpenedItem window(source);
        window.show();
        answer(world, to_contact.question, yes);
        answer(world, search_question, yes);
        press(world, window.window, item_bar, to_contact.tag, false);
        ASSERT_TRUE(picker.opens());
        EXPECT_EQ(picker.count(), 4);
        if (!one.found) world.fail(u"NameSpace.GetItemFromID", 0, 1);
        if (one.chosen.empty()) {
            picker.cancel();
        } else {
            picker.choose(one.chosen);
        }
        EXPECT_TRUE(world.wait_for_handlers());
        EXPECT_FALSE(picker.is_open());

        const Text id = world.account_profiles().EntryID();
        Lines told;
        const std::vector<Text> calls = world.family_calls();
        for (std::size_t i = calls_before; i < calls.size(); ++i) {
            if (calls[i].starts_with(u"ListPicker.")) told.push_back(shown(calls[i]));
        }
        EXPECT_EQ(told,
                  (Lines{"ListPicker.StoreID = " + shown(world.account_profiles().StoreID()),
                         "ListPicker.FolderId = " + shown(id), "ListPicker.accountfolderid = " + shown(id),
                         "ListPicker.searchany(Account, Account List)"}));
        const Item made = record(to_contact);
        ASSERT_TRUE(made);
        EXPECT_EQ(told_owner(made), one.owner);
        EXPECT_EQ(told_fields(made), one.fields);
        EXPECT_EQ(changes(of_source, state_of(source)),
                  Lines{"CustomerID: " + shown(source.CustomerID()) + " instead of "});
        empty_folder(folder_of(to_contact));
    }
}

TEST_F(ContactConversion, IsLeftAloneUnlessTheUserSaysYes) {
    World& world = furnished();
    const Item source = personal({{u"FullName", u"Ann Lee"}, {u"CompanyName", u"The Mill"}});
    OpenedItem window(source);
    window.show();
    const ItemState before = state_of(source);
    for (const Kind* kind : {&to_contact, &to_lead}) {
        answer(world, kind->question, no);
        press(world, window.window, item_bar, kind->tag);
        EXPECT_EQ(folder_of(*kind).Items().Count(), 0);
    }
    EXPECT_EQ(boxes(world), (Lines{box_of(to_contact), box_of(to_lead)}));
    EXPECT_EQ(changes(before, state_of(source)), Lines{});
    EXPECT_EQ(statuses(world), Lines{});
    EXPECT_EQ(world.application().Inspectors().Count(), 1);
}

TEST_F(ContactConversion, MakesARecordEachTimeAndTheSourceNamesTheLast) {
    World& world = furnished();
    const Item source = personal({{u"FullName", u"Ann Lee"}});
    std::vector<Text> keys;
    for (const Kind* kind : {&to_lead, &to_contact, &to_contact}) {
        const Text key = source.CustomerID();
        source.CustomerID(u"");
        OpenedItem window(source);
        window.show();
        source.CustomerID(key);  // a window that has opened with the buttons keeps them
        convert_shown(*kind, window.window, no);
        const Item made = record(*kind);
        ASSERT_TRUE(made);
        keys.push_back(World::property(made, u"ContactID"));
        EXPECT_EQ(source.CustomerID(), keys.back());
        EXPECT_EQ(made.FullName(), u"Ann Lee");
        EXPECT_EQ(world.application().Inspectors().Count(), 0);
    }
    EXPECT_NE(keys[0], keys[1]);
    EXPECT_NE(keys[1], keys[2]);
    EXPECT_EQ(folder_of(to_lead).Items().Count(), 1);
    EXPECT_EQ(folder_of(to_contact).Items().Count(), 2);
}

TEST_F(ContactConversion, MakesARecordOfNothingWhereNoWindowIsFound) {
    World& world = furnished();
    OpenedItem window(personal({{u"FullName", u"Bob Ray"}, {u"CompanyName", u"The Mill"}}));
    window.show();
    const ItemState before = state_of(window.item);
    world.fail(u"Application.ActiveInspector");
    convert_shown(to_contact, window.window, no);
    EXPECT_EQ(boxes(world), (Lines{box_of(to_contact), account_box}))
        << "the company can't be read, so its account is looked for";
    EXPECT_EQ(statuses(world), Lines{to_contact.told});
    const Item made = record(to_contact);
    ASSERT_TRUE(made);
    EXPECT_EQ(made.FullName(), u"");
    EXPECT_EQ(made.Body(), u"");
    EXPECT_EQ(told_owner(made), untied);
    EXPECT_EQ(shown(World::property(made, u"ContactID")).substr(0, 1), "C");
    EXPECT_EQ(changes(before, state_of(window.item)), Lines{});
    EXPECT_EQ(world.application().Inspectors().Count(), 1) << "nothing is closed";
}

TEST_F(ContactConversion, MakesARecordOfNothingWhereTheItemIsNoContact) {
    World& world = furnished();
    OpenedItem window(personal({{u"FullName", u"Bob Ray"}, {u"CompanyName", u"The Mill"}}));
    window.show();
    window.item.put(u"MessageClass", u"IPM.Post");  // with its buttons it has become something else
    const ItemState before = state_of(window.item);
    for (const Kind* const kind : {&to_contact, &to_lead}) {
        SCOPED_TRACE(shown(kind->tag));
        const std::size_t statuses_before = statuses(world).size();
        convert_shown(*kind, window.window, no);
        EXPECT_EQ(statuses(world, statuses_before), Lines{kind->told});
        const Item made = record(*kind);
        ASSERT_TRUE(made);
        EXPECT_EQ(made.FullName(), u"");
        const Text key = World::property(made, u"ContactID");
        EXPECT_EQ(shown(key).substr(0, 1), "C");
        EXPECT_EQ(told_note(made), (Lines{"Subject: ", "ContactID: " + shown(key),
                                          "Account Manager: Tom Prior", "Team: Tom Prior"}));
        EXPECT_EQ(changes(before, state_of(window.item)), Lines{});
        EXPECT_FALSE(window.item.Saved());
        EXPECT_EQ(world.application().Inspectors().Count(), 1) << "nothing is closed";
    }
}

TEST_F(ContactConversion, IsDoneEvenIfTheHostLetsGoOfTheAddInMeanwhile) {
    for (const Kind* const kind : {&to_contact, &to_lead}) {
        SCOPED_TRACE(shown(kind->tag));
        World& world = furnished();
        const Item contact = personal({{u"FullName", u"Ann Lee"}});
        const Object entry = world.application().COMAddIns().Item(u"CreateNote.Connect");
        world.desk().call(u"Meanwhile", {Value(u"Ann Lee" + automation::from_utf8(kind->told)), Value(entry),
                                         u"Connect", false});
        convert(*kind, contact);
        EXPECT_TRUE(world.wait_until([&] { return !entry.get(u"Connect").to_boolean(); }));
        ASSERT_TRUE(record(*kind));
        EXPECT_EQ(record(*kind).FullName(), u"Ann Lee");
    }
}

}  // namespace
}  // namespace acceptance
