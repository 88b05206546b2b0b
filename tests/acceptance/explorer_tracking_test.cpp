// Main windows come and go; the add-in follows them, and goes on as long as its own one is not the end of it.
#include "tests/world/button_lines.h"
#include "tests/world/outgoing.h"
#include "tests/world/search_panel.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

constexpr TextView first_host = u"9.0.0.3821", later_host = u"16.0.0.0";

class ExplorerTracking : public Outgoing {
  protected:
    World& tracking(TextView version) {
        World& world = filing({.host_version = Text(version)});
        world.option(u"AutoFileSentEmails", u"1");
        add_contact(world);
        return world;
    }

    static Object new_explorer(World& world) {
        const Object explorer = world.inbox().call(u"GetExplorer").to_object();
        explorer.call(u"Display");
        return explorer;
    }

    static void close(const Object& explorer) { explorer.call(u"Close"); }

    static std::int32_t count_explorers(World& world) {
        return world.application().Explorers().get(u"Count").to_integer();
    }

    static bool files_received_mail(World& world) {
        const std::int32_t before = count_in(world, u"Email");
        read_mail(world);
        return count_in(world, u"Email") == before + 1;
    }

    static bool files_sent_mail(World& world) {
        const std::int32_t before = count_in(world, u"Email");
        send(world, new_mail(world));
        return count_in(world, u"Email") == before + 1;
    }

    static bool fits_windows_with_buttons(World& world) {
        OpenedItem window(new_mail(world));
        window.show();
        return static_cast<bool>(find_control(window.window, u"TarnwellCreateNote", u"CreateNoteButton"));
    }

    /// Everything that comes by an event of the host.
    static void expect_at_work(World& world, bool expected) {
        EXPECT_EQ(files_received_mail(world), expected);
        EXPECT_EQ(files_sent_mail(world), expected);
        EXPECT_EQ(fits_windows_with_buttons(world), expected);
    }
};

TEST_F(ExplorerTracking, TwoFurtherWindowsComeAndGoInTurn) {
    for (const TextView version : {later_host, first_host}) {
        SCOPED_TRACE(shown(version));
        World& world = tracking(version);
        close(new_explorer(world));
        ASSERT_EQ(count_explorers(world), 1);
        expect_at_work(world, true);
        close(new_explorer(world));
        ASSERT_EQ(count_explorers(world), 1);
        expect_at_work(world, true);
    }
}

TEST_F(ExplorerTracking, TwoFurtherWindowsTogether) {
    for (const bool last_first : {false, true}) {
        SCOPED_TRACE(last_first);
        World& world = tracking(later_host);
        const Object second = new_explorer(world), third = new_explorer(world);
        ASSERT_EQ(count_explorers(world), 3);
        close(last_first ? third : second);
        expect_at_work(world, true);
        close(last_first ? second : third);
        ASSERT_EQ(count_explorers(world), 1);
        expect_at_work(world, true);
    }
}

TEST_F(ExplorerTracking, TheSharedWindowsGoWithTheLastFurtherWindow) {
    World& world = tracking(later_host);
    world.option(u"EnableQuickView", u"1");
    show_folder(world, world.inbox());
    world.desk().call(u"Select", {Value(world.deliver(message()))});
    ASSERT_TRUE(world.wait_for_handlers());
    const SearchPanel panel(world);
    const auto quick_view = [&] { return window_of(world, u"TW Quick View"); };
    const Object second = new_explorer(world), third = new_explorer(world);
    panel.open();
    panel.open_new(Item());
    panel.open_second(Item());
    close(second);
    world.settle();
    EXPECT_TRUE(is_shown(quick_view()));
    EXPECT_TRUE(panel.is_open()) << "one is left that is followed";
    close(third);
    world.settle();
    EXPECT_FALSE(quick_view());
    EXPECT_FALSE(panel.is_open()) << "though the first window is open still";
    ASSERT_EQ(count_explorers(world), 1);
    expect_at_work(world, true);

    // the first window isn't followed: when it goes, nothing else does
    const Object first = world.application().Explorers().Item(1);
    new_explorer(world);
    panel.open();
    close(first);
    world.settle();
    EXPECT_TRUE(panel.is_open());
}

