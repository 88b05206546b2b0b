// The keyboard in a window. The message loop is the host's, or one of anybody's modal windows, so the keys
// are taken where every loop of the thread gets its messages.
#include "automation/com/failure.h"
#include "forms/windows/form_window.h"

namespace windows {

using forms::ControlKind;
using forms::Events;

namespace {

bool goes_down(UINT message) { return message == WM_KEYDOWN || message == WM_SYSKEYDOWN; }

/// Enter and Escape are no dialog keys here: they press a button if the table names one, and else come to the
/// control as characters.
bool is_own_key(const MSG& message) { return message.wParam == VK_RETURN || message.wParam == VK_ESCAPE; }

void pass_on(MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace

LRESULT CALLBACK FormWindow::hook_procedure(int code, WPARAM removed, LPARAM data) {
    auto& message = *reinterpret_cast<MSG*>(data);
    if (code == HC_ACTION && removed == PM_REMOVE && message.message >= WM_KEYFIRST &&
        message.message <= WM_KEYLAST) {
        const HWND root = GetAncestor(message.hwnd, GA_ROOT);
        const bool ours = root && GetClassLongPtrW(root, GCLP_WNDPROC) ==
                                      reinterpret_cast<ULONG_PTR>(&FormWindow::procedure);
        auto* const form =
            ours ? reinterpret_cast<FormWindow*>(GetWindowLongPtrW(root, GWLP_USERDATA)) : nullptr;
        if (form) {
            const ModuleHold hold(form->parts_->module);
            contained([&] { form->dispatch_key(message); });
            message.message = WM_NULL;
        }
    }
    return CallNextHookEx(nullptr, code, removed, data);
}

void FormWindow::dispatch_key(MSG message) {
    // Characters are kept from the dialog's search for underlined letters: no caption has one on purpose, but
    // a company may be called "Smith & Sons".
    const bool for_dialog = goes_down(message.message) && !is_own_key(message);
    if (!for_dialog || !IsDialogMessageW(handle(), &message)) pass_on(message);
}

const FormControl* FormWindow::button(automation::TextView name) const {
    const FormControl* const named = name.empty() ? nullptr : find(name);
    return named && named->is_button() && named->takes_focus() ? named : nullptr;
}

const FormControl* FormWindow::pressed_by(const FormControl* at, int code) const {
    if (code == VK_RETURN) return at && at->is_button() ? at : button(table_.default_button);
    return code == VK_ESCAPE ? button(table_.cancel_button) : nullptr;
}

bool FormWindow::key_down(const FormControl* control, int code) {
    if (!visible()) return false;
    if (control && control->dropped()) return true;
    const FormControl* const pressed = pressed_by(control, code);
    if (!pressed) return true;
    click(*pressed);
    return false;
}

bool FormWindow::character(const FormControl* control, char16_t character) {
    const bool named_key = character == VK_RETURN || character == VK_ESCAPE || character == VK_TAB;
    if (control && control->dropped()) return true;
    if (!visible() || pressed_by(control, character)) return false;  // its key has done the work
    const bool in_text_box = control && control->table_row().kind == ControlKind::text_box;
    const automation::TextView name = control ? control->table_row().name : automation::TextView();
    if (!raise([character](Events& events) { events.on_character(character); })) return false;
    if (in_text_box && !raise([name, character](Events& events) { events.on_key_press(name, character); })) {
        return false;
    }
    return !named_key;  // the system's controls would only beep
}

}  // namespace windows
