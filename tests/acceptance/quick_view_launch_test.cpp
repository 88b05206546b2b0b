// From the selected mail to the contact of its sender: when Quick View comes up, for whom, and with what.
#include "automation/automated.h"
#include "tests/world/account_picker.h"
#include "tests/world/host_numbers.h"
#include "tests/world/quick_view.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

const std::string directory = "X-Desk-Sender: EX /o=Example/cn=ann\n";

/// What another part of the family may hand over in place of a selection: one item.
class OneItem : public automation::Automated<OneItem> {
  public:
    explicit OneItem(Item item) : item_(std::move(item)) {}
    static const automation::Members<OneItem>& members() {
        constexpr std::int32_t item_id = 0x51;  // as of a Selection
        static const automation::Members<OneItem> table{
            {u"Item", item_id, automation::Use::method, {u"Index"}, [](OneItem& self, const Value&) {
                 return self.item_;
             }}};
        return table;
    }

  private:
    Item item_;
};

class QuickViewLaunch : public SideView {
  protected:
    /// The usual world, emptied, with the window gone.
    World& again() {
        if (view().is_open()) view().close();
        World& same = emptied();
        same.family(u"EmailAutoFile", u"");
        const host::outlook::Items leads = leads_of(same);
        for (std::int32_t i = leads.Count(); i >= 1; --i) leads.call(u"Remove", {i});
        return same;
    }

    static host::outlook::Items leads_of(World& world) {
        return host::outlook::Folder(world.account_profiles().Parent()).Folders().Item(u"Leads").Items();
    }
    static Item add_lead(World& world) {
        const Item lead = leads_of(world).Add(u"IPM.Contact.Lead");
        lead.FullName(u"Ann the Lead");
        lead.Email1Address(u"ann.lee@northmill.example");
        lead.Save();
        return lead;
    }

    void expect_status_window_gone() {
        const Object status = window_of(world(), u"Tarnwell");
        EXPECT_FALSE(status && status.get(u"Visible").to_boolean());
    }
};

TEST_F(QuickViewLaunch, ShowsTheContactOfTheSelectedMail) {
    World& world = viewing();
    const std::int32_t before = world.displayed();
    const Item mail = show_ann();
    const QuickView window = view();
    EXPECT_EQ(window.told(), (Lines{"Contactname: Ann Lee", "CompanyName: North Mill Ltd", "Phone: 111",
                                    "Fax: 222", "Street1: 1 Mill Lane", "City: York", "State: Yorkshire",
                                    "Zip: YO1", "cmbFolders: Choose Folder", "Alignment: North",
                                    "Team: Sales", "AccountManager: Mia Hart", "AccountID: A-100",
                                    "ContactID: C-200", "MessageClass: IPM.Contact.Account Contact"}));
    const Item contact = only_item(world, u"Account Contacts");
    EXPECT_EQ(window.text(u"EntryID"), shown(contact.EntryID()));
    EXPECT_EQ(window.text(u"StoreID"), shown(world.account_profiles().StoreID()));
    EXPECT_EQ(window.text(u"EmailID"), shown(mail.EntryID()));
    EXPECT_EQ(window.count(), 0);
    EXPECT_TRUE(window.window().get(u"Topmost").to_boolean());
    EXPECT_EQ(programs(1), Lines{"TarnwellUtility.exe Alerts;;AccountID;A-100 in " +
                                 shown(world.family(u"ProgramFolder"))});
    EXPECT_EQ(statuses(world), Lines{"Searching for Ann Lee"});
    expect_status_window_gone();
    EXPECT_EQ(count_messages(world), 0);
    EXPECT_EQ(world.displayed(), before);
    expect_left_alone(world, mail);
}

