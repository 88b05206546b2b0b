// The world in one process fails a test in which the program made a mistake.
#include <gtest/gtest-spi.h>

#include <stdexcept>

#include "forms/form.h"
#include "tests/native/native_world.h"

namespace native {
namespace {

constexpr forms::FormTable table{.name = u"Broken", .caption = u"Broken", .width = 900, .height = 900};

/// A window with a mistake in an event.
class Broken : public forms::Form {
  public:
    explicit Broken(forms::Engine& engine) : Form(engine, table) {}
    void on_activate() override { throw std::logic_error("our own mistake"); }
};

void show_broken_window(NativeWorld& world) {
    const auto window = std::make_shared<Broken>(world.engine());
    window->show();
    window->unload();
}

TEST(NativeWorldsEnd, FailsATestInWhichAnEventMadeAMistake) {
    auto world = std::make_unique<NativeWorld>(acceptance::WorldSetup{});
    show_broken_window(*world);
    EXPECT_NONFATAL_FAILURE(world.reset(), "our own mistake");
}

TEST(NativeWorldsEnd, TakesTheMistakesThatATestExpects) {
    NativeWorld world{acceptance::WorldSetup{}};
    show_broken_window(world);
    world.expect_faults(1);
}

}  // namespace
}  // namespace native
