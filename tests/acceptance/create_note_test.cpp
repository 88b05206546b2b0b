// The note that the dialog makes for an address of the mail: whom it finds, what the note holds, where it
// lies, and which mail is marked.
#include "tests/world/host_numbers.h"
#include "tests/world/note_dialog.h"
#include "tests/world/outgoing.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

constexpr TextView not_found_question =
    u"Tarnwell Account/Contact ann.lee@northmill.example NOT FOUND!\rWould you like to Create an "
    u"Account/Contact";

class CreateNote : public WithNoteDialog {
  protected:
    /// Presses Create and expects the question about an address that nobody bears; it is denied.
    void expect_stranger(const NoteDialog& dialog) {
        const std::int32_t before = count_messages(world());
        world().desk().call(u"Answer", {u"Tarnwell", u"Would you like to Create an Account/Contact", no});
        dialog.click(u"cmdSend");
        EXPECT_EQ(count_messages(world()), before + 1);
        EXPECT_TRUE(dialog.is_open());
        EXPECT_EQ(count_in(world(), u"Email"), 0);
    }

    /// Lets filters ask for the field that no folder of its own knows.
    void know_files_as() {
        constexpr std::int32_t text = 1;  // OlUserPropertyType
        const Item one = add_contact(world(), {.full_name = u"Somebody Else", .fields = {}});
        one.UserProperties().Add(u"FilesAs", text, true).value(u"-");
        one.Save();
    }
};

// what the note holds

TEST_F(CreateNote, OfAContactHoldsItsKeysAndWhatTheDialogSays) {
    World& world = with({});
    add_contact(world);
    const Item mail = world.deliver(message());
    NoteDialog& dialog = opened(mail);
    dialog.type(u"Combo1", u"Phone Call");
    dialog.type(u"txtNote", u"About the dates");
    dialog.create();
    EXPECT_TRUE(dialog.closes());
    expect_note(world, only_item(world), mail,
                {"Subject: About the dates", "AccountID: A-100", "ContactID: C-200",
                 "Account Name: North Mill Ltd", "Contact Name: Ann Lee", "Account Manager: Mia Hart",
                 "Team: Sales", "Alignment: North", "Type: Phone Call", told_date(world, mail)});

    ASSERT_EQ(message_texts(world), Lines{"Done - creating Note for ann.lee@northmill.example"});
    const Object box = world.desk().get(u"Messages").to_object().call(u"Item", {1}).to_object();
    constexpr std::int32_t information = 64;
    EXPECT_EQ(box.get(u"Style").to_integer(), information);
    EXPECT_EQ(box.get(u"Title").to_text(), u"Tarnwell");
}

TEST_F(CreateNote, OfAnAccountHoldsNoContactAndNoDate) {
    World& world = with({});
    add_account(world,
                {{u"AccountID", u"A-7"},
                 {u"Account Manager", u"Mia Hart"},
                 {u"Team", u"Sales"},
                 {u"Alignment", u"North"},
                 {u"Account Name", u"Not this one"}},
                u"ann.lee@northmill.example");
    add_contact(world);
    const Item mail = world.deliver(message());
    NoteDialog& dialog = opened(mail);
    dialog.click(u"Option1");
    dialog.choose(u"Combo2", u"Search by Email");
    dialog.type(u"Combo1", u"Phone Call");
    dialog.type(u"txtNote", u"About the dates");
    dialog.create();
    EXPECT_TRUE(dialog.closes());
    expect_note(world, only_item(world), mail,
                {"Subject: About the dates", "AccountID: A-7", "Account Name: ann.lee@northmill.example",
                 "Account Manager: Mia Hart", "Team: Sales", "Alignment: North", "Type: Phone Call"});
    EXPECT_TRUE(is_marked_by_user(mail));
}

TEST_F(CreateNote, TakesEmptyTextsAsTheyAre) {
    World& world = with({});
    add_contact(world, {.company = u"", .properties = {}});
    NoteDialog& dialog = opened(world.deliver(message({.body = ""})));
    dialog.type(u"Combo1", u"");
    dialog.type(u"txtNote", u"");
    dialog.create();
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(told_note(note).size(), 3U);
    EXPECT_EQ(told_note(note).at(0), "Subject: ");
    EXPECT_EQ(told_note(note).at(1), "Contact Name: Ann Lee");
    EXPECT_EQ(note.Body(), u"\r\n\r\n");
}

