// An item as a whole, in words.
#pragma once

#include "automation/object.h"

namespace desk {

/// All that an item is made of, a line for each: its class, its fields that were set, its user properties
/// with their types, its people and its attachments with their sizes. Where it lies, its id and what the
/// store notes by itself are not among it, nor is the time of its last change. Throws `result::type_mismatch`
/// for what is no item.
automation::Text description(const automation::Object& item);

}  // namespace desk
