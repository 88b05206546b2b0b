#include "desk/windows/explorer_window.h"

#include <algorithm>
#include <array>
#include <span>

#include "desk/base/desk.h"
#include "desk/outlook/item.h"
#include "desk/windows/context_menu.h"
#include "desk/windows/shown_value.h"

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr int tree_id = 1, list_id = 2, status_id = 3;
constexpr int tree_width = 240;  // pixels

struct Column {
    TextView title, field;
    int width;
};
constexpr Column mail_columns[] = {{u"From", u"SenderName", 170},
                                   {u"Subject", u"Subject", 300},
                                   {u"Received", u"ReceivedTime", 130},
                                   {u"Flag", u"FlagRequest", 215}};
constexpr Column post_columns[] = {{u"Subject", u"Subject", 320},
                                   {u"Account", u"Account Name", 190},
                                   {u"Contact", u"Contact Name", 160},
                                   {u"Type", u"Type", 110}};
constexpr Column contact_columns[] = {{u"Name", u"FullName", 180},
                                      {u"Company", u"CompanyName", 200},
                                      {u"E-mail", u"Email1Address", 220},
                                      {u"Telephone", u"BusinessTelephoneNumber", 130}};
constexpr Column appointment_columns[] = {{u"Subject", u"Subject", 320},
                                          {u"Start", u"Start", 130},
                                          {u"End", u"End", 130},
                                          {u"Contact", u"Contact Name", 160}};
constexpr Column task_columns[] = {
    {u"Subject", u"Subject", 320}, {u"Due", u"DueDate", 130}, {u"Contact", u"Contact Name", 160}};

std::span<const Column> columns_of(const FolderRow& folder) {
    constexpr std::int32_t appointments = 1, contacts = 2, tasks = 3;
    if (folder.item_type == appointments) return appointment_columns;
    if (folder.item_type == contacts) return contact_columns;
    if (folder.item_type == tasks) return task_columns;
    if (folder.default_class == u"IPM.Note") return mail_columns;
    return post_columns;
}

}  // namespace

ExplorerWindow::ExplorerWindow(FrameContext& context, std::shared_ptr<Explorer> explorer)
    : HostFrame(context, L"TarnwellDeskExplorer", *explorer),
      desk_(context.desk),
      explorer_(std::move(explorer)) {
    tree_ = add_control(WC_TREEVIEWW,
                        WS_TABSTOP | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                        WS_EX_CLIENTEDGE, tree_id, L"Folders");
    list_ = add_control(WC_LISTVIEWW, WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS,
                        WS_EX_CLIENTEDGE, list_id, L"Items");
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT);
    status_ = add_control(STATUSCLASSNAMEW, SBARS_SIZEGRIP, 0, status_id);
    take_drops();
    open();
}

ExplorerWindow::~ExplorerWindow() { RevokeDragDrop(tree_); }

void ExplorerWindow::take_drops() {
    const auto target = FolderDropTarget::create(
        context().module, tree_, context().dragging,
        [this](const std::shared_ptr<Explorer>& from, HTREEITEM place, bool copies) {
            const auto found =
                std::ranges::find(places_, place, [](const auto& entry) { return entry.second; });
            if (found == places_.end()) return;
            // not here: what follows from it may close the windows that are dragged between
            desk_.surroundings().post(
                [from, folder = found->first, copies] { from->drop_selection_on(folder, copies); });
        });
    RegisterDragDrop(tree_, target.get());
}

void ExplorerWindow::lay_out(int top, int width, int height) {
    SendMessageW(status_, WM_SIZE, 0, 0);
    RECT bar{};
    GetWindowRect(status_, &bar);
    const int below = height - (bar.bottom - bar.top);
    MoveWindow(tree_, 0, top, tree_width, below - top, TRUE);
    MoveWindow(list_, tree_width, top, width - tree_width, below - top, TRUE);
}

