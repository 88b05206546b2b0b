#include <gmock/gmock.h>

#include "family/create.h"
#include "tests/unit/support/family_fakes.h"

namespace {

using namespace family_test;
using testing::ElementsAre;

constexpr TextView tag_root = u"http://schemas.microsoft.com/mapi/proptag/0x";
Text tag_address(TextView digits) { return Text(tag_root) + Text(digits); }

/// A mail from a directory sender to an Internet and a directory recipient.
struct SafeMailTest : testing::Test {
    std::shared_ptr<FakeContext> around = std::make_shared<FakeContext>();
    std::shared_ptr<Fake> mail = fake({{u"Subject", u"Hello"},
                                       {u"Body", u"Text"},
                                       {u"To", u"Bob; Cleo"},
                                       {u"SenderName", u"Ann"},
                                       {u"EntryID", u"00A1"},
                                       {u"FlagStatus", 0}});
    std::shared_ptr<Fake> recipients;
    Object safe = family::create(u"TarnwellOMG.SafeMailItem", around);

    void SetUp() override {
        offer_fields(*mail, {{tag_address(u"0C1F001E"), u"/o=Example/cn=ann"},
                             {tag_address(u"0C1E001E"), u"EX"},
                             {tag_address(u"0E080003"), 4711},
                             {tag_address(u"00390040"), automation::to_date({2026, 3, 3, 9, 15, 0})},
                             {tag_address(u"0E1B000B"), true},
                             {tag_address(u"36D90005"), 1234.5},
                             {u"http://schemas.microsoft.com/mapi/string/"
                              u"{00020329-0000-0000-C000-000000000046}/ContactID",
                              u"C1"}});
        auto sender = fake({{u"Name", u"Ann"}, {u"Address", u"/o=Example/cn=ann"}});
        offer_fields(*sender, {{tag_address(u"39FE001E"), u"ann@one.example"}});
        mail->properties[u"Sender"] = Object(sender);
        recipients = collection({recipient(u"Bob", u"bob@two.example", u"SMTP", u"bob@two.example"),
                                 recipient(u"Cleo", u"/o=Example/cn=cleo", u"EX", u"cleo@one.example")});
        recipients->functions[u"ResolveAll"] = [](std::vector<Value>&) -> Value { return true; };
        recipients->functions[u"Add"] = [](std::vector<Value>& arguments) -> Value {
            return recipient(arguments.at(0).to_text(), u"", u"SMTP", u"");
        };
        mail->properties[u"Recipients"] = Object(recipients);
    }

    static Object recipient(TextView name, TextView address, TextView type, TextView smtp) {
        auto entry = fake({{u"Name", name}, {u"Address", address}, {u"Type", type}});
        offer_fields(*entry, {{tag_address(u"3002001E"), type},
                              {tag_address(u"3003001E"), address},
                              {tag_address(u"39FE001E"), smtp}});
        auto made =
            fake({{u"Name", name}, {u"Address", address}, {u"Type", 1}, {u"AddressEntry", Object(entry)}});
        offer_fields(*made, {{tag_address(u"3001001E"), name}});
        return Object(made);
    }

    Value fields(const Value& tag) const { return safe.get(u"Fields", {tag}); }
    Object recipient_at(std::int32_t index) const {
        return safe.get(u"Recipients").to_object().call(u"Item", {index}).to_object();
    }
};

struct BoundSafeMailTest : SafeMailTest {
    void SetUp() override {
        SafeMailTest::SetUp();
        safe.put(u"Item", Object(mail));
    }
};

TEST_F(SafeMailTest, GivesItsItemBack) {
    EXPECT_EQ(safe.get(u"Item"), Value(Object()));
    safe.put(u"Item", Object(mail));
    EXPECT_EQ(safe.get(u"Item"), Value(Object(mail)));
    safe.put(u"Item", Object());
    EXPECT_EQ(safe.get(u"Item"), Value(Object()));
}

TEST_F(SafeMailTest, SaysThatItHasNoItem) {
    for (const TextView member : {u"Subject", u"sender", u"Recipients", u"ResolveAll", u"Save"}) {
        EXPECT_EQ(failure_of([&] { safe.get(member); }), automation::result::object_not_set);
    }
    EXPECT_EQ(failure_of([&] { fields(0x0C1F001E); }), automation::result::object_not_set);
    EXPECT_EQ(failure_of([&] {
                  safe.call(u"GetIDsFromNames", {u"{00020329-0000-0000-C000-000000000046}", u"A"});
              }),
              automation::result::object_not_set);
    EXPECT_EQ(failure_of([&] { safe.put(u"FlagStatus", 1); }), automation::result::object_not_set);
    try {
        safe.get(u"Body");
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.description(), u"SafeMailItem has no item yet");
    }
}

