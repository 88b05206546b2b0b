// The desk's folders, and which items lie in them.
#include <algorithm>

#include "automation/failure.h"
#include "desk/base/desk.h"

namespace desk {

using automation::Failure;
using automation::Text;
namespace result = automation::result;

void Desk::load_folders() {
    folders_ = store_->folders();
    folder_places_.clear();
    for (std::size_t i = 0; i < folders_.size(); ++i) folder_places_[folders_[i].id] = i;
}

void Desk::refresh_folders() { load_folders(); }

const FolderRow* Desk::folder_row(RowId id) const {
    const auto found = folder_places_.find(id);
    return found == folder_places_.end() ? nullptr : &folders_[found->second];
}

const FolderRow& Desk::existing_folder(RowId id) const {
    const FolderRow* const row = folder_row(id);
    if (!row) throw Failure(result::object_deleted, u"The folder has been deleted.");
    return *row;
}

RowId Desk::root_of(RowId folder) const {
    RowId root = folder;
    for (const FolderRow* row = folder_row(root); row && row->parent != 0; row = folder_row(root))
        root = row->parent;
    return root;
}

Text Desk::store_uid(RowId folder) const {
    const FolderRow* const root = folder_row(root_of(folder));
    return root && root->store_uid.size() == store_uid_digits ? root->store_uid
                                                              : Text(store_uid_digits, u'0');
}

RowId Desk::default_folder(std::int32_t number) const {
    const auto found =
        number == 0 ? folders_.end() : std::ranges::find(folders_, number, &FolderRow::default_number);
    return found == folders_.end() ? 0 : found->id;
}

std::vector<RowId> Desk::folders_below(RowId parent) const {
    std::vector<RowId> below;
    for (const FolderRow& row : folders_) {
        if (row.parent == parent) below.push_back(row.id);
    }
    return below;
}

void Desk::change_folder(const FolderRow& row) {
    existing_folder(row.id);
    store_->update_folder(row);
    folders_[folder_places_[row.id]] = row;
    surroundings_.changed();
}

const std::vector<RowId>& Desk::contents(RowId folder) {
    const auto known = contents_.find(folder);
    return known != contents_.end() ? known->second : contents_[folder] = store_->items(folder);
}

std::int64_t Desk::departures(RowId folder) const {
    const auto found = departures_.find(folder);
    return found == departures_.end() ? 0 : found->second;
}

void Desk::item_added(RowId folder, RowId item) {
    if (contents_.contains(folder)) contents_[folder].push_back(item);
    surroundings_.changed();
}

void Desk::item_removed(RowId folder, RowId item) {
    if (contents_.contains(folder)) std::erase(contents_[folder], item);
    ++departures_[folder];
    surroundings_.changed();
}

}  // namespace desk
