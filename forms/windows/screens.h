// What the user has chosen for the screens: their resolution, and colours of high contrast.
#pragma once

#include "automation/com/platform.h"

namespace windows {

/// The resolution of the screen that a window is on, where the system has one for each; else 0.
int dots_per_inch_of(HWND window);

bool is_high_contrast();

}  // namespace windows
