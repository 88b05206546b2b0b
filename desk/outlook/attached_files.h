// What is to be known of the name of an attached file before it is written anywhere or opened.
#pragma once

#include "automation/text.h"

namespace desk {

/// A name under which a file can be stored in any folder: without path, characters that no name may have, and
/// names that the system takes for devices.
automation::Text storable_name(automation::TextView name);

/// Whether opening a file of that name would run it.
bool is_program(automation::TextView name);

/// The ending of a file's name, in small letters and without its dot; empty if it has none.
automation::Text ending_of(automation::TextView name);

}  // namespace desk
