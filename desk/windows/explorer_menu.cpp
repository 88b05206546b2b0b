#include "desk/windows/explorer_menu.h"

#include <span>

namespace desk {
namespace {

/// An entry, or a line between entries where there is no text.
struct MenuEntry {
    const wchar_t* text;
    int command;
};
constexpr MenuEntry view_entries[] = {{L"&Reading Pane", show_pane_command},
                                      {L"&Mark as Read When Another Is Selected", leaving_reads_command},
                                      {nullptr, 0},
                                      {L"Re&fresh\tF5", refresh_command}};

struct MenuOfBar {
    const wchar_t* title;
    std::span<const MenuEntry> entries;
};
constexpr MenuOfBar explorer_menus[] = {{L"&View", view_entries}};

HMENU make_popup(std::span<const MenuEntry> entries) {
    const HMENU popup = CreatePopupMenu();
    for (const MenuEntry& entry : entries) {
        if (entry.text) {
            AppendMenuW(popup, MF_STRING, static_cast<UINT_PTR>(entry.command), entry.text);
        } else {
            AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
        }
    }
    return popup;
}

}  // namespace

void add_explorer_menus(HMENU bar) {
    for (const MenuOfBar& menu : explorer_menus) {
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(make_popup(menu.entries)), menu.title);
    }
}

}  // namespace desk
