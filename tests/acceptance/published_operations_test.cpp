// What the add-in offers to the family's other parts, called from outside.
#include "tests/world/people.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
namespace result = automation::result;

class PublishedOperations : public Filing {};

TEST_F(PublishedOperations, KeepThePlainMembers) {
    World& world = with({});
    const Object connect = world.connect();
    for (const TextView flag : {u"GlobalCalendar", u"GlobalTask", u"SetDatabase", u"bFinished"}) {
        SCOPED_TRACE(shown(flag));
        EXPECT_EQ(connect.get(flag), Value(false));
        connect.put(flag, true);
        EXPECT_EQ(connect.get(flag), Value(true));
    }
    connect.put(u"whoami", u"Mia Hart");
    EXPECT_EQ(connect.get(u"whoami"), Value(u"Mia Hart"));
}

TEST_F(PublishedOperations, TellWhetherAFileIsThere) {
    World& world = with({});
    const Object connect = world.connect();
    const auto exists = [&](const Text& path) { return connect.call(u"FileExists", {path}).to_boolean(); };
    const Text file = world.write_file("here.txt", "x");
    EXPECT_TRUE(exists(file));
    world.remove_file(file);
    EXPECT_FALSE(exists(file));
    EXPECT_FALSE(exists(world.add_in_folder())) << "a folder is no file";
    EXPECT_FALSE(exists(world.add_in_folder() + u"\\"));
    EXPECT_FALSE(exists(u""));
}

TEST_F(PublishedOperations, FileAMailOnDemand) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message());
    world.connect().call(u"AutomaticCreateNote", {Value(mail)});
    EXPECT_EQ(count_in(world, u"Email"), 1);
    EXPECT_TRUE(is_marked(mail));
    world.connect().call(u"AutomaticCreateNote", {Value(Object())});
    EXPECT_EQ(count_in(world, u"Email"), 1) << "nothing is filed of Nothing";
}

TEST_F(PublishedOperations, FailWithAutomationsNumbers) {
    World& world = with({});
    const Object connect = world.connect();
    EXPECT_EQ(failure_of([&] { connect.call(u"NoSuchOperation"); }), result::unknown_name);
    EXPECT_EQ(failure_of([&] { connect.call(u"FileExists"); }), result::bad_count);
    EXPECT_EQ(failure_of([&] { connect.call(u"FindFolder", {1}); }), result::bad_count);
    EXPECT_EQ(failure_of([&] {
                  connect.call(u"GetKeyValueEx", {u"no root", u"key", u"name"});
              }),
              result::type_mismatch);
}

}  // namespace
}  // namespace acceptance
