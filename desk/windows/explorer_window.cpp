#include "desk/windows/explorer_window.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/outlook/item.h"
#include "desk/windows/context_menu.h"

namespace desk {

using automation::Text;

namespace {

constexpr int tree_id = 1, list_id = 2, status_id = 3;
constexpr int least_part = 80;  // pixels, of what is beside a bar that is dragged
constexpr std::size_t tree_bar = 0;

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
      pane_(handle()),
      bars_(handle()) {
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT);
    bold_ = bold_font_of(list_);
    pane_.show(context.layout.pane);
    take_drops();
    open();
}

ExplorerWindow::~ExplorerWindow() { RevokeDragDrop(tree_.control()); }

void ExplorerWindow::take_drops() {
    const auto target =
        FolderDropTarget::create(context().module, tree_.control(), context().dragging,
                                 [this](const std::shared_ptr<Explorer>& from, HTREEITEM place, bool copies) {
                                     const RowId folder = tree_.folder_of(place);
                                     // not here: what follows from it may close the windows that are dragged
                                     // between
                                     if (folder != 0)
                                         desk_.surroundings().post([from, folder, copies] {
                                             from->drop_selection_on(folder, copies);
                                         });
                                 });
    RegisterDragDrop(tree_.control(), target.get());
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
    int place = 0;
    for (const Column& column : columns_of(*row)) {
        Text title(column.title);
        LVCOLUMNW header{};
        header.mask = LVCF_TEXT | LVCF_WIDTH;
        header.cx = column.width;
        header.pszText = reinterpret_cast<wchar_t*>(title.data());
        SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(place++),
                     reinterpret_cast<LPARAM>(&header));
    }
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

void ExplorerWindow::show_contents() {
    refreshing_ = true;
    tree_.follow(explorer_->folder());
    if (shown_folder_ != explorer_->folder()) {
        shown_folder_ = explorer_->folder();
        show_columns();
    }
    shown_row_.reset();
    shown_items_ = lines_.of(shown_folder_);
    show_sorting();
    if (ListView_GetItemCount(list_) != static_cast<int>(shown_items_.size())) {  // it arranges all anew
        SendMessageW(list_, LVM_SETITEMCOUNT, shown_items_.size(), LVSICF_NOSCROLL);
    }
    show_selection();
    pane_.follow(explorer_->selected());
    InvalidateRect(list_, nullptr, FALSE);
    const Text status = automation::to_text(static_cast<long long>(shown_items_.size())) +
                        (shown_items_.size() == 1 ? u" item, " : u" items, ") +
                        automation::to_text(static_cast<long long>(desk_.store().unread(shown_folder_))) +
                        u" unread";
    SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(windows::wide(status)));
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
    std::vector<int> lines;
    for (const automation::Object& object : explorer_->selected()) {
        const auto item = std::dynamic_pointer_cast<Item>(object.target());
        const auto line = item ? std::ranges::find(shown_items_, item->id()) : shown_items_.end();
        if (line != shown_items_.end()) lines.push_back(static_cast<int>(line - shown_items_.begin()));
    }
    if (lines == shown_selection_) return;
    shown_selection_ = lines;
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED);
    for (const int line : lines) ListView_SetItemState(list_, line, LVIS_SELECTED, LVIS_SELECTED);
    // the arrow keys go on from where the item stands now
    if (lines.size() == 1) ListView_SetItemState(list_, lines.front(), LVIS_FOCUSED, LVIS_FOCUSED);
}

namespace {

void mark(Item& item, bool read) {
    if (item.kind().number != object_class::mail || item.field(u"UnRead").to_boolean() != read) return;
    item.mark_read(read);
    item.save();
}

void open_item(Item& item) {
    mark(item, true);  // a mail that is opened has been read
    item.self().call(u"Display");
}

void remove_item(Item& item) { item.remove(); }

/// Does something with each selected item that is still there.
void with_selected(const std::shared_ptr<Explorer>& explorer, void (*what)(Item&)) {
    const std::vector<automation::Object> selected = explorer->selected();
    for (const automation::Object& object : selected) {
        const auto item = std::dynamic_pointer_cast<Item>(object.target());
        if (item && !item->is_gone()) what(*item);
    }
}

/// The whole of a right click, as soon as the click itself is over. The window may close meanwhile.
void open_context_menu(const std::shared_ptr<Explorer>& explorer, HWND owner, POINT place) {
    const std::shared_ptr<CommandBar> bar = explorer->context_menu();
    std::vector<OwnEntry> own;
    if (!explorer->selected().empty()) {
        own = {{L"&Open", [&] { with_selected(explorer, open_item); }, true},
               {L"Mark as &Read", [&] { with_selected(explorer, [](Item& item) { mark(item, true); }); }},
               {L"Mark as U&nread", [&] { with_selected(explorer, [](Item& item) { mark(item, false); }); }},
               {L"&Delete", [&] { with_selected(explorer, remove_item); }}};
    }
    if (const std::function<void()> chosen = choose_from_menu(owner, place, own, *bar)) chosen();
}

}  // namespace

