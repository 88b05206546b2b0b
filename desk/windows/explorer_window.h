// A main window: the folders, and the items of the one that is shown.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "desk/model/explorers.h"
#include "desk/windows/window.h"

namespace desk {

class ExplorerWindow : public DeskWindow {
  public:
    ExplorerWindow(Desk& desk, std::shared_ptr<Explorer> explorer);
    void refresh();

  private:
    void on_size(int width, int height) override;
    void on_close() override;
    LRESULT on_notify(NMHDR& notice) override;

    void show_folders();
    void add_folders(HTREEITEM above, RowId parent);
    void show_columns();
    void show_cell(LVITEMW& cell);
    void take_selection();
    void open_selected();

    Desk& desk_;
    std::shared_ptr<Explorer> explorer_;
    HWND tree_, list_, status_;
    std::map<RowId, HTREEITEM> places_;
    std::vector<std::pair<RowId, host::Text>> shown_folders_;
    std::vector<RowId> shown_items_;  ///< newest first
    RowId shown_folder_ = 0;
    bool refreshing_ = false;
};

}  // namespace desk
