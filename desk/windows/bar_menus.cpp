#include "desk/windows/bar_menus.h"

#include <algorithm>

#include "automation/com/com_ptr.h"

namespace desk {

using automation::Text;

namespace {

/// The first command number of the popups' entries; those of the toolbars are below.
constexpr int first_command_of_menus = 5000;

}  // namespace

bool BarMenus::ShownEntry::operator==(const ShownEntry& other) const {
    const bool same_control = !control.owner_before(other.control) && !other.control.owner_before(control);
    return same_control && caption == other.caption && shortcut == other.shortcut && depth == other.depth &&
           enabled == other.enabled && begins_group == other.begins_group;
}

void BarMenus::collect(const CommandBar& bar, int depth, ShownEntries& entries) {
    for (const auto& control : bar.controls) {
        const bool is_shown = control->visible && (depth > 0 || control->menu);
        if (!is_shown) continue;
        entries.push_back(
            {control, control->caption, control->shortcut, depth, control->enabled, control->begin_group});
        if (control->menu) collect(*control->menu, depth + 1, entries);
    }
}

bool BarMenus::follow(HMENU menu) {
    if (version_ == bars_->version()) return false;
    version_ = bars_->version();
    ShownEntries now;
    for (const auto& bar : bars_->all) {
        if (bar->bar_type == CommandBar::menu_bar && bar->visible && bar->enabled) collect(*bar, 0, now);
    }
    if (now == shown_) return false;
    for (auto i = std::ranges::count(shown_, 0, &ShownEntry::depth); i > 0; --i) {
        DeleteMenu(menu, static_cast<UINT>(GetMenuItemCount(menu) - 1), MF_BYPOSITION);
    }
    shown_ = std::move(now);
    fill(menu, 0);
    return true;
}

std::size_t BarMenus::fill(HMENU menu, std::size_t place) const {
    if (place == shown_.size()) return place;
    const int depth = shown_[place].depth;
    for (bool is_first = true; place < shown_.size() && shown_[place].depth == depth; is_first = false) {
        const ShownEntry& entry = shown_[place];
        const Text text = entry.shortcut.empty() ? entry.caption : entry.caption + u"\t" + entry.shortcut;
        const UINT state = entry.enabled ? MF_ENABLED : MF_GRAYED;
        if (entry.begins_group && depth > 0 && !is_first) AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        const auto control = entry.control.lock();
        if (control && control->menu) {
            const HMENU popup = CreatePopupMenu();  // destroyed by the system with the menu
            const std::size_t inside = place + 1;
            const bool has_entries = inside < shown_.size() && shown_[inside].depth > depth;
            place = has_entries ? fill(popup, inside) : inside;
            AppendMenuW(menu, MF_POPUP | state, reinterpret_cast<UINT_PTR>(popup), windows::wide(text));
        } else {
            const auto command = static_cast<UINT_PTR>(first_command_of_menus) + place++;
            AppendMenuW(menu, MF_STRING | state, command, windows::wide(text));
        }
    }
    return place;
}

std::shared_ptr<CommandBarControl> BarMenus::control(int command) const {
    const int place = command - first_command_of_menus;
    if (place < 0 || place >= static_cast<int>(shown_.size())) return nullptr;
    return shown_[static_cast<std::size_t>(place)].control.lock();
}

}  // namespace desk
