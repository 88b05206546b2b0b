// Which fields the store can look up, and under which keys an item stands there.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <utility>

#include "desk/store/item_data.h"

namespace desk {

/// The number under which a field is stored in the index; nothing for a field that is not indexed.
std::optional<std::int64_t> index_number(automation::TextView field);

/// The bytes by which a value is found: without regard to case, by its first 255 units.
std::string index_key(automation::TextView value);

/// A field's number and a key.
using IndexEntry = std::pair<std::int64_t, std::string>;

/// The entries of an item. A field that is empty or unset has none; an empty value has one only if the item
/// bears the name a second time with a value that is not empty.
std::set<IndexEntry> index_entries(const ItemData& item);

}  // namespace desk
