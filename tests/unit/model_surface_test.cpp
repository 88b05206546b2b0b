#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

class DeskSurface : public ModelTest {
  protected:
    Value option(TextView name) const { return desk.get(u"Options", {Value(name)}); }
    void option(TextView name, const Value& value) const {
        automation::Request request{
            .access = automation::Access::put, .member = u"Options", .arguments = {Value(name), value}};
        desk.invoke(request);
    }
};

TEST_F(DeskSurface, HasOptionsByName) {
    EXPECT_EQ(option(u"InstantSearch"), Value(false));
    option(u"instantsearch", true);
    EXPECT_EQ(option(u"InstantSearch"), Value(true));
    EXPECT_EQ(option(u"Language"), Value(1033));
    option(u"Language", 1031);
    EXPECT_EQ(application.get(u"LanguageSettings").to_object().get(u"LanguageID", {1}), Value(1031));
    EXPECT_EQ(option(u"DeferredEvents"), Value(false));
    option(u"DeferredEvents", true);
    EXPECT_EQ(option(u"DeferredEvents"), Value(true));
    option(u"EventsAtOnce", true);
    EXPECT_EQ(option(u"DeferredEvents"), Value(false));
    EXPECT_EQ(failure_of([&] { option(u"Speed"); }), result::invalid_argument);
}

TEST_F(DeskSurface, RemembersTheHostsVersionForTheNextStart) {
    EXPECT_EQ(option(u"HostVersion"), Value(u"16.0.0.0"));
    option(u"HostVersion", u"9.0.0.3821");
    EXPECT_EQ(application.Version(), u"16.0.0.0");
    name_space = {};
    application = {};
    desk = {};
    world.quit();
    world.start();
    EXPECT_EQ(world.application().Version(), u"9.0.0.3821");
}

TEST_F(DeskSurface, ShowsAnyValueAsText) {
    const Item mail = world.deliver(acceptance::message());
    EXPECT_EQ(world.text(mail, u"Subject"), u"Delivery dates");
    EXPECT_EQ(world.text(mail, u"UnRead"), u"True");
    EXPECT_EQ(world.text(mail, u"Importance"), u"1");
    EXPECT_EQ(world.text(mail, u"SentOn").size(), 19U);
    EXPECT_EQ(failure_of([&] { world.text(mail, u"Recipients"); }), result::type_mismatch);
    EXPECT_EQ(failure_of([&] { world.text(mail, u"NoSuchMember"); }), result::unknown_name);
}

TEST_F(DeskSurface, AnswersBoxesInTheirOrder) {
    const auto ask = [&](TextView title, TextView text) {
        return world.system().message_box(text, title, host::box::yes_no_cancel);
    };
    desk.call(u"Answer", {u"Title", u"second", 7});
    desk.call(u"Answer", {u"Title", u"", 6});
    EXPECT_EQ(ask(u"Title", u"the first"), 6) << "the fragment of the earlier one isn't in it";
    EXPECT_EQ(ask(u"Title", u"the second"), 7);
    desk.call(u"Answer", {u"Other", u"", 6});
    EXPECT_EQ(ask(u"Title", u"nobody waits for this"), 2) << "it was closed";
    const Object messages = desk.get(u"Messages").to_object();
    ASSERT_EQ(integer(messages, u"Count"), 3);
    const auto message = [&](std::int32_t i) { return messages.call(u"Item", {i}).to_object(); };
    EXPECT_EQ(text(message(1), u"Text"), u"the first");
    EXPECT_EQ(integer(message(1), u"Answer"), 6);
    EXPECT_EQ(integer(message(1), u"Style"), 3);
    EXPECT_EQ(text(message(2), u"Title"), u"Title");
    EXPECT_EQ(integer(message(3), u"Answer"), 0) << "nobody answered";
    EXPECT_EQ(failure_of([&] { message(0); }), result::bad_index);
    EXPECT_EQ(failure_of([&] { message(4); }), result::bad_index);
}