// which mail is marked

TEST_F(CreateNote, MarksTheMailInItsWindowAndNotTheSelectedOne) {
    World& world = with({});
    add_contact(world);
    const Item selected = world.deliver(message({.subject = "Other"}));
    world.desk().call(u"Select", {Value(selected)});
    const Item mail = world.deliver(message());
    opened(mail).create();
    EXPECT_TRUE(is_marked_by_user(mail));
    EXPECT_TRUE(mail.get(u"Saved").to_boolean());
    EXPECT_EQ(selected.BillingInformation(), u"");
}

TEST_F(CreateNote, MarksTheSelectedMailAndNotTheOneInAWindow) {
    World& world = with({});
    add_contact(world);
    const Item other = world.deliver(message({.subject = "Other"}));
    OpenedItem window(other);
    window.show();
    const Item mail = world.deliver(message());
    opened_from_explorer(mail).create();
    EXPECT_TRUE(is_marked_by_user(mail));
    EXPECT_EQ(other.BillingInformation(), u"");
    EXPECT_EQ(only_item(world).Subject(), u"Delivery dates");
}

TEST_F(CreateNote, MarksADraftThatIsSelectedAndNotOneThatIsBeingWritten) {
    World& world = with({});
    add_contact(world);
    add_account(world, {{u"AccountID", u"A-7"}}, u"ann.lee@northmill.example");
    bool account_level = false;
    const auto create_for_ann = [&](NoteDialog& dialog) {
        if (account_level) {
            dialog.click(u"Option1");
            dialog.choose(u"Combo2", u"Search by Email");
        }
        dialog.select(dialog.count());
        EXPECT_EQ(dialog.column(1).back(), "ann.lee@northmill.example");
        dialog.create();
        EXPECT_TRUE(dialog.closes());
    };
    const Item written = new_mail(world);
    create_for_ann(opened(written));
    EXPECT_NE(written.EntryID(), u"");
    EXPECT_EQ(written.BillingInformation(), u"");
    EXPECT_EQ(written.get(u"FlagStatus").to_integer(), 0);
    EXPECT_EQ(World::property(only_item(world), u"Type"), u"Email (Sent)");

    const Item draft = new_mail(world);
    draft.Save();
    create_for_ann(opened_from_explorer(draft));
    EXPECT_TRUE(is_marked_by_user(draft));
    EXPECT_EQ(count_in(world, u"Email"), 2);

    account_level = true;
    const Item written_too = new_mail(world);
    create_for_ann(opened(written_too));
    EXPECT_EQ(written_too.BillingInformation(), u"");
    EXPECT_EQ(count_in(world, u"Email"), 3);
}

// whom it finds

TEST_F(CreateNote, FindsTheContactOfARowByAddressOrName) {
    struct Case {
        const char* name;
        ContactPlan contact;
        MailPlan mail;
        std::int32_t row = 1;
    };
    const Case cases[] = {
        {"first address",
         {.full_name = u"X", .fields = {{u"Email1Address", u"ann.lee@northmill.example"}}},
         {}},
        {"second address",
         {.full_name = u"X", .fields = {{u"Email2Address", u"ann.lee@northmill.example"}}},
         {}},
        {"third address, of a recipient",
         {.full_name = u"X", .fields = {{u"Email3Address", u"tom.prior@tarnwell.example"}}},
         {},
         2},
        {"address among other texts",
         {.full_name = u"X",
          .fields = {},
          .properties = {{u"EmailSearchString", u"ann.lee@northmill.example"}}},
         {}},
        {"address as a subject", {.full_name = u"ann.lee@northmill.example", .fields = {}}, {}},
        {"the sender's name", {.fields = {}}, {}},
        {"a recipient's name", {.full_name = u"Tom Prior", .fields = {}}, {}, 2},
        {"the sender's address in the directory",
         {.full_name = u"X", .fields = {{u"Email1Address", u"/o=Example/cn=ann"}}},
         {.more = "X-Desk-Sender: EX /o=Example/cn=ann\n"}},
        {"a recipient's address in the directory",
         {.full_name = u"X", .fields = {{u"Email2Address", u"/o=Example/cn=bob"}}},
         {.to = "Bob <bob@one.example>", .more = "X-Desk-Recipient: bob@one.example EX /o=Example/cn=bob\n"},
         2},
        {"a sender who bears another address than his mail",
         {.full_name = u"X", .fields = {{u"Email1Address", u"other@native.example"}}},
         {.more = "X-Desk-Sender: SMTP other@native.example\n"}},
    };
    with({});
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        close_dialog();
        World& world = emptied();
        add_contact(world,
                    {.full_name = u"Nobody", .fields = {{u"Email1Address", u"nobody@nowhere.example"}}});
        add_contact(world, one.contact);
        NoteDialog& dialog = opened(world.deliver(message(one.mail)));
        dialog.select(one.row);
        dialog.create();
        EXPECT_TRUE(dialog.closes());
        const Item note = only_item(world);
        ASSERT_TRUE(note);
        EXPECT_EQ(World::property(note, u"Contact Name"), one.contact.full_name);
    }
}

