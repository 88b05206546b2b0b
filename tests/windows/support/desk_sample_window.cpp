#include "tests/windows/support/desk_sample_window.h"

namespace desk_tests {
namespace {

constexpr const wchar_t* class_name = L"SampleWindow";

/// Answers the published message for a control's name.
LRESULT tell_name(const std::string& name, WPARAM size, LPARAM buffer) {
    if (size <= name.size()) return 0;
    auto* const characters = reinterpret_cast<wchar_t*>(buffer);
    for (std::size_t i = 0; i <= name.size(); ++i) characters[i] = static_cast<wchar_t>(name.c_str()[i]);
    return static_cast<LRESULT>(name.size() + 1);
}

}  // namespace

SampleWindow::SampleWindow(const wchar_t* caption) {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = class_name;
    window_class.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    RegisterClassW(&window_class);
    window_ = CreateWindowExW(0, class_name, caption, WS_OVERLAPPEDWINDOW, 50, 60, 500, 400, nullptr, nullptr,
                              window_class.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ShowWindow(window_, SW_SHOW);
}

SampleWindow::~SampleWindow() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
    run_messages();
}

HWND SampleWindow::add(const std::string& name, const wchar_t* kind, DWORD style, RECT place,
                       const wchar_t* text) {
    const HWND control =
        CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top, place.right,
                        place.bottom, window_, nullptr, GetModuleHandleW(nullptr), nullptr);
    const auto entry = controls_.emplace(name, control).first;
    names_[control] = name;
    SetWindowSubclass(control, named, 1, reinterpret_cast<DWORD_PTR>(&entry->first));
    return control;
}

LRESULT CALLBACK SampleWindow::named(HWND control, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                     DWORD_PTR name) {
    if (message == RegisterWindowMessageW(L"WM_GETCONTROLNAME")) {
        return tell_name(*reinterpret_cast<const std::string*>(name), first, second);
    }
    return DefSubclassProc(control, message, first, second);
}

LRESULT CALLBACK SampleWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const self = reinterpret_cast<SampleWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self ? self->handle_message(message, first, second)
                : DefWindowProcW(window, message, first, second);
}

LRESULT SampleWindow::handle_message(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_COMMAND:
            on_command(reinterpret_cast<HWND>(second), HIWORD(first));
            return 0;
        case WM_NOTIFY:
            on_notify(*reinterpret_cast<const NMHDR*>(second));
            return 0;
        case WM_CLOSE:
            told.emplace_back("close");
            return 0;
        case WM_KEYDOWN:
            told.push_back("key " + std::to_string(first));
            return 0;
        default:
            return DefWindowProcW(window_, message, first, second);
    }
}

const std::string& SampleWindow::name_of(HWND control) const {
    static const std::string unknown = "?";
    const auto found = names_.find(control);
    return found == names_.end() ? unknown : found->second;
}

void SampleWindow::on_command(HWND control, WORD code) {
    const std::string& name = name_of(control);
    if (name.starts_with("Text") && code == EN_CHANGE) told.push_back("change " + name);
    if (name.starts_with("Combo") && code == CBN_SELENDOK) told.push_back("choice " + name);
    const bool clicks = name.starts_with("Button") || name.starts_with("Check") || name.starts_with("Label");
    if (clicks && code == BN_CLICKED) told.push_back("click " + name);
    if (name.starts_with("Label") && code == STN_DBLCLK) told.push_back("double click " + name);
}

void SampleWindow::on_notify(const NMHDR& notice) {
    const std::string& name = name_of(notice.hwndFrom);
    if (notice.code == LVN_COLUMNCLICK) {
        told.push_back("column " + std::to_string(reinterpret_cast<const NMLISTVIEW&>(notice).iSubItem));
    } else if (notice.code == NM_CLICK && name.starts_with("List")) {
        told.push_back("click " + name);
    } else if (notice.code == NM_DBLCLK && name.starts_with("List")) {
        told.push_back("double click " +
                       std::to_string(reinterpret_cast<const NMITEMACTIVATE&>(notice).iItem));
    }
}

void SampleWindow::run_messages() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace desk_tests
