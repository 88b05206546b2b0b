// How a field of an item is shown to a person.
#pragma once

#include "desk/model/item_kinds.h"

namespace desk {

/// A date without its seconds, and nothing for no date or a field that the item hasn't.
host::Text shown_value(const ItemData& item, host::TextView field);

}  // namespace desk
