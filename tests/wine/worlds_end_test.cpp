// The world fails a test whose desk has died.
#include <gtest/gtest-spi.h>

#include "automation/com/platform.h"
#include "tests/world/world.h"

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

}  // namespace
}  // namespace wine
