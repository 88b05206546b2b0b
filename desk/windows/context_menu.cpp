#include "desk/windows/context_menu.h"

#include <memory>

namespace desk {
namespace {

struct DestroyMenuOf {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using MenuHandle = std::unique_ptr<std::remove_pointer_t<HMENU>, DestroyMenuOf>;

constexpr std::int32_t checked = -1;  // MsoButtonState

}  // namespace

std::function<void()> choose_from_menu(HWND owner, POINT place, std::span<const OwnEntry> own,
                                       const CommandBar& bar) {
    const MenuHandle menu(CreatePopupMenu());
    std::vector<std::function<void()>> actions;
    const auto add = [&](UINT flags, const wchar_t* caption, std::function<void()> action) {
        actions.push_back(std::move(action));
        AppendMenuW(menu.get(), MF_STRING | flags, actions.size(), caption);
    };
    for (const OwnEntry& entry : own) {
        add(0, entry.caption, entry.action);
        if (entry.is_default) SetMenuDefaultItem(menu.get(), static_cast<UINT>(actions.size()), FALSE);
    }
    bool first = true;
    for (const auto& control : bar.controls) {
        if (!control->visible) continue;
        const bool apart = first ? !own.empty() : control->begin_group;
        if (apart) AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
        first = false;
        add((control->enabled ? 0U : MF_GRAYED) | (control->state == checked ? MF_CHECKED : 0U),
            windows::wide(control->caption), [control] {
                if (control->is_there()) control->press();
            });
    }
    const auto chosen = static_cast<std::size_t>(TrackPopupMenu(
        menu.get(), TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, place.x, place.y, 0, owner, nullptr));
    return chosen == 0 ? nullptr : actions[chosen - 1];
}

}  // namespace desk