void ExplorerWindow::add_folders(HTREEITEM above, RowId parent) {
    for (const RowId id : desk_.folders_below(parent)) {
        Text name = desk_.folder_row(id)->name;
        TVINSERTSTRUCTW insert{};
        insert.hParent = above;
        insert.hInsertAfter = TVI_LAST;
        insert.item.mask = TVIF_TEXT | TVIF_PARAM;
        insert.item.pszText = reinterpret_cast<wchar_t*>(name.data());
        insert.item.lParam = static_cast<LPARAM>(id);
        places_[id] = TreeView_InsertItem(tree_, &insert);
        add_folders(places_[id], id);
        TreeView_Expand(tree_, places_[id], TVE_EXPAND);
    }
}

void ExplorerWindow::show_folders() {
    std::vector<std::pair<RowId, Text>> now;
    for (const FolderRow& row : desk_.folder_rows()) now.emplace_back(row.id, row.name);
    if (now == shown_folders_) return;
    shown_folders_ = std::move(now);
    TreeView_DeleteAllItems(tree_);
    places_.clear();
    add_folders(TVI_ROOT, 0);
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

void ExplorerWindow::show_contents() {
    refreshing_ = true;
    show_folders();
    if (shown_folder_ != explorer_->folder()) {
        shown_folder_ = explorer_->folder();
        show_columns();
        const auto place = places_.find(shown_folder_);
        if (place != places_.end()) TreeView_SelectItem(tree_, place->second);
    }
    shown_items_.clear();
    shown_row_.reset();
    if (desk_.folder_row(shown_folder_)) {
        const std::vector<RowId>& all = desk_.contents(shown_folder_);
        shown_items_.assign(all.rbegin(), all.rend());
    }
    if (ListView_GetItemCount(list_) != static_cast<int>(shown_items_.size())) {  // it arranges all anew
        SendMessageW(list_, LVM_SETITEMCOUNT, shown_items_.size(), LVSICF_NOSCROLL);
    }
    show_selection();
    InvalidateRect(list_, nullptr, FALSE);
    const Text status = automation::to_text(static_cast<long long>(shown_items_.size())) + u" items, " +
                        automation::to_text(static_cast<long long>(desk_.store().unread(shown_folder_))) +
                        u" unread";
    SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(windows::wide(status)));
    refreshing_ = false;
}

void ExplorerWindow::show_cell(LVITEMW& cell) {
    if (!(cell.mask & LVIF_TEXT) || cell.cchTextMax <= 0) return;
    cell.pszText[0] = L'\0';
    const auto line = static_cast<std::size_t>(cell.iItem);
    const FolderRow* const folder = desk_.folder_row(shown_folder_);
    if (line >= shown_items_.size() || !folder) return;
    const auto columns = columns_of(*folder);
    const RowId item = shown_items_[line];
    if (!shown_row_ || shown_row_->id != item) shown_row_ = desk_.store().load(item);
    if (!shown_row_ || static_cast<std::size_t>(cell.iSubItem) >= columns.size()) return;
    const Text text = shown_value(shown_row_->data, columns[static_cast<std::size_t>(cell.iSubItem)].field);
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(cell.cchTextMax - 1));
    std::copy_n(windows::wide(text), length, cell.pszText);
    cell.pszText[length] = L'\0';
}

void ExplorerWindow::take_selection() {
    std::vector<automation::Object> selected;
    for (int line = -1; (line = ListView_GetNextItem(list_, line, LVNI_SELECTED)) >= 0;) {
        const auto place = static_cast<std::size_t>(line);
        const auto item = place < shown_items_.size() ? desk_.open_item(shown_items_[place]) : nullptr;
        if (item) selected.push_back(item->self());
    }
    if (selected != explorer_->selected()) explorer_->select(std::move(selected));
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
               {L"&Delete", [&] { with_selected(explorer, [](Item& item) { item.remove(); }); }}};
    }
    if (const std::function<void()> chosen = choose_from_menu(owner, place, own, *bar)) chosen();
}

}  // namespace

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
    if (refreshing_ && notice.code != LVN_GETDISPINFOW) return 0;
    if (notice.hwndFrom == tree_ && notice.code == TVN_SELCHANGEDW) {
        const auto& change = reinterpret_cast<NMTREEVIEWW&>(notice);
        explorer_->show_folder(static_cast<RowId>(change.itemNew.lParam));
    } else if (notice.hwndFrom == list_ && notice.code == LVN_GETDISPINFOW) {
        show_cell(reinterpret_cast<NMLVDISPINFOW&>(notice).item);
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