TEST_F(CreateNote, FindsTheBeginningOfANameWhereTheFolderKnowsAllItAsksFor) {
    World& world = with({});
    add_contact(world, {.full_name = u"Ann Lee-Smith", .fields = {{u"Email1Address", u"als@one.example"}}});
    add_contact(world, {.full_name = u"Bo O'Hara", .fields = {{u"Email1Address", u"bo@two.example"}}});
    NoteDialog& dialog = opened(world.deliver(message()));
    expect_stranger(dialog);
    EXPECT_EQ(message_texts(world), Lines{shown(not_found_question)});
    know_files_as();
    dialog.create();
    EXPECT_EQ(World::property(only_item(world), u"Contact Name"), u"Ann Lee-Smith");

    NoteDialog& with_apostrophe = opened(world.deliver(message({.from = "Bo O'Hara <bo@two.example>"})));
    with_apostrophe.create();
    EXPECT_EQ(count_in(world, u"Email"), 2)
        << "the apostrophe breaks the first search, so that the second one finds";
}

TEST_F(CreateNote, DoesNotLookForTheNameOfSomebodyWhoIsNoneOfTheMailsPeople) {
    World& world = with({});
    know_files_as();
    add_contact(world, {.full_name = u"Ann Lee", .fields = {{u"Email1Address", u"ann@elsewhere.example"}}});
    expect_stranger(opened(world.deliver(message({.more = "X-Desk-Sender: SMTP other@native.example\n"}))));
}

TEST_F(CreateNote, LooksForTheRowsAddressAloneWhereTheSenderHasNone) {
    // the list has the native address; an address of the directory, which a row is compared with, there isn't
    const MailPlan plan{.from = "Ann Lee", .more = "X-Desk-Sender: SMTP ann.lee@northmill.example\n"};
    World& world = with({});
    know_files_as();
    add_contact(world, {.full_name = u"Ann Lee", .fields = {{u"Email1Address", u"ann@elsewhere.example"}}});
    NoteDialog& dialog = opened(world.deliver(message(plan)));
    ASSERT_EQ(dialog.column(1).front(), "ann.lee@northmill.example");
    world.desk().call(u"ResetCalls");
    expect_stranger(dialog);
    EXPECT_EQ(calls_of(world, u"Find"), 1) << "neither the name nor another filter is tried";
    add_contact(world, {.full_name = u"By address"});
    dialog.create();
    EXPECT_EQ(World::property(only_item(world), u"Contact Name"), u"By address");
}

TEST_F(CreateNote, LooksForAccountsBySubjectAloneAtAccountLevel) {
    World& world = with({});
    add_contact(world);
    add_account(world, {{u"Account Name", u"ann.lee@northmill.example"}}, u"North Mill");
    NoteDialog& dialog = opened(world.deliver(message()));
    dialog.click(u"Option1");
    dialog.choose(u"Combo2", u"Search by Email");
    expect_stranger(dialog);
}

