#include "desk/windows/explorer_window.h"

#include <algorithm>
#include <unordered_map>

#include "desk/base/desk.h"
#include "desk/outlook/item.h"
#include "desk/windows/mail_files.h"

namespace desk {

using automation::Text;

namespace {

constexpr int tree_id = 1, list_id = 2, status_id = 3;
constexpr int least_part = 80;  // pixels, of what is beside a bar that is dragged
constexpr std::size_t tree_bar = 0;
constexpr int search_height = 22, search_gap = 3, search_title_width = 56, search_title_drop = 7;  // pixels

constexpr std::size_t searched_at_once = 1000;  // items
constexpr UINT_PTR search_timer = 1;
constexpr UINT search_pause = 10;  // milliseconds, in which the keyboard and the mouse have their turn

constexpr std::int32_t inbox_number = 6;  // of default folders

/// The list's own font, bold.
windows::DrawingObject<HFONT> bold_font_of(HWND control) {
    LOGFONTW font{};
    const auto own = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    GetObjectW(own ? own : GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
    font.lfWeight = FW_BOLD;
    return windows::DrawingObject<HFONT>(CreateFontIndirectW(&font));
}

bool is_unread(const ItemData& item) {
    const std::optional<automation::Value> value = field_value(item, u"UnRead");
    return value && value->to_boolean();
}

}  // namespace

ExplorerWindow::ExplorerWindow(FrameContext& context, std::shared_ptr<Explorer> explorer)
    : HostFrame(context, L"TarnwellDeskExplorer", *explorer),
      desk_(context.desk),
      explorer_(std::move(explorer)),
      tree_(desk_,
            add_control(WC_TREEVIEWW,
                        WS_TABSTOP | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                        WS_EX_CLIENTEDGE, tree_id, L"Folders")),
      list_(add_control(WC_LISTVIEWW, WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS,
                        WS_EX_CLIENTEDGE, list_id, L"Items")),
      status_(add_control(STATUSCLASSNAMEW, 0, 0, status_id)),
      search_title_(add_control(WC_STATICW, SS_RIGHT, 0, 0, L"Search:")),
      search_box_(add_control(WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, search_id)),
      pane_(handle()),
      bars_(handle()) {
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT);
    bold_ = bold_font_of(list_);
    pane_.show(context.layout.pane);
    take_drops();
    open();
}

ExplorerWindow::~ExplorerWindow() {
    note_columns();
    note_place();
    RevokeDragDrop(tree_.control());
    RevokeDragDrop(list_);
}

void ExplorerWindow::take_drops() {
    // nothing of it here: what follows from it may close the windows that are dragged between
    const auto take = [this](std::vector<Text> paths) {
        desk_.surroundings().post([&desk = desk_, paths = std::move(paths)] { deliver_files(desk, paths); });
    };
    const auto is_inbox = [this](RowId folder) {
        return folder != 0 && folder == desk_.default_folder(inbox_number);
    };
    const auto of_tree = FolderDropTarget::create(
        context().module, tree_.control(), context().dragging,
        [this](const std::shared_ptr<Explorer>& from, HTREEITEM place, bool copies) {
            const RowId folder = tree_.folder_of(place);
            if (folder == 0) return;
            desk_.surroundings().post([from, folder, copies] { from->drop_selection_on(folder, copies); });
        },
        {[this, is_inbox](HTREEITEM place) { return is_inbox(tree_.folder_of(place)); }, take});
    RegisterDragDrop(tree_.control(), of_tree.get());
    const auto of_list = FilesDropTarget::create(
        context().module, {[this, is_inbox] { return is_inbox(explorer_->folder()); }, take});
    RegisterDragDrop(list_, of_list.get());
}

void ExplorerWindow::lay_out(int top, int width, int height) {
    SendMessageW(status_, WM_SIZE, 0, 0);
    RECT bar{};
    GetWindowRect(status_, &bar);
    const int below = height - (bar.bottom - bar.top);
    constexpr int gap = SplitBars::thickness;
    const int tree =
        std::clamp(context().layout.tree_width, least_part, std::max(width - least_part, least_part));
    const int left = tree + gap;
    MoveWindow(tree_.control(), 0, top, tree, below - top, TRUE);
    std::vector<SplitBars::Bar> bars{{{tree, top, left, below}, true}};
    int list_end = below;
    if (pane_.is_shown()) {
        const int pane = std::clamp(context().layout.pane_height, least_part,
                                    std::max(below - top - least_part, least_part));
        list_end = below - pane - gap;
        bars.push_back({{left, list_end, width, list_end + gap}, false});
        pane_.place({left, list_end + gap, width, below});
    }
    MoveWindow(search_title_, left, top + search_title_drop, search_title_width,
               search_height + 2 * search_gap - search_title_drop, TRUE);
    MoveWindow(search_box_, left + search_title_width + search_gap, top + search_gap,
               width - left - search_title_width - 2 * search_gap, search_height, TRUE);
    top += search_height + 2 * search_gap;
    MoveWindow(list_, left, top, width - left, list_end - top, TRUE);
    bars_.place(std::move(bars));
}

void ExplorerWindow::on_mouse(UINT message, POINT point) {
    const std::optional<SplitBars::Moved> moved = bars_.follow(message, point);
    if (!moved) return;
    RECT client{}, bar{};
    GetClientRect(handle(), &client);
    GetWindowRect(status_, &bar);
    ExplorerLayout& layout = context().layout;
    if (moved->bar == tree_bar) {
        layout.tree_width = moved->to;
    } else {
        layout.pane_height =
            static_cast<int>(client.bottom - (bar.bottom - bar.top)) - moved->to - SplitBars::thickness;
    }
    lay_out_again();
}

void ExplorerWindow::show_columns() {
    while (ListView_DeleteColumn(list_, 0)) {
    }
    const FolderRow* const row = desk_.folder_row(shown_folder_);
    if (!row) return;
    std::size_t place = 0;
    const auto columns = columns_of(*row);
    const auto widths = context().layout.columns.find(fields_of(columns));
    const bool known = widths != context().layout.columns.end() && widths->second.size() == columns.size();
    for (const Column& column : columns) {
        Text title(column.title);
        LVCOLUMNW header{};
        header.mask = LVCF_TEXT | LVCF_WIDTH;
        header.cx = known ? widths->second[place] : column.width;
        header.pszText = reinterpret_cast<wchar_t*>(title.data());
        SendMessageW(list_, LVM_INSERTCOLUMNW, place++, reinterpret_cast<LPARAM>(&header));
    }
}

void ExplorerWindow::note_columns() {
    const FolderRow* const row = desk_.folder_row(shown_folder_);
    if (!row) return;
    const auto columns = columns_of(*row);
    if (Header_GetItemCount(ListView_GetHeader(list_)) != static_cast<int>(columns.size())) return;
    std::vector<int> widths;
    for (int i = 0; i < static_cast<int>(columns.size()); ++i)
        widths.push_back(ListView_GetColumnWidth(list_, i));
    context().layout.columns[fields_of(columns)] = std::move(widths);
}

void ExplorerWindow::note_place() {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!GetWindowPlacement(handle(), &placement)) return;
    const RECT& place = placement.rcNormalPosition;
    ExplorerLayout& layout = context().layout;
    layout.left = static_cast<int>(place.left);
    layout.top = static_cast<int>(place.top);
    layout.width = static_cast<int>(place.right - place.left);
    layout.height = static_cast<int>(place.bottom - place.top);
    layout.maximized = IsZoomed(handle()) != FALSE;
}

