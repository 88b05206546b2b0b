// A received mail from a known contact becomes a note when it is first read.
#include "tests/world/host_numbers.h"
#include "tests/world/people.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

class ReceivedMail : public Filing {};

TEST_F(ReceivedMail, IsFiledWhenItIsReadAndNotWhenItArrives) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message());
    expect_left_alone(world, mail);

    World::read(mail);
    EXPECT_EQ(count_in(world, u"Email"), 1);
    EXPECT_EQ(count_in(world, u"Notes"), 0);
    EXPECT_TRUE(is_marked(mail));
}

TEST_F(ReceivedMail, IsFiledWhateverOrderTheEventsComeIn) {
    for (const auto& [name, order] : desk::event_orders) {
        SCOPED_TRACE(name);
        World& world = filing({.event_order = order});
        add_contact(world);
        const Item mail = read_mail(world);
        EXPECT_TRUE(world.wait_until([&] { return mail.BillingInformation() == u"TW Auto Filed"; }));
        world.settle();
        EXPECT_EQ(count_in(world, u"Email"), 1);
    }
}

TEST_F(ReceivedMail, ThatIsReadAgainIsFiledOnce) {
    World& world = filing();
    add_contact(world);
    const Item mail = read_mail(world);
    mail.put(u"UnRead", true);
    mail.Save();
    World::read(mail);
    mail.put(u"Categories", u"Seen");
    mail.Save();
    world.settle();
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

TEST_F(ReceivedMail, ThatChangesUnreadWaits) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message());
    mail.put(u"Categories", u"Later");
    mail.Save();
    expect_left_alone(world, mail);
    World::read(mail);
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

TEST_F(ReceivedMail, OfAnUnknownSenderIsFiledAtAChangeAfterTheContactCame) {
    World& world = filing();
    const Item mail = read_mail(world);
    expect_left_alone(world, mail);

    add_contact(world);
    expect_left_alone(world, mail);  // nothing looks for it by itself
    mail.put(u"Categories", u"Customer");
    mail.Save();
    EXPECT_EQ(count_in(world, u"Email"), 1);
    EXPECT_TRUE(is_marked(mail));
}

TEST_F(ReceivedMail, WithoutASendersAddressIsTriedAgainAtEachChange) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message({.more = "X-Desk-Sender: SMTP -\n"}));
    for (const TextView category : {u"Blue", u"Green"}) {
        SCOPED_TRACE(shown(category));
        mail.put(u"Categories", Value(category));
        world.desk().call(u"ResetCalls");
        World::read(mail);
        // the wrapper's member where that is seen, and else what the wrapper asks the host for
        EXPECT_EQ(calls_of(world, u"Fields") + calls_of(world, u"GetProperty"), 1) << "it is tried";
        expect_left_alone(world, mail);
    }
    mail.get(u"PropertyAccessor")
        .to_object()
        .call(u"SetProperty",
              {u"http://schemas.microsoft.com/mapi/proptag/0x0c1f001e", u"ann.lee@northmill.example"});
    mail.Save();
    EXPECT_EQ(count_in(world, u"Email"), 1);
    EXPECT_TRUE(is_marked(mail));
}

TEST_F(ReceivedMail, IsFiledOnlyWhileTheSwitchSaysOne) {
    World& world = filing();
    add_contact(world);
    for (const TextView answer : {u"", u"0", u"-1", u"True", u"1 ", u"01"}) {
        SCOPED_TRACE(shown(answer));
        world.family(u"EmailAutoFile", answer);
        const Item mail = read_mail(world);
        EXPECT_EQ(mail.BillingInformation(), u"");
        mail.call(u"Delete");
    }
    EXPECT_EQ(count_in(world, u"Email"), 0);

    world.family(u"EmailAutoFile", u"1");
    read_mail(world);
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

TEST_F(ReceivedMail, ThatIsNotForEverybodyIsLeftAlone) {
    for (const char* const sensitivity : {"1", "2", "3"}) {
        SCOPED_TRACE(sensitivity);
        World& world = emptied();
        add_contact(world);
        const Item mail =
            read_mail(world, {.more = std::string("X-Desk-Sensitivity: ") + sensitivity + "\n"});
        expect_left_alone(world, mail);
        EXPECT_EQ(mail.Sensitivity(), sensitivity[0] - '0');

        world.connect().call(u"AutomaticCreateNote", {Value(mail)});  // the operation looks, too
        expect_left_alone(world, mail);

        mail.put(u"Sensitivity", 0);
        mail.Save();
        EXPECT_EQ(count_in(world, u"Email"), 1);
        EXPECT_EQ(mail.Sensitivity(), 0);
    }
}

TEST_F(ReceivedMail, OfAnotherClassIsLeftAlone) {
    for (const char* const name : {"IPM.Note.Other", "IPM.Note.", "IPM.NOTE", "IPM.Post"}) {
        SCOPED_TRACE(name);
        World& world = emptied();
        add_contact(world);
        const Item mail = read_mail(world, {.more = std::string("X-Desk-Class: ") + name + "\n"});
        ASSERT_EQ(mail.MessageClass(), automation::from_utf8(name));
        world.settle();
        EXPECT_EQ(count_in(world, u"Email"), 0);
        EXPECT_EQ(mail.BillingInformation(), u"");
    }
}

TEST_F(ReceivedMail, WithAnotherProgramsBillingInformationIsFiledAndTheTextOverwritten) {
    for (const TextView other : {u"Project 7", u"tw auto filed", u"TW Auto Filed "}) {
        SCOPED_TRACE(shown(other));
        World& world = emptied();
        add_contact(world);
        const Item mail = world.deliver(message());
        mail.BillingInformation(other);
        World::read(mail);
        EXPECT_EQ(count_in(world, u"Email"), 1);
        EXPECT_TRUE(is_marked(mail));
    }
}

TEST_F(ReceivedMail, WithTheMarkIsNotFiled) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message());
    mail.BillingInformation(u"TW Auto Filed");
    World::read(mail);
    world.settle();
    EXPECT_EQ(count_in(world, u"Email"), 0);
    EXPECT_EQ(mail.get(u"FlagRequest").to_text(), u"");
}

