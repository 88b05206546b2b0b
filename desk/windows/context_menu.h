// The menu that a right click opens: the host's own entries, and those of a command bar.
#pragma once

#include <functional>

#include "desk/office/command_bars.h"
#include "desk/windows/explorer_menu.h"

namespace desk {

/// What becomes of the host's own entries.
struct OwnEntries {
    std::span<const MenuEntry> entries;
    int default_command = 0;           ///< 0: none
    std::function<bool(int)> can_run;  ///< what can't be done now is shown in grey
    std::function<void(int)> run;
};

/// Opens the menu, with what stands on a bar if there is one, and comes back when it is closed. What was
/// chosen is answered, to be run when all that belongs to the menu has ended; nothing if it was closed
/// without a choice.
std::function<void()> choose_from_menu(HWND owner, POINT place, const OwnEntries& own,
                                       const CommandBar* bar = nullptr);

}  // namespace desk
