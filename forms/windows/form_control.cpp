#include "forms/windows/form_control.h"

#include <stdexcept>
#include <utility>

#include "automation/com/failure.h"
#include "automation/com/module_file.h"
#include "forms/windows/form_choice.h"
#include "forms/windows/form_list.h"
#include "forms/windows/form_window.h"

namespace windows {

using automation::Failure;
using automation::Text;
using automation::TextView;
using forms::ControlKind;
using forms::ControlRow;

namespace {

/// How a kind of control is made by the system.
struct KindRow {
    ControlKind kind;
    const wchar_t* window_class;  // null: it has no window
    DWORD style = 0;
    DWORD extended_style = 0;
    bool shows_text = true;
};
constexpr KindRow kinds[] = {
    {ControlKind::label, L"STATIC", SS_LEFT | SS_NOPREFIX | SS_NOTIFY},
    {ControlKind::link, L"BUTTON", BS_OWNERDRAW | WS_TABSTOP},
    {ControlKind::button, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP},
    {ControlKind::picture_button, L"BUTTON", BS_OWNERDRAW | WS_TABSTOP, 0, false},
    {ControlKind::text_box, L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE},
    {ControlKind::combo_box, L"COMBOBOX", CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP},
    {ControlKind::drop_down_list, L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP},
    {ControlKind::check_box, L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP},
    {ControlKind::option_button, L"BUTTON", BS_AUTORADIOBUTTON},
    {ControlKind::frame, L"BUTTON", BS_GROUPBOX},
    {ControlKind::line, L"STATIC", 0, 0, false},
    {ControlKind::image, L"STATIC", SS_OWNERDRAW, 0, false},
    {ControlKind::image_list, nullptr, 0, 0, false},
    {ControlKind::report_list, WC_LISTVIEWW, LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP,
     WS_EX_CLIENTEDGE, false},
};

const KindRow& kind_of(const ControlRow& row) {
    for (const KindRow& kind : kinds) {
        if (kind.kind == row.kind) return kind;
    }
    throw std::logic_error("There is no such kind of control.");
}

DWORD style_of(const ControlRow& row, const FormWindow& form) {
    DWORD style = kind_of(row).style;
    if (row.kind == ControlKind::line) {
        style |= row.place.width < row.place.height ? SS_ETCHEDVERT : SS_ETCHEDHORZ;
    }
    if (row.kind == ControlKind::button && row.name == form.table().default_button) style |= BS_DEFPUSHBUTTON;
    if (row.kind == ControlKind::option_button) {
        style |= row.selected ? WS_TABSTOP : 0;  // the arrows lead to the others
        // The first option of a frame begins the group; the system's own one ends at the next beginning.
        for (const ControlRow& other : form.table().controls) {
            if (other.kind != row.kind || other.frame != row.frame) continue;
            if (&other == &row) style |= WS_GROUP;
            break;
        }
    } else {
        style |= WS_GROUP;
    }
    // what stands over a label is not painted over; a frame stands over all that is in it
    if (row.kind == ControlKind::label && row.frame.empty()) style |= WS_CLIPSIBLINGS;
    return style;
}

constexpr int least_line = 2;  // pixels of an etched line

/// What the system does with the messages of a control.
WNDPROC system_procedure(HWND window) {
    return reinterpret_cast<WNDPROC>(GetClassLongPtrW(window, GCLP_WNDPROC));
}

}  // namespace

Text window_text(HWND window) {
    Text text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
    const int length =
        GetWindowTextW(window, reinterpret_cast<wchar_t*>(text.data()), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::unique_ptr<FormControl> make_control(FormWindow& form, const ControlRow& row, int id) {
    switch (row.kind) {
        case ControlKind::combo_box:
        case ControlKind::drop_down_list:
            return std::make_unique<FormChoice>(form, row, id);
        case ControlKind::report_list:
            return std::make_unique<FormList>(form, row, id);
        default:
            return std::make_unique<FormControl>(form, row, id);
    }
}

FormControl::FormControl(FormWindow& form, const ControlRow& row, int id)
    : form_(form),
      row_(row),
      text_(row.text),
      visible_(row.visible),
      enabled_(row.enabled),
      known_selected_(row.selected),
      place_(row.place) {
    const KindRow& kind = kind_of(row);
    if (!kind.window_class) return;
    const Text shown(kind.shows_text ? row.text : row.accessible_name);
    window_ = CreateWindowExW(kind.extended_style, kind.window_class, wide(shown),
                              WS_CHILD | style_of(row, form), 0, 0, 0, 0, form.handle(),
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), own_module(), nullptr);
    if (!window_) throw Failure(automation::result::fail, u"A control could not be made: " + Text(row.name));
    set_font();
    if (row.selected) SendMessageW(window_, BM_SETCHECK, BST_CHECKED, 0);
    if (!enabled_) EnableWindow(window_, FALSE);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    if (row.kind == ControlKind::combo_box && GetComboBoxInfo(window_, &parts)) inner_ = parts.hwndItem;
    next_ = take_messages(window_);
    if (inner_) inner_next_ = take_messages(inner_);
    apply_place();
    apply_visible();
}

FormControl::~FormControl() {
    if (inner_) leave_messages(inner_, inner_next_);
    if (window_) leave_messages(window_, next_);
}

// Messages come here before the system's own procedure by the plain way. The common controls' way, a subclass
// with an id, looks for a property of the window at each message.

WNDPROC FormControl::take_messages(HWND window) {
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&FormControl::procedure)));
}