TEST_F(ExplorerTracking, AFurtherWindowLeavesWhatIsOpenAsItIs) {
    World& world = tracking(later_host);
    OpenedItem mail(world.deliver(message()));
    mail.show();
    const Lines before = bars_of(mail.window);
    const Object first = world.application().ActiveExplorer();
    first.call(u"Activate");
    world.desk().get(u"ContextMenu");
    ASSERT_TRUE(find_control(first, u"Context Menu", u"Tarnwell Quick View"));
    close(new_explorer(world));
    EXPECT_EQ(bars_of(mail.window), before);
    EXPECT_TRUE(find_control(first, u"Context Menu", u"Tarnwell Quick View"));
    EXPECT_TRUE(find_control(first, u"Context Menu", u"Tarnwell Create Note"));
}

TEST_F(ExplorerTracking, TheFirstWindowGoesWhileASecondStays) {
    struct Case {
        TextView version;
        bool goes_on;
    };
    for (const auto& [version, goes_on] : {Case{later_host, true}, Case{first_host, false}}) {
        SCOPED_TRACE(shown(version));
        World& world = tracking(version);
        const Object first = world.application().ActiveExplorer();
        new_explorer(world);
        close(first);
        ASSERT_EQ(count_explorers(world), 1);
        expect_at_work(world, goes_on);
    }
}

TEST_F(ExplorerTracking, AThirdWindowGoesAfterTheFirst) {
    World& world = tracking(later_host);
    const Object first = world.application().ActiveExplorer();
    new_explorer(world);
    close(first);
    close(new_explorer(world));
    ASSERT_EQ(count_explorers(world), 1);
    expect_at_work(world, true);
}

TEST_F(ExplorerTracking, TheFirstWindowGoesAfterAFurtherOneCameAndWent) {
    World& world = tracking(later_host);
    const Object first = world.application().ActiveExplorer();
    close(new_explorer(world));
    new_explorer(world);
    close(first);
    expect_at_work(world, true);  // a later host's first window stops nothing
}

TEST_F(ExplorerTracking, OnTheFirstHostTheFirstWindowEndsTheWorkAfterAFurtherOneCameAndWent) {
    World& world = tracking(first_host);
    const Object first = world.application().ActiveExplorer();
    close(new_explorer(world));
    new_explorer(world);
    expect_at_work(world, true);
    close(first);
    expect_at_work(world, false);
}

TEST_F(ExplorerTracking, WindowsThatAreClosedWhileAMailIsSentDoNotDisturbIt) {
    World& world = tracking(later_host);
    const Object second = new_explorer(world);
    world.desk().call(u"Meanwhile", {u"Checking names - ", Value(second), u"Close"});
    EXPECT_TRUE(files_sent_mail(world));
    EXPECT_EQ(count_explorers(world), 1);
    expect_at_work(world, true);
}

TEST_F(ExplorerTracking, NothingOfAFurtherWindowIsHeldOnceItHasGone) {
    World& world = tracking(later_host);
    close(new_explorer(world));
    close(new_explorer(world));
    world.settle();
    const std::int32_t all = held(world), explorers = held(world, u"Explorer");
    for (int i = 0; i < 5; ++i) {
        const Object second = new_explorer(world), third = new_explorer(world);
        close(second);
        close(third);
    }
    world.settle();
    EXPECT_EQ(held(world, u"Explorer"), explorers);
    EXPECT_EQ(held(world), all);
}

TEST_F(ExplorerTracking, TheHostComesBackAfterItsLastWindowHasGone) {
    for (const TextView version : {later_host, first_host}) {
        SCOPED_TRACE(shown(version));
        World& world = tracking(version);
        new_explorer(world);
        world.quit();
        world.start();
        expect_at_work(world, true);
    }
}

}  // namespace
}  // namespace acceptance
