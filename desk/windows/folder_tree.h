// The folders of a main window as a tree.
#pragma once

#include <map>
#include <vector>

#include "desk/base/desk.h"
#include "forms/windows/common_controls.h"

namespace desk {

/// Shows the desk's folders, each with the number of its unread items, in a control of its window.
class FolderTree {
  public:
    FolderTree(Desk& desk, HWND control) : desk_(desk), control_(control) {}

    HWND control() const { return control_; }

    /// The tree follows the model; the folder that is shown is the one that is selected.
    void follow(RowId shown_folder);

    RowId folder_of(HTREEITEM place) const;  ///< 0 for no folder's

  private:
    /// What decides whether the tree is made anew, and how many are told beside the name.
    struct ShownFolder {
        RowId id, parent;
        automation::Text name;
        std::int64_t unread;
    };

    automation::Text text_of(const FolderRow& folder) const;
    void show_text(RowId folder);
    void add_below(HTREEITEM above, RowId parent);
    void follow_folders();
    void select_shown();

    Desk& desk_;
    HWND control_;
    RowId shown_folder_ = 0;
    std::map<RowId, HTREEITEM> places_;
    std::vector<ShownFolder> shown_folders_;
};

}  // namespace desk
