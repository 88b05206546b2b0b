// What a note of a received mail holds, where it lies, and how the mail is marked.
#include <algorithm>

#include "addin/records/stamp.h"
#include "tests/world/notes.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

class Stamping : public Filing {};

/// The mail with two recipients and two files in it.
const MailPlan rich_mail{
    .to = "Tom Prior <tom.prior@tarnwell.example>, Eve Day <eve@tarnwell.example>",
    .subject = "Re: Delivery dates",
    .body =
        "--sep\nContent-Type: text/plain; charset=us-ascii\n\nBoth are attached.\n"
        "--sep\nContent-Type: text/csv; name=\"dates.csv\"\n"
        "Content-Disposition: attachment; filename=\"dates.csv\"\n\n1;2\n"
        "--sep\nContent-Type: application/pdf; name=\"offer.pdf\"\nContent-Transfer-Encoding: base64\n"
        "Content-Disposition: attachment; filename=\"offer.pdf\"\n\nJVBERi0xLjQK\n--sep--\n",
};

/// The message of `rich_mail`: its type is one of several parts.
std::string rich_message() {
    std::string text = message(rich_mail);
    const std::string plain = "Content-Type: text/plain; charset=us-ascii\n\n";
    return text.replace(
        text.find(plain), plain.size(),
        "Content-Type: multipart/mixed; boundary=\"sep\"\nCc: \"Lee, Bo\" <bo@northmill.example>\n\n");
}

TEST_F(Stamping, FillsTheNoteFromContactAndMail) {
    World& world = filing();
    add_contact(world);
    const Item mail = read_mail(world);
    expect_note(world, only_item(world), mail,
                {"Subject: Delivery dates", "AccountID: A-100", "ContactID: C-200",
                 "Account Name: North Mill Ltd", "Contact Name: Ann Lee", "Account Manager: Mia Hart",
                 "Team: Sales", "Alignment: North", "Type: Email (Received)", told_date(world, mail)});
    EXPECT_EQ(only_item(world).Body(), u"\r\n\r\nThe first line\r\nThe second line\r\n");
    EXPECT_TRUE(world.text(mail, u"SentOn").starts_with(u"2026-03"));
}

TEST_F(Stamping, MarksTheMailForUserAndMachine) {
    World& world = filing();
    add_contact(world);
    const Item mail = read_mail(world);
    EXPECT_EQ(mail.get(u"FlagStatus").to_integer(), 1);
    EXPECT_EQ(mail.get(u"FlagRequest").to_text(), u"TW-Received eMail Auto Filed");
    EXPECT_EQ(mail.BillingInformation(), u"TW Auto Filed");
    EXPECT_TRUE(mail.get(u"Saved").to_boolean());
}

TEST_F(Stamping, AddsNoPrefixToTheSubject) {
    for (const char* const subject : {"Re: FW: Offer", "", "  two blanks", "\"quoted\" 'it'"}) {
        SCOPED_TRACE(subject);
        World& world = emptied();
        add_contact(world);
        const Item mail = read_mail(world, {.subject = subject});
        const Item note = only_item(world);
        ASSERT_TRUE(note);
        EXPECT_EQ(note.Subject(), mail.Subject());
    }
}

TEST_F(Stamping, OfAnEmptyMailLeavesTwoLineBreaks) {
    World& world = filing();
    add_contact(world);
    read_mail(world, {.body = ""});
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(note.Body(), u"\r\n\r\n");
}

TEST_F(Stamping, AttachesTheWholeMail) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(rich_message());
    World::read(mail);
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    expect_note(world, note, mail, told_note(note));
    const Item attached(note.Attachments().Item(1).get(u"EmbeddedItem").to_object());
    EXPECT_EQ(attached.get(u"Recipients").to_object().get(u"Count").to_integer(), 3);
    ASSERT_EQ(attached.Attachments().Count(), 2);
    EXPECT_EQ(attached.Attachments().Item(1).get(u"FileName").to_text(), u"dates.csv");
    EXPECT_EQ(attached.Attachments().Item(2).get(u"FileName").to_text(), u"offer.pdf");
}

TEST_F(Stamping, LeavesAMailThatCanBeSavedAndOpenedAgain) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(rich_message());
    World::read(mail);
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    const Text file = world.write_file("mail.msg", "");
    note.Attachments().Item(1).call(u"SaveAsFile", {Value(file)});
    expect_same_mail(world, mail,
                     Item(world.name_space().call(u"OpenSharedItem", {Value(file)}).to_object()));
}

TEST_F(Stamping, SurvivesTheEndOfTheHost) {
    World& world = filing();
    add_contact(world);
    world.deliver(rich_message()).put(u"Categories", u"Blue");
    {
        const Item mail = world.inbox().Items().Item(1);
        World::read(mail);
    }
    world.quit();
    world.start();
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(World::property(note, u"Contact Name"), u"Ann Lee");
    expect_same_mail(world, world.inbox().Items().Item(1),
                     Item(note.Attachments().Item(1).get(u"EmbeddedItem").to_object()));
}

