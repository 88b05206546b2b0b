#include "forms/windows/modal_show.h"

#include "automation/com/failure.h"
#include "forms/windows/window_worked_in.h"

namespace windows {
namespace {

struct Search {
    HWND shown;
    std::vector<HWND>* found;
};

BOOL CALLBACK collect_waiting(HWND window, LPARAM data) {
    const auto& search = *reinterpret_cast<const Search*>(data);
    BOOL goes_on = FALSE;
    contained([&] {
        if (window != search.shown && IsWindowVisible(window) && IsWindowEnabled(window)) {
            search.found->push_back(window);
        }
        goes_on = TRUE;
    });
    return goes_on;
}

/// The mark of a window that is shown modally.
constexpr const wchar_t* modal_mark = L"TarnwellModal";

void belong_to(HWND modal, HWND owner) {
    SetWindowLongPtrW(modal, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
}

BOOL CALLBACK let_go(HWND window, LPARAM owner) {
    if (GetWindow(window, GW_OWNER) == reinterpret_cast<HWND>(owner) && GetPropW(window, modal_mark)) {
        belong_to(window, nullptr);
    }
    return TRUE;
}

/// The system ends what belongs to a window before the window itself: a form that is at work would be gone.
LRESULT CALLBACK before_end(int code, WPARAM window, LPARAM data) {
    if (code == HCBT_DESTROYWND) {
        EnumThreadWindows(GetCurrentThreadId(), let_go, static_cast<LPARAM>(window));
    }
    return CallNextHookEx(nullptr, code, window, data);
}

}  // namespace

WaitingWindows::WaitingWindows(HWND shown) {
    const Search search{shown, &waiting_};
    EnumThreadWindows(GetCurrentThreadId(), collect_waiting, reinterpret_cast<LPARAM>(&search));
    for (HWND window : waiting_) EnableWindow(window, FALSE);
}

WaitingWindows::~WaitingWindows() {
    for (HWND window : waiting_) EnableWindow(window, TRUE);  // one that is gone meanwhile is passed over
}

ModalShow::ModalShow(HWND modal) : modal_(modal), active_(GetActiveWindow()) {
    const HWND owner = window_worked_in();
    if (owner && owner != modal) {
        hook_ = SetWindowsHookExW(WH_CBT, before_end, nullptr, GetCurrentThreadId());
        if (hook_ && SetPropW(modal, modal_mark, modal)) belong_to(modal, owner);
    }
    others_.emplace(modal);
}

ModalShow::~ModalShow() {
    others_.reset();  // a window that takes no input can't become active
    if (hook_) {
        belong_to(modal_, nullptr);
        RemovePropW(modal_, modal_mark);
        UnhookWindowsHookEx(hook_);
    }
    if (active_ && IsWindowVisible(active_) && IsWindowEnabled(active_)) SetActiveWindow(active_);
}

void run_messages(const std::function<bool()>& goes_on) {
    MSG message{};
    while (goes_on()) {
        const BOOL taken = GetMessageW(&message, nullptr, 0, 0);
        if (taken == -1) return;
        if (taken == 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void wake_messages() { PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0); }

}  // namespace windows
