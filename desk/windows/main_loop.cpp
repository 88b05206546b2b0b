#include "desk/windows/main_loop.h"

#include "automation/com/failure.h"
#include "desk/driver/named_window.h"
#include "desk/windows/window.h"

namespace desk {
namespace {

constexpr const wchar_t* loop_class = L"TarnwellDeskLoop";
constexpr UINT_PTR tick_timer = 1, quit_timer = 2;
constexpr UINT tick_time = 15, quit_delay = 60;  // milliseconds

/// Runs what was set, and lets nothing out into the system's call.
void run_guarded(const std::function<void()>& what,
                 windows::CodePlace where = windows::CodePlace::current()) {
    if (what) windows::contained(what, where);
}

/// A window takes its own keys; in that of an item the tabulator key leads from field to field.
void dispatch(MSG& message) {
    if (DeskWindow::take_key(message)) return;
    const bool is_key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    const HWND root = is_key ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
    if (root && class_name(root) == u"TarnwellDeskInspector" && IsDialogMessageW(root, &message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace

MainLoop::MainLoop() {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = loop_class;
    RegisterClassW(&window_class);
    window_ =
        CreateWindowW(loop_class, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, window_class.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetTimer(window_, tick_timer, tick_time, nullptr);
}

MainLoop::~MainLoop() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void MainLoop::post(UINT message, bool& posted) {
    if (posted) return;
    posted = true;
    PostMessageW(window_, message, 0, 0);
}

void MainLoop::post(std::function<void()> action) {
    actions_.push_back(std::move(action));
    PostMessageW(window_, action_message, 0, 0);
}

void MainLoop::run_next_action() {
    if (actions_.empty()) return;
    const std::function<void()> next = std::move(actions_.front());
    actions_.pop_front();
    run_guarded(next);
}

LRESULT CALLBACK MainLoop::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const loop = reinterpret_cast<MainLoop*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (loop && (message == WM_TIMER || (message >= wake_message && message <= action_message))) {
        loop->handle(message, first);
        return 0;
    }
    return DefWindowProcW(window, message, first, second);
}

void MainLoop::handle(UINT message, WPARAM timer) {
    if (message == wake_message) {
        wake_posted_ = false;
        run_guarded(on_wake);
    } else if (message == change_message) {
        change_posted_ = false;
        run_guarded(on_change);
    } else if (message == action_message) {
        run_next_action();
    } else if (timer == tick_timer) {
        run_guarded(on_tick);
    } else {
        KillTimer(window_, quit_timer);
        run_guarded(on_quit);
    }
}

void MainLoop::ask_to_quit() { SetTimer(window_, quit_timer, quit_delay, nullptr); }

void MainLoop::run() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        dispatch(message);
    }
}

void MainLoop::pump(DWORD milliseconds) {
    const ULONGLONG end_time = GetTickCount64() + milliseconds;
    for (;;) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                PostQuitMessage(static_cast<int>(message.wParam));
                return;
            }
            dispatch(message);
        }
        const ULONGLONG now = GetTickCount64();
        if (now >= end_time) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end_time - now), QS_ALLINPUT);
    }
}

}  // namespace desk