TEST_F(ReceivedMail, OutsideOfTheInboxIsLeftAlone) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message());
    const Folder elsewhere = world.name_space().GetDefaultFolder(drafts);
    const Item moved(mail.call(u"Move", {Value(elsewhere)}).to_object());
    World::read(moved);
    expect_left_alone(world, moved);
}

TEST_F(ReceivedMail, ThatCameReadIsFiledAtItsNextChange) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message());
    const Item away(mail.call(u"Move", {Value(world.name_space().GetDefaultFolder(drafts))}).to_object());
    World::read(away);
    const Item back(away.call(u"Move", {Value(world.inbox())}).to_object());
    expect_left_alone(world, back);  // its coming is no reason
    back.put(u"Categories", u"Back");
    back.Save();
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

TEST_F(ReceivedMail, IsFiledWithoutAWord) {
    World& world = filing();
    add_contact(world);
    read_mail(world);
    read_mail(world, {.from = "Nobody <nobody@elsewhere.example>"});
    const automation::Object desk = world.desk();
    EXPECT_EQ(desk.get(u"Messages").to_object().get(u"Count").to_integer(), 0);
    EXPECT_EQ(desk.get(u"Statuses").to_object().get(u"Count").to_integer(), 0);
    EXPECT_EQ(world.displayed(), 0);
}

TEST_F(ReceivedMail, ChangesNothingOfTheMailButItsMark) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message({.more = "Importance: high\n"}));
    mail.put(u"Categories", u"Blue");
    World::read(mail);
    ASSERT_TRUE(is_marked(mail));
    EXPECT_EQ(mail.get(u"Categories").to_text(), u"Blue");
    EXPECT_EQ(mail.Sensitivity(), 0);
    EXPECT_FALSE(mail.UnRead());
    EXPECT_EQ(mail.Subject(), u"Delivery dates");
    EXPECT_EQ(mail.Body(), u"The first line\r\nThe second line\r\n");
    EXPECT_EQ(mail.get(u"Importance").to_integer(), 2);
    EXPECT_EQ(mail.Attachments().Count(), 0);
    EXPECT_TRUE(mail.get(u"Saved").to_boolean());
}

TEST_F(ReceivedMail, IsFiledByTheOperationWhateverItsStateIs) {
    World& world = filing();
    add_contact(world);
    const Item unread = world.deliver(message());
    world.connect().call(u"AutomaticCreateNote", {Value(unread)});
    EXPECT_EQ(count_in(world, u"Email"), 1);
    EXPECT_TRUE(is_marked(unread));
    EXPECT_TRUE(unread.UnRead());

    world.connect().call(u"AutomaticCreateNote", {Value(unread)});
    EXPECT_EQ(count_in(world, u"Email"), 2) << "the mark is looked at by the event's handler only";
}

TEST_F(ReceivedMail, OfSeveralSendersGoesToEachOnesContact) {
    World& world = filing();
    add_contact(world);
    ContactPlan bob{.full_name = u"Bob Ray", .company = u"Ray & Sons"};
    bob.fields = {{u"Email1Address", u"bob@ray.example"}};
    bob.properties = {{u"AccountID", u"A-7"}, {u"ContactID", u"C-8"}};
    add_contact(world, bob);
    read_mail(world, {.from = "bob@ray.example", .subject = "One"});
    read_mail(world, {.subject = "Two"});
    const host::outlook::Items notes = world.below(u"Email").Items();
    ASSERT_EQ(notes.Count(), 2);
    EXPECT_EQ(World::property(notes.Item(1), u"Contact Name"), u"Bob Ray");
    EXPECT_EQ(World::property(notes.Item(2), u"Contact Name"), u"Ann Lee");
}

