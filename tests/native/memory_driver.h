// The windows that are kept in memory, as the desk's surface drives them.
#pragma once

#include "desk/base/window_driver.h"
#include "tests/native/memory_forms.h"

namespace native {

/// What a person does is given to this to be run.
using Post = std::function<void(std::function<void()>)>;

/// The window of that caption, or null. Lives no longer than the engine.
std::unique_ptr<desk::WindowDriver> drive_window(const MemoryEngine& engine, automation::TextView caption,
                                                 Post post);

}  // namespace native