TEST_F(QuickViewLaunch, HappensOnlyForASingleReceivedMailInAFolderOfTheInboxsName) {
    struct Case {
        const char* name;
        MailPlan mail{};
        bool is_shown = false;
        const char16_t* option = u"1";
        bool with_another = false;
        const char16_t* folder = nullptr;  ///< below the Inbox
    };
    const Case cases[] = {
        {.name = "an ordinary mail", .is_shown = true},
        {.name = "the option is off", .option = u"0"},
        {.name = "the option is nearly on", .option = u"1 "},
        {.name = "the option is empty", .option = u""},
        {.name = "another class", .mail = {.more = "X-Desk-Class: IPM.Note.Other\n"}},
        {.name = "a private mail", .mail = {.more = "X-Desk-Sensitivity: 2\n"}},
        {.name = "a confidential mail", .mail = {.more = "X-Desk-Sensitivity: 3\n"}},
        {.name = "two mails", .with_another = true},
        {.name = "no To line", .mail = {.to = "", .more = "Cc: Bo <bo@bo.example>\n"}, .is_shown = true},
        {.name = "no To line and no native address",
         .mail = {.to = "", .more = "Cc: Bo <bo@bo.example>\nX-Desk-Sender: EX -\n"}},
        {.name = "a folder of the same name elsewhere", .is_shown = true, .folder = u"Inbox"},
        {.name = "a folder of mail of another name", .folder = u"Orders"},
    };
    viewing();
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = again();
        world.option(u"EnableQuickView", one.option);
        add_contact(world);
        Item mail = world.deliver(message(one.mail));
        if (one.folder) {
            const Object folder = world.inbox().Folders().call(u"Add", {one.folder}).to_object();
            mail = Item(mail.call(u"Move", {Value(folder)}).to_object());
            show_folder(world, host::outlook::Folder(folder));
        }
        if (one.with_another) {
            world.desk().call(u"Select", {Value(mail), Value(world.deliver(message()))});
            EXPECT_TRUE(world.wait_for_handlers());
        } else {
            select(mail);
        }
        EXPECT_EQ(view().is_open(), one.is_shown);
        EXPECT_EQ(count_messages(world), 0);
        expect_left_alone(world, mail);
    }
}

TEST_F(QuickViewLaunch, HidesTheWindowFirstUnlessTheOptionIsOff) {
    World& world = viewing();
    show_ann();
    const Item other = world.deliver(message({.more = "X-Desk-Class: IPM.Note.Other\n"}));
    world.option(u"EnableQuickView", u"0");
    select(other);
    EXPECT_TRUE(view().is_open()) << "it isn't even hidden";
    show_folder(world, world.inbox());
    world.option(u"EnableQuickView", u"1");
    const Item private_mail = world.deliver(message({.more = "X-Desk-Sensitivity: 2\n"}));
    select(private_mail);
    EXPECT_FALSE(view().is_open());
    EXPECT_EQ(view().text(u"Contactname"), "Ann Lee") << "hidden, not gone";
    const Item first = world.deliver(message()), second = world.deliver(message());
    select(first);
    EXPECT_TRUE(view().is_open());
    world.desk().call(u"Select", {Value(first), Value(second)});
    EXPECT_TRUE(world.wait_for_handlers());
    EXPECT_FALSE(view().is_open()) << "it isn't for several";
}

TEST_F(QuickViewLaunch, EndsSilentlyForADraftThatWasNeverSaved) {
    World& world = viewing();
    add_contact(world);
    const Item draft = new_item(world, item_type::mail);
    draft.put(u"To", u"Ann Lee <ann.lee@northmill.example>");
    ASSERT_EQ(draft.EntryID(), u"");
    for (const TextView operation : {u"ShowQuickView", u"ShowTarnwell"}) {
        SCOPED_TRACE(shown(operation));
        const Object became = call(operation, Value(std::make_shared<OneItem>(draft)));
        EXPECT_EQ(Item(became).get(u"Class").to_integer(), 43) << "it was looked at";
        EXPECT_FALSE(view().is_open());
        EXPECT_EQ(statuses(world), Lines{});
        EXPECT_EQ(count_messages(world), 0);
    }
}

