// The note that the dialog makes for a record which a search has found: what it takes from each kind of
// record.
#include "tests/world/host_numbers.h"
#include "tests/world/note_dialog.h"
#include "tests/world/outgoing.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using host::outlook::Folder;
using host::outlook::Item;

/// A target for the records of a folder by their subjects, or for contacts by their names.
SearchTarget target_of(const Text& name, const Text& folder, TextView key, bool contacts = false) {
    SearchTarget target{.name = name, .definition = name, .folder = folder, .key_heading = Text(key)};
    target.key_field = named_field(key);
    if (contacts) return target;
    target.fields = {u"&H0037001E", u"", u"", u"", u"", u""};
    target.filter = u"[Subject] >= '<<mString>>' AND [Subject] < '<<UpperLimit>>'";
    return target;
}

class CreateNoteFromRecord : public WithNoteDialog {
  protected:
    static Item add_record(const Folder& folder, TextView message_class, const Fields& properties) {
        constexpr std::int32_t text = 1;  // OlUserPropertyType
        const Item record = folder.Items().Add(message_class);
        record.Subject(u"Mill");
        for (const auto& [name, value] : properties) {
            record.UserProperties().Add(name, text, false).value(value);
        }
        record.Save();
        return record;
    }
};

/// All that a record could lend to a note, and a name of its own kind.
const Fields everything = {{u"AccountID", u"A-1"},
                           {u"ContactID", u"C-1"},
                           {u"OppID", u"O-1"},
                           {u"Inquiry ID", u"I-1"},
                           {u"NoteID", u"N-1"},
                           {u"ApptID", u"P-1"},
                           {u"TaskID", u"T-1"},
                           {u"Account Manager", u"Mia Hart"},
                           {u"Team", u"Sales"},
                           {u"Alignment", u"North"},
                           {u"Account Name", u"North Mill Ltd"},
                           {u"Contact Name", u"Ann Lee"},
                           {u"Contact1", u"Bob Ray"},
                           {u"Name", u"A new mill"},
                           {u"Opportunity Name", u"Not this one"},
                           {u"Type", u"Not this one"}};

TEST_F(CreateNoteFromRecord, TakesTheNamesByTheRecordsClass) {
    struct Case {
        TextView message_class;
        Lines names;
        const char* opportunity = nullptr;
    };
    const Lines both{"Account Name: North Mill Ltd", "Contact Name: Ann Lee"};
    const Case cases[] = {
        {u"IPM.Post.CustomerService", both},
        {u"IPM.Post.Opportunity",
         {"Account Name: North Mill Ltd", "Contact Name: Bob Ray"},
         "Opportunity Name: A new mill"},
        {u"IPM.Post.Tarnwell_2000", {"Account Name: North Mill Ltd"}},
        {u"IPM.Post.Action", both},
        {u"IPM.Post.Other", both},
        {u"IPM.Post.opportunity", both},  // capitals count
        {u"IPM.Post.Tarnwell_2000.More", both},
    };
    with({});
    install(world(), {target_of(u"Opportunities", Text(accounts_path) + u"\\Opportunities", u"AccountID")});
    const Item mail = world().deliver(message());
    NoteDialog& dialog = opened(mail);
    dialog.click(u"Check1");
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.message_class));
        const Item record = add_record(world().below(u"Opportunities"), one.message_class, everything);
        mail.BillingInformation(u"");  // of the mark of the note before
        dialog.search(u"Opportunities", u"Mill");
        ASSERT_EQ(dialog.rows(), Lines{"Mill||||||A-1"});
        dialog.type(u"Combo1", u"Meeting");
        dialog.type(u"txtNote", u"About the mill");
        dialog.create();
        Lines expected{"Subject: About the mill", "AccountID: A-1", "ContactID: C-1", "OppID: O-1",
                       "Inquiry ID: I-1",         "NoteID: N-1",    "ApptID: P-1",    "TaskID: T-1"};
        expected = joined({expected, one.names});
        if (one.opportunity) expected.emplace_back(one.opportunity);
        expected = joined({expected,
                           {"Account Manager: Mia Hart", "Team: Sales", "Alignment: North", "Type: Meeting",
                            told_date(world(), mail)}});
        expect_note(world(), only_item(world()), mail, expected);
        world().below(u"Email").Items().call(u"Remove", {1});
        world().below(u"Opportunities").Items().call(u"Remove", {1});
    }
    EXPECT_EQ(message_texts(world()), Lines(std::size(cases), "Done - creating Note for Mill"));
    EXPECT_TRUE(is_marked_by_user(mail));
}

