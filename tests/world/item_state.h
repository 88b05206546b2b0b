// An item as a whole, so that a test can say that nothing else of it has changed.
#pragma once

#include <map>

#include "tests/world/bars.h"

namespace acceptance {

/// The values of all fields by their names, the message class, the user properties ("[name, type]"), the
/// recipients and the attachments; what is empty is left out, and so is when the item was made and changed
/// last.
using ItemState = std::map<std::string, std::string>;
ItemState state_of(const host::outlook::Item& item);

/// What differs, as "CustomerID: C-1 instead of ", in the order of the names.
Lines changes(const ItemState& before, const ItemState& after);

/// Removes all items of a folder.
void empty_folder(const host::outlook::Folder& folder);

/// The message boxes since a place, each as "title, style: text".
Lines boxes(World& world, std::int32_t from = 0);

/// Presses a control of a window's bar and waits until its handler is over, if `waits`.
void press(World& world, const automation::Object& window, automation::TextView bar, automation::TextView tag,
           bool waits = true);

/// Has the next message box of a text answered.
void answer(World& world, automation::TextView text, std::int32_t button);

}  // namespace acceptance
