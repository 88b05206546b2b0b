// Pictures of the screen and of windows.
#pragma once

#include "host/text.h"
#include "windows/com/platform.h"

namespace desk {

/// Writes what the screen shows as a PNG file. Throws `host::Failure` if it can't.
void save_screen_picture(const host::Text& path);

/// The same of a window's client area, whatever stands before it. It must have painted itself.
void save_window_picture(HWND window, const host::Text& path);

}  // namespace desk