/// Marks the heading by which the lines are sorted.
void ExplorerWindow::show_sorting() {
    const std::optional<Sorting> sorting = lines_.sorting(shown_folder_);
    const HWND headings = ListView_GetHeader(list_);
    const int count = Header_GetItemCount(headings);
    for (int i = 0; i < count; ++i) {
        HDITEMW heading{};
        heading.mask = HDI_FORMAT;
        SendMessageW(headings, HDM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&heading));
        const int before = heading.fmt;
        heading.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (sorting && sorting->column == i) heading.fmt |= sorting->descending ? HDF_SORTDOWN : HDF_SORTUP;
        if (heading.fmt == before) continue;
        SendMessageW(headings, HDM_SETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&heading));
    }
}

/// What is found is shown as it is found: a large folder is searched a part at a time.
std::vector<RowId> ExplorerWindow::lines_now() {
    const std::vector<RowId>& all = lines_.of(shown_folder_);
    const FolderRow* const folder = desk_.folder_row(shown_folder_);
    if (!search_.is_on() || !folder) {
        searching_ = false;
        KillTimer(handle(), search_timer);
        return all;
    }
    if (all.size() <= searched_at_once) search_.forget();  // they may have changed
    searching_ = search_.look_further(all, columns_of(*folder), searched_at_once);
    if (searching_) {
        SetTimer(handle(), search_timer, search_pause, nullptr);
    } else {
        KillTimer(handle(), search_timer);
    }
    return search_.found(all);
}

