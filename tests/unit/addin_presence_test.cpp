// Who is still there after giving way.
#include <gtest/gtest.h>

#include "addin/createnote/dlg_send.h"
#include "addin/ground/presence.h"
#include "tests/native/native_world.h"

namespace addin_tests {
namespace {

using addin::Presence;
using addin::createnote::dlgSend;
using native::NativeWorld;

struct Giving {
    NativeWorld world{acceptance::WorldSetup{}};
    std::shared_ptr<dlgSend> window = std::make_shared<dlgSend>(world.add_in()->rooms().createnote);

    ~Giving() {
        if (window) window->unload();
    }

    /// Whether a presence of the window, and one of the load alone, last where something happens meanwhile.
    std::pair<bool, bool> lasts(const std::function<void()>& meanwhile) {
        const Presence of_window(world.add_in()->session(), *window), of_load(world.add_in()->session());
        const std::function<void()> usual = world.system().on_yield;
        world.system().on_yield = meanwhile;
        const bool window_lasts = of_window.give_way(), load_lasts = of_load.lasts();
        world.system().on_yield = usual;
        return {window_lasts, load_lasts};
    }
};

TEST(Presence, TellsWhetherItsWindowIsStillTheSame) {
    Giving giving;
    giving.window->show();
    EXPECT_EQ(giving.lasts([] {}), std::pair(true, true));
    EXPECT_EQ(giving.lasts([&] { giving.window->hide(); }), std::pair(true, true)) << "it is loaded";
    EXPECT_EQ(giving.lasts([&] {
        giving.window->unload();
        giving.window->show();
    }),
              std::pair(false, true))
        << "it is another one";
    EXPECT_EQ(giving.lasts([&] { giving.window->unload(); }), std::pair(false, true));
}

TEST(Presence, HoldsItsWindowAndItsLoad) {
    Giving giving;
    giving.window->show();
    EXPECT_EQ(giving.lasts([&] { giving.window.reset(); }), std::pair(true, true)) << "nobody has closed it";
    NativeWorld world{acceptance::WorldSetup{}};
    const Presence here(world.add_in()->session());
    const std::weak_ptr<const bool> life = world.add_in()->session().life;
    world.unload_add_in(1);
    EXPECT_FALSE(life.expired());
    EXPECT_TRUE(here.lasts());
}

TEST(Presence, SkipsAFailureOfTheHostOrLetsItTravel) {
    Giving giving;
    const Presence here(giving.world.add_in()->session());
    const std::function<void()> usual = giving.world.system().on_yield;
    giving.world.system().on_yield = [] { throw automation::Failure(automation::result::fail); };
    EXPECT_TRUE(here.give_way());
    EXPECT_THROW(here.give_way_or_fail(), automation::Failure);
    giving.world.system().on_yield = usual;
}

}  // namespace
}  // namespace addin_tests
