// A mail to the user's own address is sent, and arrives as any other.
#include <optional>

#include "desk/base/host_event_tables.h"
#include "tests/unit/support/full_disk.h"
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

constexpr TextView user = u"user@tarnwell.example";

class MailToOneself : public ModelTest {
  protected:
    Item written(TextView to, TextView subject = u"Note to self") const {
        const Item mail = create(item_type::mail);
        mail.put(u"To", Value(to));
        mail.Subject(subject);
        mail.Body(u"Do not forget.");
        return mail;
    }
    Items sent_items() const { return default_folder(folder_number::sent).Items(); }

    /// A list of the user's contacts with these members, each an address or a list.
    void add_list(TextView name, const std::vector<TextView>& members) const {
        const Item list = default_folder(folder_number::contacts).Items().Add(u"IPM.DistList");
        list.put(u"DLName", Value(name));
        list.Save();
        for (const TextView member : members) {
            const Object recipient = name_space.call(u"CreateRecipient", {Value(member)}).to_object();
            recipient.call(u"Resolve");
            list.call(u"AddMember", {Value(recipient)});
        }
        list.Save();
    }
};

TEST_F(MailToOneself, StandsAmongTheSentAndArrives) {
    const Item mail = written(user);
    mail.put(u"Importance", 2);
    mail.call(u"Send");
    ASSERT_EQ(sent_items().Count(), 1);
    ASSERT_EQ(inbox().Items().Count(), 1);
    const Item sent = sent_items().Item(1), received = inbox().Items().Item(1);
    EXPECT_NE(sent.EntryID(), received.EntryID());
    EXPECT_FALSE(sent.UnRead());
    EXPECT_TRUE(received.UnRead());
    EXPECT_TRUE(received.get(u"Sent").to_boolean());
    for (const TextView name : {u"Subject", u"Body", u"SenderName", u"SenderEmailAddress", u"SenderEmailType",
                                u"To", u"ConversationTopic"}) {
        EXPECT_EQ(text(received, name), text(sent, name)) << shown(name);
        EXPECT_NE(text(received, name), u"") << shown(name);
    }
    EXPECT_EQ(integer(received, u"Importance"), 2);
    EXPECT_EQ(text(received, u"ReceivedByName"), text(received, u"SenderName"));
    for (const TextView name : {u"ReceivedTime", u"SentOn", u"CreationTime"})
        EXPECT_EQ(received.get(name), sent.get(u"SentOn")) << shown(name);

    acceptance::World::read(received);
    EXPECT_FALSE(sent_items().Item(1).get(u"UnRead").to_boolean());
    sent.Subject(u"Changed");
    sent.Save();
    EXPECT_EQ(inbox().Items().Item(1).Subject(), u"Note to self") << "they are two items";
}

TEST_F(MailToOneself, ArrivesOnceWhereverTheUserIsNamed) {
    add_list(u"Everybody", {u"ann@north.example", user});
    add_list(u"Strangers", {u"ann@north.example"});
    add_list(u"Lists", {u"Strangers", u"Everybody"});
    struct Case {
        TextView to, cc, bcc;
        std::int32_t arrive;
    };
    const Case cases[] = {
        {user, u"", u"", 1},
        {u"USER@Tarnwell.Example", u"", u"", 1},
        {u"Me <user@tarnwell.example>; ann@north.example", u"", u"", 1},
        {u"ann@north.example", user, u"", 1},
        {u"ann@north.example", u"", user, 1},
        {user, user, user, 1},
        {u"Everybody", user, u"", 1},
        {u"Everybody", u"", u"", 1},
        {u"Lists", u"", u"", 1},
        {u"Strangers", u"", u"", 0},
        {u"ann@north.example", u"other.user@tarnwell.example", u"", 0},
    };
    for (const auto& [to, cc, bcc, arrive] : cases) {
        SCOPED_TRACE(shown(to) + " / " + shown(cc) + " / " + shown(bcc));
        const std::int32_t before = inbox().Items().Count(), sent_before = sent_items().Count();
        const Item mail = written(to);
        mail.put(u"CC", Value(cc));
        mail.put(u"BCC", Value(bcc));
        mail.call(u"Send");
        EXPECT_EQ(inbox().Items().Count(), before + arrive);
        EXPECT_EQ(sent_items().Count(), sent_before + 1);
    }
}

TEST_F(MailToOneself, EndsWithListsThatHoldEachOther) {
    add_list(u"One", {});
    add_list(u"Two", {u"One"});
    const Item one(default_folder(folder_number::contacts).Items().Item(1));
    const Object two = name_space.call(u"CreateRecipient", {u"Two"}).to_object();
    two.call(u"Resolve");
    one.call(u"AddMember", {Value(two)});
    one.Save();
    written(u"One").call(u"Send");
    EXPECT_EQ(sent_items().Count(), 1);
    EXPECT_EQ(inbox().Items().Count(), 0);
}