TEST_F(QuickViewLaunch, IsForFoldersOfMail) {
    World& world = viewing();
    add_contact(world);
    const Item mail = world.deliver(message());
    world.option(u"EnableQuickView", u"0");
    select(mail);
    const Object explorer = world.application().ActiveExplorer();
    for (const bool in_mail_folder : {true, false}) {
        SCOPED_TRACE(in_mail_folder);
        Item selected = mail;
        if (!in_mail_folder) {
            mail.call(u"Copy").to_object().call(u"Move", {Value(world.below(u"Notes"))});
            selected = world.below(u"Notes").Items().Item(1);
            ASSERT_EQ(selected.MessageClass(), u"IPM.Note");
            view().close();
        }
        select(selected);
        const Object became = call(u"ShowQuickView");
        EXPECT_EQ(view().is_open(), in_mail_folder);
        EXPECT_EQ(Object(became.target()) && Item(became).get(u"Class").to_integer() == 43, in_mail_folder)
            << "the selection becomes its first item";
        call(u"ShowTarnwell");
        EXPECT_TRUE(view().is_open()) << "the other operation works everywhere";
    }
}

TEST_F(QuickViewLaunch, FindsWhoseAddressItIs) {
    struct Case {
        const char* name;
        Fields fields{};
        Fields properties{};
        std::string more{};
        bool found = true, found_by_tarnwell = true;
    };
    const Case cases[] = {
        {.name = "first address", .fields = {{u"Email1Address", u"ann.lee@northmill.example"}}},
        {.name = "second address", .fields = {{u"Email2Address", u"ann.lee@northmill.example"}}},
        {.name = "third address, other capitals",
         .fields = {{u"Email3Address", u"ANN.lee@northmill.example"}}},
        {.name = "a longer address",
         .fields = {{u"Email1Address", u"ann.lee@northmill.example.org"}},
         .found = false,
         .found_by_tarnwell = false},
        {.name = "the name", .fields = {{u"FullName", u"Ann Lee"}}, .found = false},
        {.name = "the subject", .fields = {{u"Subject", u"Ann Lee"}}, .found = false},
        {.name = "a text for searches",
         .properties = {{u"EmailSearchString", u"ann.lee@northmill.example"}},
         .found = false},
        {.name = "a directory sender's Internet address",
         .fields = {{u"Email2Address", u"ann.lee@northmill.example"}},
         .more = directory},
        {.name = "a directory sender's own address",
         .fields = {{u"Email3Address", u"/o=Example/cn=ann"}},
         .more = directory},
        {.name = "a directory sender's own address among the texts",
         .properties = {{u"EmailSearchString", u"/o=Example/cn=ann"}},
         .more = directory,
         .found = false},
        {.name = "a third type of address",
         .fields = {{u"Email1Address", u"CN=Ann/O=Example"}},
         .more = "X-Desk-Sender: NOTES CN=Ann/O=Example\n"},
    };
    viewing();
    for (const Case& one : cases) {
        for (const bool tarnwell : {false, true}) {
            SCOPED_TRACE(std::string(one.name) + (tarnwell ? ", Tarnwell" : ""));
            World& world = again();
            world.option(u"EnableQuickView", u"0");
            ContactPlan plan{.full_name = u"X", .fields = one.fields, .properties = keys_of_ann};
            for (const auto& [name, value] : one.properties) plan.properties.emplace_back(name, value);
            // the other addresses of a contact are all known: an empty one would equal one that isn't
            for (const TextView field : {u"Email1Address", u"Email2Address", u"Email3Address"}) {
                plan.fields.insert(plan.fields.begin(), {field, u"x@x.example"});
            }
            add_contact(world, plan);
            select(world.deliver(message({.more = one.more})));
            const bool found = tarnwell ? one.found_by_tarnwell : one.found;
            const std::int32_t before = count_messages(world);
            if (!found) answer(create_question, no);
            call(tarnwell ? u"ShowTarnwell" : u"ShowQuickView");
            // what the operation doesn't find, the button's way may find: it compares beginnings
            EXPECT_EQ(view().is_open(), found);
            if (!tarnwell) {
                EXPECT_EQ(count_messages(world) - before, found ? 0 : 1);
            }
            expect_status_window_gone();
        }
    }
}

