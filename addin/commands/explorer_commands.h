// What the main window's events do.
#pragma once

#include "addin/connect/connect.h"

namespace addin::commands {

/// Another item is selected: Quick View follows it, in folders named as the Inbox and if the option is on.
void goExplorer_SelectionChange(Connect& connect);

}  // namespace addin::commands
