#include "forms/windows/form_window.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "automation/com/module_file.h"
#include "automation/failure.h"
#include "forms/windows/window_worked_in.h"

namespace windows {

using automation::Failure;
using automation::Text;
using automation::TextView;
using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;

namespace {

constexpr int first_id = 1000;  // above the numbers that the system gives a meaning to

constexpr int mark_size = 195;         // twips: 13 pixels at 96 dots per inch
constexpr int widest_tool_tip = 4500;  // twips; longer texts are wrapped

DWORD style_of(const FormTable& table) {
    DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU;
    if (table.sizable) style |= WS_THICKFRAME;
    if (table.can_minimize) style |= WS_MINIMIZEBOX;
    return style;
}

DWORD extended_style_of(const FormTable& table) { return table.tool_window ? WS_EX_TOOLWINDOW : 0; }

/// Where a window that can't be sized comes up: in the middle of the screen's free part.
POINT middle_of_screen(SIZE window) {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return {std::max(area.left, (area.left + area.right - window.cx) / 2),
            std::max(area.top, (area.top + area.bottom - window.cy) / 2)};
}

bool is_of_host(HWND window) {
    return GetClassLongPtrW(window, GCLP_WNDPROC) != reinterpret_cast<ULONG_PTR>(&FormWindow::procedure);
}

/// The part of a screen that is free for windows: of the one on which a box is, or of the nearest.
RECT free_part_of_screen(const RECT& box) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromRect(&box, MONITOR_DEFAULTTONEAREST), &screen);
    return screen.rcWork;
}

/// Beside the right edge of a window, or where the screen ends on top of it, away from its title and buttons.
POINT place_beside(HWND host, SIZE size) {
    RECT box{};
    if (!host || !GetWindowRect(host, &box)) return middle_of_screen(size);
    const RECT screen = free_part_of_screen(box);
    if (box.right + size.cx <= screen.right) return {box.right, box.top};
    return {screen.right - size.cx, std::min(box.bottom, screen.bottom) - size.cy};
}

/// A place at which the user can get hold of a window's title. Screens come and go.
POINT place_in_sight(POINT place, SIZE size) {
    const RECT box{place.x, place.y, place.x + size.cx, place.y + size.cy};
    const RECT screen = free_part_of_screen(box);
    const LONG enough = size.cx / 3;
    const bool in_sight = box.right - enough >= screen.left && box.left + enough <= screen.right &&
                          box.top >= screen.top && box.top + GetSystemMetrics(SM_CYCAPTION) <= screen.bottom;
    if (in_sight) return place;
    return {std::clamp(box.left, screen.left, std::max(screen.left, screen.right - size.cx)),
            std::clamp(box.top, screen.top, std::max(screen.top, screen.bottom - size.cy))};
}

/// A label that only readers of the screen notice: they take the text before a field for the field's name.
void make_unseen_label(const FormWindow& form, TextView text) {
    const Text shown(text);
    CreateWindowExW(0, L"STATIC", wide(shown), WS_CHILD | WS_VISIBLE | SS_NOPREFIX, 0, 0, 0, 0, form.handle(),
                    nullptr, own_module(), nullptr);
}

bool is_field(const ControlRow& row) {
    return row.kind == ControlKind::text_box || row.kind == ControlKind::combo_box ||
           row.kind == ControlKind::drop_down_list || row.kind == ControlKind::report_list;
}

}  // namespace

FormWindow::FormWindow(std::shared_ptr<EngineParts> parts, const FormTable& table,
                       std::weak_ptr<forms::Events> events)
    : parts_(std::move(parts)),
      table_(table),
      events_(std::move(events)),
      dots_per_inch_(parts_->dots_per_inch()),
      fonts_(dots_per_inch_) {
    hook_ = parts_->hook.lock();
    if (!hook_) {
        hook_ = std::make_shared<KeyboardHook>(parts_->module, hook_procedure);
        parts_->hook = hook_;
    }
    try {
        make_window();
        make_controls();
        make_tool_tips();
    } catch (...) {
        end();
        throw;
    }
}

FormWindow::~FormWindow() { end(); }