TEST_F(QuickViewLaunch, OpensALeadAndStaysClosed) {
    World& world = viewing();
    add_contact(world);
    const Item lead = add_lead(world);
    const std::int32_t before = world.displayed();
    const Item mail = world.deliver(message());
    select(mail);
    EXPECT_EQ(world.ids_displayed_since(before), Lines{shown(lead.EntryID())});
    EXPECT_FALSE(view().is_open());
    EXPECT_EQ(programs(), Lines{});
    expect_status_window_gone();
    call(u"ShowTarnwell");
    EXPECT_TRUE(view().is_open()) << "which doesn't look for leads";
    EXPECT_EQ(world.ids_displayed_since(before).size(), 1U);

    const host::outlook::Folders beside = host::outlook::Folder(world.account_profiles().Parent()).Folders();
    beside.Item(u"Leads").put(u"Name", u"Former Leads");
    const Item below(world.account_profiles().Folders().call(u"Add", {u"Leads"}).to_object());
    lead.call(u"Move", {Value(below)});
    select(world.deliver(message()));
    EXPECT_TRUE(view().is_open()) << "leads lie beside the accounts, not below them";
}

TEST_F(QuickViewLaunch, KeepsWhatAContactDoesNotTell) {
    World& world = viewing();
    show_ann();
    ContactPlan bob{.full_name = u"Bob Ray",
                    .company = u"Ray & Co",
                    .fields = {{u"Email1Address", u"bob@ray.example"}},
                    .properties = {{u"AccountID", u"A-300"}, {u"ContactID", u"C-400"}}};
    const Item contact = add_contact(world, bob);
    contact.UserProperties().Item(u"Team").call(u"Delete");
    contact.Save();
    select(world.deliver(message({.from = "Bob Ray <bob@ray.example>"})));
    EXPECT_EQ(view().told(), (Lines{"Contactname: Bob Ray", "CompanyName: Ray & Co",
                                    "cmbFolders: Choose Folder", "Team: Sales", "AccountID: A-300",
                                    "ContactID: C-400", "MessageClass: IPM.Contact.Account Contact"}))
        << "an empty field empties its label; a property that isn't there leaves it";
}

TEST_F(QuickViewLaunch, ByTheOtherOperationKeepsTheRecordOfTheOneBefore) {
    World& world = viewing();
    world.option(u"EnableQuickView", u"0");
    add_contact(world, full_contact());
    select(world.deliver(message()));
    call(u"ShowTarnwell");
    EXPECT_EQ(view().text(u"Contactname"), "Ann Lee");
    for (const TextView name : {u"EntryID", u"StoreID", u"MessageClass"}) EXPECT_EQ(view().text(name), "");
    call(u"ShowQuickView");
    const std::string of_ann = view().text(u"EntryID");
    EXPECT_NE(of_ann, "");
    add_contact(world, u"Bob Ray", u"bob@ray.example");
    select(world.deliver(message({.from = "Bob Ray <bob@ray.example>"})));
    call(u"ShowTarnwell");
    EXPECT_EQ(view().text(u"Contactname"), "Bob Ray");
    EXPECT_EQ(view().text(u"EntryID"), of_ann);
}

TEST_F(QuickViewLaunch, ByTheOtherOperationStopsWithoutAToLineAndForPrivateMail) {
    viewing().option(u"EnableQuickView", u"0");
    for (const MailPlan& plan : {MailPlan{.to = ""}, MailPlan{.more = "X-Desk-Sensitivity: 2\n"}}) {
        World& world = again();
        world.option(u"EnableQuickView", u"0");
        add_contact(world);
        select(world.deliver(message(plan)));
        call(u"ShowTarnwell");
        EXPECT_FALSE(view().is_open());
        EXPECT_EQ(count_messages(world), 0);
    }
}

