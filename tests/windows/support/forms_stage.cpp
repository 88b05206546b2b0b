#include "tests/windows/support/forms_stage.h"

#include <gtest/gtest.h>

#include <array>

#include "forms/windows/engine_parts.h"
#include "forms/windows/form_control.h"

namespace forms_test {

using automation::Text;
using automation::TextView;
using windows::wide;

namespace {

struct ClientPoint {
    int x, y;
};

ClientPoint middle(const RECT& box) {
    return {static_cast<int>(box.left + box.right) / 2, static_cast<int>(box.top + box.bottom) / 2};
}

RECT client(HWND window) {
    RECT box{};
    GetClientRect(window, &box);
    return box;
}

/// Whether a person can get at a window: it is to be seen, and neither it nor what it stands in is disabled.
bool usable(HWND window) {
    return window && IsWindowVisible(window) && IsWindowEnabled(window) &&
           IsWindowEnabled(GetAncestor(window, GA_ROOT));
}

HWND control_at(Spot spot) {
    const HWND window = find_window(spot.window);
    return window ? find_control(window, spot.control) : nullptr;
}

void press_mouse(HWND window, ClientPoint at, UINT down = WM_LBUTTONDOWN) {
    const LPARAM place = MAKELPARAM(at.x, at.y);
    PostMessageW(window, down, MK_LBUTTON, place);
    PostMessageW(window, WM_LBUTTONUP, 0, place);
    pump();
}

bool click_at(HWND window, ClientPoint at) {
    if (!usable(window)) return false;
    press_mouse(window, at);
    return true;
}

bool has_class(HWND window, const wchar_t* name) {
    std::array<wchar_t, 64> found{};
    GetClassNameW(window, found.data(), static_cast<int>(found.size()));
    return lstrcmpiW(found.data(), name) == 0;
}

/// A point on a row of a list; -1: below the rows.
bool row_point(HWND list, int row, ClientPoint& at) {
    const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    if (row < -1 || row >= count) return false;
    RECT box{};
    box.left = LVIR_LABEL;
    if (row >= 0) {
        SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&box));
        at = {static_cast<int>(box.left) + 8, middle(box).y};
    } else {
        at = {static_cast<int>(client(list).right) / 2, static_cast<int>(client(list).bottom) - 4};
    }
    return true;
}

HWND header_of(HWND list) { return reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0)); }

struct Search {
    Text text;
    HWND found = nullptr;
};

BOOL CALLBACK match_caption(HWND window, LPARAM data) {
    auto& search = *reinterpret_cast<Search*>(data);
    if (name_of(window).empty() || windows::window_text(window) != search.text) return TRUE;
    if (!search.found || IsWindowVisible(window)) search.found = window;
    return TRUE;
}

BOOL CALLBACK match_name(HWND window, LPARAM data) {
    auto& search = *reinterpret_cast<Search*>(data);
    if (name_of(window) == search.text) search.found = window;
    return search.found == nullptr;
}

}  // namespace

