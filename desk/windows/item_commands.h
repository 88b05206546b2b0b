// The host's own buttons of an item's window once more, as a menu and as keys.
#pragma once

#include <optional>

#include "automation/com/platform.h"
#include "desk/office/command_bars.h"

namespace desk {

/// The menu of what the window's buttons do. Destroyed with the menu that it is put into.
HMENU make_item_menu(const CommandBars& bars);

/// The button that a command of the menu presses; nothing for any other command.
std::optional<std::int32_t> button_of_command(int command);

/// The button that a key presses, with the control and shift keys as they are now; nothing for other keys.
std::optional<std::int32_t> button_of_key(int key);

/// Whether a key is held down.
inline bool is_held(int key) { return GetKeyState(key) < 0; }

}  // namespace desk