TEST_F(CreateNote, RefusesAMatchOfAnotherKind) {
    World& world = with({});
    const auto add = [&](const Folder& folder, TextView message_class) {
        const Item item = folder.Items().Add(message_class);
        item.Subject(u"ann.lee@northmill.example");
        if (message_class == TextView(u"IPM.Contact")) item.put(u"FullName", u"ann.lee@northmill.example");
        item.Save();
    };
    add(world.below(u"Account Contacts"), u"IPM.Post");
    add(world.account_profiles(), u"IPM.Contact");
    const Item mail = world.deliver(message());
    NoteDialog& dialog = opened(mail);
    for (const bool account_level : {false, true}) {
        SCOPED_TRACE(account_level);
        if (account_level) {
            dialog.click(u"Option1");
            dialog.choose(u"Combo2", u"Search by Email");
        }
        const std::int32_t before = count_messages(world);
        world.desk().call(u"Answer", {u"Tarnwell", u" NOT FOUND! Please use the search feature. ", ok});
        dialog.click(u"cmdSend");
        EXPECT_EQ(message_texts(world, before),
                  Lines{"Tarnwell Account/Contact ann.lee@northmill.example NOT FOUND! Please use the search "
                        "feature. "});
        EXPECT_TRUE(dialog.is_open());
        EXPECT_EQ(dialog.text(u"lblHeader"), "Please Wait - creating Note for ann.lee@northmill.example");
    }
    expect_left_alone(world, mail);
}

// what is refused, and where the note goes

TEST_F(CreateNote, NeedsARecipientInTheToLine) {
    World& world = with({});
    add_contact(world);
    const Item mail = world.deliver(message({.to = "", .more = "Cc: Bo Lee <bo@northmill.example>\n"}));
    NoteDialog& dialog = opened(mail);
    constexpr TextView refusal = u"Note not created. You must enter an email address in the To field.";
    world.desk().call(u"Answer", {u"Tarnwell", Value(refusal), ok});
    dialog.click(u"cmdSend");
    EXPECT_EQ(message_texts(world), Lines{shown(refusal)});
    EXPECT_TRUE(dialog.is_open());
    EXPECT_EQ(dialog.text(u"lblHeader"), "Please Wait - creating Note for ann.lee@northmill.example");
    expect_left_alone(world, mail);
}

TEST_F(CreateNote, SavesNothingOfAMailWithoutAToLineThatIsBeingWritten) {
    World& world = with({});
    add_contact(world);
    const Item written = new_mail(world, {.to = u"", .cc = u"Ann Lee <ann.lee@northmill.example>"});
    NoteDialog& dialog = opened(written);
    ASSERT_EQ(dialog.column(1), Lines{"ann.lee@northmill.example"});
    written.Subject(u"Changed after the dialog came up");
    ASSERT_FALSE(written.Saved());
    world.desk().call(u"Answer", {u"Tarnwell", u"Note not created.", ok});
    world.desk().call(u"ResetCalls");
    dialog.click(u"cmdSend");
    EXPECT_EQ(message_texts(world),
              Lines{"Note not created. You must enter an email address in the To field."});
    EXPECT_FALSE(written.Saved());
    EXPECT_EQ(calls_of(world, u"Save"), 0);
    EXPECT_TRUE(dialog.is_open());
    expect_left_alone(world, written);
}

TEST_F(CreateNote, GoesToTheFolderOfTheOptionOrToNotes) {
    struct Case {
        const char16_t *option, *folder;
    };
    with({});
    for (const auto& [option, folder] :
         {Case{u"", u"Email"}, Case{u"Email", u"Email"}, Case{u"Notes", u"Notes"},
          Case{u"Opportunities", u"Opportunities"}, Case{u"Nowhere", u"Notes"}}) {
        SCOPED_TRACE(shown(option));
        close_dialog();
        World& world = emptied();
        world.option(u"SavedEmailFolder", option);
        add_contact(world);
        opened(world.deliver(message())).create();
        EXPECT_TRUE(only_item(world, folder));
    }
}

TEST_F(CreateNote, IsReportedAsDoneEvenIfItCouldNotBePosted) {
    World& world = with({});
    add_contact(world);
    const Item mail = world.deliver(message());
    NoteDialog& dialog = opened(mail);
    world.fail(u"PostItem.Post");
    dialog.create();
    EXPECT_TRUE(dialog.closes());
    EXPECT_EQ(count_in(world, u"Email"), 0);
    EXPECT_TRUE(is_marked_by_user(mail));
}

TEST_F(CreateNote, GoesOnWhereASingleValueCantBeRead) {
    World& world = with({});
    const Item contact = add_contact(world);
    NoteDialog& dialog = opened(world.deliver(message()));
    world.fail(u"ContactItem.CompanyName");
    dialog.create();
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(World::property(note, u"Account Name"), u"");
    EXPECT_EQ(World::property(note, u"Contact Name"), u"Ann Lee");
    EXPECT_EQ(World::property(note, u"Alignment"), u"North");
}

}  // namespace
}  // namespace acceptance
