#include "desk/windows/item_commands.h"

#include <algorithm>

#include "desk/outlook/inspectors.h"

namespace desk {
namespace {

constexpr int first_item_command = 800;  // those of all windows begin at 900

struct ItemCommand {
    std::int32_t button;
    const wchar_t* entry;
    int key;  ///< with the control key; 0: none
    bool with_shift;
};
constexpr ItemCommand item_commands[] = {
    {own_button::send, L"S&end\tCtrl+Enter", VK_RETURN, false},
    {own_button::save, L"&Save\tCtrl+S", 'S', false},
    {own_button::save_and_close, L"Save and &Close", 0, false},
    {own_button::reply, L"&Reply\tCtrl+R", 'R', false},
    {own_button::reply_all, L"Reply &All\tCtrl+Shift+R", 'R', true},
    {own_button::forward, L"&Forward\tCtrl+F", 'F', false},
    {own_button::remove, L"&Delete\tCtrl+D", 'D', false},
};

}  // namespace

HMENU make_item_menu(const CommandBars& bars) {
    const HMENU menu = CreatePopupMenu();
    const auto standard = bars.named(CommandBars::standard);
    UINT_PTR command = first_item_command;
    for (const ItemCommand& each : item_commands) {
        if (standard->find({.id = each.button})) AppendMenuW(menu, MF_STRING, command, each.entry);
        ++command;
    }
    return menu;
}

std::optional<std::int32_t> button_of_command(int command) {
    const int place = command - first_item_command;
    if (place < 0 || place >= static_cast<int>(std::size(item_commands))) return std::nullopt;
    return item_commands[place].button;
}

std::optional<std::int32_t> button_of_key(int key) {
    if (!is_held(VK_CONTROL) || is_held(VK_MENU)) return std::nullopt;
    const bool shift = is_held(VK_SHIFT);
    const auto* const found = std::ranges::find_if(
        item_commands, [&](const ItemCommand& each) { return each.key == key && each.with_shift == shift; });
    return found == std::end(item_commands) ? std::nullopt : std::optional(found->button);
}

}  // namespace desk
