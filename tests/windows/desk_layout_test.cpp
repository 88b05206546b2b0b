// How a person has arranged the main window is kept from one start to the next.
#include "tests/windows/support/desk_windows_fixture.h"

namespace desk_tests {
namespace {

using desk::ExplorerLayout;

class DeskLayout : public DeskWindowsTest {
  protected:
    static HWND list() { return windows_of_class(u"SysListView32", explorer_window()).front(); }
    static HWND pane() { return windows_of_class(u"TarnwellDeskPane", explorer_window()).front(); }
    static RECT place() {
        WINDOWPLACEMENT placement{};
        placement.length = sizeof placement;
        GetWindowPlacement(explorer_window(), &placement);
        return placement.rcNormalPosition;
    }
    void show_inbox() {
        desk.explorers()->open.front()->show_folder(desk.default_folder(6));
        run_messages();
    }
};

TEST_F(DeskLayout, ComesBackWithTheNextWindows) {
    show_inbox();
    MoveWindow(explorer_window(), 120, 90, 900, 560, TRUE);
    ListView_SetColumnWidth(list(), 1, 222);
    SendMessageW(explorer_window(), WM_COMMAND, desk::show_pane_command, 0);
    ASSERT_TRUE(wait_until([] { return place().right - place().left == 900; }));
    const RECT before = place();
    windows.close_all();
    const Text kept = windows.arrangement();

    desk::DeskWindows next(desk, module);
    next.arrange(kept);
    next.follow();
    run_messages();
    const RECT after = place();
    EXPECT_EQ(after.right - after.left, before.right - before.left);
    EXPECT_EQ(after.bottom - after.top, before.bottom - before.top);
    EXPECT_EQ(ListView_GetColumnWidth(list(), 1), 222);
    EXPECT_FALSE(IsWindowVisible(pane()));
    next.close_all();
    EXPECT_EQ(desk::layout_of_text(next.arrangement()).columns, desk::layout_of_text(kept).columns);
}

TEST_F(DeskLayout, BringsAWindowBackOntoTheScreen) {
    ExplorerLayout layout;
    layout.left = 20'000, layout.top = -5'000, layout.width = 30'000, layout.height = 10;
    windows.close_all();
    desk::DeskWindows next(desk, module);
    next.arrange(desk::layout_text(layout));
    next.follow();
    run_messages();
    const auto& explorer = *desk.explorers()->open.front();
    EXPECT_GE(explorer.left, 0);
    EXPECT_GE(explorer.top, 0);
    EXPECT_LE(explorer.left + explorer.width, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_GE(explorer.height, 300);
    next.close_all();
}

TEST(DeskLayoutText, IsReadBackAsItWasWritten) {
    ExplorerLayout layout;
    layout.left = -8, layout.top = 30, layout.width = 1000, layout.height = 700;
    layout.tree_width = 199, layout.pane_height = 155, layout.maximized = true, layout.pane = false;
    layout.leaving_reads = true;
    layout.columns[u"SenderName|Account Name"] = {100, 250};
    const ExplorerLayout read = desk::layout_of_text(desk::layout_text(layout));
    EXPECT_EQ(desk::layout_text(read), desk::layout_text(layout));
    EXPECT_EQ(read.left, -8);
    EXPECT_FALSE(read.pane);
    EXPECT_EQ(read.columns, layout.columns);
}

TEST(DeskLayoutText, IsAsUsualWhereItCannotBeRead) {
    const Text usual = desk::layout_text({});
    for (const TextView text : {u"", u"nonsense", u"pane", u"pane=", u"tree=wide;", u"tree=9999999999;",
                                u"=;=;", u"columns:a=1,x;", u"unknown=1;"}) {
        EXPECT_EQ(desk::layout_text(desk::layout_of_text(text)), usual) << automation::to_utf8(text);
    }
}

}  // namespace
}  // namespace desk_tests
