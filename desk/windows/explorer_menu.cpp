#include "desk/windows/explorer_menu.h"

#include <algorithm>
#include <vector>

#include "desk/windows/item_commands.h"

namespace desk {
namespace {

constexpr MenuEntry menu_line{nullptr, 0};

constexpr MenuEntry open_entry{L"&Open\tCtrl+O", open_command};
constexpr MenuEntry reply_entry{L"&Reply\tCtrl+R", reply_command};
constexpr MenuEntry reply_all_entry{L"Reply to &All\tCtrl+Shift+R", reply_all_command};
constexpr MenuEntry forward_entry{L"&Forward\tCtrl+F", forward_command};
constexpr MenuEntry mark_read_entry{L"Mark as R&ead\tCtrl+Q", mark_read_command};
constexpr MenuEntry mark_unread_entry{L"Mark as &Unread\tCtrl+U", mark_unread_command};
constexpr MenuEntry move_entry{L"&Move to Folder...\tCtrl+Shift+V", move_command};
constexpr MenuEntry delete_entry{L"&Delete\tDel", delete_command};
constexpr MenuEntry select_all_entry{L"Select &All\tCtrl+A", select_all_command};
constexpr MenuEntry refresh_entry{L"Re&fresh\tF5", refresh_command};

constexpr MenuEntry edit_entries[] = {
    delete_entry,      move_entry, menu_line,        mark_read_entry,
    mark_unread_entry, menu_line,  select_all_entry, {L"&Search This Folder\tCtrl+E", search_command}};
constexpr MenuEntry view_entries[] = {{L"&Reading Pane", show_pane_command},
                                      {L"&Mark as Read When Another Is Selected", leaving_reads_command},
                                      menu_line,
                                      refresh_entry};
constexpr MenuEntry action_entries[] = {open_entry, menu_line, reply_entry, reply_all_entry, forward_entry};
constexpr MenuEntry help_entries[] = {
    {L"&Try This", first_page_command}, menu_line, {L"&About the Desk", about_command}};

/// The folders of the menu "Go", by the numbers of default folders.
struct GoRow {
    const wchar_t* text;
    int folder;
    int key;  ///< with the control key; 0: none
};
constexpr GoRow go_rows[] = {{L"&Inbox\tCtrl+1", 6, '1'},
                             {L"C&alendar\tCtrl+2", 9, '2'},
                             {L"&Contacts\tCtrl+3", 10, '3'},
                             {L"&Tasks\tCtrl+4", 13, '4'},
                             {L"&Drafts", 16, 0},
                             {L"&Sent Items", 5, 0},
                             {L"D&eleted Items", 3, 0}};

constexpr MenuEntry selected_entries[] = {open_entry,    menu_line,  reply_entry,     reply_all_entry,
                                          forward_entry, menu_line,  mark_read_entry, mark_unread_entry,
                                          menu_line,     move_entry, delete_entry};
constexpr MenuEntry unselected_entries[] = {
    {L"&New Item\tCtrl+N", new_item_command}, menu_line, select_all_entry, refresh_entry};

struct KeyRow {
    int key;
    bool with_control, with_shift;
    int command;
};
constexpr KeyRow key_rows[] = {
    {'N', true, false, new_item_command},    {'O', true, false, open_command},
    {'R', true, false, reply_command},       {'R', true, true, reply_all_command},
    {'F', true, false, forward_command},     {'Q', true, false, mark_read_command},
    {'U', true, false, mark_unread_command}, {'V', true, true, move_command},
    {'E', true, false, search_command},      {VK_F5, false, false, refresh_command}};

void append_popup(HMENU bar, const wchar_t* title, std::span<const MenuEntry> entries) {
    const HMENU popup = CreatePopupMenu();
    append_entries(popup, entries);
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), title);
}

std::vector<MenuEntry> go_entries() {
    std::vector<MenuEntry> entries;
    int command = first_go_command;
    for (const GoRow& row : go_rows) entries.push_back({row.text, command++});
    return entries;
}

}  // namespace

void append_entries(HMENU menu, std::span<const MenuEntry> entries) {
    for (const MenuEntry& entry : entries) {
        if (entry.text) {
            AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(entry.command), entry.text);
        } else {
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        }
    }
}

void add_explorer_menus(HMENU bar) {
    const HMENU file = GetSubMenu(bar, 0);
    constexpr UINT behind_new = 1;
    InsertMenuW(file, behind_new, MF_BYPOSITION | MF_STRING, open_entry.command, open_entry.text);
    InsertMenuW(file, behind_new + 1, MF_BYPOSITION | MF_SEPARATOR, 0, nullptr);
    InsertMenuW(file, behind_new + 2, MF_BYPOSITION | MF_STRING, deliver_command, L"&Deliver Mail Files...");
    InsertMenuW(file, behind_new + 3, MF_BYPOSITION | MF_SEPARATOR, 0, nullptr);
    AppendMenuW(file, MF_STRING, exit_command, L"E&xit");
    append_popup(bar, L"&Edit", edit_entries);
    append_popup(bar, L"&View", view_entries);
    append_popup(bar, L"&Go", go_entries());
    append_popup(bar, L"&Actions", action_entries);
    append_popup(bar, L"&Help", help_entries);
}

std::span<const MenuEntry> item_menu_entries(bool is_selected) {
    if (is_selected) return selected_entries;
    return unselected_entries;
}

int folder_to_go_to(int command) {
    const int place = command - first_go_command;
    return place < 0 || place >= static_cast<int>(std::size(go_rows)) ? 0 : go_rows[place].folder;
}

int command_of_key(int key) {
    if (is_held(VK_MENU)) return 0;
    const bool control = is_held(VK_CONTROL), shift = is_held(VK_SHIFT);
    const auto* const row = std::ranges::find_if(key_rows, [&](const KeyRow& each) {
        return each.key == key && each.with_control == control && each.with_shift == shift;
    });
    if (row != std::end(key_rows)) return row->command;
    const auto* const go = std::ranges::find(go_rows, key, &GoRow::key);
    return go != std::end(go_rows) && control && !shift
               ? first_go_command + static_cast<int>(go - std::begin(go_rows))
               : 0;
}

}  // namespace desk
