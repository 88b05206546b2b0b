// Distribution lists: items of contact folders that hold several people under one name.
#pragma once

#include "desk/outlook/item.h"

namespace desk {

/// The type of a list's address, which is none that mail could go to.
inline constexpr automation::TextView dist_list_type = u"MAPIPDL";

/// Whether a member is one of distribution lists alone.
bool is_dist_list_member(automation::TextView member);

/// Takes a recipient or all of a collection into a list, or out of it. Throws `result::fail` for one who is
/// not resolved.
void add_members(Item& list, const automation::Object& people);
void remove_members(Item& list, const automation::Object& people);

}  // namespace desk
