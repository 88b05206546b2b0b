// The menu through which a person makes new items.
#pragma once

#include "automation/com/platform.h"
#include "desk/store/store.h"

namespace desk {

class Desk;

/// The entries of a menu "New", with their commands. Destroyed with the menu that it is put into.
HMENU make_new_menu();

/// Makes the item that a command of the menu means, and opens it: in its default folder, or in the folder
/// that is shown. False for any other command.
bool make_new_item(Desk& desk, int command, RowId shown_folder);

}  // namespace desk
