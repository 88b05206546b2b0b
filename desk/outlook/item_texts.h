// What items make of texts that are written to them: bodies, which are plain text and pages at once, and
// categories.
#pragma once

#include <optional>

#include "desk/base/surroundings.h"

namespace desk {

/// Has the forms of a body follow a change of one: of a page comes its text, of a text a page, and the format
/// tells which of the two was written.
void follow_body(ItemData& item, automation::TextView changed_field, Surroundings& surroundings);

/// Throws `result::invalid_argument` for a format that no body can get.
void check_format(automation::TextView field, const automation::Value& value);

/// `HTMLBody` and `BodyFormat` of an item that holds none; nothing for any other field.
std::optional<automation::Value> composed_body(const ItemData& item, automation::TextView field);

/// Each category once, in its order, with the user's separator between them.
automation::Text normalized_categories(automation::TextView written, automation::TextView separator);

}  // namespace desk