TEST_F(DeskSurface, DeliversMailToTheInbox) {
    const Item mail = world.deliver(acceptance::message({.more = "X-Desk-Sensitivity: 2\n"}));
    EXPECT_EQ(inbox().Items().Count(), 1);
    EXPECT_EQ(mail.Sensitivity(), 2);
    EXPECT_TRUE(mail.UnRead());
    EXPECT_TRUE(mail.get(u"Sent").to_boolean());
    EXPECT_NE(failure_of([&] { desk.call(u"Deliver", {u"/no/such/mail.eml"}); }), 0);
    EXPECT_NE(failure_of([&] { desk.call(u"Deliver", {world.write_file("x.eml", "")}); }), 0);
    EXPECT_EQ(inbox().Items().Count(), 1);
}

TEST_F(DeskSurface, MakesPlannedCallsFail) {
    add_mail(u"One");
    world.fail(u"items.find", 1, 2);
    const Items items = inbox().Items();
    const auto find = [&] { return failure_of([&] { items.Find(u"[Subject] = \"One\""); }); };
    EXPECT_EQ(find(), 0);
    EXPECT_EQ(find(), result::fail);
    EXPECT_EQ(find(), result::fail);
    EXPECT_EQ(find(), 0);
    desk.call(u"Fail", {u"MailItem.Subject", 0, -1, result::access_denied});
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(failure_of([&] { items.Item(1).Subject(); }), result::access_denied);
}

TEST_F(DeskSurface, CountsWhatIsHeld) {
    EXPECT_EQ(desk.get(u"Live").to_object().get(u"Total"), Value(0))
        << "without the add-in nobody holds anything";
    const Object held = world.boundary().to_add_in(inbox());
    EXPECT_EQ(desk.get(u"Live").to_object().get(u"Total"), Value(1));
    EXPECT_EQ(desk.get(u"Live", {u"MAPIFolder"}), Value(1));
    EXPECT_EQ(desk.get(u"Live", {u"Items"}), Value(0));
    const Object kinds = desk.get(u"Live").to_object().get(u"Kinds").to_object();
    EXPECT_EQ(text(kinds.call(u"Item", {1}).to_object(), u"Kind"), u"MAPIFolder");
}

// what every object answers

class Automation : public ModelTest {};

TEST_F(Automation, FailsWithItsOwnNumbers) {
    const Item mail = add_mail(u"x");
    EXPECT_EQ(failure_of([&] { mail.get(u"NoSuchMember"); }), result::unknown_name);
    EXPECT_EQ(failure_of([&] { mail.call(u"NoSuchMember", {1}); }), result::unknown_name);
    EXPECT_EQ(failure_of([&] { mail.put(u"EntryID", u"x"); }), result::member_not_found) << "read only";
    EXPECT_EQ(failure_of([&] { mail.put(u"Importance", u"high"); }), result::type_mismatch);
    EXPECT_EQ(failure_of([&] { mail.call(u"Move"); }), result::bad_count);
    EXPECT_EQ(failure_of([&] { mail.call(u"Save", {1}); }), result::bad_count);
    EXPECT_EQ(failure_of([&] { mail.call(u"Move", {1}); }), result::type_mismatch);
    EXPECT_EQ(failure_of([&] { mail.call(u"Move", {Value(mail)}); }), result::type_mismatch);
    EXPECT_EQ(failure_of([&] { Object().get(u"Name"); }), result::object_not_set);
    automation::Request unknown{.access = automation::Access::get, .member = {}, .id = 0x7FFF};
    EXPECT_EQ(failure_of([&] { mail.invoke(unknown); }), result::member_not_found);
    automation::Request named{.member = u"Display", .named = {{u"NoSuchArgument", true}}};
    EXPECT_EQ(failure_of([&] { mail.invoke(named); }), result::unknown_name);
}

TEST_F(Automation, TakesMembersByNameInAnyCaseAndById) {
    const Item mail = add_mail(u"x");
    EXPECT_EQ(text(mail, u"SUBJECT"), u"x");
    EXPECT_EQ(mail.identify(u"subject")->id, 0x37);
    automation::Request by_id{.access = automation::Access::get, .member = {}, .id = 0x37};
    EXPECT_EQ(mail.invoke(by_id), Value(u"x"));
    EXPECT_FALSE(mail.identify(u"NoSuchMember"));
}

