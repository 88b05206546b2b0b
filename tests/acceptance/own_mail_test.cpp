// A mail to the user's own address is one that was sent and one that is received: each is filed by its own
// rules.
#include "tests/world/outgoing.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using host::outlook::Item;
using host::outlook::Items;

constexpr TextView user = u"user@tarnwell.example";

class OwnMail : public Outgoing {
  protected:
    World& both_ways() {
        World& made = sending();
        made.family(u"EmailAutoFile", u"1");
        return made;
    }
    static Items email(World& world) { return world.below(u"Email").Items(); }
};

TEST_F(OwnMail, LeavesANoteWhenItIsSentAndOneWhenItIsRead) {
    World& world = both_ways();
    add_contact(world, u"Tarnwell User", user);
    const Item sent = send(world, new_mail(world, {.to = Text(user)}));
    world.settle();
    EXPECT_TRUE(is_marked_as_sent(sent));
    ASSERT_EQ(world.inbox().Items().Count(), 1);
    const Item received = world.inbox().Items().Item(1);
    EXPECT_TRUE(received.UnRead());
    EXPECT_EQ(count_in(world, u"Email"), 1);

    World::read(received);
    EXPECT_TRUE(world.wait_until([&] { return count_in(world, u"Email") == 2; }));
    EXPECT_TRUE(is_marked(received));
    EXPECT_EQ(shown(World::property(email(world).Item(1), u"Type")), "Email (Sent)");
    EXPECT_EQ(shown(World::property(email(world).Item(2), u"Type")), "Email (Received)");
    EXPECT_TRUE(is_marked_as_sent(sent_items(world).Item(1))) << "the one that was sent is as it was";
}

TEST_F(OwnMail, OfAUserWhoIsNoContactIsFiledForTheOthersAlone) {
    World& world = both_ways();
    add_contact(world);
    send(world, new_mail(world, {.to = u"ann.lee@northmill.example; " + Text(user)}));
    world.settle();
    ASSERT_EQ(world.inbox().Items().Count(), 1);
    const Item received = world.inbox().Items().Item(1);
    World::read(received);
    EXPECT_TRUE(world.wait_for_handlers());
    EXPECT_EQ(shown(World::property(only_item(world), u"Type")), "Email (Sent)");
    EXPECT_FALSE(is_marked(received));
}

}  // namespace
}  // namespace acceptance
