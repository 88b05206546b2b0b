// The menus of a main window, and the keys that do the same.
#pragma once

#include "automation/com/platform.h"

namespace desk {

/// The commands of a main window that its menus, its keys and the menu of its items share. Those of new items
/// have numbers of their own, as have the bars' from 1000 on.
enum ExplorerCommand : int {
    show_pane_command = 930,
    leaving_reads_command,
    refresh_command,
};

/// Adds the menus behind those that each window has. Destroyed by the system with their bar.
void add_explorer_menus(HMENU bar);

}  // namespace desk
