// The Create Note dialog as it opens: what it shows of the mail, and what its controls do before a note is
// made.
#include "tests/world/note_dialog.h"
#include "tests/world/outgoing.h"

namespace acceptance {
namespace {

using automation::TextView;
using automation::Value;
using host::outlook::Item;

class CreateNoteDialog : public Filing {
  protected:
    /// A world with a contact, and a target that finds it.
    World& furnished(const WorldSetup& setup = {}) {
        World& world = with(setup);
        add_contact(world);
        install(world, {SearchTarget{}});
        return world;
    }

    static Item mail_of_three(World& world) {
        return world.deliver(
            message({.to = "Tom Prior <tom.prior@tarnwell.example>, Eve Day <eve@tarnwell.example>",
                     .more = "Cc: Bo Lee <bo@northmill.example>\n"}));
    }

    /// Nobody is chosen in the explorer.
    static void select_nothing(World& world) {
        show_folder(world, world.inbox());
        world.desk().call(u"Select");
    }
};

const Lines contact_headings{"Contact Name", "Company Name", "Business Phone", "Address",
                             "City",         "State",        "ENTRYID"};
const Lines account_headings{"Company Name", "Company City", "Business Phone", "Address",
                             "City",         "State",        "ENTRYID"};
const Lines four_people{"ann.lee@northmill.example", "tom.prior@tarnwell.example", "eve@tarnwell.example",
                        "bo@northmill.example"};

// as it opens

TEST_F(CreateNoteDialog, OpensOverTheWindowOfAMailWithItsControls) {
    World& world = with({});
    OpenedItem mail(world.deliver(message()));
    mail.show();
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(mail));
    struct Shown {
        TextView name;
        const char *text, *tool_tip;
        bool visible = true, enabled = true;
    };
    constexpr const char* list_tip =
        "Double Click or Click on a contact and then Click Create to add the note.";
    constexpr const char* ask_for_target =
        "Please select a folder to search (Create Note for: drop down on the right).";
    const Shown all[] = {
        {u"lblHeader", "Highlight an entry in the list below.  Then press Create.", ""},
        {u"Label2", "To create a note, click the Create button after highlighting an item in the list.", ""},
        {u"Check1", "Leave form open after create.",
         "Check this box to leave it open so you can create another note."},
        {u"cmdSend", "Create", "Click here to create the note for the selected item."},
        {u"cmdCancel", "Close", ""},
        {u"Label6", "Create note for:", ""},
        {u"Combo2", "", ""},
        {u"cmdSearch", "Search", "Type a name and click Search to add to the list"},
        {u"SearchString", ask_for_target, "Type in the account name or contact name to search.", true, false},
        {u"Label5", "Type:", ""},
        {u"Combo1", "Email (Received)", "Select the note type."},
        {u"Label4", "Note Subject:", ""},
        {u"txtNote", "Delivery dates",
         "Please enter a subject for your note.  Default text has been supplied."},
        {u"Frame1", "Note Type to Create", ""},
        {u"Option2", "Account Contact",
         "Select either to create the note at the contact level or the account level."},
        {u"Option1", "Account Profile", ""},
        {u"Label1",
         "To Search: Enter a Contact/Account name and click the Search button or press enter to populate the "
         "list.",
         ""},
        {u"Label3", "Product Version: 6.0.2178", ""},
        {u"Text1", "Text1", "", false},
        {u"Text2", "Text2", "", false},
    };
    for (const Shown& one : all) {
        SCOPED_TRACE(shown(one.name));
        ASSERT_TRUE(dialog.control(one.name));
        EXPECT_EQ(dialog.text(one.name), one.text);
        EXPECT_EQ(shown(dialog.control(one.name).get(u"ToolTip").to_text()), one.tool_tip);
        EXPECT_EQ(dialog.control(one.name).get(u"Visible").to_boolean(), one.visible);
        EXPECT_EQ(dialog.is_enabled(one.name), one.enabled);
    }
    EXPECT_EQ(shown(dialog.control(u"lstRecipients").get(u"ToolTip").to_text()), list_tip);
    EXPECT_FALSE(dialog.is_chosen(u"Check1"));
    EXPECT_TRUE(dialog.is_chosen(u"Option2"));
    EXPECT_FALSE(dialog.is_chosen(u"Option1"));
    EXPECT_TRUE(dialog.window().get(u"Topmost").to_boolean());
    EXPECT_EQ(dialog.entries(u"Combo2"), Lines{"Search by Email"});
    EXPECT_EQ(dialog.control(u"Combo2").get(u"Selected").to_integer(), 0);
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(CreateNoteDialog, HasAListOfEightColumnsOfWhichTheKeysIsHidden) {
    World& world = with({});
    OpenedItem mail(world.deliver(message()));
    mail.show();
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(mail));
    EXPECT_EQ(dialog.control(u"lstRecipients").get(u"Columns").to_object().get(u"Count").to_integer(), 8);
    EXPECT_EQ(dialog.headings(), contact_headings);
    EXPECT_GT(dialog.width(1), dialog.width(2));
    EXPECT_EQ(dialog.width(2), dialog.width(8));
    EXPECT_EQ(dialog.width(7), 0);
    EXPECT_EQ(dialog.marks(), std::vector<std::int32_t>(8, -1));
}

TEST_F(CreateNoteDialog, OpensFromTheExplorersMenuForTheFirstSelectedMail) {
    World& world = with({});
    const Item mail = mail_of_three(world);
    const Item other = world.deliver(message({.from = "Bob Ray <bob@ray.example>", .subject = "Other"}));
    world.desk().call(u"Select", {Value(mail), Value(other)});
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open_from_explorer());
    EXPECT_EQ(dialog.rows(), four_people);
    EXPECT_EQ(dialog.selected(), 1);
    EXPECT_EQ(dialog.text(u"txtNote"), "Delivery dates");
}