void FormControl::leave_messages(HWND window, WNDPROC next) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    const bool is_first =
        GetWindowLongPtrW(window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&FormControl::procedure);
    // or else somebody who came later goes on handing messages to here
    if (is_first) SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(next));
}

LRESULT CALLBACK FormControl::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const control = reinterpret_cast<FormControl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!control) return CallWindowProcW(system_procedure(window), window, message, first, second);
    const ModuleHold hold(control->form_.parts().module);  // a key may end the form, and all with it
    if (message == control->form_.parts().control_name_message && window == control->window_) {
        return tell_name(control->row_.name, first, second);
    }
    const WNDPROC next = window == control->inner_ ? control->inner_next_ : control->next_;
    bool pass_on = false;
    contained([&] { pass_on = control->takes(window, message, first, second); });
    return pass_on ? CallWindowProcW(next, window, message, first, second) : 0;
}

bool FormControl::takes(HWND window, UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            return form_.key_down(this, static_cast<int>(first));
        case WM_CHAR:
            return form_.character(this, static_cast<char16_t>(first));
        case posted_message:
            on_posted();
            return false;
        case WM_TIMER:
            if (first != own_timer) return true;
            on_timer();
            return false;
        default:
            break;
    }
    const bool is_of_mouse = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
    if (is_of_mouse && !row_.tool_tip.empty()) form_.tell_tool_tips(window, message, first, second);
    return true;
}

// What the logic sees

Text FormControl::text() const { return window_ && kind_of(row_).shows_text ? window_text(window_) : text_; }

void FormControl::text(TextView text) {
    text_ = text;
    last_click_.reset();
    if (!window_ || !kind_of(row_).shows_text) return;
    changing_ = true;
    SetWindowTextW(window_, wide(text_));
    changing_ = false;
}

void FormControl::apply_visible() {
    if (!window_) return;
    const FormControl* const frame = row_.frame.empty() ? nullptr : form_.find(row_.frame);
    const bool shown = visible_ && (!frame || frame->visible_);
    const bool had_focus = GetFocus() && (GetFocus() == window_ || GetFocus() == inner_);
    ShowWindow(window_, shown ? SW_SHOWNA : SW_HIDE);
    if (!shown && had_focus) form_.focus_moves_on();
}

void FormControl::visible(bool visible) {
    visible_ = visible;
    apply_visible();
    if (row_.kind == ControlKind::frame) form_.visible_changed(*this);
}

void FormControl::enabled(bool enabled) {
    enabled_ = enabled;
    if (!window_) return;
    const bool had_focus = GetFocus() && (GetFocus() == window_ || GetFocus() == inner_);
    EnableWindow(window_, enabled);
    if (!enabled && had_focus) form_.focus_moves_on();
}