Text ExplorerWindow::status_now() const {
    const auto number = [](std::size_t count) { return automation::to_text(static_cast<long long>(count)); };
    const std::size_t all = desk_.contents(shown_folder_).size();
    const Text items = number(all) + (all == 1 ? u" item" : u" items");
    if (search_.is_on())
        return number(shown_items_.size()) + u" of " + items + (searching_ ? u", searching ..." : u"");
    return items + u", " + number(static_cast<std::size_t>(desk_.store().unread(shown_folder_))) + u" unread";
}

void ExplorerWindow::show_contents() {
    refreshing_ = true;
    tree_.follow(explorer_->folder());
    if (shown_folder_ != explorer_->folder()) {
        note_columns();
        shown_folder_ = explorer_->folder();
        show_columns();
        SetWindowTextW(search_box_, L"");
        search_.want({});
    }
    shown_row_.reset();
    shown_items_ = lines_now();
    show_sorting();
    if (ListView_GetItemCount(list_) != static_cast<int>(shown_items_.size())) {  // it arranges all anew
        SendMessageW(list_, LVM_SETITEMCOUNT, shown_items_.size(), LVSICF_NOSCROLL);
    }
    show_selection();
    pane_.follow(explorer_->selected());
    InvalidateRect(list_, nullptr, FALSE);
    SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(windows::wide(status_now())));
    refreshing_ = false;
}

void ExplorerWindow::show_cell(LVITEMW& cell) {
    if (!(cell.mask & LVIF_TEXT) || cell.cchTextMax <= 0) return;
    cell.pszText[0] = L'\0';
    const FolderRow* const folder = desk_.folder_row(shown_folder_);
    const ItemRow* const row = row_of_line(static_cast<std::size_t>(cell.iItem));
    if (!folder || !row) return;
    const auto columns = columns_of(*folder);
    if (static_cast<std::size_t>(cell.iSubItem) >= columns.size()) return;
    const Text text = cell_text(row->data, columns[static_cast<std::size_t>(cell.iSubItem)]);
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(cell.cchTextMax - 1));
    std::copy_n(windows::wide(text), length, cell.pszText);
    cell.pszText[length] = L'\0';
}

const ItemRow* ExplorerWindow::row_of_line(std::size_t line) {
    if (line >= shown_items_.size()) return nullptr;
    if (!shown_row_ || shown_row_->id != shown_items_[line])
        shown_row_ = desk_.store().load(shown_items_[line]);
    return shown_row_ ? &*shown_row_ : nullptr;
}

