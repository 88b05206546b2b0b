// Entries of the server's classes in the registry.
#pragma once

#include <span>

#include "automation/com/platform.h"
#include "family/create.h"

namespace family {

/// Enters the classes of a server file, machine-wide. What was entered stays when a later entry is refused.
HRESULT register_classes(std::span<const ClassEntry> classes, const automation::Text& file);

/// Removes the entries. Those that are not there are passed over.
HRESULT unregister_classes(std::span<const ClassEntry> classes);

}  // namespace family
