#include "desk/windows/status_watch.h"

#include <algorithm>

#include "desk/windows/named_window.h"
#include "windows/com/com_ptr.h"
#include "windows/forms/form_control.h"

namespace desk {

using host::Text;
using windows::window_text;

namespace {

constexpr const wchar_t* class_of_place = L"TarnwellDeskStatus";

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
const StatusWatch* watch_of_thread() {
    for (HWND place = nullptr; (place = FindWindowExW(HWND_MESSAGE, place, class_of_place, nullptr));) {
        if (GetWindowThreadProcessId(place, nullptr) == GetCurrentThreadId()) {
            return reinterpret_cast<const StatusWatch*>(GetWindowLongPtrW(place, GWLP_USERDATA));
        }
    }
    return nullptr;
}

bool has_status_caption(HWND window) {
    return window_text(window) == Desk::status_caption && !is_desk_window(window);
}

}  // namespace

StatusWatch::StatusWatch(Desk& desk)
    : desk_(desk),
      place_(make_place(this)),
      hook_(SetWindowsHookExW(WH_CALLWNDPROCRET, hook_procedure, nullptr, GetCurrentThreadId())) {}

StatusWatch::~StatusWatch() {
    if (hook_) UnhookWindowsHookEx(hook_);
    DestroyWindow(place_);
}

LRESULT CALLBACK StatusWatch::hook_procedure(int code, WPARAM from_here, LPARAM data) {
    const auto& message = *reinterpret_cast<const CWPRETSTRUCT*>(data);
    if (code == HC_ACTION && (message.message == WM_SETTEXT || message.message == WM_WINDOWPOSCHANGED)) {
        try {
            if (const StatusWatch* const watch = watch_of_thread()) watch->look(message);
        } catch (...) {
            OutputDebugStringW(L"The desk: a status could not be noted.\n");
        }
    }
    return CallNextHookEx(nullptr, code, from_here, data);
}

void StatusWatch::look(const CWPRETSTRUCT& message) const {
    const HWND root = GetAncestor(message.hwnd, GA_ROOT);
    if (!root || !IsWindowVisible(root) || !has_status_caption(root)) return;
    if (message.message == WM_SETTEXT) {
        if (message.hwnd == root || control_name(message.hwnd) != Desk::status_label) return;
        desk_.status_shown(window_text(message.hwnd));
        return;
    }
    const auto& change = *reinterpret_cast<const WINDOWPOS*>(message.lParam);
    if (message.hwnd != root || !(change.flags & SWP_SHOWWINDOW)) return;
    for (const HWND control : windows_inside(root)) {
        if (control_name(control) == Desk::status_label) desk_.status_window_up(window_text(control));
    }
}

}  // namespace desk