bool FormControl::selected() const {
    return window_ && SendMessageW(window_, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void FormControl::selected(bool selected) {
    if (!window_) return;
    SendMessageW(window_, BM_SETCHECK, selected ? BST_CHECKED : BST_UNCHECKED, 0);
    known_selected_ = selected;
    if (selected && row_.kind == ControlKind::option_button) form_.let_others_go(*this);
}

bool FormControl::newly_selected() {
    const bool before = std::exchange(known_selected_, selected());
    return known_selected_ && !before;
}

bool FormControl::is_new_click() {
    const auto now = static_cast<DWORD>(GetMessageTime());
    // The time of the system goes round; an earlier one is a click that had to wait for the work of the last.
    const bool is_new =
        !last_click_ || static_cast<LONG>(now - *last_click_) > static_cast<LONG>(GetDoubleClickTime());
    last_click_ = is_new || static_cast<LONG>(now - *last_click_) > 0 ? now : *last_click_;
    return is_new;
}

void FormControl::click_is_over() {
    if (last_click_) last_click_ = GetTickCount();
}

void FormControl::set_font() {
    forms::Font font = row_.font ? *row_.font : form_.table().font;
    if (row_.kind == ControlKind::link) font.underlined = true;
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(form_.fonts().get(font)), FALSE);
}

void FormControl::follow_look(int former_dots_per_inch) {
    if (!window_ || former_dots_per_inch == form_.dots_per_inch()) return;
    set_font();
    apply_place();
}

RECT FormControl::pixels() const {
    const FormControl* const frame = row_.frame.empty() ? nullptr : form_.find(row_.frame);
    const int left = place_.left + (frame ? frame->place_.left : 0);
    const int top = place_.top + (frame ? frame->place_.top : 0);
    RECT box{form_.to_pixels(left), form_.to_pixels(top), form_.to_pixels(left + place_.width),
             form_.to_pixels(top + place_.height)};
    if (row_.kind == ControlKind::line) {
        if (box.right - box.left < least_line) box.right = box.left + least_line;
        if (box.bottom - box.top < least_line) box.bottom = box.top + least_line;
    }
    return box;
}

void FormControl::apply_place() {
    if (!window_) return;
    const RECT box = pixels();
    const int width = static_cast<int>(box.right - box.left), height = static_cast<int>(box.bottom - box.top);
    constexpr UINT flags = SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(window_, nullptr, box.left, box.top, width, height, flags);
    if (!is_choice()) return;
    // The height of a choice is the one with its entries open; closed it is as high as the field inside.
    RECT closed{};
    GetWindowRect(window_, &closed);
    const LRESULT field = SendMessageW(window_, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
    SendMessageW(window_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1),
                 field + height - (closed.bottom - closed.top));
    constexpr int open_entries = 8;
    const auto entry = static_cast<int>(SendMessageW(window_, CB_GETITEMHEIGHT, 0, 0));
    SetWindowPos(window_, nullptr, box.left, box.top, width, height + entry * open_entries, flags);
}

void FormControl::place(const forms::Place& place) {
    place_ = place;
    apply_place();
}

void FormControl::focus() {
    if (takes_focus()) form_.focus(window_);
}

forms::List& FormControl::list() { throw std::logic_error(automation::to_utf8(row_.name) + " is no list."); }

forms::Choice& FormControl::choice() {
    throw std::logic_error(automation::to_utf8(row_.name) + " has no entries.");
}

// What the form asks

bool FormControl::is_button() const {
    return row_.kind == ControlKind::button || row_.kind == ControlKind::picture_button ||
           row_.kind == ControlKind::link;
}

bool FormControl::is_choice() const {
    return row_.kind == ControlKind::combo_box || row_.kind == ControlKind::drop_down_list;
}

bool FormControl::takes_focus() const {
    const bool kind = is_button() || is_choice() || is_list() || row_.kind == ControlKind::text_box ||
                      row_.kind == ControlKind::check_box || row_.kind == ControlKind::option_button;
    return kind && enabled_ && (GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
}

bool FormControl::dropped() const {
    return is_choice() && SendMessageW(window_, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void FormControl::draw(const DRAWITEMSTRUCT& item) const {
    RECT box = item.rcItem;
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &box, GetSysColorBrush(COLOR_BTNFACE));
    if (row_.kind == ControlKind::picture_button) {
        DrawFrameControl(item.hDC, &box, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0U));
        const int edge = form_.to_pixels(forms::twips_per_inch / 32);
        InflateRect(&box, -edge, -edge);
    }
    if (row_.picture) draw_picture(item.hDC, box, *row_.picture, form_.is_high_contrast());
    if (row_.kind == ControlKind::link) {
        const auto font = reinterpret_cast<HFONT>(SendMessageW(window_, WM_GETFONT, 0, 0));
        const Selected with_font(item.hDC, font);
        const bool disabled = (item.itemState & ODS_DISABLED) != 0;
        SetTextColor(item.hDC, disabled ? GetSysColor(COLOR_GRAYTEXT)
                                        : shown_color(row_.color, form_.is_high_contrast()));
        SetBkMode(item.hDC, TRANSPARENT);
        DrawTextW(item.hDC, wide(window_text(window_)), -1, &box, DT_LEFT | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
    if (item.itemState & ODS_FOCUS) DrawFocusRect(item.hDC, &box);
}

}  // namespace windows
