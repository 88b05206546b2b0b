#include "forms/windows/window_worked_in.h"

namespace windows {
namespace {

struct WindowSearch {
    bool (*is_meant)(HWND);
    HWND found = nullptr;
};

bool is_worked_in(HWND window, const WindowSearch& search) {
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    const auto extended_style = static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE));
    return (style & WS_CAPTION) == WS_CAPTION && (style & WS_VISIBLE) && !(style & WS_DISABLED) &&
           !(style & WS_MINIMIZE) && !(extended_style & WS_EX_TOOLWINDOW) &&
           (!search.is_meant || search.is_meant(window));
}

/// Comes to the windows from the foremost to the last.
BOOL CALLBACK take_first(HWND window, LPARAM data) {
    auto& search = *reinterpret_cast<WindowSearch*>(data);
    if (is_worked_in(window, search)) search.found = window;
    return search.found == nullptr;
}

}  // namespace

HWND window_worked_in(bool (*is_meant)(HWND)) {
    WindowSearch search{is_meant};
    const HWND active = GetActiveWindow();
    if (active && is_worked_in(active, search)) return active;
    EnumThreadWindows(GetCurrentThreadId(), take_first, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace windows
