// What Quick View keeps for one load.
#pragma once

#include "addin/createnote/state.h"
#include "addin/searchpanel/state.h"

namespace addin::quickview {

class QuickView;

struct State {
    /// A launch may open the contact of a mail as the Create Note dialog does; the window opens panels.
    State(createnote::State& dialogs, searchpanel::State& panels);
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    Session& session;
    createnote::State& createnote;
    searchpanel::State& searchpanel;
    bool SortAscending = false;  ///< of the window's list; turned over by each click on a heading
    forms::WindowPlace<quickview::QuickView> QuickView;
};

}  // namespace addin::quickview