TEST_F(Automation, TellsTheIdsThatAnObjectOfTheClassHas) {
    const Text parameters[] = {u"displaymode", u"NoSuchParameter"};
    const auto ids = inbox().identify(u"GetExplorer", parameters);
    ASSERT_TRUE(ids);
    EXPECT_EQ(ids->places, (std::vector<std::int32_t>{0, automation::no_id}));
    const Item mail = add_mail(u"x"), post = create(item_type::post);
    EXPECT_TRUE(mail.identify(u"Send"));
    EXPECT_FALSE(mail.identify(u"Post"));
    EXPECT_TRUE(post.identify(u"Post"));
    EXPECT_FALSE(post.identify(u"Send"));
    EXPECT_TRUE(mail.identify(u"Session")) << "a member that all objects have";
    desk.call(u"Answer", {u"Title", u"", 6});
    world.system().message_box(u"text", u"Title", host::box::yes_no_cancel);
    const Object box = desk.get(u"Messages").to_object().call(u"Item", {1}).to_object();
    ASSERT_TRUE(box.identify(u"title"));
    automation::Request by_id{
        .access = automation::Access::get, .member = {}, .id = box.identify(u"title")->id};
    EXPECT_EQ(box.invoke(by_id), Value(u"Title"));
    EXPECT_FALSE(box.identify(u"NoSuchField"));
}

TEST_F(Automation, TakesSubscriptionsToItsOwnEventsAlone) {
    const Items items = inbox().Items();
    EXPECT_TRUE(items.target()->has_events(host::events::items.id));
    EXPECT_FALSE(items.target()->has_events(host::events::button.id));
    EXPECT_EQ(failure_of([&] { items.subscribe(host::events::button.id, desk); }), result::no_connection);
    EXPECT_EQ(failure_of([&] { items.subscribe(host::events::items.id, {}); }), result::invalid_argument);
    const std::int32_t cookie = items.subscribe(host::events::items.id, desk);
    EXPECT_EQ(failure_of([&] { items.unsubscribe(host::events::items.id, cookie + 1); }),
              result::no_connection);
    EXPECT_EQ(failure_of([&] { items.unsubscribe(host::events::items.id, cookie); }), 0);
    EXPECT_EQ(failure_of([&] { items.unsubscribe(host::events::items.id, cookie); }), result::no_connection);
}

TEST_F(Automation, OfADeletedItemTellsIdsAndTakesNoSubscription) {
    const Item mail = add_mail(u"x");
    mail.call(u"Delete");
    EXPECT_TRUE(mail.identify(u"Subject"));
    constexpr automation::Guid item_events = automation::guid("{0006303A-0000-0000-C000-000000000046}");
    EXPECT_EQ(failure_of([&] { mail.subscribe(item_events, desk); }), result::object_deleted);
}

TEST_F(Automation, AnswersTheCommonMembers) {
    const Item mail = add_mail(u"x");
    for (const Object& object : {Object(mail), Object(inbox()), Object(inbox().Items()), Object(name_space),
                                 Object(mail.UserProperties()), Object(application.ActiveExplorer())}) {
        EXPECT_EQ(object.get(u"Application").to_object(), Object(application));
        EXPECT_EQ(object.get(u"Session").to_object(), Object(name_space));
        EXPECT_TRUE(object.get(u"Parent").to_object());
        EXPECT_GE(integer(object, u"Class"), 1);
    }
    EXPECT_EQ(failure_of([&] { application.GetNamespace(u"IMAP"); }), result::invalid_argument);
    EXPECT_EQ(application.GetNamespace(u"mapi"), name_space);
}

TEST_F(Automation, MakesObjectsByName) {
    const Object made = application.call(u"CreateObject", {u"Tarnwell.connect"}).to_object();
    EXPECT_EQ(made.call(u"GetFolderId", {u"Account Profiles"}).to_text(), world.account_profiles().EntryID());
    EXPECT_EQ(failure_of([&] { application.call(u"CreateObject", {u"No.Such"}); }), result::bad_prog_id);
}

}  // namespace
}  // namespace model_tests
