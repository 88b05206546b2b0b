// The postal addresses of a contact: each is one text, and its parts.
#pragma once

#include "desk/store/item_data.h"

namespace desk {

/// After a change of an address its parts are taken from it, after a change of a part it is put together
/// anew. The mailing address is the same as the one that is selected for it.
void follow_address(ItemData& contact, automation::TextView changed_field);

}  // namespace desk
