#include "desk/windows/bar_strip.h"

#include <algorithm>

#include "automation/failure.h"

namespace desk {

using automation::Text;

namespace {

/// The first command number of the bars' controls; a window's own are below.
constexpr int first_command_of_bars = 1000;

constexpr std::int32_t automatic = 0, icon_only = 1, caption_only = 2;  // MsoButtonStyle
constexpr std::int32_t pressed = -1, mixed = 2;                         // MsoButtonState

bool has_caption(std::int32_t style, std::int32_t face_id) {
    return style == automatic ? face_id == 0 : style != icon_only;
}
bool has_icon(std::int32_t style, std::int32_t face_id) {
    return style == automatic ? face_id != 0 : style != caption_only;
}

BYTE state_of(bool enabled, std::int32_t state) {
    BYTE bits = enabled ? TBSTATE_ENABLED : 0;
    if (state == pressed) bits |= TBSTATE_CHECKED;
    if (state == mixed) bits |= TBSTATE_INDETERMINATE;
    return bits;
}

}  // namespace

bool BarStrip::ShownButton::operator==(const ShownButton& other) const {
    const bool same_control = !control.owner_before(other.control) && !other.control.owner_before(control);
    return same_control && caption == other.caption && tip == other.tip && style == other.style &&
           face_id == other.face_id && state == other.state && enabled == other.enabled &&
           begins_group == other.begins_group;
}

BarStrip::BarStrip(HWND parent, std::shared_ptr<CommandBars> bars, const Faces& faces)
    : parent_(parent), bars_(std::move(bars)), faces_(faces) {}

BarStrip::~BarStrip() {
    for (const HWND toolbar : toolbars_) DestroyWindow(toolbar);
}

std::vector<BarStrip::ShownBar> BarStrip::wanted() const {
    std::vector<ShownBar> bars;
    for (const auto& bar : bars_->all) {
        if (!bar->visible || !bar->enabled || bar->bar_type == CommandBar::popup) continue;
        ShownBar shown{bar->bar_name, bar->position, bar->row_index, {}};
        for (const auto& control : bar->controls) {
            if (!control->visible || control->menu) continue;  // popups are menus of the window
            shown.buttons.push_back(
                {control, control->caption, control->tool_tip.empty() ? control->caption : control->tool_tip,
                 control->style, control->face_id, control->state, control->enabled, control->begin_group});
        }
        if (!shown.buttons.empty()) bars.push_back(std::move(shown));
    }
    return bars;
}

bool BarStrip::follow() {
    if (version_ == bars_->version()) return false;
    version_ = bars_->version();
    std::vector<ShownBar> now = wanted();
    if (now == shown_) return false;
    for (const HWND toolbar : toolbars_) DestroyWindow(toolbar);
    toolbars_.clear();
    shown_ = std::move(now);
    int command = first_command_of_bars;
    for (const ShownBar& bar : shown_) {
        toolbars_.push_back(make_toolbar(bar, command));
        command += static_cast<int>(bar.buttons.size());
    }
    return true;
}

HWND BarStrip::make_toolbar(const ShownBar& bar, int first_command) const {
    const HWND toolbar =
        CreateWindowExW(0, TOOLBARCLASSNAMEW, windows::wide(bar.name),
                        WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_LIST |
                            TBSTYLE_TOOLTIPS | CCS_NOPARENTALIGN | CCS_NORESIZE | CCS_NODIVIDER,
                        0, 0, 0, 0, parent_, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!toolbar) throw automation::Failure(automation::result::fail, u"A toolbar could not be made.");
    SendMessageW(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(toolbar, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
    SendMessageW(toolbar, TB_SETBITMAPSIZE, 0, MAKELPARAM(faces_.size(), faces_.size()));
    SendMessageW(toolbar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(faces_.images()));
    SendMessageW(toolbar, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    int command = first_command;
    for (const ShownButton& shown : bar.buttons) {
        if (shown.begins_group && command != first_command) {
            TBBUTTON separator{};
            separator.fsStyle = BTNS_SEP;
            SendMessageW(toolbar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&separator));
        }
        TBBUTTON button{};
        button.idCommand = command++;
        button.iBitmap = has_icon(shown.style, shown.face_id) ? faces_.image(shown.face_id) : I_IMAGENONE;
        button.fsState = state_of(shown.enabled, shown.state);
        button.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE;
        if (has_caption(shown.style, shown.face_id)) button.fsStyle |= BTNS_SHOWTEXT;
        button.iString = reinterpret_cast<INT_PTR>(windows::wide(shown.caption));
        SendMessageW(toolbar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    }
    SendMessageW(toolbar, TB_AUTOSIZE, 0, 0);
    return toolbar;
}

int BarStrip::place(int width) {
    int top = 0;
    for (const HWND toolbar : toolbars_) {
        SIZE size{};
        SendMessageW(toolbar, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
        constexpr int margin = 4;  // pixels
        const int height = static_cast<int>(size.cy) + margin;
        MoveWindow(toolbar, 0, top, width, height, TRUE);
        top += height;
    }
    return top;
}

std::shared_ptr<CommandBarControl> BarStrip::control(int command) const {
    int place = command - first_command_of_bars;
    for (const ShownBar& bar : shown_) {
        const auto count = static_cast<int>(bar.buttons.size());
        if (place >= 0 && place < count) return bar.buttons[static_cast<std::size_t>(place)].control.lock();
        place -= count;
    }
    return nullptr;
}

void BarStrip::tell_tip(NMTTDISPINFOW& question) const {
    const auto asked = control(static_cast<int>(question.hdr.idFrom));
    if (!asked) return;
    const Text tip = asked->tool_tip.empty() ? asked->caption : asked->tool_tip;
    const std::size_t length = std::min(tip.size(), std::size(question.szText) - 1);
    std::copy_n(windows::wide(tip), length, question.szText);
    question.szText[length] = L'\0';
    question.lpszText = question.szText;
}

}  // namespace desk