TEST_F(CreateNoteFromRecord, TakesAContactsCompanyAndName) {
    World& world = with({});
    add_contact(world);
    install(world, {target_of(u"People", Text(contacts_path), u"ContactID", true)});
    const Item mail = world.deliver(message());
    NoteDialog& dialog = opened(mail);
    dialog.click(u"Option1");  // plays no part here
    dialog.search(u"People", u"Ann");
    dialog.create();
    EXPECT_TRUE(dialog.closes());
    expect_note(world, only_item(world), mail,
                {"Subject: Delivery dates", "AccountID: A-100", "ContactID: C-200",
                 "Account Name: North Mill Ltd", "Contact Name: Ann Lee", "Account Manager: Mia Hart",
                 "Team: Sales", "Alignment: North", "Type: Email (Received)", told_date(world, mail)});
    EXPECT_TRUE(is_marked_by_user(mail));
    EXPECT_EQ(message_texts(world), Lines{"Done - creating Note for Ann Lee"});
}

TEST_F(CreateNoteFromRecord, LeavesOutWhatTheRecordLacks) {
    World& world = with({});
    add_account(world, {{u"AccountID", u"A-1"}, {u"Account Name", u"North Mill Ltd"}}, u"Mill");
    install(world, {target_of(u"Accounts", Text(accounts_path), u"AccountID")});
    const Item mail = world.deliver(message());
    NoteDialog& dialog = opened(mail);
    dialog.search(u"Accounts", u"Mill");
    dialog.create();
    expect_note(world, only_item(world), mail,
                {"Subject: Delivery dates", "AccountID: A-1", "Account Name: North Mill Ltd",
                 "Type: Email (Received)", told_date(world, mail)});
}

TEST_F(CreateNoteFromRecord, CopiesThePropertyThatTheKeysHeadingNames) {
    struct Case {
        const char* name;
        Text heading;
        const char* opportunity;
    };
    const Case cases[] = {{"one that is copied in no other way", u"Opportunity Name", "Copied"},
                          {"one that is no property", u"No Such Thing", ""}};
    with({});
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        close_dialog();
        World& world = emptied();
        add_record(world.below(u"Opportunities"), u"IPM.Post.Other",
                   {{u"AccountID", u"A-1"}, {u"Opportunity Name", u"Copied"}});
        SearchTarget target = target_of(u"Key " + automation::from_utf8(one.name),
                                        Text(accounts_path) + u"\\Opportunities", u"AccountID");
        target.key_heading = one.heading;
        install(world, {target});
        NoteDialog& dialog = opened(world.deliver(message()));
        dialog.search(target.name, u"Mill");
        dialog.create();
        const Item note = only_item(world);
        ASSERT_TRUE(note);
        EXPECT_EQ(shown(World::property(note, u"Opportunity Name")), one.opportunity);
        EXPECT_EQ(shown(World::property(note, u"AccountID")), "A-1");
    }
}

TEST_F(CreateNoteFromRecord, NeedsNoRecipient) {
    World& world = with({});
    add_contact(world);
    install(world, {SearchTarget{}});
    const Item mail = world.deliver(message({.to = ""}));
    NoteDialog& dialog = opened(mail);
    dialog.search(u"People", u"Ann");
    dialog.create();
    EXPECT_TRUE(dialog.closes());
    EXPECT_TRUE(only_item(world));
    EXPECT_TRUE(is_marked_by_user(mail));
}

TEST_F(CreateNoteFromRecord, IsMadeWithoutALinkWhereTheRecordHasGone) {
    World& world = with({});
    const Item contact = add_contact(world);
    install(world, {SearchTarget{}});
    const Item mail = world.deliver(message());
    NoteDialog& dialog = opened(mail);
    dialog.search(u"People", u"Ann");
    contact.call(u"Delete");
    dialog.create();
    EXPECT_TRUE(dialog.closes());
    expect_note(world, only_item(world), mail,
                {"Subject: Delivery dates", "Type: Email (Received)", told_date(world, mail)});
    EXPECT_TRUE(is_marked_by_user(mail));
    EXPECT_EQ(message_texts(world), Lines{"Done - creating Note for Ann Lee"});
}

TEST_F(CreateNoteFromRecord, MarksASelectedDraftAndNotOneThatIsBeingWritten) {
    World& world = with({});
    add_contact(world);
    install(world, {SearchTarget{}});
    const Item written = new_mail(world);
    const Item draft = new_mail(world);
    draft.Save();
    for (const bool selected : {false, true}) {
        SCOPED_TRACE(selected);
        NoteDialog& dialog = selected ? opened_from_explorer(draft) : opened(written);
        dialog.search(u"People", u"Ann");
        dialog.create();
        EXPECT_TRUE(dialog.closes());
    }
    EXPECT_EQ(written.BillingInformation(), u"");
    EXPECT_TRUE(is_marked_by_user(draft));
    EXPECT_EQ(count_in(world, u"Email"), 2);
}

