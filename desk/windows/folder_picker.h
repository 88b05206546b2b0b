// A window in which a person picks a folder.
#pragma once

#include <functional>

#include "desk/windows/folder_tree.h"
#include "desk/windows/window.h"

namespace desk {

/// Stands before another window, which takes no clicks meanwhile. It can be destroyed when it has told what
/// came of it, and not before it has.
class FolderPicker : public DeskWindow {
  public:
    using Picked = std::function<void(RowId folder)>;  ///< 0: none

    FolderPicker(Desk& desk, HWND owner, RowId first, Picked picked);
    ~FolderPicker() override;

  private:
    void on_size(int width, int height) override;
    void on_close() override { end(0); }
    void on_command(int command, int code) override;
    bool on_key(int key) override;
    LRESULT on_notify(NMHDR& notice) override;
    HWND first_focus() const override { return tree_.control(); }

    RowId chosen() const;
    void end(RowId folder);

    HWND owner_;
    Picked picked_;
    FolderTree tree_;
    HWND take_, cancel_;
};

}  // namespace desk
