// A search that finds many records, in the real window.
#include "automation/com/platform.h"
#include "forms/windows/common_controls.h"
#include "tests/world/note_dialog.h"

namespace wine {
namespace {

using acceptance::NoteDialog;
using acceptance::World;
using automation::Object;

constexpr std::int32_t many = 1000;  // enough to find the search at work; more are for the bench

/// What a row may ask of the host: the folder's type, the item twice, the accessor and two answers for each
/// of seven fields, the number that is not used, and the entry id.
constexpr std::int32_t most_calls_per_row = 23;

class LargeSearch : public acceptance::WithNoteDialog {};

/// Waits without asking the desk to turn its message loop, which is at work by itself.
bool eventually(const std::function<bool()>& condition) {
    constexpr int rounds = 1200;
    constexpr DWORD round = 50;  // milliseconds
    for (int i = 0; i < rounds; ++i) {
        if (condition()) return true;
        Sleep(round);
    }
    return condition();
}

/// Whether a window of another process answers.
bool is_alive(HWND window) {
    constexpr UINT longest = 2000;  // milliseconds
    DWORD_PTR ignored = 0;
    return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, longest, &ignored) != 0;
}

std::int32_t calls_of_the_host(World& world) {
    const Object calls = world.desk().get(u"Calls").to_object();
    const std::int32_t count = calls.get(u"Count").to_integer();
    std::int32_t sum = 0;
    for (std::int32_t i = 1; i <= count; ++i) {
        sum += calls.call(u"Item", {i}).to_object().get(u"Invocations").to_integer();
    }
    return sum;
}

TEST_F(LargeSearch, FillsTheListInOrderWhileTheWindowStaysAlive) {
    World& same = world();
    acceptance::install_many_records(same, many);
    NoteDialog& dialog = opened();
    dialog.choose(u"Combo2", u"People");
    dialog.type(u"SearchString", u"Mill");
    const HWND window = FindWindowW(nullptr, L"Tarnwell Create Note");
    ASSERT_TRUE(window);
    dialog.control(u"cmdSearch").call(u"Click");

    ASSERT_TRUE(eventually([&] { return dialog.count() > 10; }));
    const auto is_searching = [&] { return dialog.text(u"lblHeader") == "Please Wait - Searching for Mill"; };
    dialog.control(u"Check1").call(u"Click");
    EXPECT_TRUE(eventually([&] { return dialog.is_chosen(u"Check1"); }));
    InvalidateRect(window, nullptr, TRUE);
    EXPECT_TRUE(eventually([&] { return !GetUpdateRect(window, nullptr, FALSE); })) << "it is repainted";
    EXPECT_TRUE(is_alive(window));
    const std::int32_t then = dialog.count();
    EXPECT_TRUE(is_searching()) << then << " rows, and the search was not to be over yet";
    EXPECT_LT(then, many);

    ASSERT_TRUE(eventually([&] { return !is_searching(); }));
    EXPECT_EQ(dialog.text(u"lblHeader"), "Search Complete for Mill");
    ASSERT_EQ(dialog.count(), many);
    EXPECT_EQ(dialog.cell(1, 1), "Mill");
    for (const std::int32_t row : {2, 3, 250, 333, many}) {
        const std::string number = std::to_string(row - 1);
        EXPECT_EQ(dialog.cell(row, 1), "Mill " + std::string(3 - number.size(), '0') + number);
    }

    dialog.type(u"SearchString", u"mill");
    same.desk().call(u"ResetCalls");
    dialog.control(u"cmdSearch").call(u"Click");
    ASSERT_TRUE(eventually([&] { return dialog.text(u"lblHeader") == "Search Complete for mill"; }));
    EXPECT_EQ(dialog.count(), many);
    EXPECT_LE(calls_of_the_host(same), (most_calls_per_row + 1) * many);
}

}  // namespace
}  // namespace wine
