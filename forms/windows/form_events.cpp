// What the system tells a window, and what becomes of it.
#include <algorithm>

#include "automation/com/failure.h"
#include "forms/windows/form_window.h"

namespace windows {

using forms::ControlKind;
using forms::Events;

namespace {

/// To a window whose form has ended inside of an event: now its own end may come.
constexpr UINT end_message = WM_APP + 1;

/// To the window in whose event the engine's owner was let go of: `lParam` is the last reference to it.
constexpr UINT owner_end_message = WM_APP + 2;
using LastReference = std::shared_ptr<void>;

}  // namespace

/// An event that runs. The system's controls go on with their own work after they have told something, so a
/// window whose form ends in an event is only hidden; it ends with a message of its own, when all events have
/// come back.
class FormWindow::Running {
  public:
    explicit Running(std::shared_ptr<FormFrame> frame) : frame_(std::move(frame)) { ++frame_->running; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        if (--frame_->running == 0 && !frame_->form) PostMessageW(frame_->window, end_message, 0, 0);
    }

  private:
    std::shared_ptr<FormFrame> frame_;
};

bool FormWindow::raise(const std::function<void(Events&)>& event) {
    const ModuleHold hold(parts_->module);
    const std::shared_ptr<FormFrame> frame = frame_;
    LastReference owner = parts_->owner.lock();
    {
        const Running running(frame);
        if (const std::shared_ptr<Events> events = events_.lock()) {
            contained([&] { event(*events); });
        }
        if (owner && owner.use_count() == 1) {
            // not here, in the midst of the system's own work with the window, but before the window's own
            // end
            auto last = std::make_unique<LastReference>(std::move(owner));
            if (PostMessageW(frame->window, owner_end_message, 0, reinterpret_cast<LPARAM>(last.get()))) {
                static_cast<void>(last.release());  // the message has it now
            }
        }
    }
    return frame->form != nullptr;  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
}

bool FormWindow::click(const FormControl& control) {
    return raise([name = control.table_row().name](Events& events) { events.on_click(name); });
}

LRESULT CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    const auto* const kept =
        reinterpret_cast<const ModuleHold*>(GetWindowLongPtrW(window, FormClass::hold_place));
    if (!kept) return DefWindowProcW(window, message, first, second);  // not made yet
    const ModuleHold hold(*kept);  // what the message does may end the window, and all else with it
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, FormClass::hold_place, 0);
        const std::unique_ptr<const ModuleHold> last(kept);
        return DefWindowProcW(window, message, first, second);
    }
    if (message == owner_end_message) {
        const std::unique_ptr<LastReference> last(reinterpret_cast<LastReference*>(second));
        return 0;
    }
    auto* const form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!form) {
        if (message == end_message) DestroyWindow(window);
        return message == end_message ? 0 : DefWindowProcW(window, message, first, second);
    }
    LRESULT answer = 0;
    contained([&] { answer = form->handle_message(message, first, second); });
    return answer;
}

LRESULT FormWindow::handle_message(UINT message, WPARAM first, LPARAM second) {
    const HWND window = handle();  // the form may end in any event
    switch (message) {
        case WM_COMMAND:
            return on_command(first, second);
        case WM_NOTIFY:
            if (const auto& header = *reinterpret_cast<const NMHDR*>(second);
                FormControl* const control = find(header.hwndFrom)) {
                control->on_notify(header);
            }
            return 0;
        case WM_ACTIVATE:
            on_activate(LOWORD(first) != WA_INACTIVE);
            return 0;
        case WM_MOUSEACTIVATE:
            // Where a window manager hands out the keyboard, each window that comes up is asked as if its
            // menu had been clicked, which none has.
            if (!table_.takes_keyboard && LOWORD(second) == HTMENU) return MA_NOACTIVATE;
            break;
        case WM_SETFOCUS:
            if (raise([](Events& events) { events.on_focus(); }) && GetFocus() == window) focus_moves_on();
            return 0;
        case WM_SIZE:
            on_size();
            return 0;
        case WM_CLOSE:
            raise([](Events& events) { events.on_close(); });
            return 0;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            if (!key_down(nullptr, static_cast<int>(first))) return 0;
            break;
        case WM_CHAR:
            if (!character(nullptr, static_cast<char16_t>(first))) return 0;
            break;
        case WM_SETCURSOR:
            if (on_set_cursor(reinterpret_cast<HWND>(first), LOWORD(second))) return TRUE;
            break;
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(second);
            if (const FormControl* const drawn = find(item.hwndItem)) drawn->draw(item);
            return TRUE;
        }
        case WM_DPICHANGED:
            follow_resolution(LOWORD(first), *reinterpret_cast<const RECT*>(second));
            return 0;
        case WM_SETTINGCHANGE:
            if (first == SPI_SETHIGHCONTRAST) follow_colors();
            break;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            follow_colors();
            break;
        case WM_CTLCOLORSTATIC:
            if (const FormControl* const label = find(reinterpret_cast<HWND>(second));
                label && label->table_row().color != forms::black) {
                const auto context = reinterpret_cast<HDC>(first);
                SetTextColor(context, shown_color(label->table_row().color, is_high_contrast()));
                SetBkColor(context, GetSysColor(COLOR_BTNFACE));
                return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
            }
            break;
        case WM_NEXTDLGCTL: {
            const HWND next = second != 0 ? reinterpret_cast<HWND>(first)
                                          : GetNextDlgTabItem(window, GetFocus(), first != 0);
            if (next) SetFocus(next);
            return 0;
        }
        default:
            if (message == parts_->control_name_message) return tell_name(table_.name, first, second);
            break;
    }
    return DefWindowProcW(window, message, first, second);
}