TEST_F(CreateNoteDialog, OpensForTheMailItWasAskedForThoughAnotherOneIsSelected) {
    World& world = with({});
    const Item selected = world.deliver(message({.from = "Bob Ray <bob@ray.example>", .subject = "Other"}));
    world.desk().call(u"Select", {Value(selected)});
    OpenedItem mail(mail_of_three(world));
    mail.show();
    {
        NoteDialog dialog(world);
        ASSERT_TRUE(dialog.open(mail));
        EXPECT_EQ(dialog.rows(), four_people);
    }
    world.desk().call(u"Select", {Value(selected)});
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open_from_explorer());
    EXPECT_EQ(dialog.text(u"txtNote"), "Other");
    EXPECT_EQ(dialog.rows(), (Lines{"bob@ray.example", "tom.prior@tarnwell.example"}));
}

TEST_F(CreateNoteDialog, ListsTheSenderFirstAndEveryRecipientByAnInternetAddress) {
    struct Case {
        const char* name;
        MailPlan plan;
        Lines rows;
    };
    const Case cases[] = {
        {"one recipient", {}, {"ann.lee@northmill.example", "tom.prior@tarnwell.example"}},
        {"the same address twice",
         {.to = "Tom Prior <tom.prior@tarnwell.example>, Ann Lee <ann.lee@northmill.example>"},
         {"ann.lee@northmill.example", "tom.prior@tarnwell.example", "ann.lee@northmill.example"}},
        {"a sender of the directory",
         {.more = "X-Desk-Sender: EX /o=Example/cn=ann\n"},
         {"ann.lee@northmill.example", "tom.prior@tarnwell.example"}},
        {"a recipient of the directory",
         {.to = "Tom Prior <tom.prior@tarnwell.example>, Bob <bob@one.example>",
          .more = "X-Desk-Recipient: bob@one.example EX /o=Example/cn=bob\n"},
         {"ann.lee@northmill.example", "tom.prior@tarnwell.example", "bob@one.example"}},
        {"no recipient", {.to = ""}, {"ann.lee@northmill.example"}},
    };
    World& world = with({});
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        OpenedItem mail(world.deliver(message(one.plan)));
        mail.show();
        NoteDialog dialog(world);
        ASSERT_TRUE(dialog.open(mail));
        EXPECT_EQ(dialog.rows(), one.rows);
        EXPECT_EQ(dialog.selected(), 1);
    }
}

TEST_F(CreateNoteDialog, OffersTheNoteTypesOfTheDatabaseInTheirOrder) {
    World& world = with({.database = "sample"});
    OpenedItem mail(world.deliver(message()));
    mail.show();
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(mail));
    const Lines types = dialog.entries(u"Combo1");
    ASSERT_GE(types.size(), 4U);
    EXPECT_EQ(Lines(types.begin(), types.begin() + 4),
              (Lines{"Email (Received)", "Email (Sent)", "Phone Call", "Phone Message"}));
    EXPECT_EQ(dialog.text(u"Combo1"), "Email (Received)");
    dialog.choose(u"Combo1", u"Phone Call");
    EXPECT_EQ(dialog.text(u"Combo1"), "Phone Call");
    dialog.type(u"Combo1", u"Of my own");
    EXPECT_EQ(dialog.text(u"Combo1"), "Of my own");
    dialog.click(u"Option1");
    dialog.click(u"Option2");
    EXPECT_EQ(dialog.text(u"Combo1"), "Email (Received)") << "the addresses' return brings the type back";
    EXPECT_EQ(dialog.entries(u"Combo1"), types);
}