TEST_F(BoundSafeMailTest, ReadsFieldsByTagInAllItsForms) {
    for (const Value& form :
         {Value(0x0C1F001E), Value(u"0x0C1F001E"), Value(u"&H0C1F001E"), Value(203358238.0)}) {
        EXPECT_EQ(fields(form), Value(u"/o=Example/cn=ann"));
    }
    EXPECT_EQ(fields(0x0C1E001E), Value(u"EX"));
}

TEST_F(BoundSafeMailTest, GivesEveryFieldAsText) {
    EXPECT_EQ(fields(0x0E080003), Value(u"4711"));
    EXPECT_EQ(fields(0x00390040), Value(u"2026-03-03 09:15:00"));
    EXPECT_EQ(fields(0x0E1B000B), Value(u"True"));
}

TEST_F(BoundSafeMailTest, GivesANumberWithTheUsersDecimalSign) {
    EXPECT_EQ(fields(0x36D90005), Value(u"1234.5"));
    around->decimal_sign = u',';
    EXPECT_EQ(fields(0x36D90005), Value(u"1234,5"));
    EXPECT_EQ(fields(0x0E080003), Value(u"4711"));
}

TEST_F(BoundSafeMailTest, AFieldThatTheItemLacksIsEmpty) { EXPECT_EQ(fields(0x39FE001E), Value()); }

TEST_F(BoundSafeMailTest, AFieldThatCannotBeReadFails) {
    EXPECT_EQ(failure_of([&] { fields(u""); }), automation::result::invalid_argument);
    EXPECT_EQ(failure_of([&] { fields(u"Subject"); }), automation::result::invalid_argument);
    mail->properties.erase(u"PropertyAccessor");
    EXPECT_EQ(failure_of([&] { fields(0x0C1F001E); }), automation::result::unknown_name);
    auto refusing = fake();
    refusing->functions[u"GetProperty"] = [](std::vector<Value>&) -> Value {
        throw Failure(automation::result::access_denied);
    };
    mail->properties[u"PropertyAccessor"] = Object(refusing);
    EXPECT_EQ(failure_of([&] { fields(0x0C1F001E); }), automation::result::access_denied);
}

TEST_F(BoundSafeMailTest, WritesFields) {
    Request request{.access = Access::put, .member = u"Fields", .arguments = {0x0037001E, u"New subject"}};
    safe.invoke(request);
    const Object accessor = mail->properties[u"PropertyAccessor"].to_object();
    EXPECT_EQ(accessor.get(tag_address(u"0037001E")), Value(u"New subject"));
}

TEST_F(BoundSafeMailTest, ReadsNamedPropertiesByTheTagsThatItGives) {
    const Value tag =
        safe.call(u"GetIDsFromNames", {u"{00020329-0000-0000-C000-000000000046}", u"ContactID"});
    ASSERT_EQ(tag.type(), Value::Type::integer);
    EXPECT_LT(tag.to_integer(), 0);
    EXPECT_EQ(fields(tag), Value(u"C1"));
    EXPECT_EQ(fields(tag.to_integer() | 0x1E), Value(u"C1"));
    EXPECT_EQ(fields(Value(Value(tag.to_integer() | 0x1E).to_text())), Value(u"C1"));
    const Value other = safe.call(u"GetIDsFromNames", {u"{00020329-0000-0000-C000-000000000046}", u"NoteID"});
    EXPECT_EQ(fields(other), Value());
}

TEST_F(BoundSafeMailTest, AnotherWrapperUnderstandsTheTagToo) {
    const Value tag =
        safe.call(u"GetIDsFromNames", {u"{00020329-0000-0000-C000-000000000046}", u"ContactID"});
    const Object other = family::create(u"TarnwellOMG.SafePostItem", around);
    other.put(u"Item", Object(mail));
    EXPECT_EQ(other.get(u"Fields", {tag}), Value(u"C1"));
}

TEST_F(BoundSafeMailTest, TellsTheSender) {
    const Object sender = safe.get(u"sender").to_object();
    EXPECT_EQ(sender.get(u"Fields", {0x39FE001E}), Value(u"ann@one.example"));
    EXPECT_EQ(sender.get(u"Fields", {0x3002001E}), Value());
    EXPECT_EQ(sender.get(u"Address"), Value(u"/o=Example/cn=ann"));
    mail->properties[u"Sender"] = Object();
    EXPECT_EQ(safe.get(u"sender"), Value(Object()));
}

