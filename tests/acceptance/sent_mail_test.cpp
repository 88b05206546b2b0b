// A mail that goes out leaves a note for each recipient who is a known contact, and goes out whatever
// happens.
#include "tests/world/outgoing.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
using host::outlook::Items;

class SentMail : public Outgoing {};

TEST_F(SentMail, ToAContactLeavesANote) {
    World& world = sending();
    add_contact(world);
    const Item sent = send(world, new_mail(world));
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(note.MessageClass(), u"IPM.Post.Note");
    EXPECT_EQ(note.Subject(), u"Our offer");
    EXPECT_EQ(note.Body(), u"\r\n\r\nThe first line\r\nThe second line\r\n");
    struct Expected {
        TextView name, value;
    };
    constexpr Expected properties[] = {
        {u"AccountID", u"A-100"},
        {u"ContactID", u"C-200"},
        {u"Account Manager", u"Mia Hart"},
        {u"Team", u"Sales"},
        {u"Alignment", u"North"},
        {u"Account Name", u"North Mill Ltd"},
        {u"Contact Name", u"Ann Lee"},
        {u"Type", u"Email (Sent)"},
        {u"OppID", u""},
        {u"Inquiry ID", u""},
        {u"NoteID", u""},
        {u"ApptID", u""},
        {u"TaskID", u""},
        {u"Opportunity Name", u""},
    };
    for (const auto& [name, value] : properties) {
        EXPECT_EQ(shown(World::property(note, name)), shown(value)) << shown(name);
    }
    EXPECT_EQ(count_in(world, u"Notes"), 0);
    EXPECT_TRUE(is_marked_as_sent(sent));
    EXPECT_TRUE(sent.get(u"Sent").to_boolean());
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(SentMail, IsAttachedToTheNoteAsItStandsBeforeItIsMarked) {
    World& world = sending();
    add_contact(world);
    add_contact(world, u"Bob Ray", u"bob@ray.example");
    send(world, new_mail(world, {.to = u"Ann Lee <ann.lee@northmill.example>; Bob Ray <bob@ray.example>"}));
    const Items notes = world.below(u"Email").Items();
    ASSERT_EQ(notes.Count(), 2);
    for (const std::int32_t number : {1, 2}) {
        SCOPED_TRACE(number);
        const host::outlook::Attachments attachments = notes.Item(number).Attachments();
        ASSERT_EQ(attachments.Count(), 1);
        const Object attachment = attachments.Item(1);
        constexpr std::int32_t embedded_item = 5;  // OlAttachmentType
        EXPECT_EQ(attachment.get(u"Type").to_integer(), embedded_item);
        EXPECT_EQ(attachment.get(u"Position").to_integer(), 1);
        EXPECT_EQ(attachment.get(u"DisplayName").to_text(), u"Our offer");
        const Item attached(attachment.get(u"EmbeddedItem").to_object());
        EXPECT_EQ(attached.MessageClass(), u"IPM.Note");
        EXPECT_EQ(attached.Subject(), u"Our offer");
        EXPECT_EQ(attached.Body(), u"The first line\r\nThe second line\r\n");
        EXPECT_EQ(attached.get(u"To").to_text(), u"Ann Lee; Bob Ray");
        EXPECT_FALSE(attached.get(u"Sent").to_boolean());
        EXPECT_EQ(attached.get(u"FlagStatus").to_integer(), number - 1) << "the mark of the recipient before";
    }
}

TEST_F(SentMail, IsFiledWithTheTimeThatCanBeReadBeforeItIsSent) {
    World& world = sending();
    add_contact(world, u"Tom Prior", u"tom.prior@tarnwell.example");
    const Item mail = world.deliver(message());
    const Text before = world.text(mail, u"SentOn");
    ASSERT_EQ(shown(before.substr(0, 7)), "2026-03");
    const Item sent = send(world, mail);
    const Item note = only_item(world);
    ASSERT_TRUE(note);
    EXPECT_EQ(shown(World::property(note, u"Activity Date")), shown(before));
    EXPECT_NE(shown(world.text(sent, u"SentOn")), shown(before));
}

TEST_F(SentMail, ShowsItsProgressInTheStatusWindowAndClosesIt) {
    struct Case {
        const char* name;
        OutgoingPlan plan;
        Lines expected;
    };
    const Case cases[] = {
        {"a contact", {}, status::contact("Ann Lee", "Ann Lee")},
        {"a contact under another name",
         {.to = u"A. Lee (mill) <ann.lee@northmill.example>"},
         status::contact("A. Lee (mill)", "Ann Lee")},
        {"a bare address",
         {.to = u"ann.lee@northmill.example"},
         status::contact("ann.lee@northmill.example", "Ann Lee")},
        {"a stranger", {.to = u"Zoe Quill <zoe@quill.example>"}, status::stranger("Zoe Quill")},
        {"a contact and a stranger",
         {.to = u"Ann Lee <ann.lee@northmill.example>; Zoe Quill <zoe@quill.example>"},
         joined({status::contact("Ann Lee", "Ann Lee"), status::stranger("Zoe Quill")})},
        {"a stranger, and the contact in copy",
         {.to = u"Zoe Quill <zoe@quill.example>", .cc = u"Ann Lee <ann.lee@northmill.example>"},
         joined({status::stranger("Zoe Quill"), status::contact("Ann Lee", "Ann Lee")})},
        {"a distribution list, which has no address", {.to = u"All Millers"}, status::skipped("All Millers")},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = cleared();
        add_contact(world);
        add_list(world, u"All Millers");
        const std::size_t before = statuses(world).size();
        send(world, new_mail(world, one.plan));
        EXPECT_EQ(statuses(world, before), joined({{status::entry}, one.expected}));
        EXPECT_FALSE(window_of(world, u"Tarnwell"));
    }
}

TEST_F(SentMail, ToSeveralLeavesANoteForEachWhoIsKnown) {
    struct Case {
        const char* name;
        OutgoingPlan plan;
        std::vector<TextView> contacts;  ///< of the notes, in their order
    };
    const Case cases[] = {
        {"a contact and a stranger", {.to = u"zoe@quill.example; ann.lee@northmill.example"}, {u"Ann Lee"}},
        {"two contacts", {.to = u"bob@ray.example; ann.lee@northmill.example"}, {u"Bob Ray", u"Ann Lee"}},
        {"one contact by two addresses",
         {.to = u"ann.lee@northmill.example; ann@home.example"},
         {u"Ann Lee", u"Ann Lee"}},
        {"a contact in To and one in copy",
         {.to = u"ann.lee@northmill.example", .cc = u"bob@ray.example"},
         {u"Ann Lee", u"Bob Ray"}},
        {"strangers only", {.to = u"zoe@quill.example"}, {}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = cleared();
        add_contact(world, {.fields = {{u"Email1Address", u"ann.lee@northmill.example"},
                                       {u"Email3Address", u"ann@home.example"}}});
        add_contact(world, u"Bob Ray", u"bob@ray.example");
        const Item sent = send(world, new_mail(world, one.plan));
        const Items notes = world.below(u"Email").Items();
        ASSERT_EQ(notes.Count(), static_cast<std::int32_t>(one.contacts.size()));
        for (std::size_t i = 0; i < one.contacts.size(); ++i) {
            const Item note = notes.Item(static_cast<std::int32_t>(i) + 1);
            EXPECT_EQ(shown(World::property(note, u"Contact Name")), shown(one.contacts[i]));
        }
        EXPECT_EQ(is_marked_as_sent(sent), !one.contacts.empty());
        EXPECT_EQ(sent.BillingInformation(), u"");
    }
}

TEST_F(SentMail, IsSavedOnceBeforeTheSearchAndOnceForEachMark) {
    World& world = sending();
    add_contact(world);
    add_contact(world, u"Bob Ray", u"bob@ray.example");
    const Item mail =
        new_mail(world, {.to = u"ann.lee@northmill.example; zoe@quill.example; bob@ray.example"});
    world.desk().call(u"ResetCalls");
    mail.call(u"Send");
    EXPECT_EQ(calls_of(world, u"Save"), 3);
    EXPECT_EQ(calls_of(world, u"Find"), 3) << "one search for each recipient";
}

TEST_F(SentMail, ThatWasNeverSavedHasAnIdBeforeItIsFiled) {
    for (const bool is_private : {false, true}) {
        SCOPED_TRACE(is_private);
        World& world = cleared();
        add_contact(world);
        const Item mail = new_mail(world);
        if (is_private) mail.put(u"Sensitivity", 2);
        ASSERT_EQ(mail.EntryID(), u"");
        world.connect().call(u"AutomaticCreateNoteSend", {Value(mail)});
        EXPECT_NE(mail.EntryID(), u"");
        EXPECT_TRUE(mail.get(u"Saved").to_boolean());
        EXPECT_EQ(count_in(world, u"Email"), is_private ? 0 : 1);
        EXPECT_FALSE(window_of(world, u"Tarnwell"));
    }
}

TEST_F(SentMail, ThatIsPrivateShowsTheWindowAndIsNotFiled) {
    for (const std::int32_t sensitivity : {1, 2, 3}) {
        SCOPED_TRACE(sensitivity);
        World& world = cleared();
        add_contact(world);
        const Item mail = new_mail(world);
        mail.put(u"Sensitivity", sensitivity);
        const std::size_t before = statuses(world).size();
        const Item sent = send(world, mail);
        EXPECT_EQ(statuses(world, before), Lines{status::entry});
        EXPECT_FALSE(window_of(world, u"Tarnwell"));
        EXPECT_EQ(count_in(world, u"Email"), 0);
        EXPECT_EQ(sent.get(u"FlagStatus").to_integer(), 0);
        EXPECT_EQ(sent.get(u"FlagRequest").to_text(), u"");
        EXPECT_EQ(sent.Sensitivity(), sensitivity);
    }
}

TEST_F(SentMail, IsFiledOnlyWhileTheOptionSaysOne) {
    World& world = sending();
    add_contact(world);
    for (const TextView value : {u"", u"0", u"-1", u"True", u" 1", u"1 ", u"01"}) {
        SCOPED_TRACE(shown(value));
        world.option(u"AutoFileSentEmails", value);
        const Item sent = send(world, new_mail(world));
        EXPECT_EQ(sent.get(u"FlagStatus").to_integer(), 0);
        EXPECT_EQ(sent.get(u"FlagRequest").to_text(), u"");
    }
    EXPECT_EQ(statuses(world), Lines{}) << "the window was never shown";
    EXPECT_EQ(count_in(world, u"Email"), 0);

    world.option(u"AutoFileSentEmails", 1);
    send(world, new_mail(world));
    EXPECT_EQ(count_in(world, u"Email"), 1) << "a number will do";
}

TEST_F(SentMail, OfAnotherClassIsLeftAlone) {
    for (const TextView name :
         {u"IPM.Note.Other", u"IPM.Note.", u"IPM.NOTE", u"IPM.Notes", u"IPM.Document"}) {
        SCOPED_TRACE(shown(name));
        World& world = cleared();
        add_contact(world);
        const std::size_t before = statuses(world).size();
        const Item mail = new_mail(world);
        mail.put(u"MessageClass", name);
        const Item sent = send(world, mail);
        EXPECT_EQ(statuses(world, before), Lines{});
        EXPECT_EQ(count_in(world, u"Email"), 0);
        EXPECT_EQ(sent.get(u"FlagStatus").to_integer(), 0);
    }
}

TEST_F(SentMail, IsNoMeetingAndNoTask) {
    World& world = sending();
    add_contact(world);
    for (const std::int32_t type : {item_type::appointment, item_type::task}) {
        SCOPED_TRACE(type);
        const Item item = new_item(world, type);
        item.Subject(u"Our offer");
        item.get(u"Recipients").to_object().call(u"Add", {u"Ann Lee <ann.lee@northmill.example>"});
        item.call(u"Send");
        EXPECT_EQ(statuses(world), Lines{});
        EXPECT_EQ(count_in(world, u"Email"), 0);
    }
}

TEST_F(SentMail, WithoutAToLineEndsAtTheFirstRecipientWhoWouldBeLookedFor) {
    struct Case {
        const char* name;
        Text cc;
        Lines expected;
    };
    const Case cases[] = {
        {"a copy only", u"Ann Lee <ann.lee@northmill.example>; Zoe Quill <zoe@quill.example>",
         status::without_to_line("Ann Lee")},
        {"somebody without an address first", u"All Millers; Ann Lee <ann.lee@northmill.example>",
         joined({status::skipped("All Millers"), status::without_to_line("Ann Lee")})},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = cleared();
        add_contact(world);
        add_list(world, u"All Millers");
        const std::size_t before = statuses(world).size();
        const Item sent = send(world, new_mail(world, {.to = u"", .cc = one.cc}));
        EXPECT_EQ(statuses(world, before), joined({{status::entry}, one.expected}));
        EXPECT_FALSE(window_of(world, u"Tarnwell")) << "the window doesn't stay up";
        EXPECT_EQ(count_in(world, u"Email"), 0);
        EXPECT_EQ(sent.get(u"FlagStatus").to_integer(), 0);
    }
}

TEST_F(SentMail, IsFiledToTheFolderOfTheOption) {
    struct Case {
        TextView option, expected;
    };
    constexpr Case cases[] = {{u"", u"Email"},
                              {u"Opportunities", u"Opportunities"},
                              {u"Mails of Ann", u"Notes"},
                              {u"Leads", u"Notes"}};
    for (const auto& [option, expected] : cases) {
        SCOPED_TRACE(shown(option));
        World& world = cleared();
        add_contact(world);
        world.option(u"SavedEmailFolder", option);
        send(world, new_mail(world));
        for (const TextView name : {u"Email", u"Notes", u"Opportunities"}) {
            EXPECT_EQ(count_in(world, name), name == expected ? 1 : 0) << shown(name);
        }
    }
}

TEST_F(SentMail, IsNotProtectedByItsMarkWhenItComesBack) {
    World& world = sending();
    world.family(u"EmailAutoFile", u"1");
    add_contact(world);
    const Item sent = send(world, new_mail(world));
    ASSERT_EQ(count_in(world, u"Email"), 1);
    const Item back(sent.call(u"Move", {Value(world.inbox())}).to_object());
    const auto set = [&](TextView tag, TextView value) {
        back.get(u"PropertyAccessor")
            .to_object()
            .call(u"SetProperty",
                  {Value(Text(u"http://schemas.microsoft.com/mapi/proptag/0x") + Text(tag)), Value(value)});
    };
    set(u"0c1e001e", u"SMTP");
    set(u"0c1f001e", u"ann.lee@northmill.example");
    World::read(back);
    EXPECT_EQ(count_in(world, u"Email"), 2);
    EXPECT_TRUE(is_marked(back));
}

TEST_F(SentMail, LeavesNothingOfTheHostHeld) {
    World& world = sending();
    add_contact(world);
    send(world, new_mail(world));
    world.settle();
    const std::int32_t after_one = held(world);
    for (int i = 0; i < 2; ++i) send(world, new_mail(world));
    world.settle();
    EXPECT_EQ(held(world), after_one);
}

TEST_F(SentMail, IsFiledByTheOperationWhateverTheOptionSays) {
    World& world = sending();
    world.option(u"AutoFileSentEmails", u"0");
    add_contact(world);
    const Item mail = new_mail(world);
    world.connect().call(u"AutomaticCreateNoteSend", {Value(mail)});
    EXPECT_EQ(count_in(world, u"Email"), 1);
    EXPECT_TRUE(is_marked_as_sent(mail));
    EXPECT_FALSE(mail.get(u"Sent").to_boolean());
    world.connect().call(u"AutomaticCreateNoteSend", {Value(Object())});
    EXPECT_EQ(count_in(world, u"Email"), 1) << "nothing is filed of Nothing";
    EXPECT_FALSE(window_of(world, u"Tarnwell"));
}

}  // namespace
}  // namespace acceptance
