// A world that ends looks back at what went wrong in it.
#include <gtest/gtest-spi.h>

#include "tests/world/world.h"

namespace acceptance {
namespace {

TEST(WorldsEnd, FailsATestThatExpectsAMistakeInVain) {
    std::unique_ptr<World> world = make_world({});
    world->expect_faults(1);
    EXPECT_NONFATAL_FAILURE(world.reset(), "mistakes of the program");
}

}  // namespace
}  // namespace acceptance
