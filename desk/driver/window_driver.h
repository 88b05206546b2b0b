// The add-in's real windows, driven as a person would: by the messages that windows and controls understand.
#pragma once

#include <functional>

#include "automation/com/module.h"
#include "desk/base/window_driver.h"

namespace desk {

/// Has an action run at the next turn of the message loop.
using Post = std::function<void(std::function<void()>)>;

/// The window of this thread with that caption that isn't the desk's own, a visible one before a hidden one;
/// null if there is none. The module lives longer.
std::unique_ptr<WindowDriver> find_window(automation::TextView caption, windows::Module& module, Post post);

}  // namespace desk