HWND find_window(TextView caption) {
    Search search{Text(caption)};
    EnumThreadWindows(GetCurrentThreadId(), match_caption, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

Text name_of(HWND window) {
    std::array<wchar_t, 256> name{};
    const UINT question = RegisterWindowMessageW(L"WM_GETCONTROLNAME");
    const LRESULT length = SendMessageW(window, question, name.size(), reinterpret_cast<LPARAM>(name.data()));
    return length <= 0 ? Text() : Text(windows::from_wide(name.data(), static_cast<std::size_t>(length) - 1));
}

HWND find_control(HWND window, TextView name) {
    Search search{Text(name)};
    EnumChildWindows(window, match_name, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void pump() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool wait_until(const std::function<bool()>& holds) {
    constexpr ULONGLONG longest = 10000;  // milliseconds
    const ULONGLONG end = GetTickCount64() + longest;
    for (;;) {
        pump();
        if (holds()) return true;
        if (GetTickCount64() >= end) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

WindowsStage::WindowsStage()
    : host_(CreateWindowExW(0, L"STATIC", L"The host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100,
                            nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)) {
    OleInitialize(nullptr);
    engine_ = std::make_unique<windows::FormEngine>(
        module_, [this] { return dots_; }, pointer_);
    engine_->ask({.dots_per_inch_of = [this](HWND) { return dots_; },
                  .is_high_contrast = [this] { return high_contrast_; }});
    pump();
}

WindowsStage::~WindowsStage() {
    pump();
    engine_.reset();
    DestroyWindow(host_);
    OleUninitialize();
}

bool WindowsStage::click(Spot spot) {
    const HWND control = control_at(spot);
    return control && click_at(control, middle(client(control)));
}

bool WindowsStage::type(Spot spot, TextView text) {
    HWND control = control_at(spot);
    if (!usable(control)) return false;
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    if (GetComboBoxInfo(control, &parts)) control = parts.hwndItem;
    if (!control || !has_class(control, L"EDIT")) return false;
    SetFocus(control);
    const Text typed(text);
    SendMessageW(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide(typed)));
    pump();
    return true;
}

bool WindowsStage::key(Spot spot, int code) {
    const HWND window = find_window(spot.window);
    if (!usable(window)) return false;
    if (!spot.control.empty()) {
        const HWND control = find_control(window, spot.control);
        if (!usable(control)) return false;
        SetFocus(control);
    }
    const auto scan = static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(code), MAPVK_VK_TO_VSC)) << 16;
    const HWND focus = GetFocus();
    PostMessageW(focus, WM_KEYDOWN, static_cast<WPARAM>(code), 1 | scan);
    pump();
    if (IsWindow(focus)) PostMessageW(focus, WM_KEYUP, static_cast<WPARAM>(code), 0xC0000001 | scan);
    pump();
    return true;
}

bool WindowsStage::choose(Spot spot, int entry) {
    const HWND control = control_at(spot);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    if (!usable(control) || !GetComboBoxInfo(control, &parts)) return false;
    if (entry < 0 || entry >= SendMessageW(control, CB_GETCOUNT, 0, 0)) return false;
    SetFocus(control);
    SendMessageW(control, CB_SHOWDROPDOWN, TRUE, 0);
    RECT box{};
    SendMessageW(parts.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(&box));
    press_mouse(parts.hwndList, middle(box));
    return true;
}

bool WindowsStage::select(Spot spot, int row) {
    const HWND list = control_at(spot);
    ClientPoint at{};
    return list && row_point(list, row, at) && click_at(list, at);
}

bool WindowsStage::double_click(Spot spot, int row) {
    const HWND list = control_at(spot);
    ClientPoint at{};
    if (!usable(list) || !row_point(list, row, at)) return false;
    press_mouse(list, at);
    press_mouse(list, at, WM_LBUTTONDBLCLK);
    return true;
}

bool WindowsStage::column_click(Spot spot, int column) {
    const HWND list = control_at(spot);
    if (!usable(list)) return false;
    RECT box{};
    SendMessageW(header_of(list), HDM_GETITEMRECT, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&box));
    return box.right > box.left && click_at(header_of(list), middle(box));
}

bool WindowsStage::drop(Spot spot, int row) {
    const HWND list = control_at(spot);
    ClientPoint at{};
    if (!usable(list) || !row_point(list, row, at)) return false;
    // Where the system keeps what RegisterDragDrop was given.
    const windows::ComPtr<IDropTarget> target(
        static_cast<IDropTarget*>(GetPropW(list, L"OleDropTargetInterface")));
    if (!target) return false;
    POINT place{at.x, at.y};
    ClientToScreen(list, &place);
    constexpr DWORD offered = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    DWORD effect = offered;
    target->DragEnter(nullptr, MK_LBUTTON, {place.x, place.y}, &effect);
    if (effect != DROPEFFECT_COPY) return false;
    effect = offered;
    target->Drop(nullptr, 0, {place.x, place.y}, &effect);
    pump();
    return effect == DROPEFFECT_COPY;
}

bool WindowsStage::resize(TextView name, int width, int height) {
    const HWND window = find_window(name);
    if (!usable(window) || !(GetWindowLongW(window, GWL_STYLE) & WS_THICKFRAME)) return false;
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    pump();
    return true;
}

bool WindowsStage::minimize(TextView name) {
    const HWND window = find_window(name);
    if (!usable(window) || !(GetWindowLongW(window, GWL_STYLE) & WS_MINIMIZEBOX)) return false;
    SendMessageW(window, WM_SYSCOMMAND, IsIconic(window) ? SC_RESTORE : SC_MINIMIZE, 0);
    pump();
    return true;
}

bool WindowsStage::close(TextView name) {
    const HWND window = find_window(name);
    if (!usable(window)) return false;
    PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    pump();
    return true;
}

void WindowsStage::activate_host() {
    SetForegroundWindow(host_);
    pump();
}

bool WindowsStage::activate(TextView name) {
    const HWND window = find_window(name);
    if (!usable(window)) return false;
    activate_host();
    SetForegroundWindow(window);
    pump();
    return true;
}

Text WindowsStage::focused(TextView name) {
    const HWND window = find_window(name);
    for (HWND focus = GetFocus(); focus && focus != window; focus = GetParent(focus)) {
        if (const Text found = name_of(focus); !found.empty()) return found;
    }
    return {};
}

bool WindowsStage::topmost(TextView name) {
    return (GetWindowLongW(find_window(name), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

int WindowsStage::mark(Spot list, int column) {
    HDITEMW item{};
    item.mask = HDI_FORMAT | HDI_IMAGE;
    SendMessageW(header_of(control_at(list)), HDM_GETITEMW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&item));
    return item.fmt & HDF_IMAGE ? item.iImage : -1;
}

namespace {

/// Runs the steps one after the other in whatever message loop runs at the moment. A timer's message comes
/// only when nothing else waits, so each step finds the work of the one before it done.
class Steps {
  public:
    explicit Steps(const std::vector<std::function<void()>>& steps)
        : steps_(steps),
          window_(
              CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
        SetWindowSubclass(window_, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
        SetTimer(window_, 1, USER_TIMER_MINIMUM, nullptr);
    }
    Steps(const Steps&) = delete;
    Steps& operator=(const Steps&) = delete;
    ~Steps() {
        EXPECT_EQ(next_, steps_.size()) << "the modal show came back before all steps were taken";
        RemoveWindowSubclass(window_, procedure, 1);
        DestroyWindow(window_);
    }

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                      DWORD_PTR data) {
        if (message != WM_TIMER) return DefSubclassProc(window, message, first, second);
        reinterpret_cast<Steps*>(data)->go_on();
        return 0;
    }

    void go_on() {
        if (next_ < steps_.size()) {
            steps_[next_++]();
        } else if (++idle_ == most_idle) {
            ADD_FAILURE() << "the modal show does not come back";
            PostQuitMessage(0);
        }
    }

    static constexpr int most_idle = 500;  // ticks of the timer
    const std::vector<std::function<void()>>& steps_;
    std::size_t next_ = 0;
    int idle_ = 0;
    HWND window_;
};

}  // namespace

void WindowsStage::modal(const std::function<void()>& action,
                         const std::vector<std::function<void()>>& steps) {
    const Steps running(steps);
    action();
    pump();
}

std::unique_ptr<Stage> make_stage() { return std::make_unique<WindowsStage>(); }

}  // namespace forms_test
