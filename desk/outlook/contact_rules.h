// The fields of a contact that are made of each other: its names and its addresses.
#pragma once

#include <optional>

#include "desk/store/item_data.h"

namespace desk {

/// Has a contact's fields follow a change of one: a name or an address that was set whole is taken apart, one
/// whose parts were set is put together. `filed_as_before` is what `filed_as` told before the change: a
/// contact that was filed under that is filed anew.
void follow_contact(ItemData& contact, automation::TextView changed_field,
                    automation::TextView filed_as_before);

/// What the host itself files a contact under: "Lee, Ann", or whatever of the two there is.
automation::Text filed_as(const ItemData& contact);

/// The text of a field that a contact shows without holding it: "North Mill Ltd, Lee, Ann" in two lines, its
/// initials. Nothing for any other field.
std::optional<automation::Text> composed_name(const ItemData& contact, automation::TextView field);

}  // namespace desk