TEST_F(ReceivedMail, LeavesNothingOfTheHostHeld) {
    World& world = filing();
    add_contact(world);
    const auto held = [&] { return world.desk().get(u"Live").to_object().get(u"Total").to_integer(); };
    read_mail(world);
    world.settle();
    const std::int32_t after_one = held();
    EXPECT_GT(after_one, 0);
    for (int i = 0; i < 3; ++i) read_mail(world);
    world.settle();
    EXPECT_EQ(held(), after_one);
}

TEST_F(ReceivedMail, IsFiledAfterTheHostCameBack) {
    World& world = filing();
    add_contact(world);
    Text id;
    {
        const Item mail = read_mail(world, {.subject = "Before"});
        ASSERT_TRUE(is_marked(mail));
        id = mail.EntryID();
    }
    world.quit();
    world.start();
    const Item mail(world.name_space().call(u"GetItemFromID", {Value(id)}).to_object());
    EXPECT_TRUE(is_marked(mail)) << "the mark is the only memory";
    mail.put(u"Categories", u"Again");
    mail.Save();
    EXPECT_EQ(count_in(world, u"Email"), 1);
    read_mail(world, {.subject = "After"});
    EXPECT_EQ(count_in(world, u"Email"), 2);
}

// what fails

TEST_F(ReceivedMail, GoesOnAfterATestThatFails) {
    struct Case {
        const char* name;
        TextView member;
        std::int32_t times;
        std::string more;
        bool read;
    };
    const Case cases[] = {
        {"an unread mail whose state can't be read", u"MailItem.UnRead", 1, "", false},
        {"another class that can't be read", u"MailItem.MessageClass", 1, "X-Desk-Class: IPM.Note.Other\n",
         true},
        {"a private mail whose sensitivity can't be read", u"MailItem.Sensitivity", 2,
         "X-Desk-Sensitivity: 2\n", true},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = emptied();
        add_contact(world);
        const Item mail = world.deliver(message({.more = one.more}));
        mail.put(u"Categories", u"Blue");
        if (one.read) mail.put(u"UnRead", false);
        world.fail(one.member, 0, one.times);
        mail.Save();
        EXPECT_EQ(count_in(world, u"Email"), 1);
    }
}

TEST_F(ReceivedMail, OfASensitivityThatFailsOnlyOnceIsLeftAlone) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message({.more = "X-Desk-Sensitivity: 2\n"}));
    world.fail(u"MailItem.Sensitivity");
    World::read(mail);
    expect_left_alone(world, mail);
}

TEST_F(ReceivedMail, IsFiledAgainIfItsMarkCannotBeRead) {
    World& world = filing();
    add_contact(world);
    const Item mail = read_mail(world);
    mail.put(u"Categories", u"Blue");
    world.fail(u"MailItem.BillingInformation");
    mail.Save();
    EXPECT_EQ(count_in(world, u"Email"), 2);
}

TEST_F(ReceivedMail, IsFiledIfTheSwitchCannotBeRead) {
    World& world = filing();
    world.family(u"EmailAutoFile", u"0");
    add_contact(world);
    world.family(u"Fail", u"getEmailAutoFile");
    read_mail(world);
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

TEST_F(ReceivedMail, IsLeftAloneIfWhatItNeedsFailsOrIsMissing) {
    struct Case {
        const char* name;
        std::vector<std::string> without;
        TextView failing_sibling;
    };
    const Case cases[] = {
        {"no main add-in", {"Tarnwell.connect"}, u""},
        {"no safe wrapper", {"TarnwellOMG.SafeMailItem"}, u""},
        {"the wrapper takes no mail", {}, u"SafeMailItem.Item"},
        {"the addresses can't be read", {}, u"SafeMailItem.Fields"},
        {"the To line can't be read", {}, u"SafeMailItem.To"},
        {"the folder's id can't be read", {}, u"GetFolderId"},
        {"the store's id can't be read", {}, u"GetStoreId"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = filing({.without = one.without});
        add_contact(world);
        const Item mail = world.deliver(message());
        world.family(u"Fail", one.failing_sibling);
        World::read(mail);
        expect_left_alone(world, mail);

        if (!one.without.empty()) continue;
        world.family(u"Fail", u"");
        mail.put(u"Categories", u"Blue");
        mail.Save();
        EXPECT_EQ(count_in(world, u"Email"), 1) << "and is filed once the failure is over";
    }
}

TEST_F(ReceivedMail, IsFiledAtTheNextChangeAfterASearchThatFailed) {
    World& world = filing();
    add_contact(world);
    world.fail(u"Items.Find");
    const Item mail = read_mail(world);
    expect_left_alone(world, mail);
    mail.put(u"Categories", u"Blue");
    mail.Save();
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

}  // namespace
}  // namespace acceptance
