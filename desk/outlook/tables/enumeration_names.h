// The names that the host's windows have for the numbers of enumerations.
#pragma once

#include <cstdint>
#include <optional>

#include "automation/text.h"

namespace desk::tables {

/// The number of a name, such as "High", of a field that is an enumeration; nothing if there is none.
std::optional<std::int32_t> number_of_name(automation::TextView field, automation::TextView name);

}  // namespace desk::tables
