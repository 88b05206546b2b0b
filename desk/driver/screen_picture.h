// Pictures of the screen and of windows.
#pragma once

#include "automation/com/platform.h"
#include "automation/text.h"

namespace desk {

/// Writes what the screen shows as a PNG file. Throws `automation::Failure` if it can't.
void save_screen_picture(const automation::Text& path);

/// The same of a window's client area, whatever stands before it. It must have painted itself.
void save_window_picture(HWND window, const automation::Text& path);

}  // namespace desk
