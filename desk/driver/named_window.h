// Windows and controls that tell their own names.
#pragma once

#include <vector>

#include "automation/com/platform.h"
#include "automation/text.h"

namespace desk {

/// The name of a window or control, asked for by the published message for it (WM_GETCONTROLNAME); empty if
/// it doesn't answer. For windows of this process.
automation::Text control_name(HWND window);

automation::Text class_name(HWND window);

/// Whether a window is the desk's own.
bool is_desk_window(HWND window);

/// All windows of this thread, those in front first.
std::vector<HWND> windows_of_thread();

/// All windows inside of another.
std::vector<HWND> windows_inside(HWND window);

}  // namespace desk
