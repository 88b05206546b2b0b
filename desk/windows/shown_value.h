// How a field of an item is shown to a person.
#pragma once

#include "desk/outlook/item_kinds.h"

namespace desk {

/// A date without its seconds, and nothing for no date.
automation::Text shown_value(const automation::Value& value);

/// The same of a field; nothing for one that the item hasn't.
automation::Text shown_value(const ItemData& item, automation::TextView field);

}  // namespace desk