TEST_F(QuickViewLaunch, ByTheOtherOperationLeavesAStrangerToTheButtonsWay) {
    World& world = viewing();
    world.option(u"EnableQuickView", u"0");
    const Item mail = world.deliver(message());
    select(mail);
    answer(create_question, no);
    call(u"ShowTarnwell");
    EXPECT_EQ(message_texts(world),
              Lines{"Tarnwell Account/Contact ann.lee@northmill.example NOT FOUND!\rWould you like to "
                    "Create an Account/Contact"});
    // that way opens what begins with the address, too
    const Item contact = add_contact(world, {.full_name = u"X",
                                             .fields = {{u"Email1Address", u"ann.lee@northmill.example.org"},
                                                        {u"Email2Address", u"x@x.example"},
                                                        {u"Email3Address", u"x@x.example"}}});
    const std::int32_t before = world.displayed();
    call(u"ShowTarnwell");
    EXPECT_EQ(world.ids_displayed_since(before), Lines{shown(contact.EntryID())});
    EXPECT_FALSE(view().is_open());
    expect_status_window_gone();
}

TEST_F(QuickViewLaunch, StartsTheOtherProgramWhereTheFirstIsMissing) {
    struct Case {
        std::vector<std::string> without;
        Lines started;
    };
    const Case cases[] = {
        {{"TarnwellUtility.exe"}, {"TarnwellUpdate.exe Alerts;;AccountID;A-100"}},
        {{"TarnwellUtility.exe", "TarnwellUpdate.exe"}, {}},
    };
    for (const Case& one : cases) {
        World& world = viewing({.without = one.without});
        show_ann();
        Lines expected;
        for (const std::string& line : one.started)
            expected.push_back(line + " in " + shown(world.family(u"ProgramFolder")));
        EXPECT_EQ(programs(static_cast<std::int32_t>(expected.size())), expected);
        EXPECT_EQ(count_messages(world), 0);
    }
}

TEST_F(QuickViewLaunch, SaysThatTheWrapperIsMissing) {
    World& world = viewing({.without = {"TarnwellOMG.SafeMailItem"}});
    add_contact(world);
    answer(u"TarnwellOMG did not initialize", 1);
    select(world.deliver(message()));
    EXPECT_EQ(message_texts(world), Lines{"TarnwellOMG did not initialize"});
    const Object box = world.desk().get(u"Messages").to_object().call(u"Item", {1}).to_object();
    constexpr std::int32_t critical = 16;
    EXPECT_EQ(box.get(u"Style").to_integer(), critical);
    EXPECT_EQ(box.get(u"Title").to_text(), u"Tarnwell");
    EXPECT_FALSE(view().is_open());
    call(u"ShowTarnwell");
    EXPECT_EQ(count_messages(world), 1) << "which ends without a word";
    EXPECT_FALSE(view().is_open());
}

// who is no contact yet

TEST_F(QuickViewLaunch, MakesNothingOfAStrangerWithoutAYes) {
    World& world = viewing();
    answer(create_question, no);
    const Item mail = world.deliver(message());
    select(mail);
    EXPECT_EQ(message_texts(world),
              Lines{"Tarnwell Account/Contact ann.lee@northmill.example NOT FOUND!\rWould you like to "
                    "Create an Account/Contact"});
    const Object box = world.desk().get(u"Messages").to_object().call(u"Item", {1}).to_object();
    constexpr std::int32_t yes_no = 4;
    EXPECT_EQ(box.get(u"Style").to_integer(), yes_no);
    EXPECT_EQ(count_in(world, u"Account Contacts"), 0);
    EXPECT_FALSE(view().is_open());
    EXPECT_EQ(programs(), Lines{});
    expect_status_window_gone();
    expect_left_alone(world, mail);
}

