#include "addin/searchpanel/panels.h"

#include <utility>

#include "addin/ground/steps.h"
#include "addin/searchpanel/show_items.h"

namespace addin::searchpanel {
namespace {

void select_item(State& state, const host::outlook::Item& item) {
    const Steps steps(state.session);
    if (!item) {
        state.gSelectedEntryID.clear();
        state.gSelectedStoreID.clear();
        state.gSelectedClass.clear();
        return;
    }
    steps.set(state.gSelectedEntryID, [&] { return item.EntryID(); });
    steps.set(state.gSelectedStoreID, [&] { return host::outlook::Folder(item.Parent()).StoreID(); });
    steps.set(state.gSelectedClass, [&] { return item.MessageClass(); });
}

}  // namespace

State::State(Session& of_load, std::int32_t& sorted_column)
    : session(of_load), LastSortColumn(sorted_column) {
    for (forms::WindowPlace<>* place : {&search_panel, &gPanelMenu, &gPanelMenu2}) {
        place->made_by([this] { return std::make_shared<ShowItems>(*this); });
    }
}

void ShowItemsMenu(State& state, const host::outlook::Item& Myitem) {
    select_item(state, Myitem);
    open_new_panel(state);
}

void ShowItemsMenu2(State& state, const host::outlook::Item& Myitem) {
    const Steps steps(state.session);
    select_item(state, Myitem);
    steps.run([&] { state.gPanelMenu2.show(); });
}

void open_new_panel(State& state) {
    const Steps steps(state.session);
    steps.run([&] { state.gPanelMenu.unload(); });
    steps.run([&] { state.gPanelMenu.show(); });
}

void close_panels(State& state) {
    const Steps steps(state.session);
    for (forms::WindowPlace<>* place : {&state.search_panel, &state.gPanelMenu, &state.gPanelMenu2}) {
        steps.run([&] { place->hide(); });
        steps.run([&] { place->unload(); });
    }
    for (const auto& panel : std::exchange(state.loaded_panels, {})) {
        steps.run([&] { panel->hide(); });
        steps.run([&] { panel->unload(); });
    }
}

void unload_panels(State& state) {
    for (const auto& panel : std::exchange(state.loaded_panels, {})) panel->unload();
}

}  // namespace addin::searchpanel