TEST_F(MailToOneself, BringsWhatEverybodyGetsOfIt) {
    const Item mail = written(u"ann@north.example");
    mail.put(u"CC", Value(user));
    mail.put(u"BCC", u"secret@one.example");
    mail.put(u"Categories", u"Mine");
    mail.put(u"FlagRequest", u"Call back");
    constexpr std::int32_t text_type = 1;
    mail.UserProperties().Add(u"AccountID", text_type, false).value(u"A-1");
    constexpr TextView page = u"<html><body><b>Do not</b> forget.</body></html>";
    mail.put(u"HTMLBody", Value(page));
    mail.Attachments().call(u"Add", {Value(world.write_file("list.txt", "milk"))});
    mail.call(u"Send");
    const Item sent = sent_items().Item(1), received = inbox().Items().Item(1);
    EXPECT_EQ(text(received, u"HTMLBody"), page);
    EXPECT_EQ(text(received, u"CC"), user);
    ASSERT_EQ(received.Attachments().Count(), 1);
    EXPECT_EQ(text(received.Attachments().Item(1), u"FileName"), u"list.txt");
    for (const auto& [name, of_sent] : {std::pair{TextView(u"BCC"), TextView(u"secret@one.example")},
                                        {u"Categories", u"Mine"},
                                        {u"FlagRequest", u"Call back"}}) {
        EXPECT_EQ(text(sent, name), of_sent) << shown(name);
        EXPECT_EQ(text(received, name), u"") << shown(name);
    }
    EXPECT_EQ(integer(sent.get(u"Recipients").to_object(), u"Count"), 3);
    EXPECT_EQ(integer(received.get(u"Recipients").to_object(), u"Count"), 2);
    EXPECT_EQ(sent.UserProperties().Count(), 1);
    EXPECT_EQ(received.UserProperties().Count(), 0);
}

TEST_F(MailToOneself, ThatWasADraftOrIsNotKeptArrivesToo) {
    const Text id = [&] {
        const Item draft = written(user, u"Draft");
        draft.Attachments().call(u"Add", {Value(world.write_file("list.txt", "milk"))});
        draft.Save();
        return draft.EntryID();
    }();  // nobody has it open any more
    name_space.call(u"GetItemFromID", {Value(id)}).to_object().call(u"Send");
    const Item unkept = written(user, u"Not kept");
    unkept.put(u"DeleteAfterSubmit", true);
    unkept.call(u"Send");
    EXPECT_EQ(subjects(sent_items()), std::vector<Text>{u"Draft"});
    EXPECT_EQ(subjects(inbox().Items()), (std::vector<Text>{u"Draft", u"Not kept"}));
    EXPECT_EQ(inbox().Items().Item(1).Attachments().Count(), 1);
    EXPECT_EQ(default_folder(folder_number::drafts).Items().Count(), 0);
}

TEST_F(MailToOneself, ThatIsNotKeptStaysOpenAndUnsentWhereItCannotArrive) {
    for (const bool saved_before : {false, true}) {
        SCOPED_TRACE(saved_before);
        const Item mail = written(user);
        mail.put(u"DeleteAfterSubmit", true);
        if (saved_before) mail.Save();
        mail.call(u"Display");
        {
            const FullDisk disk;
            EXPECT_EQ(failure_of([&] { mail.call(u"Send"); }), result::fail);
        }
        EXPECT_FALSE(mail.get(u"Sent").to_boolean());
        EXPECT_EQ(mail.Subject(), u"Note to self");
        EXPECT_EQ(world.application().get(u"Inspectors").to_object().get(u"Count"), Value(1));
        EXPECT_EQ(inbox().Items().Count(), saved_before ? 1 : 0);
        mail.call(u"Send");
        EXPECT_EQ(inbox().Items().Count(), saved_before ? 2 : 1) << "it arrives once there is room";
        EXPECT_EQ(world.application().get(u"Inspectors").to_object().get(u"Count"), Value(0));
        EXPECT_EQ(default_folder(folder_number::drafts).Items().Count(), 0);
    }
}

TEST_F(MailToOneself, IsNoMeetingAndNoTask) {
    for (const std::int32_t type : {item_type::appointment, item_type::task}) {
        const Item item = create(type);
        item.get(u"Recipients").to_object().call(u"Add", {Value(user)});
        item.call(u"Send");
    }
    EXPECT_EQ(inbox().Items().Count(), 0);
}

