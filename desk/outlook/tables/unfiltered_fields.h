// The fields that the host's Find and Restrict refuse.
#pragma once

#include "automation/text.h"

namespace desk::tables {

/// Whether a field, by its name, can't stand in a bracketed filter: see "Items.Restrict method" of the host's
/// documentation. Categories are still in the list for Find, but the pages on filters use them.
bool is_unfiltered(automation::TextView field);

}  // namespace desk::tables