TEST_F(QuickViewLaunch, MakesAContactAndANoteOfAStranger) {
    struct Case {
        const char *from, *more, *address, *company, *web_page;
    };
    const Case cases[] = {
        {"Bo Ray <bo@ray.example>", "", "bo@ray.example", "ray.example", "www.ray.example"},
        {"Bo Ray <bo@ray.com>", "", "bo@ray.com", "ray", "www.ray.com"},
        {"Bo Ray <bo@example.co.uk>", "", "bo@example.co.uk", "example.co.uk", "www.example.co.uk"},
        {"Bo Ray <bo@x.company.example>", "", "bo@x.company.example", "x", "www.x.company.example"},
        {"Bo Ray <bo@ray.example>", "X-Desk-Sender: EX /o=Example/cn=bo\n", "bo@ray.example", "ray.example",
         "www.ray.example"},
        {"Bo Ray <bo@ray.example>", "X-Desk-Sender: SMTP ray\n", "ray", "", ""},
    };
    viewing();
    for (const Case& one : cases) {
        SCOPED_TRACE(one.address);
        World& world = again();
        const std::int32_t boxes = count_messages(world), before = world.displayed();
        answer(create_question, yes);
        answer(account_question, no);
        const Item mail = world.deliver(message({.from = one.from, .more = one.more}));
        select(mail);
        EXPECT_EQ(message_texts(world, boxes),
                  (Lines{"Tarnwell Account/Contact " + std::string(one.address) +
                             " NOT FOUND!\rWould you like to Create an Account/Contact",
                         shown(account_question)}));
        const Item contact = only_item(world, u"Account Contacts");
        ASSERT_TRUE(contact);
        EXPECT_EQ(world.ids_displayed_since(before), Lines{shown(contact.EntryID())});
        const std::pair<TextView, const char*> fields[] = {
            {u"FullName", "Bo Ray"},    {u"Subject", "Bo Ray"},          {u"CompanyName", one.company},
            {u"WebPage", one.web_page}, {u"Email1Address", one.address}, {u"BusinessTelephoneNumber", ""}};
        for (const auto& [name, value] : fields) {
            EXPECT_EQ(shown(contact.get(name).to_text()), value) << shown(name);
        }
        const std::pair<TextView, const char*> properties[] = {{u"AccountID", ""},
                                                               {u"Account Manager", "Mia Hart"},
                                                               {u"Team", "Mia Hart"},
                                                               {u"Alignment", "North"},
                                                               {u"Account Name", one.company}};
        for (const auto& [name, value] : properties) {
            EXPECT_EQ(shown(World::property(contact, name)), value) << shown(name);
        }
        const std::string id = shown(World::property(contact, u"ContactID"));
        EXPECT_NE(id, "");
        Lines expected{"Subject: Delivery dates", "ContactID: " + id};
        if (*one.company) expected.push_back(std::string("Account Name: ") + one.company);
        // manager, team and alignment stay unset
        expected.insert(expected.end(), {"Contact Name: Bo Ray", "Type: Email (Received)"});
        expect_note(world, only_item(world), mail, expected);
        EXPECT_EQ(mail.BillingInformation(), u"") << "the mail isn't marked";
        EXPECT_EQ(mail.get(u"FlagStatus").to_integer(), 0);
        EXPECT_FALSE(view().is_open());
        EXPECT_EQ(programs(), Lines{});
        expect_status_window_gone();
        // so it is filed once more when it is read
        world.family(u"EmailAutoFile", u"1");
        world.option(u"SaveExchangeEmail", u"1");
        World::read(mail);
        EXPECT_TRUE(world.wait_for_handlers());
        EXPECT_EQ(count_in(world, u"Email"), 2);
        EXPECT_TRUE(is_marked(mail));
    }
}

TEST_F(QuickViewLaunch, ShowsAnEmptyAddressWhereThereIsNone) {
    World& world = viewing();
    answer(create_question, no);
    select(world.deliver(message({.from = "Ann Lee", .more = directory})));
    EXPECT_EQ(message_texts(world),
              Lines{"Tarnwell Account/Contact  NOT FOUND!\rWould you like to Create an Account/Contact"});
}

