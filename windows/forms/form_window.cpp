#include "windows/forms/form_window.h"

#include <algorithm>

#include "host/failure.h"
#include "windows/desktop/module_file.h"

namespace windows {

namespace forms = addin::forms;
using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;
using host::Failure;
using host::Text;
using host::TextView;

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

FormWindow::FormWindow(std::shared_ptr<FormSurroundings> surroundings, const FormTable& table,
                       std::weak_ptr<forms::Events> events)
    : surroundings_(std::move(surroundings)),
      table_(table),
      events_(std::move(events)),
      dots_per_inch_(surroundings_->dots_per_inch()),
      fonts_(dots_per_inch_) {
    hook_ = surroundings_->hook.lock();
    if (!hook_) {
        hook_ = std::make_shared<KeyboardHook>(surroundings_->module, hook_procedure);
        surroundings_->hook = hook_;
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

void FormWindow::make_window() {
    RECT box{0, 0, to_pixels(table_.width), to_pixels(table_.height)};
    AdjustWindowRectEx(&box, style_of(table_), FALSE, extended_style_of(table_));
    const SIZE size{box.right - box.left, box.bottom - box.top};
    const POINT middle = middle_of_screen(size);
    const Text title(table_.caption);
    auto hold = std::make_unique<ModuleHold>(surroundings_->module);
    frame_->window = CreateWindowExW(extended_style_of(table_), surroundings_->window_class.name(),
                                     wide(title), style_of(table_), table_.sizable ? CW_USEDEFAULT : middle.x,
                                     table_.sizable ? CW_USEDEFAULT : middle.y, size.cx, size.cy, nullptr,
                                     nullptr, own_module(), nullptr);
    if (!handle()) throw Failure(host::result::fail, u"A window could not be made: " + Text(table_.name));
    SetWindowLongPtrW(handle(), FormClass::hold_place, reinterpret_cast<LONG_PTR>(hold.release()));
    frame_->form = this;
    SetWindowLongPtrW(handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    GetWindowRect(handle(), &last_size_);
}

void FormWindow::make_controls() {
    for (const ControlRow& row : table_.controls) {
        if (row.kind == ControlKind::image_list) {
            images_.push_back({row.name, make_image_list(row.pictures, to_pixels(mark_size))});
        }
    }
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
        if (control->row().tool_tip.empty() || !control->handle()) continue;
        Text text(control->row().tool_tip);
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;  // known to every version of the controls
        tool.uFlags = TTF_SUBCLASS | TTF_IDISHWND;
        tool.hwnd = handle();
        tool.lpszText = reinterpret_cast<wchar_t*>(text.data());
        for (HWND part : {control->handle(), control->inner()}) {
            if (!part) continue;
            tool.uId = reinterpret_cast<UINT_PTR>(part);
            SendMessageW(tool_tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
        }
    }
}

FormControl* FormWindow::find(TextView name) const {
    const auto found =
        std::ranges::find_if(controls_, [&](const auto& control) { return control->row().name == name; });
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
    throw Failure(host::result::unknown_name, Text(name));
}

Text FormWindow::caption() const { return window_text(handle()); }

void FormWindow::caption(TextView text) {
    const Text shown(text);
    SetWindowTextW(handle(), wide(shown));
}

bool FormWindow::visible() const { return IsWindowVisible(handle()) != FALSE; }

void FormWindow::show() {
    const HWND window = handle();  // its events may end the form
    ShowWindow(window, IsIconic(window) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(window);
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
    const UINT hidden = visible() ? 0 : SWP_NOACTIVATE;  // what can't be seen can't be active
    SetWindowPos(handle(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | hidden);
}

forms::Size FormWindow::size() const {
    RECT box{};
    GetWindowRect(handle(), &box);
    return {forms::to_twips(static_cast<int>(box.right - box.left), dots_per_inch_),
            forms::to_twips(static_cast<int>(box.bottom - box.top), dots_per_inch_)};
}

bool FormWindow::minimized() const { return IsIconic(handle()) != FALSE; }

}  // namespace windows
