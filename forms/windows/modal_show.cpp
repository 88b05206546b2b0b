#include "forms/windows/modal_show.h"

#include "automation/com/failure.h"

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

}  // namespace

WaitingWindows::WaitingWindows(HWND shown) {
    const Search search{shown, &waiting_};
    EnumThreadWindows(GetCurrentThreadId(), collect_waiting, reinterpret_cast<LPARAM>(&search));
    for (HWND window : waiting_) EnableWindow(window, FALSE);
}

WaitingWindows::~WaitingWindows() {
    for (HWND window : waiting_) EnableWindow(window, TRUE);  // one that is gone meanwhile is passed over
}

ModalShow::~ModalShow() {
    others_.reset();  // a window that takes no input can't become active
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
