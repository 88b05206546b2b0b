#include "desk/windows/desk_windows.h"

#include <algorithm>

#include "desk/model/explorers.h"
#include "desk/model/inspectors.h"
#include "desk/windows/explorer_window.h"
#include "desk/windows/inspector_window.h"

namespace desk {
namespace {

/// Has a map of windows follow a list of open objects.
template <class Windows, class Objects, class Make>
void follow_list(Windows& windows, const Objects& open, Make make) {
    std::erase_if(windows, [&](const auto& entry) {
        return std::ranges::none_of(open, [&](const auto& object) { return object.get() == entry.first; });
    });
    const Objects now = open;
    for (const auto& object : now) {
        auto& window = windows[object.get()];
        if (!window) window = make(object);
        window->refresh();
    }
}

}  // namespace

DeskWindows::DeskWindows(Desk& desk) : desk_(desk) {}

DeskWindows::~DeskWindows() = default;

void DeskWindows::follow() {
    follow_list(explorers_, desk_.explorers()->open,
                [this](const auto& explorer) { return std::make_unique<ExplorerWindow>(desk_, explorer); });
    follow_list(inspectors_, desk_.inspectors()->open, [this](const auto& inspector) {
        return std::make_unique<InspectorWindow>(desk_, inspector);
    });
}

void DeskWindows::close_all() {
    inspectors_.clear();
    explorers_.clear();
}

}  // namespace desk