/// What is told while a mail goes out and comes back.
Told told_of_own_mail(desk::EventOrder order, const std::function<void(Told&)>& after_send) {
    native::NativeWorld world({.event_order = order, .add_in = false});
    const Items sent(world.name_space().GetDefaultFolder(folder_number::sent).Items());
    const Items inbox = world.inbox().Items();
    Told told;
    std::vector<automation::Sink> sinks(3);
    sinks[0].connect(host::events::items, sent,
                     {{u"ItemAdd", [&](std::span<Value>) { told.emplace_back("ItemAdd of Sent Items"); }}});
    sinks[1].connect(host::events::items, inbox,
                     {{u"ItemAdd", [&](std::span<Value>) { told.emplace_back("ItemAdd of Inbox"); }}});
    sinks[2].connect(desk::events::application_11, world.application(),
                     {{u"NewMail", [&](std::span<Value>) { told.emplace_back("NewMail"); }},
                      {u"NewMailEx", [&](std::span<Value> arguments) {
                           const Object mail =
                               world.name_space().call(u"GetItemFromID", {arguments[0]}).to_object();
                           told.push_back("NewMailEx " + automation::to_utf8(mail.get(u"Subject").to_text()));
                       }}});
    constexpr std::int32_t mail_item = 0;
    const Item mail(world.application().call(u"CreateItem", {mail_item}).to_object());
    mail.put(u"To", Value(user));
    mail.Subject(u"Note to self");
    mail.call(u"Send");
    after_send(told);
    world.settle();
    return told;
}

TEST(MailToOneselfTells, ThatItWasSentAndThenThatItCame) {
    const Told whole = {"ItemAdd of Sent Items", "ItemAdd of Inbox", "NewMail", "NewMailEx Note to self"};
    for (const desk::EventOrder order : {desk::EventOrder::host, desk::EventOrder::deferred})
        EXPECT_EQ(told_of_own_mail(order, [](Told& told) { EXPECT_EQ(told, Told{}); }), whole);
    EXPECT_EQ(told_of_own_mail(desk::EventOrder::at_once, [&](Told& told) { EXPECT_EQ(told, whole); }),
              whole);
}

TEST(MailToOneselfTells, ThatItCameThoughTheSentOneIsDeletedMeanwhile) {
    native::NativeWorld world({.event_order = desk::EventOrder::at_once, .add_in = false});
    const auto items_of = [&](std::int32_t folder) {
        return Items(world.name_space().GetDefaultFolder(folder).Items());
    };
    const Items drafts = items_of(folder_number::drafts);
    constexpr std::int32_t mail_item = 0;
    const Item mail(world.application().call(u"CreateItem", {mail_item}).to_object());
    mail.put(u"To", Value(user));
    mail.Save();
    automation::Sink sink;
    sink.connect(
        host::events::items, drafts,
        {{u"ItemChange", [](std::span<Value> arguments) { arguments[0].to_object().call(u"Delete"); }}});
    mail.call(u"Send");
    EXPECT_EQ(items_of(folder_number::sent).Count(), 0);
    EXPECT_EQ(items_of(folder_number::deleted).Count(), 1);
    EXPECT_EQ(world.inbox().Items().Count(), 1);
}

TEST(MailToOneselfStays, SentWhereItCannotArriveAndThatIsTold) {
    native::NativeWorld world({.event_order = desk::EventOrder::at_once, .add_in = false});
    const Items sent(world.name_space().GetDefaultFolder(folder_number::sent).Items());
    std::optional<FullDisk> disk;
    automation::Sink sink;
    sink.connect(host::events::items, sent, {{u"ItemAdd", [&](std::span<Value>) { disk.emplace(); }}});
    constexpr std::int32_t mail_item = 0;
    const Item mail(world.application().call(u"CreateItem", {mail_item}).to_object());
    mail.put(u"To", Value(user));
    mail.Subject(u"Note to self");
    mail.call(u"Display");
    mail.call(u"Send");
    disk.reset();
    world.settle();
    ASSERT_EQ(sent.Count(), 1);
    EXPECT_TRUE(sent.Item(1).get(u"Sent").to_boolean());
    EXPECT_EQ(world.inbox().Items().Count(), 0);
    EXPECT_EQ(world.application().get(u"Inspectors").to_object().get(u"Count"), Value(0));
    const Object messages = world.desk().get(u"Messages").to_object();
    ASSERT_EQ(messages.get(u"Count"), Value(1));
    const Text told = messages.call(u"Item", {1}).to_object().get(u"Text").to_text();
    EXPECT_TRUE(told.starts_with(u"\"Note to self\" was sent, but could not be put into your Inbox."))
        << automation::to_utf8(told);
}

}  // namespace
}  // namespace model_tests
