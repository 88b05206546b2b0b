// An item in words.
#include "tests/native/native_world.h"
#include "tests/world/people.h"

namespace model_tests {
namespace {

using automation::Value;
using host::outlook::Item;

TEST(Describe, TellsAllOfAnItem) {
    native::NativeWorld world({.add_in = false});
    const Item post = world.below(u"Notes").Items().Add(u"IPM.Post.Note");
    post.Subject(u"A plan");
    post.Body(u"One\r\nTwo");
    post.UserProperties().Item(u"Team").value(Value(u"Sales"));
    post.Attachments().Add(world.deliver(acceptance::message({.body = "Dear all\n"})), 1);
    const auto described = [&](const automation::Object& object) {
        return acceptance::shown(world.desk().call(u"Describe", {Value(object)}).to_text());
    };
    const std::string before = described(post);
    for (const char* line :
         {"MessageClass: IPM.Post.Note\n", "Body: One\\r\\nTwo\n", "Subject: A plan\n", "[Team, 1]: Sales\n",
          "[ContactID, 1]: \n", "attachment Delivery dates:", "Dear all", "recipient of kind 1: Tom Prior"}) {
        EXPECT_NE(before.find(line), std::string::npos) << line << " in\n" << before;
    }
    post.Save();
    EXPECT_EQ(described(post), before) << "that it is saved, and when, isn't among it";
    EXPECT_EQ(described(post.Copy()), before);
    post.UserProperties().Item(u"Team").value(Value(u"South"));
    EXPECT_NE(described(post), before);
    EXPECT_EQ(acceptance::failure_of([&] { described(world.inbox()); }), automation::result::type_mismatch);
    post.call(u"Delete");
    EXPECT_EQ(acceptance::failure_of([&] { described(post); }), automation::result::object_deleted);
}

}  // namespace
}  // namespace model_tests
