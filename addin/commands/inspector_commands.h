// Each item window is fitted with the system's commands when it opens.
#pragma once

#include "addin/commands/links.h"
#include "addin/commands/state.h"
#include "addin/replicas/guards.h"

namespace addin::commands {

/// An item window opens. A failure to read its item's class or id travels to the host, and the window stays
/// without commands; every later failure is skipped.
void goInspectors_NewInspector(State& state, Links& links, replicas::Guards& guards,
                               const host::outlook::Inspector& Inspector);

void goInspector_Activate(const State& state, const Links& links);

/// The last inspector that opened closes, or its mail is sent.
void goInspector_Close(State& state, Links& links);

}  // namespace addin::commands
