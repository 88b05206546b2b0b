#include "desk/windows/split_bars.h"

#include <algorithm>

namespace desk {

std::optional<std::size_t> SplitBars::bar_at(POINT point) const {
    const auto found =
        std::ranges::find_if(bars_, [&](const Bar& bar) { return PtInRect(&bar.box, point) != FALSE; });
    if (found == bars_.end()) return {};
    return static_cast<std::size_t>(found - bars_.begin());
}

std::optional<SplitBars::Moved> SplitBars::follow(UINT message, POINT point) {
    if (message == WM_LBUTTONDOWN) {
        dragged_ = bar_at(point);
        if (!dragged_) return {};
        const Bar& bar = bars_[*dragged_];
        grip_ = static_cast<int>(bar.upright ? point.x - bar.box.left : point.y - bar.box.top);
        SetCapture(window_);
        return {};
    }
    if (!dragged_ || *dragged_ >= bars_.size()) return {};
    const Moved moved{*dragged_, static_cast<int>(bars_[*dragged_].upright ? point.x : point.y) - grip_};
    if (message == WM_LBUTTONUP) {
        dragged_.reset();
        ReleaseCapture();
    } else if (GetCapture() != window_) {  // somebody else has taken the mouse
        dragged_.reset();
        return {};
    }
    return moved;
}

bool SplitBars::show_cursor() const {
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(window_, &point);
    const std::optional<std::size_t> bar = bar_at(point);
    if (!bar) return false;
    SetCursor(LoadCursorW(nullptr, bars_[*bar].upright ? IDC_SIZEWE : IDC_SIZENS));
    return true;
}

}  // namespace desk
