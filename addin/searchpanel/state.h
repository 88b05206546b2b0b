// What the Search Panels of one load have in common.
#pragma once

#include <vector>

#include "addin/ground/session.h"

namespace addin::searchpanel {

struct State {
    /// The lists of panels and Create Note dialogs remember one sorted column.
    State(Session& of_load, std::int32_t& sorted_column);
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    Session& session;
    std::int32_t& LastSortColumn;

    automation::Text gSelectedEntryID;  ///< the item handed to a panel
    automation::Text gSelectedStoreID;
    automation::Text gSelectedClass;

    forms::WindowPlace<> search_panel;  ///< the default instance of `ShowItems`
    forms::WindowPlace<> gPanelMenu;
    forms::WindowPlace<> gPanelMenu2;
    /// Every panel that is loaded, also one of which no place knows any more.
    std::vector<std::shared_ptr<forms::Window>> loaded_panels;
};

}  // namespace addin::searchpanel
