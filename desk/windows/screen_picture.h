// A picture of the screen.
#pragma once

#include "host/text.h"

namespace desk {

/// Writes what the screen shows as a PNG file. Throws `host::Failure` if it can't.
void save_screen_picture(const host::Text& path);

}  // namespace desk
