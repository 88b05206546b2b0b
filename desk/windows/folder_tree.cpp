#include "desk/windows/folder_tree.h"

#include <algorithm>

namespace desk {

using automation::Text;

Text FolderTree::text_of(const FolderRow& folder) const {
    const auto unread = static_cast<long long>(desk_.store().unread(folder.id));
    return unread == 0 ? folder.name : folder.name + u" (" + automation::to_text(unread) + u")";
}

void FolderTree::add_below(HTREEITEM above, RowId parent) {
    for (const RowId id : desk_.folders_below(parent)) {
        TVINSERTSTRUCTW insert{};
        insert.hParent = above;
        insert.hInsertAfter = TVI_LAST;
        insert.item.mask = TVIF_PARAM;
        insert.item.lParam = static_cast<LPARAM>(id);
        places_[id] = TreeView_InsertItem(control_, &insert);
        show_text(id);
        add_below(places_[id], id);
        TreeView_Expand(control_, places_[id], TVE_EXPAND);
    }
}

void FolderTree::show_text(RowId folder) {
    Text text = text_of(*desk_.folder_row(folder));
    TVITEMW item{};
    item.mask = TVIF_TEXT | TVIF_STATE;
    item.hItem = places_.at(folder);
    item.pszText = reinterpret_cast<wchar_t*>(text.data());
    item.stateMask = TVIS_BOLD;
    item.state = desk_.store().unread(folder) == 0 ? 0 : TVIS_BOLD;
    SendMessageW(control_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void FolderTree::follow_folders() {
    std::vector<ShownFolder> now;
    for (const FolderRow& row : desk_.folder_rows()) {
        now.push_back({row.id, row.parent, row.name, desk_.store().unread(row.id)});
    }
    const auto same_place = [](const ShownFolder& one, const ShownFolder& other) {
        return one.id == other.id && one.parent == other.parent && one.name == other.name;
    };
    if (std::ranges::equal(now, shown_folders_, same_place)) {
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (now[i].unread != shown_folders_[i].unread) show_text(now[i].id);
        }
        shown_folders_ = std::move(now);
        return;
    }
    shown_folders_ = std::move(now);
    TreeView_DeleteAllItems(control_);
    places_.clear();
    add_below(TVI_ROOT, 0);
    select_shown();
}

void FolderTree::select_shown() {
    const auto place = places_.find(shown_folder_);
    if (place != places_.end()) TreeView_SelectItem(control_, place->second);
}

void FolderTree::follow(RowId shown_folder) {
    follow_folders();
    if (shown_folder == shown_folder_) return;
    shown_folder_ = shown_folder;
    select_shown();
}

RowId FolderTree::folder_of(HTREEITEM place) const {
    const auto found = std::ranges::find(places_, place, [](const auto& entry) { return entry.second; });
    return found == places_.end() ? 0 : found->first;
}

}  // namespace desk