void FormWindow::end() {
    if (!handle()) return;
    const std::shared_ptr<FormFrame> frame = frame_;
    if (RECT box{}; was_shown_ && GetWindowRect(frame->window, &box)) {
        parts_->left_at[table_.name] = {box.left, box.top};
    }
    frame->form = nullptr;
    SetWindowLongPtrW(frame->window, GWLP_USERDATA, 0);
    const bool was_modal = frame->modal.has_value();
    frame->modal.reset();
    controls_.clear();
    if (tool_tips_) DestroyWindow(tool_tips_);
    if (frame->running == 0) {
        DestroyWindow(frame->window);
    } else {
        // The system's controls don't stand their end inside of what they tell. See `Running`.
        ShowWindow(frame->window, SW_HIDE);
        SetWindowTextW(frame->window, L"");
    }
    if (was_modal) wake_messages();
}

SIZE FormWindow::outer_size() const {
    RECT box{0, 0, to_pixels(table_.width), to_pixels(table_.height)};
    AdjustWindowRectEx(&box, style_of(table_), FALSE, extended_style_of(table_));
    return {box.right - box.left, box.bottom - box.top};
}

void FormWindow::make_window() {
    const SIZE size = outer_size();
    const POINT middle = middle_of_screen(size);
    const Text title(table_.caption);
    auto hold = std::make_unique<ModuleHold>(parts_->module);
    frame_->window =
        CreateWindowExW(extended_style_of(table_), parts_->window_class.name(), wide(title), style_of(table_),
                        table_.sizable ? CW_USEDEFAULT : middle.x, table_.sizable ? CW_USEDEFAULT : middle.y,
                        size.cx, size.cy, nullptr, nullptr, own_module(), nullptr);
    if (!handle())
        throw Failure(automation::result::fail, u"A window could not be made: " + Text(table_.name));
    SetWindowLongPtrW(handle(), FormClass::hold_place, reinterpret_cast<LONG_PTR>(hold.release()));
    frame_->form = this;  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the window has the hold
    SetWindowLongPtrW(handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    // The place may be on a screen of another resolution than the one that was asked.
    const int dots = parts_->screens.dots_per_inch_of(handle());
    if (dots > 0 && dots != dots_per_inch_) {
        dots_per_inch_ = dots;
        fonts_ = Fonts(dots);
        const SIZE there = outer_size();
        SetWindowPos(handle(), nullptr, 0, 0, there.cx, there.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    GetWindowRect(handle(), &last_size_);
}

void FormWindow::make_images() {
    for (const ControlRow& row : table_.controls) {
        if (row.kind == ControlKind::image_list) {
            images_.push_back(
                {row.name, make_image_list(row.pictures, to_pixels(mark_size), is_high_contrast())});
        }
    }
}

void FormWindow::make_controls() {
    make_images();
    for (const ControlRow& row : table_.controls) {
        if (is_field(row) && !row.accessible_name.empty()) make_unseen_label(*this, row.accessible_name);
        controls_.push_back(make_control(*this, row, first_id + static_cast<int>(controls_.size())));
    }
}

void FormWindow::make_tool_tips() {
    const bool wanted =
        std::ranges::any_of(table_.controls, [](const ControlRow& row) { return !row.tool_tip.empty(); });
    if (!wanted) return;
    // It is not owned by the window: there are systems on which a window that owns another one can't be made
    // topmost any more.
    tool_tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, L"", WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                                 0, 0, 0, 0, nullptr, nullptr, own_module(), nullptr);
    SendMessageW(tool_tips_, TTM_SETMAXTIPWIDTH, 0, to_pixels(widest_tool_tip));
    for (const auto& control : controls_) {
        if (control->table_row().tool_tip.empty() || !control->handle()) continue;
        Text text(control->table_row().tool_tip);
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;  // known to every version of the controls
        tool.uFlags = TTF_IDISHWND;         // its control tells them of the mouse
        tool.hwnd = handle();
        tool.lpszText = reinterpret_cast<wchar_t*>(text.data());
        for (HWND part : {control->handle(), control->inner()}) {
            if (!part) continue;
            tool.uId = reinterpret_cast<UINT_PTR>(part);
            SendMessageW(tool_tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
        }
    }
}

void FormWindow::tell_tool_tips(HWND control, UINT message, WPARAM first, LPARAM second) const {
    MSG told{};
    told.hwnd = control;
    told.message = message;
    told.wParam = first;
    told.lParam = second;
    told.time = static_cast<DWORD>(GetMessageTime());
    const DWORD place = GetMessagePos();
    told.pt = {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    SendMessageW(tool_tips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&told));
}

// What changes while the window is there

void FormWindow::follow_look(int former_dots_per_inch) {
    const auto former_images = std::exchange(images_, {});  // in use until the controls have others
    make_images();
    for (const auto& control : controls_) control->follow_look(former_dots_per_inch);
    constexpr UINT all = RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN;
    RedrawWindow(handle(), nullptr, nullptr, all);
}

void FormWindow::follow_resolution(int dots_per_inch, const RECT& box) {
    if (dots_per_inch <= 0 || dots_per_inch == dots_per_inch_) return;
    const int former = std::exchange(dots_per_inch_, dots_per_inch);
    const Fonts former_fonts = std::exchange(fonts_, Fonts(dots_per_inch));
    follow_look(former);
    if (tool_tips_) SendMessageW(tool_tips_, TTM_SETMAXTIPWIDTH, 0, to_pixels(widest_tool_tip));
    SetWindowPos(handle(), nullptr, box.left, box.top, box.right - box.left, box.bottom - box.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::follow_colors() {
    for (HWND child = GetWindow(handle(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        SendMessageW(child, WM_SYSCOLORCHANGE, 0, 0);
    }
    follow_look(dots_per_inch_);
}

FormControl* FormWindow::find(TextView name) const {
    const auto found = std::ranges::find_if(
        controls_, [&](const auto& control) { return control->table_row().name == name; });
    return found == controls_.end() ? nullptr : found->get();
}

FormControl* FormWindow::find(HWND control) const {
    const auto found =
        std::ranges::find_if(controls_, [&](const auto& one) { return control && one->handle() == control; });
    return found == controls_.end() ? nullptr : found->get();
}

HIMAGELIST FormWindow::images(TextView image_list) const {
    const auto found = std::ranges::find(images_, image_list, &NamedImages::name);
    return found == images_.end() ? nullptr : found->images.get();
}

// What the logic sees

FormControl& FormWindow::control(TextView name) {
    if (FormControl* const found = find(name)) return *found;
    throw std::logic_error("There is no control " + automation::to_utf8(name) + ".");
}

Text FormWindow::caption() const { return window_text(handle()); }

void FormWindow::caption(TextView text) {
    const Text shown(text);
    SetWindowTextW(handle(), wide(shown));
}

bool FormWindow::visible() const { return IsWindowVisible(handle()) != FALSE; }

void FormWindow::come_to_place() {
    if (!table_.beside_host || visible()) return;
    RECT box{};
    GetWindowRect(handle(), &box);
    const SIZE size{box.right - box.left, box.bottom - box.top};
    POINT place{box.left, box.top};
    if (!was_shown_) {
        const auto left_at = parts_->left_at.find(table_.name);
        place = left_at == parts_->left_at.end() ? place_beside(window_worked_in(is_of_host), size)
                                                 : left_at->second;
    }
    was_shown_ = true;
    place = place_in_sight(place, size);
    SetWindowPos(handle(), nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::show() {
    const HWND window = handle();  // its events may end the form
    const bool minimized = IsIconic(window) != FALSE;
    come_to_place();
    if (table_.takes_keyboard || frame_->modal) {
        ShowWindow(window, minimized ? SW_RESTORE : SW_SHOW);
        SetForegroundWindow(window);
    } else {
        ShowWindow(window, minimized ? SW_SHOWNOACTIVATE : SW_SHOWNA);
        SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
}

void FormWindow::show_modal() {
    const std::shared_ptr<FormFrame> frame = frame_;
    frame->modal.emplace(frame->window);
    show();
    run_messages([&] { return frame->form && frame->form->visible(); });
    if (frame->form) frame->form->hide();
}

void FormWindow::hide() {
    const std::shared_ptr<FormFrame> frame = frame_;
    const bool was_modal = frame->modal.has_value();
    frame->modal.reset();  // first the others, so that one of them becomes active
    ShowWindow(frame->window, SW_HIDE);
    if (was_modal) wake_messages();
}

void FormWindow::topmost() {
    // what can't be seen can't be active
    const UINT activation = visible() && table_.takes_keyboard ? 0 : SWP_NOACTIVATE;
    SetWindowPos(handle(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | activation);
}

forms::Size FormWindow::size() const {
    RECT box{};
    GetWindowRect(handle(), &box);
    return {forms::to_twips(static_cast<int>(box.right - box.left), dots_per_inch_),
            forms::to_twips(static_cast<int>(box.bottom - box.top), dots_per_inch_)};
}

bool FormWindow::minimized() const { return IsIconic(handle()) != FALSE; }

}  // namespace windows
