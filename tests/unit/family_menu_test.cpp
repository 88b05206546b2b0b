// The family's menu, asked for in one process with the host.
#include "tests/native/native_world.h"
#include "tests/world/bars.h"
#include "tests/world/note_dialog.h"

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

TEST(MenuOfTheFamily, TellsThatTheProgramThatChecksASetUpIsNotThere) {
    native::NativeWorld world({.add_in = false, .started = false});
    world.family(u"Menu", u"1");
    world.start();
    world.system().make(u"Tarnwell.connect");
    acceptance::find_control(world.application().ActiveExplorer(), u"Menu Bar", u"TarnwellMenu")
        .get(u"Controls")
        .to_object()
        .get(u"Item", {automation::Value(u"&Check This Set-up")})
        .to_object()
        .call(u"Execute");
    EXPECT_EQ(acceptance::message_texts(world),
              acceptance::Lines{"TarnwellAdmin.exe, which checks a set-up, is not there."});
}

}  // namespace
