// The registry as the tests set it up.
#pragma once

#include <optional>

#include "host/text.h"
#include "windows/com/platform.h"

namespace wine {

/// A text value; nothing if it isn't there. An empty name is the key's default value.
std::optional<host::Text> read_text(HKEY root, const host::Text& path, const host::Text& name);
void write_text(HKEY root, const host::Text& path, const host::Text& name, const host::Text& value);

/// Removes a key with all below it; one that isn't there is no failure.
void remove_key(HKEY root, const host::Text& path);

}  // namespace wine
