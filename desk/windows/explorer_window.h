// A main window: the folders, and the items of the one that is shown.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "desk/outlook/explorers.h"
#include "desk/windows/host_frame.h"
#include "desk/windows/item_lines.h"
#include "forms/windows/drawing.h"

namespace desk {

class ExplorerWindow : public HostFrame {
  public:
    ExplorerWindow(FrameContext& context, std::shared_ptr<Explorer> explorer);
    ~ExplorerWindow() override;

  private:
    void show_contents() override;
    void lay_out(int top, int width, int height) override;
    void on_context_menu(HWND control, POINT place) override;
    LRESULT on_notify(NMHDR& notice) override;

    RowId shown_folder() const override { return explorer_->folder(); }
    HWND first_focus() const override { return list_; }

    void take_drops();
    void show_folders();
    automation::Text folder_text(const FolderRow& folder) const;
    void show_folder_text(RowId folder);
    void select_place();
    void add_folders(HTREEITEM above, RowId parent);
    void show_columns();
    void show_sorting();
    void show_cell(LVITEMW& cell);
    const ItemRow* row_of_line(std::size_t line);  ///< until something changes; null if it has gone
    LRESULT draw_line(NMLVCUSTOMDRAW& drawing);
    void press_key(WORD key);
    void take_selection();
    void select_at(POINT place);  ///< the item at a point of the screen, where a click has left it unselected
    void show_selection();
    void open_selected();

    /// What decides whether the tree is made anew, and how many are told beside the name.
    struct ShownFolder {
        RowId id, parent;
        automation::Text name;
        std::int64_t unread;
    };

    Desk& desk_;
    std::shared_ptr<Explorer> explorer_;
    HWND tree_ = nullptr, list_ = nullptr, status_ = nullptr;
    std::map<RowId, HTREEITEM> places_;
    std::vector<ShownFolder> shown_folders_;
    ItemLines lines_{desk_};
    std::vector<RowId> shown_items_;    ///< line by line
    std::optional<ItemRow> shown_row_;  ///< whose cells are being asked for; until something changes
    std::vector<int> shown_selection_;  ///< lines
    RowId shown_folder_ = 0;
    windows::DrawingObject<HFONT> bold_;  ///< of what is unread
    bool refreshing_ = false;
};

}  // namespace desk
