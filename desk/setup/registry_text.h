// Texts in the registry.
#pragma once

#include <optional>

#include "automation/com/platform.h"
#include "automation/text.h"

namespace desk::registry {

/// A text value; nothing if it isn't there. An empty name is the key's default value.
std::optional<automation::Text> read_text(HKEY root, const automation::Text& path,
                                          const automation::Text& name);

/// Writes such a value, and makes the key if need be. Throws `Failure` if it can't.
void write_text(HKEY root, const automation::Text& path, const automation::Text& name,
                const automation::Text& value);

/// Removes a key with all below it; one that isn't there is no failure.
void remove_key(HKEY root, const automation::Text& path);

}  // namespace desk::registry
