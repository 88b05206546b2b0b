// A day on which one does all that a user does, in an order by chance.
#include "tests/world/busy_user.h"

namespace acceptance {
namespace {

class BusyDays : public Acceptance {};

TEST_F(BusyDays, LeaveEachMailANoteOnce) {
    World& same = world();
    BusyUser user(same, 17);
    user.live({.received = 12, .sent = 6, .windows = 4, .selections = 3, .searches = 1, .linked = 3});
    user.go_home();
    EXPECT_EQ(wrongs_of(same, user), Lines{});
}

}  // namespace
}  // namespace acceptance
