// A main window: the folders, the items of the one that is shown, and what is selected of them, to be read.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "desk/outlook/explorers.h"
#include "desk/windows/explorer_menu.h"
#include "desk/windows/folder_picker.h"
#include "desk/windows/folder_search.h"
#include "desk/windows/folder_tree.h"
#include "desk/windows/host_frame.h"
#include "desk/windows/item_lines.h"
#include "desk/windows/reading_pane.h"
#include "desk/windows/split_bars.h"
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
    void add_menus(HMENU bar) override { add_explorer_menus(bar); }
    bool on_key(int key) override;
    void on_timer() override { show_contents(); }  ///< a search goes on
    void on_menu_opens(HMENU menu) override;
    void on_own_command(int command, int code) override;
    void on_mouse(UINT message, POINT point) override;
    bool show_cursor() override { return bars_.show_cursor(); }

    RowId shown_folder() const override { return explorer_->folder(); }
    HWND first_focus() const override { return list_; }

    void take_drops();
    void show_columns();
    void note_columns();  ///< as wide as a person has made them
    void note_place();
    void show_sorting();
    void show_cell(LVITEMW& cell);
    const ItemRow* row_of_line(std::size_t line);  ///< until something changes; null if it has gone
    LRESULT draw_line(NMLVCUSTOMDRAW& drawing);
    void press_key(WORD key);
    void take_selection();
    void leave_shown_item();  ///< the reading pane is about to show something else, as a person wants it
    void show_pane(bool shown);
    void refresh_items();
    void move_on(bool back);  ///< the keyboard's focus, from control to control
    void select_all();
    void search();  ///< for what stands in its box
    void end_search();
    std::vector<RowId> lines_now();
    automation::Text status_now() const;
    void ask_for_folder();        ///< that the selection is to be moved to
    void select_at(POINT place);  ///< the item at a point of the screen, where a click has left it unselected
    void show_selection();

    static constexpr int search_id = 4;  // of the controls; the others' are known where they are made

    Desk& desk_;
    std::shared_ptr<Explorer> explorer_;
    FolderTree tree_;
    HWND list_, status_, search_title_, search_box_;
    ReadingPane pane_;
    SplitBars bars_;
    std::unique_ptr<FolderPicker> picker_;
    ItemLines lines_{desk_};
    FolderSearch search_{desk_};
    bool searching_ = false;            ///< not all items have been looked at
    std::vector<RowId> shown_items_;    ///< line by line
    std::optional<ItemRow> shown_row_;  ///< whose cells are being asked for; until something changes
    std::vector<int> shown_selection_;  ///< lines
    RowId shown_folder_ = 0;
    windows::DrawingObject<HFONT> bold_;  ///< of what is unread
    bool refreshing_ = false;
};

}  // namespace desk
