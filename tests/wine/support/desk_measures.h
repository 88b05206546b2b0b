// What the desk's process takes of the system, counted from outside.
#pragma once

#include <cstdint>

#include "tests/wine/support/windows_handle.h"
#include "tests/world/world.h"

namespace wine {

/// The process of the running desk, to look into it and to end it. Throws `std::runtime_error` if none runs.
windows_handle desk_process();

/// Ends the desk as a crash would, and waits until it has gone.
void kill_desk(const windows_handle& process);

struct DeskMeasures {
    std::uint64_t private_bytes = 0;  ///< of its own that are in memory
    int handles = 0;                  ///< of the system's objects
    int drawing_objects = 0;          ///< brushes, fonts, bitmaps ...
    int user_objects =
        0;  ///< windows, menus, icons, hooks: of all programs of the session, this one's with it
    std::int32_t held = 0;  ///< COM objects of the desk that the add-in and this program hold
};

/// Throws `std::runtime_error` if something can't be counted.
DeskMeasures measured(acceptance::World& world);

}  // namespace wine
