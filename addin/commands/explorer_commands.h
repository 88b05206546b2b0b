// What the main window's events do.
#pragma once

#include "addin/commands/links.h"
#include "addin/commands/state.h"

namespace addin::commands {

/// Another item is selected: Quick View follows it, in folders named as the Inbox and if the option is on.
void goExplorer_SelectionChange(State& state, const Links& links);

}  // namespace addin::commands