TEST_F(Stamping, LeavesUnsetWhatTheContactLacks) {
    struct Case {
        const char* name;
        Fields properties;
        std::vector<TextView> removed;
        Text company;
    };
    const Case cases[] = {
        {"no account", {{u"ContactID", u"C-1"}, {u"Team", u"Sales"}}, {}, u"North Mill Ltd"},
        {"no Team property", {{u"AccountID", u"A-1"}, {u"ContactID", u"C-1"}}, {u"Team"}, u"North Mill Ltd"},
        {"no AccountID property", {{u"ContactID", u"C-1"}}, {u"AccountID"}, u"North Mill Ltd"},
        {"nothing at all", {}, {u"AccountID", u"ContactID", u"Account Manager", u"Team", u"Alignment"}, u""},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = emptied();
        const Item contact = add_contact(world, {.company = one.company, .properties = one.properties});
        for (const TextView name : one.removed) contact.UserProperties().Item(name).call(u"Delete");
        contact.Save();
        const Item mail = read_mail(world);
        const Item note = only_item(world);
        ASSERT_TRUE(note);
        for (const TextView name : {u"AccountID", u"ContactID", u"Account Manager", u"Team", u"Alignment"}) {
            const auto set = std::ranges::find(one.properties, name, &Fields::value_type::first);
            EXPECT_EQ(World::property(note, name), set == one.properties.end() ? Text() : set->second)
                << shown(name);
        }
        EXPECT_EQ(World::property(note, u"Account Name"), one.company);
        EXPECT_EQ(World::property(note, u"Contact Name"), u"Ann Lee");
        EXPECT_EQ(note.Attachments().Count(), 1);
        EXPECT_TRUE(is_marked(mail));
    }
}

TEST_F(Stamping, CopiesIdsAsTheyStand) {
    for (const TextView id : {u"CXY12", u"XY12", u"c-9", u" 7 "}) {
        SCOPED_TRACE(shown(id));
        World& world = emptied();
        add_contact(world, {.properties = {{u"ContactID", Text(id)}}});
        read_mail(world);
        const Item note = only_item(world);
        ASSERT_TRUE(note);
        EXPECT_EQ(World::property(note, u"ContactID"), id);
    }
}

// where the note lies

TEST_F(Stamping, ChoosesTheFolderByTheOptionAndByWhatIsThere) {
    struct Case {
        const char* name;
        TextView option;
        std::vector<TextView> missing;
        TextView expected;  ///< empty: nowhere
    };
    const Case cases[] = {
        {"no option", u"", {}, u"Email"},
        {"another folder", u"Opportunities", {}, u"Opportunities"},
        {"another folder, in other case", u"opportunities", {}, u"Opportunities"},
        {"a folder that isn't there", u"Mails of Ann", {}, u"Notes"},
        {"a folder that isn't below the anchor", u"Leads", {}, u"Notes"},
        {"no option and no mail folder", u"", {u"Email"}, u"Notes"},
        {"no option and neither folder", u"", {u"Email", u"Notes"}, u""},
        {"a folder that isn't there, and no Notes", u"Mails of Ann", {u"Notes"}, u""},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = emptied();
        add_contact(world);
        if (!one.option.empty()) world.option(u"SavedEmailFolder", one.option);
        std::vector<Folder> renamed;
        for (const TextView name : one.missing) {
            renamed.push_back(world.below(name));
            renamed.back().put(u"Name", Text(name) + u", which is gone");
        }
        const Item mail = read_mail(world);
        const host::outlook::Folders folders = world.account_profiles().Folders();
        for (const TextView name : {u"Email", u"Notes", u"Opportunities"}) {
            if (std::ranges::find(one.missing, name) != one.missing.end()) continue;
            EXPECT_EQ(folders.Item(name).Items().Count(), name == one.expected ? 1 : 0) << shown(name);
        }
        // where there is no folder no step of the note succeeds, and the mark is written all the same
        EXPECT_TRUE(is_marked(mail));
        for (std::size_t i = 0; i < renamed.size(); ++i) renamed[i].put(u"Name", Value(one.missing[i]));
    }
}

TEST_F(Stamping, FollowsTheOptionFromMailToMail) {
    World& world = filing();
    add_contact(world);
    read_mail(world);
    world.option(u"SavedEmailFolder", u"Notes");
    read_mail(world);
    world.option(u"SavedEmailFolder", u"");
    read_mail(world);
    EXPECT_EQ(count_in(world, u"Email"), 2);
    EXPECT_EQ(count_in(world, u"Notes"), 1);
}

// what fails

