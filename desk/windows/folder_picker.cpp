#include "desk/windows/folder_picker.h"

#include <utility>

#include "desk/windows/item_commands.h"

namespace desk {
namespace {

constexpr int picker_width = 360, picker_height = 420;                    // pixels
constexpr int picker_margin = 10, button_width = 88, button_height = 26;  // pixels
constexpr int picker_tree_id = 10;

/// In the middle of a window.
RECT place_before(HWND owner) {
    RECT box{};
    GetWindowRect(owner, &box);
    const LONG left = (box.left + box.right - picker_width) / 2,
               top = (box.top + box.bottom - picker_height) / 2;
    return {left, top, left + picker_width, top + picker_height};
}

}  // namespace

FolderPicker::FolderPicker(Desk& desk, HWND owner, RowId first, Picked picked)
    : DeskWindow(L"TarnwellDeskFolders", u"Move to Folder", place_before(owner), owner),
      owner_(owner),
      picked_(std::move(picked)),
      tree_(desk,
            add_control(WC_TREEVIEWW,
                        WS_TABSTOP | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                        WS_EX_CLIENTEDGE, picker_tree_id, L"Folders")),
      take_(add_control(WC_BUTTONW, WS_TABSTOP | BS_DEFPUSHBUTTON, 0, IDOK, L"&Move")),
      cancel_(add_control(WC_BUTTONW, WS_TABSTOP, 0, IDCANCEL, L"Cancel")) {
    tree_.follow(first);
    RECT client{};
    GetClientRect(handle(), &client);
    on_size(client.right, client.bottom);
    EnableWindow(owner_, FALSE);
    ShowWindow(handle(), SW_SHOW);
    SetFocus(tree_.control());
}

FolderPicker::~FolderPicker() { EnableWindow(owner_, TRUE); }

void FolderPicker::on_size(int width, int height) {
    const int buttons = height - picker_margin - button_height;
    MoveWindow(tree_.control(), picker_margin, picker_margin, width - 2 * picker_margin,
               buttons - 2 * picker_margin, TRUE);
    const int second = width - picker_margin - button_width;
    MoveWindow(take_, second - picker_margin - button_width, buttons, button_width, button_height, TRUE);
    MoveWindow(cancel_, second, buttons, button_width, button_height, TRUE);
}

RowId FolderPicker::chosen() const { return tree_.folder_of(TreeView_GetSelection(tree_.control())); }

void FolderPicker::end(RowId folder) {
    const Picked picked = std::exchange(picked_, nullptr);
    if (!picked) return;
    EnableWindow(owner_, TRUE);  // before this one goes, so that the system brings up its owner
    picked(folder);
}

void FolderPicker::on_command(int command, int code) {
    if (code != BN_CLICKED) return;
    if (command == IDOK) end(chosen());
    if (command == IDCANCEL) end(0);
}

bool FolderPicker::on_key(int key) {
    if (key == VK_ESCAPE || (key == VK_RETURN && GetFocus() == cancel_)) {
        end(0);
    } else if (key == VK_RETURN) {
        end(chosen());
    } else if (key == VK_TAB) {
        SetFocus(GetNextDlgTabItem(handle(), GetFocus(), is_held(VK_SHIFT)));
    } else {
        return false;
    }
    return true;
}

LRESULT FolderPicker::on_notify(NMHDR& notice) {
    if (notice.hwndFrom == tree_.control() && notice.code == NM_DBLCLK) {
        POINT point{};
        GetCursorPos(&point);
        TVHITTESTINFO hit{};
        hit.pt = point;
        ScreenToClient(tree_.control(), &hit.pt);
        if (TreeView_HitTest(tree_.control(), &hit) && (hit.flags & TVHT_ONITEM)) end(chosen());
    }
    return 0;
}

}  // namespace desk