TEST_F(CreateNoteFromRecord, GoesToTheFolderOfTheOptionOrToNotes) {
    with({});
    install(world(), {SearchTarget{}});
    for (const bool missing : {false, true}) {
        SCOPED_TRACE(missing);
        close_dialog();
        World& world = emptied();
        world.option(u"SavedEmailFolder", missing ? u"Nowhere" : u"Opportunities");
        add_contact(world);
        NoteDialog& dialog = opened(world.deliver(message()));
        dialog.search(u"People", u"Ann");
        dialog.create();
        EXPECT_TRUE(only_item(world, missing ? u"Notes" : u"Opportunities"));
    }
}

TEST_F(CreateNoteFromRecord, IsMadeAgainOfTheSameRows) {
    World& world = with({});
    add_contact(world);
    add_contact(world, {.full_name = u"Anne Day", .properties = {{u"ContactID", u"C-300"}}});
    install(world, {SearchTarget{}});
    NoteDialog& dialog = opened(world.deliver(message()));
    dialog.click(u"Check1");
    dialog.search(u"People", u"Ann");
    const Lines rows = dialog.rows();
    ASSERT_EQ(rows.size(), 2U);
    dialog.create();
    EXPECT_EQ(dialog.rows(), rows);
    dialog.select(2);
    dialog.create();
    const host::outlook::Items notes = world.below(u"Email").Items();
    ASSERT_EQ(notes.Count(), 2);
    EXPECT_EQ(World::property(notes.Item(1), u"ContactID"), u"C-200");
    EXPECT_EQ(World::property(notes.Item(2), u"ContactID"), u"C-300");
}

TEST_F(CreateNoteFromRecord, IsMadeByTheButtonAloneWhereTheRowHasAKeyAndNoText) {
    World& world = with({});
    add_contact(world);
    SearchTarget target;
    target.fields[0] = u"";
    install(world, {target});
    NoteDialog& dialog = opened(world.deliver(message()));
    dialog.search(u"People", u"Ann");
    ASSERT_EQ(dialog.cell(1, 1), "");
    ASSERT_EQ(dialog.cell(1, 7), "C-200");
    dialog.double_click();
    EXPECT_TRUE(dialog.header_becomes(no_row));
    EXPECT_EQ(count_in(world, u"Email"), 0);
    dialog.create();
    EXPECT_TRUE(dialog.closes());
    EXPECT_EQ(World::property(only_item(world), u"ContactID"), u"C-200");
    EXPECT_EQ(message_texts(world), Lines{"Done - creating Note for "});
}

TEST_F(CreateNoteFromRecord, IsMadeOfTheAddressWhereTheRecordHasNoKey) {
    World& world = with({});
    add_contact(world, {.full_name = u"Ann Lee", .properties = {{u"AccountID", u"A-100"}}});
    install(world, {SearchTarget{}});
    NoteDialog& dialog = opened(world.deliver(message()));
    dialog.search(u"People", u"Ann");
    ASSERT_EQ(dialog.cell(1, 7), "");
    dialog.create();
    EXPECT_EQ(World::property(only_item(world), u"AccountID"), u"A-100") << "found by its name this time";
    EXPECT_EQ(message_texts(world), Lines{"Done - creating Note for Ann Lee"});
}

TEST_F(CreateNoteFromRecord, TriesTheThirdCellAsAnEntryIdWhereTheRecordHasNoKey) {
    World& world = with({});
    const Item other =
        add_contact(world, {.full_name = u"Bob Ray", .properties = {{u"ContactID", u"C-300"}}});
    const Item account = add_account(world, {{u"AccountID", u"A-1"}}, u"Mill");
    struct Case {
        const char* name;
        Text third_cell;
        const char* contact;  // whom the note is of
    };
    const Case cases[] = {{"an entry id", other.EntryID(), "Bob Ray"},
                          {"another text", u"Sales", "Ann Lee"},
                          {"an account's entry id", account.EntryID(), nullptr}};
    SearchTarget target;
    target.fields[2] = named_field(u"Team");
    install(world, {target});
    const Item ann = add_contact(world, {.properties = {}});
    NoteDialog& dialog = opened(world.deliver(message()));
    dialog.click(u"Check1");
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        ann.UserProperties().Item(u"Team").value(one.third_cell);
        ann.Save();
        dialog.search(u"People", u"Ann");
        ASSERT_EQ(dialog.cell(1, 3), shown(one.third_cell));
        ASSERT_EQ(dialog.cell(1, 7), "");
        if (one.contact) {
            dialog.create();
            EXPECT_EQ(shown(World::property(only_item(world), u"Contact Name")), one.contact);
            world.below(u"Email").Items().call(u"Remove", {1});
            continue;
        }
        world.desk().call(u"Answer", {u"Tarnwell", u" NOT FOUND! Please use the search feature. ", ok});
        dialog.click(u"cmdSend");
        EXPECT_EQ(message_texts(world).back(),
                  "Tarnwell Account/Contact Ann Lee NOT FOUND! Please use the search feature. ");
        EXPECT_EQ(count_in(world, u"Email"), 0);
    }
}

}  // namespace
}  // namespace acceptance
