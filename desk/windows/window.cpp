#include "desk/windows/window.h"

#include <windowsx.h>

#include "automation/com/failure.h"
#include "desk/driver/named_window.h"
#include "desk/windows/desk_icon.h"

namespace desk {
namespace {

constexpr UINT key_message = WM_APP + 1;

void register_class(const wchar_t* name, WNDPROC procedure) {
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    const HINSTANCE program = GetModuleHandleW(nullptr);
    if (GetClassInfoExW(program, name, &window_class)) return;
    window_class = {};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = program;
    window_class.lpszClassName = name;
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.hIcon = desk_icon(SM_CXICON);
    window_class.hIconSm = desk_icon(SM_CXSMICON);
    window_class.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    RegisterClassExW(&window_class);
}

}  // namespace

DeskWindow::DeskWindow(const wchar_t* class_name, const automation::Text& caption, RECT place, HWND owner)
    : caption_(caption) {
    register_class(class_name, procedure);
    constexpr DWORD style_of_owned = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
    window_ = CreateWindowExW(0, class_name, windows::wide(caption),
                              (owner ? style_of_owned : WS_OVERLAPPEDWINDOW) | WS_CLIPCHILDREN, place.left,
                              place.top, place.right - place.left, place.bottom - place.top, owner, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (!window_) throw automation::Failure(automation::result::fail, u"A window could not be made.");
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

DeskWindow::~DeskWindow() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void DeskWindow::caption(const automation::Text& text) {
    if (text == caption_) return;
    caption_ = text;
    SetWindowTextW(window_, windows::wide(text));
}

HWND DeskWindow::add_control(const wchar_t* class_name, DWORD style, DWORD extended_style, int id,
                             const wchar_t* text) {
    HWND control = CreateWindowExW(extended_style, class_name, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0,
                                   0, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                   GetModuleHandleW(nullptr), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), TRUE);
    return control;
}

LRESULT CALLBACK DeskWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const self = reinterpret_cast<DeskWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, first, second);
    LRESULT answer = 0;  // where what a click leads to fails, the window goes on
    windows::contained([&] { answer = self->handle_message(message, first, second); });
    return answer;
}

bool DeskWindow::take_key(const MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
    const HWND root = GetAncestor(message.hwnd, GA_ROOT);
    return is_desk_window(root) && SendMessageW(root, key_message, message.wParam, 0) != 0;
}

void DeskWindow::note_focus() {
    const HWND focus = GetFocus();
    if (focus && IsChild(window_, focus)) focus_ = focus;
}

void DeskWindow::restore_focus() const {
    const bool is_there = focus_ && IsChild(window_, focus_) && IsWindowVisible(focus_);
    if (const HWND wanted = is_there ? focus_ : first_focus()) SetFocus(wanted);
}

LRESULT DeskWindow::handle_message(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_SIZE:
            on_size(LOWORD(second), HIWORD(second));
            return 0;
        case WM_CLOSE:
            on_close();
            return 0;
        case WM_COMMAND:
            on_command(LOWORD(first), HIWORD(first));
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(first) != WA_INACTIVE) {
                on_activate();
            } else {
                note_focus();
            }
            return DefWindowProcW(window_, message, first, second);
        case WM_SETFOCUS:
            restore_focus();
            return 0;
        case WM_CONTEXTMENU:
            on_context_menu(reinterpret_cast<HWND>(first), {GET_X_LPARAM(second), GET_Y_LPARAM(second)});
            return 0;
        case key_message:
            return on_key(static_cast<int>(first)) ? TRUE : FALSE;
        case WM_INITMENUPOPUP:
            on_menu_opens(reinterpret_cast<HMENU>(first));
            return 0;
        case WM_TIMER:
            on_timer();
            return 0;
        case WM_LBUTTONDOWN:
        case WM_MOUSEMOVE:
        case WM_LBUTTONUP:
            on_mouse(message, {GET_X_LPARAM(second), GET_Y_LPARAM(second)});
            return 0;
        case WM_SETCURSOR:
            if (reinterpret_cast<HWND>(first) == window_ && LOWORD(second) == HTCLIENT && show_cursor())
                return TRUE;
            return DefWindowProcW(window_, message, first, second);
        case WM_NOTIFY:
            return on_notify(*reinterpret_cast<NMHDR*>(second));
        default:
            return DefWindowProcW(window_, message, first, second);
    }
}

}  // namespace desk