LRESULT FormWindow::on_command(WPARAM first, LPARAM second) {
    FormControl* const control = find(reinterpret_cast<HWND>(second));
    if (!control) return 0;
    const WORD code = HIWORD(first);
    const ControlKind kind = control->table_row().kind;
    const bool clicked =
        code == BN_CLICKED || code == BN_DOUBLECLICKED;  // the second one of two quick clicks
    if (control->is_choice()) {
        control->on_command(code);
    } else if (kind == ControlKind::text_box) {
        if (code != EN_CHANGE || control->in_change()) return 0;
        raise([name = control->table_row().name](Events& events) { events.on_change(name); });
    } else if (kind == ControlKind::option_button) {
        if (!clicked || !control->newly_selected()) return 0;
        let_others_go(*control);
        click(*control);
    } else if (kind == ControlKind::link) {
        if (clicked && control->is_new_click() && click(*control)) control->click_is_over();
    } else if (clicked && (control->is_button() || kind == ControlKind::check_box)) {
        click(*control);
    }
    return 0;
}

void FormWindow::on_size() {
    RECT size{};
    GetWindowRect(handle(), &size);
    const bool now_minimized = minimized();
    const bool same = size.right - size.left == last_size_.right - last_size_.left &&
                      size.bottom - size.top == last_size_.bottom - last_size_.top;
    if (same && now_minimized == was_minimized_) return;
    last_size_ = size;
    was_minimized_ = now_minimized;
    raise([](Events& events) { events.on_resize(); });
}

bool FormWindow::on_set_cursor(HWND at, WORD hit) const {
    if (hit != HTCLIENT) return false;
    if (parts_->pointer->busy() || pointer_ == forms::Pointer::hourglass) {
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
        return true;
    }
    const FormControl* const control = find(at);
    if (!control || control->table_row().kind != ControlKind::link) return false;
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    return true;
}

// The focus

void FormWindow::on_activate(bool active) {
    const HWND window = handle();
    if (!active) {
        if (const HWND focus = GetFocus(); focus && IsChild(window, focus)) wanted_focus_ = focus;
        return;
    }
    if (!visible() || minimized()) return;
    if (!raise([](Events& events) { events.on_activate(); })) return;
    if (GetActiveWindow() != window || IsChild(window, GetFocus())) return;
    const bool wanted = wanted_focus_ && IsWindowEnabled(wanted_focus_) && IsWindowVisible(wanted_focus_);
    SetFocus(wanted ? wanted_focus_ : window);
}

void FormWindow::focus(HWND control) {
    if (GetActiveWindow() == handle() && visible()) {
        SetFocus(control);
    } else {
        wanted_focus_ = control;
    }
}

HWND FormWindow::first_focus() const {
    if (const FormControl* const wanted = find(table_.first_focus); wanted && wanted->takes_focus()) {
        return wanted->handle();
    }
    const auto found =
        std::ranges::find_if(controls_, [](const auto& control) { return control->takes_focus(); });
    return found == controls_.end() ? nullptr : (*found)->handle();
}

void FormWindow::focus_moves_on() {
    if (const HWND next = first_focus()) SetFocus(next);
}

void FormWindow::let_others_go(const FormControl& option) {
    for (const auto& other : controls_) {
        if (other.get() != &option && other->table_row().kind == ControlKind::option_button &&
            other->table_row().frame == option.table_row().frame) {
            other->selected(false);
        }
    }
}

void FormWindow::visible_changed(const FormControl& frame) {
    for (const auto& control : controls_) {
        if (control->table_row().frame == frame.table_row().name) control->apply_visible();
    }
}

}  // namespace windows
