// What of the desk tells of folders and their items.
#include <algorithm>

#include "desk/base/desk.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/item.h"
#include "desk/outlook/items.h"

namespace desk {

using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

/// Tells all who watch and are still there.
template <class Watched>
void tell(std::vector<std::weak_ptr<Watched>> watchers, TextView event, const std::vector<Value>& arguments) {
    // the list is taken as it stands now: who is told may begin or end to watch
    for (const auto& watcher : watchers) {
        if (const std::shared_ptr<Watched> there = watcher.lock()) there->raise(event, arguments);
    }
}

}  // namespace

void Desk::watch(RowId folder, const std::shared_ptr<Items>& items) {
    auto& watchers = watchers_[folder];
    std::erase_if(watchers, [](const auto& watcher) { return watcher.expired(); });
    const bool known =
        std::ranges::any_of(watchers, [&](const auto& watcher) { return watcher.lock() == items; });
    if (!known) watchers.push_back(items);
}

void Desk::watch_folders(RowId parent, const std::shared_ptr<FoldersCollection>& folders) {
    auto& watchers = folder_watchers_[parent];
    std::erase_if(watchers, [](const auto& watcher) { return watcher.expired(); });
    const bool known =
        std::ranges::any_of(watchers, [&](const auto& watcher) { return watcher.lock() == folders; });
    if (!known) watchers.push_back(folders);
}

void Desk::tell_item_added(RowId folder, RowId item) {
    if (!watchers_.contains(folder)) return;
    now_or_later(options_.at_once.adds, [this, folder, item] {
        const std::shared_ptr<Item> added = open_item(item);
        if (!added || added->folder() != folder) return;  // it has left again
        tell(watchers_[folder], u"ItemAdd", {Value(added->self())});
    });
}

void Desk::tell_item_changed(RowId folder, const std::shared_ptr<Item>& item) {
    surroundings_.changed();
    if (!watchers_.contains(folder)) return;
    now_or_later(options_.at_once.changes, [this, folder, item] {
        if (item->is_gone()) return;  // it has left meanwhile
        tell(watchers_[folder], u"ItemChange", {Value(item->self())});
    });
}

void Desk::tell_item_rewritten(RowId folder, RowId item) {
    if (!watchers_.contains(folder)) return;
    now_or_later(options_.at_once.adds, [this, folder, item] {
        const std::shared_ptr<Item> changed = open_item(item);
        if (!changed || changed->folder() != folder) return;  // it has left meanwhile
        tell(watchers_[folder], u"ItemChange", {Value(changed->self())});
    });
}

void Desk::tell_item_removed(RowId folder) {
    if (!watchers_.contains(folder)) return;
    now_or_later(options_.at_once.removals, [this, folder] { tell(watchers_[folder], u"ItemRemove", {}); });
}

void Desk::tell_folders(RowId parent, TextView event, RowId folder) {
    if (!folder_watchers_.contains(parent)) return;
    now_or_later(options_.at_once.adds, [this, parent, name = Text(event), folder] {
        std::vector<Value> arguments;
        if (folder != 0) arguments.emplace_back(std::make_shared<Folder>(*this, folder)->self());
        tell(folder_watchers_[parent], name, arguments);
    });
}

}  // namespace desk
