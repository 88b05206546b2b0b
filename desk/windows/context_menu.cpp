#include "desk/windows/context_menu.h"

#include <memory>

#include "automation/com/com_ptr.h"

namespace desk {
namespace {

struct DestroyMenuOf {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using MenuHandle = std::unique_ptr<std::remove_pointer_t<HMENU>, DestroyMenuOf>;

constexpr std::int32_t checked = -1;         // MsoButtonState
constexpr std::size_t first_of_bar = 10000;  // above the host's own commands

/// Answers the controls that the menu has then, in their order.
std::vector<std::shared_ptr<CommandBarControl>> append_bar(HMENU menu, const CommandBar& bar, bool is_first) {
    std::vector<std::shared_ptr<CommandBarControl>> controls;
    for (const auto& control : bar.controls) {
        if (!control->visible) continue;
        const bool apart = controls.empty() ? !is_first : control->begin_group;
        if (apart) AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(
            menu,
            MF_STRING | (control->enabled ? 0U : MF_GRAYED) | (control->state == checked ? MF_CHECKED : 0U),
            first_of_bar + controls.size(), windows::wide(control->caption));
        controls.push_back(control);
    }
    return controls;
}

}  // namespace

std::function<void()> choose_from_menu(HWND owner, POINT place, const OwnEntries& own,
                                       const CommandBar* bar) {
    const MenuHandle menu(CreatePopupMenu());
    append_entries(menu.get(), own.entries);
    for (const MenuEntry& entry : own.entries) {
        if (entry.text && !own.can_run(entry.command))
            EnableMenuItem(menu.get(), static_cast<UINT>(entry.command), MF_GRAYED);
    }
    if (own.default_command != 0)
        SetMenuDefaultItem(menu.get(), static_cast<UINT>(own.default_command), FALSE);
    const std::vector<std::shared_ptr<CommandBarControl>> controls =
        bar ? append_bar(menu.get(), *bar, own.entries.empty())
            : std::vector<std::shared_ptr<CommandBarControl>>();
    const auto chosen = static_cast<std::size_t>(TrackPopupMenu(
        menu.get(), TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, place.x, place.y, 0, owner, nullptr));
    if (chosen == 0) return nullptr;
    if (chosen < first_of_bar) return [run = own.run, chosen] { run(static_cast<int>(chosen)); };
    return [control = controls[chosen - first_of_bar]] {
        if (control->is_there()) control->press();
    };
}

}  // namespace desk
