// The menu that a right click on the items opens: the host's own entries, and those of a command bar.
#pragma once

#include <span>

#include "desk/office/command_bars.h"
#include "forms/windows/common_controls.h"

namespace desk {

/// An entry of the host's own.
struct OwnEntry {
    const wchar_t* caption;
    std::function<void()> action;
    bool is_default = false;
};

/// Opens the menu and comes back when it is closed. What was chosen is answered, to be run when all that
/// belongs to the menu has ended; nothing if it was closed without a choice.
std::function<void()> choose_from_menu(HWND owner, POINT place, std::span<const OwnEntry> own,
                                       const CommandBar& bar);

}  // namespace desk
