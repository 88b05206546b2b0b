// From a selected mail to its contact in Quick View, or to a new one.
#pragma once

#include "addin/quickview/state.h"
#include "automation/events.h"

namespace addin::quickview {

/// The two operations: the one that follows the explorer, and a narrower one for callers from outside.
enum class Launch { quick_view, tarnwell };

/// Looks for the contact of the first mail of a selection, which `selection` becomes. `goExplorer` holds the
/// main window.
void launch(State& state, const automation::Sink& goExplorer, Launch which, automation::Value& selection);

}  // namespace addin::quickview
