// What the commands keep for one load.
#pragma once

#include "addin/commands/explorer_tracking.h"
#include "addin/createnote/state.h"
#include "addin/quickview/state.h"

namespace addin::commands {

class Tarnwell;

struct State {
    /// `stop_add_in` runs when the last of the further main windows has gone.
    State(createnote::State& dialogs, quickview::State& quick_view, std::function<void()> stop_add_in);
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    Session& session;
    createnote::State& createnote;
    quickview::State& quickview;

    /// Whether the context menu's bar was protected when it was opened for changes.
    bool wasProtected = false;
    ExplorerTrackers gExplorerList;
    forms::WindowPlace<commands::Tarnwell> Tarnwell;
    forms::WindowPlace<> TarnwellInfo;
};

}  // namespace addin::commands
