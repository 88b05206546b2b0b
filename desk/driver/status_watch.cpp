#include "desk/driver/status_watch.h"

#include <cwchar>

#include "automation/com/com_ptr.h"
#include "automation/com/failure.h"
#include "desk/driver/named_window.h"
#include "forms/windows/form_control.h"

namespace desk {

using windows::window_text;

namespace {

constexpr const wchar_t* class_of_place = L"TarnwellDeskStatus";
constexpr UINT_PTR subclass_id = 2;  // of a window that may be watched by others, too

HWND make_place(StatusWatch* watch) {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = DefWindowProcW;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = class_of_place;
    RegisterClassW(&window_class);
    const HWND place = CreateWindowW(class_of_place, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                     window_class.hInstance, nullptr);
    SetWindowLongPtrW(place, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(watch));
    return place;
}

/// The watch of this thread, or null.
StatusWatch* watch_of_thread() {
    for (HWND place = nullptr; (place = FindWindowExW(HWND_MESSAGE, place, class_of_place, nullptr));) {
        if (GetWindowThreadProcessId(place, nullptr) == GetCurrentThreadId()) {
            return reinterpret_cast<StatusWatch*>(GetWindowLongPtrW(place, GWLP_USERDATA));
        }
    }
    return nullptr;
}

/// A name as a window is made with: none, a text, or a number of a resource.
bool is_status_caption(const wchar_t* name) {
    if (!name || IS_INTRESOURCE(name)) return false;
    return windows::from_wide(name, wcslen(name)) == Desk::status_caption;
}

bool has_status_caption(HWND window) {
    return window_text(window) == Desk::status_caption && !is_desk_window(window);
}

}  // namespace

StatusWatch::StatusWatch(Desk& desk)
    : desk_(desk),
      place_(make_place(this)),
      hook_(SetWindowsHookExW(WH_CBT, hook_procedure, nullptr, GetCurrentThreadId())) {}

StatusWatch::~StatusWatch() {
    if (hook_) UnhookWindowsHookEx(hook_);
    for (const HWND window : watched_) RemoveWindowSubclass(window, watched_procedure, subclass_id);
    DestroyWindow(place_);
}

LRESULT CALLBACK StatusWatch::hook_procedure(int code, WPARAM first, LPARAM second) {
    if (code == HCBT_CREATEWND) {
        windows::contained([&] {
            const auto& made = *reinterpret_cast<const CBT_CREATEWNDW*>(second)->lpcs;
            if (StatusWatch* const watch = watch_of_thread())
                watch->meet(reinterpret_cast<HWND>(first), made);
        });
    }
    return CallNextHookEx(nullptr, code, first, second);
}

void StatusWatch::meet(HWND window, const CREATESTRUCTW& made) {
    const bool inside = (made.style & WS_CHILD) != 0;
    const bool is_status = inside ? has_status_caption(GetAncestor(made.hwndParent, GA_ROOT))
                                  : is_status_caption(made.lpszName) && !is_desk_window(window);
    if (!is_status) return;
    if (SetWindowSubclass(window, watched_procedure, subclass_id, reinterpret_cast<DWORD_PTR>(this))) {
        watched_.insert(window);
    }
}

LRESULT CALLBACK StatusWatch::watched_procedure(HWND window, UINT message, WPARAM first, LPARAM second,
                                                UINT_PTR id, DWORD_PTR data) {
    const LRESULT answer = DefSubclassProc(window, message, first, second);
    auto& watch = *reinterpret_cast<StatusWatch*>(data);
    windows::contained([&] {
        if (message == WM_SETTEXT || message == WM_WINDOWPOSCHANGED) watch.look(window, message, second);
    });
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, watched_procedure, id);
        watch.watched_.erase(window);
    }
    return answer;
}

void StatusWatch::look(HWND window, UINT message, LPARAM second) const {
    const HWND root = GetAncestor(window, GA_ROOT);
    if (!root || !IsWindowVisible(root) || !has_status_caption(root)) return;
    if (message == WM_SETTEXT) {
        if (window == root || control_name(window) != Desk::status_label) return;
        desk_.status_shown(window_text(window));
        return;
    }
    const auto& change = *reinterpret_cast<const WINDOWPOS*>(second);
    if (window != root || !(change.flags & SWP_SHOWWINDOW)) return;
    for (const HWND control : windows_inside(root)) {
        if (control_name(control) == Desk::status_label) desk_.status_window_up(window_text(control));
    }
}

}  // namespace desk