TEST_F(Stamping, SkipsAStepThatFailsAndTakesTheNext) {
    struct Case {
        TextView member;
        std::int32_t after;
        TextView empty_property;  ///< what the note lacks then
    };
    // of a note's property the contact's value is read first, and both pass UserProperties.Item
    constexpr Case cases[] = {
        {u"ContactItem.CompanyName", 0, u"Account Name"}, {u"ContactItem.FullName", 0, u"Contact Name"},
        {u"ContactItem.UserProperties", 0, u"AccountID"}, {u"ContactItem.UserProperties", 4, u"Alignment"},
        {u"PostItem.UserProperties", 1, u"ContactID"},    {u"UserProperty.Value", 5, u"Account Manager"},
        {u"PostItem.UserProperties", 7, u"Type"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.member) + ", call " + std::to_string(one.after + 1));
        World& world = emptied();
        add_contact(world);
        const Item mail = world.deliver(message());
        world.fail(one.member, one.after);
        World::read(mail);
        const Item note = only_item(world);
        ASSERT_TRUE(note);
        for (const TextView name : {u"AccountID", u"ContactID", u"Account Manager", u"Team", u"Alignment",
                                    u"Account Name", u"Contact Name", u"Type"}) {
            EXPECT_EQ(World::property(note, name).empty(), name == one.empty_property) << shown(name);
        }
        EXPECT_EQ(note.Subject(), u"Delivery dates");
        EXPECT_EQ(note.Attachments().Count(), 1);
        EXPECT_TRUE(is_marked(mail));
    }
}

TEST_F(Stamping, PostsTheNoteWithoutWhatTheWrapperWithholds) {
    struct Case {
        TextView failing;
        Text subject, body;
        std::int32_t attachments;
    };
    const Case cases[] = {
        {u"SafeMailItem.Subject", u"", u"\r\n\r\nThe first line\r\nThe second line\r\n", 1},
        {u"SafeMailItem.Body", u"Delivery dates", u"", 1},
        {u"SafeMailItem.SentOn", u"Delivery dates", u"\r\n\r\nThe first line\r\nThe second line\r\n", 1},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.failing));
        World& world = emptied();
        add_contact(world);
        world.family(u"Fail", one.failing);
        const Item mail = read_mail(world);
        const Item note = only_item(world);
        ASSERT_TRUE(note);
        EXPECT_EQ(note.Subject(), one.subject);
        EXPECT_EQ(note.Body(), one.body);
        EXPECT_EQ(note.Attachments().Count(), one.attachments);
        const bool dated = World::property(note, u"Activity Date").starts_with(u"2026-03");
        EXPECT_EQ(dated, one.failing != TextView(u"SafeMailItem.SentOn"));
        EXPECT_TRUE(is_marked(mail));
    }
}

TEST_F(Stamping, PostsTheNoteThoughTheMailCannotBeAttached) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message());
    world.fail(u"Attachments.Add");
    World::read(mail);
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(note.Attachments().Count(), 0);
    EXPECT_TRUE(is_marked(mail));
}

TEST_F(Stamping, MarksTheMailThoughTheNoteCannotBeMadeOrPosted) {
    for (const TextView member : {u"PostItem.Post", u"Items.Add"}) {
        SCOPED_TRACE(shown(member));
        World& world = emptied();
        add_contact(world);
        const Item mail = world.deliver(message());
        world.fail(member);
        World::read(mail);
        EXPECT_EQ(count_in(world, u"Email"), 0);
        EXPECT_TRUE(is_marked(mail));
    }
}

TEST_F(Stamping, KeepsTheNoteIfTheMailCannotBeMarked) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message());
    constexpr std::int32_t own_save = 1;
    world.fail(u"MailItem.Save", own_save);
    World::read(mail);
    EXPECT_EQ(count_in(world, u"Email"), 1);
    EXPECT_FALSE(mail.get(u"Saved").to_boolean());
}

TEST_F(Stamping, WritesTheRestOfAMarkOfWhichOneFieldFails) {
    struct Case {
        TextView failing;
        std::int32_t status;
        TextView request, billing;
    };
    constexpr Case cases[] = {
        {u"MailItem.FlagStatus", 0, u"TW-Received eMail Auto Filed", u"TW Auto Filed"},
        {u"MailItem.FlagRequest", 1, u"", u"TW Auto Filed"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(shown(one.failing));
        World& world = emptied();
        add_contact(world);
        const Item mail = world.deliver(message());
        world.fail(one.failing);
        World::read(mail);
        EXPECT_EQ(mail.get(u"FlagStatus").to_integer(), one.status);
        EXPECT_EQ(mail.get(u"FlagRequest").to_text(), one.request);
        EXPECT_EQ(mail.BillingInformation(), one.billing);
        EXPECT_EQ(count_in(world, u"Email"), 1);
    }
}

TEST_F(Stamping, FilesAMailWhoseMarkFailedOnceMore) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message());
    constexpr std::int32_t read_first = 1;  // the handler's test; the mark comes after it
    world.fail(u"MailItem.BillingInformation", read_first);
    World::read(mail);
    // the mark's own save raised the next change, at which the mail was still not marked
    EXPECT_EQ(count_in(world, u"Email"), 2);
    EXPECT_TRUE(is_marked(mail));
}

}  // namespace
}  // namespace acceptance
