// The family's menu, asked for in one process with the host.
#include "tests/native/native_world.h"
#include "tests/world/bars.h"

namespace {

TEST(MenuOfTheFamily, IsPutUpOnceHoweverOftenTheFamilyIsAskedFor) {
    native::NativeWorld world({.add_in = false, .started = false});
    world.family(u"Menu", u"1");
    world.start();
    const auto menus = [&] {
        return acceptance::count_controls(world.application().ActiveExplorer(), u"Menu Bar", u"TarnwellMenu");
    };
    EXPECT_EQ(menus(), 0) << "nobody has asked for it";
    world.system().make(u"Tarnwell.connect");
    EXPECT_EQ(menus(), 1);
    world.system().make(u"Tarnwell.connect");
    EXPECT_EQ(menus(), 1);
}

}  // namespace
