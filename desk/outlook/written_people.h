// The recipients of a mail as a person writes them, and whether they can be reached.
#pragma once

#include "desk/store/item_data.h"

namespace desk {

/// Whether a text has the form of an Internet address: one @, before it a name without blanks, behind it the
/// labels of a domain.
bool can_be_address(automation::TextView text);

/// One sentence that names the first recipient who can't be reached, by a wrong address or as nobody known;
/// empty if all can.
automation::Text unreachable(const ItemData& mail);

/// The recipients of one kind (1 To, 2 Cc, 3 Bcc) as a line in which a person can go on writing: what is read
/// out of it are the same people again, with their addresses.
automation::Text written_line(const ItemData& mail, std::int32_t kind);

}  // namespace desk
