// How panels are opened, and how they go.
#pragma once

#include "addin/host/outlook.h"
#include "addin/searchpanel/state.h"

namespace addin::searchpanel {

/// Open a panel on an item, or on none: the first makes a new panel, the second brings up its own.
void ShowItemsMenu(State& state, const host::outlook::Item& Myitem);
void ShowItemsMenu2(State& state, const host::outlook::Item& Myitem);

/// Opens a new panel on the item that was handed to it.
void open_new_panel(State& state);

/// Takes all panels away when the add-in stops.
void close_panels(State& state);

/// The end of what no place knows any more, while all that a panel uses is still there.
void unload_panels(State& state);

}  // namespace addin::searchpanel
