// One control of the add-in's real windows.
#pragma once

#include "automation/com/platform.h"
#include "desk/driver/window_driver.h"

namespace desk {

std::unique_ptr<ControlDriver> drive_control(HWND control, windows::Module& module, const Post& post);

/// A virtual key as the keyboard gives it: down and up, and the message loop makes the character.
void post_key(HWND window, int code);

}  // namespace desk
