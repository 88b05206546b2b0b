// What is to be known of the name of an attachment before it is written anywhere or opened.
#pragma once

#include "desk/store/item_data.h"

namespace desk {

/// A name under which a file can be stored in any folder: without path, characters that no name may have, and
/// names that the system takes for devices.
automation::Text storable_name(automation::TextView name);

/// The name under which an attachment is stored: that of its file, or an attached item's as a message file.
automation::Text stored_name(const AttachmentData& attachment);

/// Whether opening a file of that name would run it.
bool is_program(automation::TextView name);

/// The ending of a file's name, in small letters and without its dot; empty if it has none.
automation::Text ending_of(automation::TextView name);

}  // namespace desk
