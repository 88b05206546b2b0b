// What a person does in a main window by menus, keys and the search box.
#include "desk/base/desk.h"
#include "desk/outlook/item.h"
#include "desk/windows/context_menu.h"
#include "desk/windows/explorer_window.h"
#include "desk/windows/item_commands.h"
#include "desk/windows/mail_files.h"
#include "desk/windows/selection_commands.h"
#include "forms/windows/form_control.h"

namespace desk {

namespace {

constexpr std::uint32_t information_box = 0x40;  // MB_ICONINFORMATION
constexpr automation::TextView about_text =
    u"The desk is a host program with Outlook's object model. It loads the add-in Tarnwell Create Note as "
    u"Outlook does, with a sample company to try it on.";

/// As a person who closes one main window after the other, until one stays open.
void close_all_by_user(const Explorers& explorers) {
    const std::vector<std::shared_ptr<Explorer>> open = explorers.open;
    for (const auto& explorer : open) {
        if (explorer->is_open()) explorer->close_by_user();
        if (explorer->is_open()) return;
    }
}

/// The whole of a right click, as soon as the click itself is over. The window may close meanwhile.
void open_context_menu(const std::shared_ptr<Explorer>& explorer, HWND owner, POINT place) {
    const std::shared_ptr<CommandBar> bar = explorer->context_menu();
    const bool is_selected = !explorer->selected().empty();
    const OwnEntries own{item_menu_entries(is_selected), is_selected ? open_command : 0,
                         [&](int command) { return can_run_on_selection(*explorer, command); },
                         [owner](int command) {
                             if (IsWindow(owner))
                                 SendMessageW(owner, WM_COMMAND, static_cast<WPARAM>(command), 0);
                         }};
    if (const std::function<void()> chosen = choose_from_menu(owner, place, own, bar.get())) chosen();
}

}  // namespace

/// What the keys do in the list alone.
void ExplorerWindow::press_key(WORD key) {
    if (key == VK_DELETE) {
        on_own_command(delete_command, 0);
    } else if (key == 'A' && is_held(VK_CONTROL)) {
        on_own_command(select_all_command, 0);
    } else if (key == VK_F5) {
        refresh_items();
    }
}

void ExplorerWindow::move_on(bool back) {
    if (const HWND next = GetNextDlgTabItem(handle(), GetFocus(), back)) SetFocus(next);
}

/// The lines follow what is typed, and what is selected follows the lines.
void ExplorerWindow::search() {
    if (refreshing_) return;
    search_.want(windows::window_text(search_box_));
    show_contents();
    take_selection();
}

void ExplorerWindow::end_search() {
    SetWindowTextW(search_box_, L"");
    SetFocus(list_);
}

bool ExplorerWindow::on_key(int key) {
    const HWND focus = GetFocus();
    if (focus == search_box_ && key == VK_ESCAPE) {
        end_search();
        return true;
    }
    if (focus == search_box_ && (key == VK_DOWN || key == VK_RETURN)) {
        SetFocus(list_);
        return true;
    }
    if ((focus == search_box_ || focus == pane_.text()) && key == 'A' && is_held(VK_CONTROL)) {
        SendMessageW(focus, EM_SETSEL, 0, -1);
        return true;
    }
    if (key == VK_TAB && !is_held(VK_CONTROL)) {
        move_on(is_held(VK_SHIFT));
        return true;
    }
    const int command = command_of_key(key);
    if (command == 0) return false;
    PostMessageW(handle(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    return true;
}

void ExplorerWindow::select_all() {
    ListView_SetItemState(list_, -1, LVIS_SELECTED, LVIS_SELECTED);
    take_selection();
    SetFocus(list_);
}

void ExplorerWindow::ask_for_folder() {
    if (picker_ || !can_run_on_selection(*explorer_, move_command)) return;
    picker_ = std::make_unique<FolderPicker>(desk_, handle(), shown_folder_, [this](RowId folder) {
        PostMessageW(handle(), WM_COMMAND, picker_closed_command, 0);
        if (folder == 0) return;
        desk_.surroundings().post(
            [explorer = explorer_, folder] { explorer->drop_selection_on(folder, false); });
    });
}

/// Not here: what is told of the item may end this window.
void ExplorerWindow::leave_shown_item() {
    const std::shared_ptr<Item> shown = pane_.item();
    if (!shown || !context().layout.leaving_reads) return;
    desk_.surroundings().post([shown] {
        if (!shown->is_gone()) mark_item(*shown, true);
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
    for (int command = open_command; command <= delete_command; ++command) {
        EnableMenuItem(menu, static_cast<UINT>(command),
                       can_run_on_selection(*explorer_, command) ? MF_ENABLED : MF_GRAYED);
    }
}

void ExplorerWindow::on_own_command(int command, int code) {
    ExplorerLayout& layout = context().layout;
    switch (command) {
        case search_id:
            if (code == EN_CHANGE) search();
            return;
        case search_command:
            SetFocus(search_box_);
            SendMessageW(search_box_, EM_SETSEL, 0, -1);
            return;
        case show_pane_command:
            return show_pane(!layout.pane);
        case leaving_reads_command:
            layout.leaving_reads = !layout.leaving_reads;
            return;
        case refresh_command:
            return refresh_items();
        case select_all_command:
            return select_all();
        case move_command:
            take_selection();
            return ask_for_folder();
        case picker_closed_command:
            return picker_.reset();
        case first_page_command:
            return desk_.surroundings().post(context().show_first_page);
        case about_command:
            return desk_.surroundings().post(
                [&desk = desk_] { desk.surroundings().ask(about_text, u"About the Desk", information_box); });
        case deliver_command:
            return desk_.surroundings().post([&desk = desk_, owner = handle()] {
                if (IsWindow(owner)) deliver_files(desk, choose_mail_files(owner));
            });
        case exit_command:
            return desk_.surroundings().post(
                [explorers = desk_.explorers()] { close_all_by_user(*explorers); });
        default:
            break;
    }
    if (const int number = folder_to_go_to(command); number != 0) {
        if (const RowId folder = desk_.default_folder(number); folder != 0) {
            leave_shown_item();
            explorer_->show_folder(folder);
        }
    } else if (command >= open_command && command <= delete_command) {
        take_selection();
        // not here: what follows from a removal may close this window
        desk_.surroundings().post([explorer = explorer_, command] { run_on_selection(explorer, command); });
    }
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

}  // namespace desk
