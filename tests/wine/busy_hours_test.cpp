// What a user does all day leaves nothing behind in the host's process. `./tarnwell hours` does it for a
// month.
#include "tests/wine/support/desk_measures.h"
#include "tests/world/busy_user.h"

namespace wine {
namespace {

class BusyHours : public acceptance::Acceptance {};

constexpr acceptance::BusyDay hour{
    .received = 10, .sent = 5, .windows = 6, .selections = 2, .searches = 1, .linked = 2};

/// So many handles and objects of the system's come and go by themselves.
constexpr int spread = 4;

/// What an hour leaves in the tables of the desk, and what memory that was given back in pieces comes to.
constexpr std::uint64_t largest_growth = std::uint64_t{2} << 20;  // bytes

TEST_F(BusyHours, LeaveNothingBehind) {
    acceptance::World& same = world();
    acceptance::BusyUser user(same, 4);
    const auto after_an_hour = [&] {
        user.live(hour);
        user.go_home();
        return measured(same);
    };
    const DeskMeasures before = after_an_hour(), now = after_an_hour();
    EXPECT_LE(now.held, before.held + spread);
    EXPECT_LE(now.handles, before.handles + spread);
    EXPECT_LE(now.drawing_objects, before.drawing_objects + spread);
    EXPECT_LE(now.user_objects, before.user_objects + spread);
    EXPECT_LE(now.private_bytes, before.private_bytes + largest_growth);
    EXPECT_EQ(acceptance::wrongs_of(same, user), acceptance::Lines{});
}

}  // namespace
}  // namespace wine