TEST_F(CreateNoteDialog, HasOnlyTheMailsTypeWithoutTheFamilysObject) {
    World& world = with({.without = {"Tarnwell.connect"}});
    OpenedItem mail(world.deliver(message()));
    mail.show();
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(mail)) << "the load ends early, and the window comes up all the same";
    EXPECT_EQ(dialog.text(u"Label3"), "Product Version: 6.0.2178");
    EXPECT_EQ(dialog.entries(u"Combo2"), Lines{});
    EXPECT_EQ(dialog.rows(), Lines{});
}

// mail that is being written

TEST_F(CreateNoteDialog, SavesAMailThatIsBeingWrittenAndTakesItForSent) {
    World& world = with({});
    OpenedItem mail(new_mail(world, {.to = u"Ann Lee <ann.lee@northmill.example>"}));
    mail.show();
    ASSERT_EQ(mail.item.EntryID(), u"");
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(mail));
    EXPECT_EQ(dialog.text(u"Combo1"), "Email (Sent)");
    EXPECT_NE(mail.item.EntryID(), u"");
    EXPECT_TRUE(mail.item.get(u"Saved").to_boolean());
    EXPECT_EQ(dialog.text(u"txtNote"), "Our offer");
    EXPECT_EQ(dialog.column(1).back(), "ann.lee@northmill.example");
}

TEST_F(CreateNoteDialog, TellsReceivedFromSentByWhetherTheMailIsSaved) {
    World& world = with({});
    const Item draft = new_mail(world);
    draft.Save();
    const Item changed = world.deliver(message());
    changed.Subject(u"Changed");
    const Item received = world.deliver(message());
    struct Case {
        const char* name;
        Item item;
        const char* type;
    };
    for (const Case& one : {Case{"a draft as it was saved", draft, "Email (Received)"},
                            Case{"a received mail that was changed", changed, "Email (Sent)"},
                            Case{"a received mail", received, "Email (Received)"}}) {
        SCOPED_TRACE(one.name);
        OpenedItem mail(one.item);
        mail.show();
        NoteDialog dialog(world);
        ASSERT_TRUE(dialog.open(mail));
        EXPECT_EQ(dialog.text(u"Combo1"), one.type);
        EXPECT_TRUE(one.item.get(u"Saved").to_boolean());
    }
}

TEST_F(CreateNoteDialog, ComesUpEmptyWithoutASelection) {
    World& world = with({});
    select_nothing(world);
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open_from_explorer());
    EXPECT_EQ(dialog.rows(), Lines{});
    EXPECT_EQ(dialog.text(u"txtNote"), "");
    EXPECT_EQ(count_messages(world), 0);
    dialog.click(u"cmdSend");
    EXPECT_TRUE(dialog.header_becomes(no_row));
}

// options and headings

TEST_F(CreateNoteDialog, ListsNothingAtAccountLevelUntilASearch) {
    World& world = with({});
    OpenedItem mail(world.deliver(message()));
    mail.show();
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(mail));
    dialog.click(u"Option1");
    EXPECT_EQ(dialog.headings(), account_headings);
    EXPECT_EQ(dialog.rows(), Lines{});
    EXPECT_TRUE(dialog.is_chosen(u"Option1"));
    EXPECT_FALSE(dialog.is_chosen(u"Option2"));
    dialog.click(u"cmdSend");
    EXPECT_TRUE(dialog.header_becomes(no_row));
    dialog.double_click();
    EXPECT_EQ(dialog.text(u"lblHeader"), shown(no_row));

    dialog.choose(u"Combo2", u"Search by Email");
    EXPECT_EQ(dialog.rows().size(), 2U) << "the addresses come back";
    EXPECT_EQ(dialog.headings(), account_headings) << "and the headings stay";
    dialog.click(u"Option2");
    EXPECT_EQ(dialog.headings(), contact_headings);
    EXPECT_EQ(dialog.rows().size(), 2U);
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(CreateNoteDialog, EnablesTheSearchTextWithATarget) {
    World& world = furnished();
    OpenedItem mail(world.deliver(message()));
    mail.show();
    for (const TextView target : {u"Search by Email", u"People"}) {
        SCOPED_TRACE(shown(target));
        NoteDialog dialog(world);
        ASSERT_TRUE(dialog.open(mail));
        EXPECT_EQ(dialog.entries(u"Combo2"), (Lines{"People", "Search by Email"}));
        dialog.choose(u"Combo2", target);
        EXPECT_TRUE(dialog.is_enabled(u"SearchString"));
        EXPECT_EQ(dialog.text(u"SearchString"), "");
        dialog.type(u"SearchString", u"Ann");
        dialog.choose(u"Combo2", target);
        EXPECT_EQ(dialog.text(u"SearchString"), "") << "choosing it again empties the text";
    }
}

}  // namespace
}  // namespace acceptance