TEST_F(BoundSafeMailTest, TellsTheRecipients) {
    EXPECT_EQ(safe.get(u"Recipients").to_object().get(u"Count"), Value(2));
    const Object cleo = recipient_at(2);
    EXPECT_EQ(cleo.get(u"Name"), Value(u"Cleo"));
    EXPECT_EQ(cleo.get(u"Type"), Value(1));
    EXPECT_EQ(cleo.get(u"Fields", {0x3001001E}), Value(u"Cleo"));
    const Object entry = cleo.get(u"AddressEntry").to_object();
    EXPECT_EQ(entry.get(u"Fields", {0x39FE001E}), Value(u"cleo@one.example"));
    EXPECT_EQ(entry.get(u"Fields", {0x3003001E}), Value(u"/o=Example/cn=cleo"));
    EXPECT_EQ(entry.get(u"Type"), Value(u"EX"));
}

TEST_F(BoundSafeMailTest, ItsRecipientsCanBeAskedByTheirDefaultMember) {
    const Object bob = safe.get(u"Recipients", {1}).to_object();
    EXPECT_EQ(bob.get(u"Address"), Value(u"bob@two.example"));
    EXPECT_EQ(bob.get(u"AddressEntry").to_object().get(u"Fields", {0x3002001E}), Value(u"SMTP"));
    EXPECT_EQ(failure_of([&] { safe.get(u"Recipients", {3}); }), automation::result::bad_index);
}

TEST_F(BoundSafeMailTest, WrapsARecipientThatIsAdded) {
    const Object added = safe.get(u"Recipients").to_object().call(u"Add", {u"Dan"}).to_object();
    EXPECT_EQ(added.get(u"AddressEntry").to_object().get(u"Fields", {0x3002001E}), Value(u"SMTP"));
}

TEST_F(BoundSafeMailTest, ResolvesItsRecipients) {
    EXPECT_EQ(safe.call(u"ResolveAll"), Value(true));
    EXPECT_EQ(safe.get(u"Recipients").to_object().call(u"ResolveAll"), Value(true));
    EXPECT_THAT(readable(recipients->asked), ElementsAre("ResolveAll", "ResolveAll"));
}

TEST_F(BoundSafeMailTest, PassesEverythingElseOnToTheItem) {
    for (const TextView member : {u"Subject", u"Body", u"To", u"SenderName", u"EntryID"}) {
        EXPECT_EQ(safe.get(member), mail->properties[Text(member)]);
    }
    safe.put(u"FlagStatus", 1);
    EXPECT_EQ(mail->properties[u"FlagStatus"], Value(1));
    mail->functions[u"Close"] = [](std::vector<Value>& arguments) { return arguments.at(0); };
    EXPECT_EQ(safe.call(u"Close", {2}), Value(2));
    EXPECT_EQ(failure_of([&] { safe.call(u"Nonsense"); }), automation::result::unknown_name);
}

/// Asks as a client of COM does: first for the id of the name, then by the id.
Value ask_by_id(const Object& object, TextView member, Access access, std::vector<Value> arguments = {}) {
    static constexpr automation::Kind kind{"wrapper"};
    const std::optional<automation::MemberIds> ids = object.identify(member);
    if (!ids) throw automation::Failure(automation::result::unknown_name, automation::Text(member));
    Request request{
        .access = access, .member = {}, .id = ids->id, .arguments = std::move(arguments), .kind = &kind};
    return object.invoke(request);
}

TEST_F(BoundSafeMailTest, AnswersByDispatchIdsToo) {
    EXPECT_EQ(ask_by_id(safe, u"Subject", Access::get), Value(u"Hello"));
    EXPECT_EQ(ask_by_id(safe, u"Fields", Access::get, {0x0C1E001E}), Value(u"EX"));
    ask_by_id(safe, u"FlagStatus", Access::put, {2});
    EXPECT_EQ(mail->properties[u"FlagStatus"], Value(2));
    EXPECT_EQ(failure_of([&] { ask_by_id(safe, u"Nonsense", Access::get); }),
              automation::result::unknown_name);
}

TEST_F(BoundSafeMailTest, DoesNotPassItsOwnKindOnToTheItem) {
    static constexpr automation::Kind kind{"SafeMailItem"};
    Request request{.access = Access::get, .member = u"Subject", .kind = &kind};
    EXPECT_EQ(safe.invoke(request), Value(u"Hello"));
    EXPECT_EQ(mail->kind, nullptr);
}

