// What a person does with the items that are selected in a main window.
#pragma once

#include <functional>

#include "desk/outlook/explorers.h"
#include "desk/outlook/item.h"

namespace desk {

/// A mail is marked, and what follows from that is told; another item stays as it is.
void mark_item(Item& item, bool read);

/// Does what one of the commands of `explorer_menu.h` says with each selected item that is still there. A
/// person is told what fails.
void run_on_selection(const std::shared_ptr<Explorer>& explorer, int command);

/// Whether a command can do anything with what is selected; true for a command that needs no items.
bool can_run_on_selection(const Explorer& explorer, int command);

}  // namespace desk