/// What the keys do in the list. What follows from a removal may close this window, so it is not done here.
void ExplorerWindow::press_key(WORD key) {
    const bool control = GetKeyState(VK_CONTROL) < 0;
    if (key == VK_DELETE) {
        take_selection();
        desk_.surroundings().post([explorer = explorer_] { with_selected(explorer, remove_item); });
    } else if (key == 'A' && control) {
        ListView_SetItemState(list_, -1, LVIS_SELECTED, LVIS_SELECTED);
        take_selection();
    } else if (key == VK_F5) {
        refresh_items();
    }
}

/// Not here: what is told of the item may end this window.
void ExplorerWindow::leave_shown_item() {
    const std::shared_ptr<Item> shown = pane_.item();
    if (!shown || !context().layout.leaving_reads) return;
    desk_.surroundings().post([shown] {
        if (!shown->is_gone()) mark(*shown, true);
    });
}

void ExplorerWindow::show_pane(bool shown) {
    context().layout.pane = shown;
    pane_.show(shown);
    pane_.follow(explorer_->selected());
    lay_out_again();
}

void ExplorerWindow::refresh_items() {
    lines_.forget();
    show_contents();
}

void ExplorerWindow::on_menu_opens(HMENU menu) {
    const auto check = [&](int command, bool checked) {
        CheckMenuItem(menu, static_cast<UINT>(command), checked ? MF_CHECKED : MF_UNCHECKED);
    };
    check(show_pane_command, context().layout.pane);
    check(leaving_reads_command, context().layout.leaving_reads);
}

void ExplorerWindow::on_own_command(int command, int) {
    ExplorerLayout& layout = context().layout;
    switch (command) {
        case show_pane_command:
            return show_pane(!layout.pane);
        case leaving_reads_command:
            layout.leaving_reads = !layout.leaving_reads;
            return;
        case refresh_command:
            return refresh_items();
        default:
            return;
    }
}

void ExplorerWindow::open_selected() {
    take_selection();
    with_selected(explorer_, open_item);
}

void ExplorerWindow::select_at(POINT place) {
    LVHITTESTINFO hit{};
    hit.pt = place;
    ScreenToClient(list_, &hit.pt);
    const int line = ListView_HitTest(list_, &hit);
    if (line < 0 || ListView_GetItemState(list_, line, LVIS_SELECTED)) return;
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED);
    ListView_SetItemState(list_, line, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    take_selection();
}

void ExplorerWindow::on_context_menu(HWND control, POINT place) {
    if (control != list_) return;
    if (place.x == -1 && place.y == -1) {  // the keyboard's menu: at the item that has the focus
        RECT box{};
        const int line = ListView_GetNextItem(list_, -1, LVNI_FOCUSED);
        if (line >= 0) ListView_GetItemRect(list_, line, &box, LVIR_LABEL);
        place = {box.left + 8, box.bottom};
        ClientToScreen(list_, &place);
    } else {
        select_at(place);
    }
    desk_.surroundings().post(
        [explorer = explorer_, owner = handle(), place] { open_context_menu(explorer, owner, place); });
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
    } else if (notice.hwndFrom == list_ && notice.code == LVN_ITEMACTIVATE) {
        open_selected();
    } else if (notice.hwndFrom == list_ && notice.code == LVN_BEGINDRAG) {
        take_selection();
        desk_.surroundings().post([&context = context(), explorer = explorer_] {
            drag_selection(context.module, context.dragging, explorer);
        });
    }
    return 0;
}

}  // namespace desk