TEST_F(BoundSafeMailTest, TheIdsOfTheItemAreItsOwn) {
    const std::int32_t through = safe.identify(u"Subject")->id, own = safe.identify(u"Item")->id;
    Request direct{.access = Access::get, .member = {}, .id = through};
    EXPECT_EQ(Object(mail).invoke(direct), Value(u"Hello"));
    EXPECT_NE(own, through);
    EXPECT_GT(own, 0x70000);
}

TEST_F(BoundSafeMailTest, MembersThatTheSettingListsFail) {
    around->settings[u"Fail"] = u"SafeMailItem.Fields;Body;SafeAddressEntry.Address;SafeContactItem.To";
    EXPECT_EQ(failure_of([&] { fields(0x0C1F001E); }), automation::result::fail);
    EXPECT_EQ(failure_of([&] { safe.get(u"Body"); }), automation::result::fail);
    EXPECT_EQ(failure_of([&] { ask_by_id(safe, u"Body", Access::get); }), automation::result::fail);
    const Object sender = safe.get(u"sender").to_object();
    EXPECT_EQ(failure_of([&] { sender.get(u"Address"); }), automation::result::fail);
    EXPECT_EQ(failure_of([&] { sender.get(u"Fields", {0x39FE001E}); }), 0);
    EXPECT_EQ(failure_of([&] { safe.get(u"To"); }), 0);
}

/// Raises the events of one interface, and notes who subscribed.
class Raising : public Fake {
  public:
    static constexpr automation::Guid events = automation::guid("{8A4C1E52-6F0B-4D7A-9E35-1B2C3D4E5F60}");
    std::vector<std::string> told;

    bool has_events(const automation::Guid& interface_id) override { return interface_id == events; }
    std::int32_t subscribe(const automation::Guid&, const Object& sink) override {
        told.push_back("subscribed " + automation::to_utf8(sink.get(u"Name").to_text()));
        return 7;
    }
    void unsubscribe(const automation::Guid&, std::int32_t cookie) override {
        told.push_back("left " + std::to_string(cookie));
    }
};

TEST_F(SafeMailTest, HasTheEventsOfTheItem) {
    EXPECT_FALSE(safe.target()->has_events(Raising::events)) << "nothing is wrapped yet";
    const auto raising = std::make_shared<Raising>();
    safe.put(u"Item", Object(raising));
    EXPECT_TRUE(safe.target()->has_events(Raising::events));
    safe.unsubscribe(Raising::events,
                     safe.subscribe(Raising::events, Object(fake({{u"Name", u"Listener"}}))));
    EXPECT_THAT(raising->told, ElementsAre("subscribed Listener", "left 7"));
}

class SafeItem : public testing::TestWithParam<TextView> {};

TEST_P(SafeItem, WrapsFieldsAndPassesTheRestOn) {
    auto around = std::make_shared<FakeContext>();
    auto item = fake({{u"FullName", u"Ann Lee"}});
    offer_fields(*item,
                 {{tag_address(u"3001001E"), u"Ann Lee"},
                  {u"http://schemas.microsoft.com/mapi/id/{00062004-0000-0000-C000-000000000046}/8083001E",
                   u"ann@one.example"}});
    const Object safe = family::create(GetParam(), around);
    EXPECT_EQ(failure_of([&] { safe.get(u"FullName"); }), automation::result::object_not_set);
    safe.put(u"Item", Object(item));
    EXPECT_EQ(safe.get(u"Item"), Value(Object(item)));
    EXPECT_EQ(safe.get(u"FullName"), Value(u"Ann Lee"));
    safe.put(u"FullName", u"Ann Moss");
    EXPECT_EQ(item->properties[u"FullName"], Value(u"Ann Moss"));
    EXPECT_EQ(safe.get(u"Fields", {u"&H3001001E"}), Value(u"Ann Lee"));
    const Value id = safe.call(u"GetIDsFromNames", {u"{00062004-0000-0000-C000-000000000046}", 0x8083});
    EXPECT_EQ(safe.get(u"Fields", {id.to_integer() | 30}), Value(u"ann@one.example"));
    EXPECT_EQ(safe.get(u"Fields", {Value(id.to_integer() | 30).to_text()}), Value(u"ann@one.example"));
    EXPECT_EQ(safe.get(u"Fields", {id.to_integer() + 30}), Value(u"ann@one.example"));
}

INSTANTIATE_TEST_SUITE_P(Classes, SafeItem,
                         testing::Values(u"TarnwellOMG.SafeContactItem", u"TarnwellOMG.SafePostItem",
                                         u"TarnwellOMG.SafeMailItem"),
                         [](const auto& tested) { return automation::to_utf8(tested.param.substr(12)); });

}  // namespace
