// Windows of items come and go all day.
#include "forms/windows/drawing.h"
#include "tests/windows/support/desk_windows_fixture.h"

namespace desk_tests {
namespace {

constexpr int times = 1000;

/// The system's tables take the place that was given back last, so what is made now tells how far they are
/// filled: each leak of a window would move it on by one at least.
constexpr unsigned spread = 50;

/// Where the next thing to draw with is kept.
unsigned next_drawing_place() {
    const windows::DrawingObject<HBRUSH> probe(CreateSolidBrush(RGB(1, 2, 3)));
    return LOWORD(reinterpret_cast<ULONG_PTR>(probe.get()));
}

/// Where the next window or menu is kept; each takes two numbers.
unsigned next_window_place() {
    const HMENU probe = CreateMenu();
    DestroyMenu(probe);
    return LOWORD(reinterpret_cast<ULONG_PTR>(probe)) / 2U;
}

TEST_F(DeskWindowsTest, LeaveNothingBehindWhenAThousandWereOpen) {
    const Object mail = create_mail();
    const auto open_and_close = [&](int count) {
        for (int i = 0; i < count; ++i) {
            mail.call(u"Display");
            const Object inspector = mail.get(u"GetInspector").to_object();
            add_button(add_bar(bars_of(inspector), u"Notes"), u"One");
            run_messages();
            inspector.call(u"Close", {desk::save_mode::discard});
            run_messages();
        }
    };
    open_and_close(20);
    const std::size_t windows_before = desk::windows_of_thread().size();
    const unsigned drawn_before = next_drawing_place(), user_before = next_window_place();
    open_and_close(times);
    EXPECT_EQ(desk::windows_of_thread().size(), windows_before);
    EXPECT_LE(next_drawing_place(), drawn_before + spread);
    EXPECT_LE(next_window_place(), user_before + spread);
    EXPECT_EQ(desk.inspectors()->open.size(), 0U);
    EXPECT_EQ(desk.window_order.size(), 1U);
}

}  // namespace
}  // namespace desk_tests
