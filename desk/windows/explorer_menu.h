// The menus of a main window, and the keys that do the same.
#pragma once

#include <span>

#include "automation/com/platform.h"

namespace desk {

/// The commands of a main window that its menus, its keys and the menu of its items share. Those of new items
/// have numbers of their own, as have the bars' from 1000 on.
enum ExplorerCommand : int {
    new_item_command = 910,  ///< the first one of the menu "New": an item of the folder that is shown
    show_pane_command = 930,
    leaving_reads_command,
    refresh_command,
    open_command,
    reply_command,
    reply_all_command,
    forward_command,
    mark_read_command,
    mark_unread_command,
    move_command,
    delete_command,
    select_all_command,
    search_command,
    deliver_command,
    exit_command,
    about_command,
    first_page_command,
    picker_closed_command,
    first_go_command,  ///< followed by those of the other folders of the menu "Go"
};

/// An entry, or a line between entries where there is no text.
struct MenuEntry {
    const wchar_t* text;
    int command;
};

/// Adds the menus behind "File", and to that one what a main window has more than others. Destroyed by the
/// system with their bar.
void add_explorer_menus(HMENU bar);

/// The entries of the menu of the items, where one is selected and where none is. The default one is first.
std::span<const MenuEntry> item_menu_entries(bool is_selected);

void append_entries(HMENU menu, std::span<const MenuEntry> entries);

/// What the menu "Go" shows: the number of a default folder; 0 for any other command.
int folder_to_go_to(int command);

/// The command of a key, with the control and shift keys as they are now; 0 for other keys.
int command_of_key(int key);

}  // namespace desk
