// The world fails a test whose desk has died, or in whose desk something went wrong that no call told of.
#include <gtest/gtest-spi.h>

#include "automation/com/platform.h"
#include "tests/acceptance/world.h"

namespace wine {
namespace {

/// Ends the desk's process as a crash would.
void kill_desk() {
    const HWND loop = FindWindowExW(HWND_MESSAGE, nullptr, L"TarnwellDeskLoop", nullptr);
    DWORD id = 0;
    GetWindowThreadProcessId(loop, &id);
    const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, id);
    ASSERT_TRUE(process);
    EXPECT_TRUE(TerminateProcess(process, 3));
    CloseHandle(process);
}

TEST(WorldsEnd, FailsATestWhoseDeskIsGone) {
    std::unique_ptr<acceptance::World> world = acceptance::make_world({});
    kill_desk();
    EXPECT_NONFATAL_FAILURE(world.reset(), "The desk is gone");
}

/// Tells a window of the add-in to take a place that can't be read: the system passes over the crash, since
/// the message comes from another thread.
void crash_window(const wchar_t* caption) {
    const HWND window = FindWindowW(nullptr, caption);
    ASSERT_TRUE(window);
    constexpr LPARAM no_place = 8;
    constexpr WORD sharp = 192;
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(sharp, sharp), no_place);
}

TEST(WorldsEnd, FailsATestInWhoseDeskACrashWasPassedOver) {
    std::unique_ptr<acceptance::World> world = acceptance::make_world({});
    world->connect().call(u"PowerPanel");
    crash_window(L"Tarnwell Search Panel");
    world->settle();
    EXPECT_NONFATAL_FAILURE(world.reset(), "mistakes of the program");
}

}  // namespace
}  // namespace wine