TEST_F(QuickViewLaunch, TakesTheAccountThatTheUserChooses) {
    for (const bool chosen : {true, false}) {
        SCOPED_TRACE(chosen);
        World& world = viewing();
        add_mill(world, u"Tom Prior", u"South");
        const Item mail = world.deliver(message());
        world.option(u"EnableQuickView", u"0");
        select(mail);
        answer(create_question, yes);
        answer(account_question, yes);
        press_entry();
        const AccountPicker picker(world);
        ASSERT_TRUE(picker.opens());
        if (chosen) {
            picker.choose(u"North Mill Ltd");
        } else {
            picker.cancel();
        }
        ASSERT_TRUE(world.wait_until([&] { return count_in(world, u"Email") == 1; }));
        EXPECT_TRUE(world.wait_for_handlers());

        const Item contact = only_item(world, u"Account Contacts");
        ASSERT_TRUE(contact);
        const std::pair<TextView, const char*> fields[] = {
            {u"FullName", "Ann Lee"},
            {u"CompanyName", chosen ? "North Mill Ltd" : "northmill.example"},
            {u"WebPage", "www.northmill.example"},
            {u"BusinessAddressStreet", chosen ? "1 Mill Lane" : ""},
            {u"BusinessAddressCity", chosen ? "York" : ""},
            {u"BusinessAddressState", chosen ? "Yorkshire" : ""},
            {u"BusinessAddressPostalCode", chosen ? "YO1" : ""},
            {u"BusinessTelephoneNumber", chosen ? "111" : ""},
            {u"BusinessFaxNumber", chosen ? "222" : ""}};
        for (const auto& [name, value] : fields) {
            EXPECT_EQ(shown(contact.get(name).to_text()), value) << shown(name);
        }
        const std::pair<TextView, const char*> properties[] = {
            {u"AccountID", chosen ? "A-7" : ""},
            {u"Account Manager", chosen ? "Tom Prior" : "Mia Hart"},
            {u"Team", chosen ? "Sales" : "Mia Hart"},
            {u"Alignment", chosen ? "South" : "North"},
            {u"Account Name", chosen ? "North Mill Ltd" : "northmill.example"}};
        for (const auto& [name, value] : properties) {
            EXPECT_EQ(shown(World::property(contact, name)), value) << shown(name);
        }
        const std::string id = "ContactID: " + shown(World::property(contact, u"ContactID"));
        EXPECT_EQ(
            told_note(only_item(world)),
            chosen ? (Lines{"Subject: Delivery dates", "AccountID: A-7", id, "Account Name: North Mill Ltd",
                            "Contact Name: Ann Lee", "Account Manager: Tom Prior", "Team: Sales",
                            "Alignment: South", "Type: Email (Received)"})
                   : (Lines{"Subject: Delivery dates", id, "Account Name: northmill.example",
                            "Contact Name: Ann Lee", "Type: Email (Received)"}));
        const Text folder = world.account_profiles().EntryID();
        Lines calls;
        for (const Text& made : world.family_calls()) {
            if (made.starts_with(u"ListPicker.")) calls.push_back(shown(made));
        }
        EXPECT_EQ(calls, (Lines{"ListPicker.StoreID = " + shown(world.account_profiles().StoreID()),
                                "ListPicker.FolderId = " + shown(folder),
                                "ListPicker.accountfolderid = " + shown(folder),
                                "ListPicker.searchany(Account, Account List)"}));
        EXPECT_FALSE(view().is_open());
    }
}

// while it waits

TEST_F(QuickViewLaunch, LetsAnotherMailBeSelectedMeanwhile) {
    World& world = viewing();
    add_contact(world, full_contact());
    add_contact(world, u"Bob Ray", u"bob@ray.example");
    const Item of_ann = world.deliver(message());
    const Item of_bob = world.deliver(message({.from = "Bob Ray <bob@ray.example>"}));
    world.desk().call(u"Meanwhile",
                      {u"Searching for Ann Lee", Value(world.desk()), u"Select", Value(of_bob)});
    select(of_ann);
    EXPECT_EQ(statuses(world), (Lines{"Searching for Ann Lee", "Searching for Bob Ray"}));
    EXPECT_TRUE(view().is_open());
    EXPECT_EQ(view().text(u"Contactname"), "Ann Lee") << "the first one goes on where it waited";
    EXPECT_EQ(view().text(u"EmailID"), shown(of_ann.EntryID()));
    expect_status_window_gone();
}

}  // namespace
}  // namespace acceptance
