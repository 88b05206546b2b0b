// The entries in the explorer's "Context Menu" bar.
#pragma once

#include "addin/commands/links.h"
#include "addin/commands/state.h"

namespace addin::commands {

inline constexpr automation::TextView context_menu_bar = u"Context Menu";
inline constexpr automation::TextView quick_view_tag = u"Tarnwell Quick View";
inline constexpr automation::TextView create_note_tag = u"Tarnwell Create Note";

/// The host updates its bars: it comes often, and mostly there is nothing to do. A failure after the bar was
/// looked up travels to the host.
void ActiveExplorerCBars_OnUpdate(State& state, Links& links);

/// Opens the host's bar for changes (`restore` false), or gives it back. What is given back is the protection
/// masked once more, not its earlier bits: a bar that was protected stays open.
void SetBarProtection(State& state, const host::office::CommandBar& bar, bool restore);

/// Closes the sticky notes of the account on screen, then opens Quick View anew.
void ContextButton_Click(State& state, Links& links);

/// Opens the Create Note dialog for the selection. A failure travels to the host.
void CreateNoteButton_Click(State& state, Links& links);

}  // namespace addin::commands
