#include "desk/outlook/host_window.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/office/command_bars.h"

namespace desk {

/// A window that would cover another one comes up a little to the right and below, a few times at most.
void HostWindow::step_aside() {
    constexpr std::int32_t step = 26;  // pixels: a caption can be read and taken
    constexpr int most_steps = 8;
    const auto& order = object().desk().window_order;
    const auto is_covered = [&](const HostWindow* other) {
        return other != this && other->left == left && other->top == top;
    };
    for (int i = 0; i < most_steps && std::ranges::any_of(order, is_covered); ++i) {
        left += step;
        top += step;
    }
}

void HostWindow::enter_front() {
    step_aside();
    object().desk().window_order.push_back(this);
    is_open_ = true;
}

void HostWindow::enter_back() {
    step_aside();
    auto& order = object().desk().window_order;
    order.insert(order.empty() ? order.end() : order.end() - 1, this);
    is_open_ = true;
}

void HostWindow::come_up() {
    auto& order = object().desk().window_order;
    const automation::Object alive = held();
    ++times_brought_up_;
    Surroundings& surroundings = object().desk().surroundings();
    const bool was_active = !order.empty() && order.back() == this;
    HostWindow* const former = order.empty() || was_active ? nullptr : order.back();
    if (was_active) {
        surroundings.came_up();
        return;
    }
    std::erase(order, this);
    order.push_back(this);
    is_open_ = true;
    const automation::Object former_alive = former ? former->held() : automation::Object();
    surroundings.came_up();
    if (former) {
        former->object().raise(u"Deactivate");
    }
    if (!is_open_ || order.back() != this) return;  // whoever was told has closed it, or brought up another
    object().raise(u"Activate");
    bars()->update_soon();
}

void HostWindow::leave(bool bars_end) {
    auto& order = object().desk().window_order;
    const automation::Object alive = held();
    const bool was_active = !order.empty() && order.back() == this;
    std::erase(order, this);
    is_open_ = false;
    object().desk().surroundings().changed();
    object().raise(u"Close");
    if (bars_end) bars()->end();
    object().subscriptions().clear();
    if (!was_active || order.empty()) return;
    HostWindow* const next = order.back();
    const automation::Object next_alive = next->held();
    next->object().raise(u"Activate");
    if (next->is_open_) next->bars()->update_soon();
}

}  // namespace desk