/// What is unread is written in bold.
LRESULT ExplorerWindow::draw_line(NMLVCUSTOMDRAW& drawing) {
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const ItemRow* const row = row_of_line(drawing.nmcd.dwItemSpec);
    if (!row || !is_unread(row->data)) return CDRF_DODEFAULT;
    SelectObject(drawing.nmcd.hdc, bold_.get());
    return CDRF_NEWFONT;
}

void ExplorerWindow::take_selection() {
    std::vector<automation::Object> selected;
    for (int line = -1; (line = ListView_GetNextItem(list_, line, LVNI_SELECTED)) >= 0;) {
        const auto place = static_cast<std::size_t>(line);
        const auto item = place < shown_items_.size() ? desk_.open_item(shown_items_[place]) : nullptr;
        if (item) selected.push_back(item->self());
    }
    if (selected == explorer_->selected()) return;
    leave_shown_item();
    explorer_->select(std::move(selected));
}

void ExplorerWindow::show_selection() {
    std::unordered_map<RowId, int> line_of;
    if (!explorer_->selected().empty()) {
        for (const RowId id : shown_items_) line_of.emplace(id, static_cast<int>(line_of.size()));
    }
    std::vector<int> lines;
    for (const automation::Object& object : explorer_->selected()) {
        const auto item = std::dynamic_pointer_cast<Item>(object.target());
        const auto line = item ? line_of.find(item->id()) : line_of.end();
        if (line != line_of.end()) lines.push_back(line->second);
    }
    if (lines == shown_selection_) return;
    shown_selection_ = lines;
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED);
    for (const int line : lines) ListView_SetItemState(list_, line, LVIS_SELECTED, LVIS_SELECTED);
    // the arrow keys go on from where the item stands now
    if (lines.size() == 1) ListView_SetItemState(list_, lines.front(), LVIS_FOCUSED, LVIS_FOCUSED);
}

LRESULT ExplorerWindow::on_notify(NMHDR& notice) {
    HostFrame::on_notify(notice);
    if (refreshing_ && notice.code != LVN_GETDISPINFOW && notice.code != NM_CUSTOMDRAW) return 0;
    if (notice.hwndFrom == tree_.control() && notice.code == TVN_SELCHANGEDW) {
        const auto& change = reinterpret_cast<NMTREEVIEWW&>(notice);
        leave_shown_item();
        explorer_->show_folder(static_cast<RowId>(change.itemNew.lParam));
    } else if (notice.hwndFrom == list_ && notice.code == LVN_GETDISPINFOW) {
        show_cell(reinterpret_cast<NMLVDISPINFOW&>(notice).item);
    } else if (notice.hwndFrom == list_ && notice.code == NM_CUSTOMDRAW) {
        return draw_line(reinterpret_cast<NMLVCUSTOMDRAW&>(notice));
    } else if (notice.hwndFrom == list_ && notice.code == LVN_COLUMNCLICK) {
        lines_.sort_by(shown_folder_, reinterpret_cast<NMLISTVIEW&>(notice).iSubItem);
        show_contents();
    } else if (notice.hwndFrom == list_ && notice.code == LVN_KEYDOWN) {
        press_key(reinterpret_cast<NMLVKEYDOWN&>(notice).wVKey);
    } else if (notice.hwndFrom == list_ && notice.code == LVN_ITEMCHANGED) {
        const auto& change = reinterpret_cast<NMLISTVIEW&>(notice);
        if ((change.uOldState ^ change.uNewState) & LVIS_SELECTED) take_selection();
    } else if (notice.hwndFrom == list_ && notice.code == LVN_ODSTATECHANGED) {
        take_selection();  // of a whole range at once, with the shift key
    } else if (notice.hwndFrom == list_ && notice.code == LVN_ITEMACTIVATE) {
        on_own_command(open_command, 0);
    } else if (notice.hwndFrom == list_ && notice.code == LVN_BEGINDRAG) {
        take_selection();
        desk_.surroundings().post([&context = context(), explorer = explorer_] {
            drag_selection(context.module, context.dragging, explorer);
        });
    }
    return 0;
}

}  // namespace desk
