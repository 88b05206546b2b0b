// The window that the user works in.
#pragma once

#include "automation/com/platform.h"

namespace windows {

/// Of the thread's windows that take input the active one, or else the foremost; null if there is none. Tool
/// windows, which come and go beside the user's work, are passed over, and so is what `is_meant` refuses.
HWND window_worked_in(bool (*is_meant)(HWND window) = nullptr);

}  // namespace windows
