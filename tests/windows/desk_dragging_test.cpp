// Items that are dragged out of the list of a main window, with a real mouse as far as the system goes.
#include <functional>

#include "desk/driver/dragged.h"
#include "desk/outlook/item.h"
#include "desk/windows/dragged_files.h"
#include "forms/windows/drop_target.h"
#include "tests/windows/support/desk_windows_fixture.h"
#include "tests/windows/support/hand.h"

namespace desk_tests {
namespace {

constexpr std::int32_t deleted_items = 3, inbox = 6, drafts = 16;

class DeskDragging : public DeskWindowsTest {
  protected:
    DeskDragging() {
        add_mail(u"One");
        add_mail(u"Two");
        SetWindowPos(explorer_window(), HWND_TOPMOST, 0, 0, 900, 600, 0);
        run_messages();
    }

    void add_mail(TextView subject) {
        desk::ItemData data;
        data.message_class = u"IPM.Note";
        data.fields[u"Subject"] = Value(subject);
        std::make_shared<desk::Item>(desk, desk.default_folder(inbox), std::move(data))->save();
    }
    std::size_t count(std::int32_t folder) { return desk.contents(desk.default_folder(folder)).size(); }

    static HWND control(TextView class_name) {
        return windows_of_class(class_name, explorer_window()).front();
    }

    static POINT on_screen(HWND window, const RECT& box) {
        POINT point{box.left + 12, (box.top + box.bottom) / 2};
        ClientToScreen(window, &point);
        return point;
    }
    static POINT list_line(int line) {
        RECT box{};
        ListView_GetItemRect(control(u"SysListView32"), line, &box, LVIR_LABEL);
        return on_screen(control(u"SysListView32"), box);
    }
    static POINT tree_line(TextView name) {
        const HWND tree = control(u"SysTreeView32");
        for (HTREEITEM item = TreeView_GetRoot(tree); item; item = TreeView_GetNextVisible(tree, item)) {
            std::array<wchar_t, 100> text{};
            TVITEMW row{};
            row.mask = TVIF_TEXT;
            row.hItem = item;
            row.pszText = text.data();
            row.cchTextMax = static_cast<int>(text.size());
            SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&row));
            if (TextView(reinterpret_cast<const char16_t*>(text.data())) != name) continue;
            RECT box{};
            TreeView_GetItemRect(tree, item, &box, TRUE);
            return on_screen(tree, box);
        }
        return {};
    }

    /// Drags from one point of the screen to another, and waits for what comes of it.
    bool drag(POINT from, POINT to, const std::function<bool()>& done) {
        const Hand hand(Hand::dragging(from, to));
        return wait_until([&] { return hand.done() && done(); });
    }
};

TEST_F(DeskDragging, MovesAnItemOntoAFolder) {
    EXPECT_TRUE(drag(list_line(0), tree_line(u"Drafts"), [&] { return count(drafts) == 1; }));
    EXPECT_EQ(count(inbox), 1U);
    const auto moved = desk.open_item(desk.contents(desk.default_folder(drafts)).at(0));
    EXPECT_EQ(moved->subject(), u"Two") << "the newest stands first";
}

TEST_F(DeskDragging, GoesOntoAListOfAnotherWindow) {
    const HWND other = CreateWindowW(WC_LISTVIEWW, L"other", WS_POPUP | WS_VISIBLE, 950, 100, 200, 200,
                                     nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetWindowPos(other, HWND_TOPMOST, 950, 100, 200, 200, 0);
    int dropped = 0;
    std::size_t selected = 0;
    const auto target = windows::DropTarget::create(module, other, [&](int, int) {
        ++dropped;
        selected = desk.explorers()->open.back()->selected().size();
    });
    ASSERT_EQ(RegisterDragDrop(other, target.get()), S_OK);
    EXPECT_TRUE(drag(list_line(1), {1050, 200}, [&] { return dropped == 1; }));
    EXPECT_EQ(selected, 1U) << "what is dragged is what is selected";
    EXPECT_EQ(count(inbox), 2U);
    RevokeDragDrop(other);
    DestroyWindow(other);
}

TEST_F(DeskDragging, MailFilesAreDeliveredWhereTheyAreDroppedOnTheInbox) {
    surroundings.unreadable = u"C:\\broken.eml";
    const auto drop = [&](HWND window, POINT place, const std::vector<Text>& paths) {
        auto* const target = static_cast<IDropTarget*>(GetPropW(window, L"OleDropTargetInterface"));
        const auto data = desk::files_to_drag(module, paths);
        const POINTL point{place.x, place.y};
        DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
        EXPECT_EQ(target->DragEnter(data.get(), MK_LBUTTON, point, &effect), S_OK);
        const DWORD offered = effect;
        effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
        EXPECT_EQ(target->Drop(data.get(), 0, point, &effect), S_OK);
        run_messages();
        return offered;
    };
    const std::vector<Text> two{u"C:\\one.eml", u"C:\\two words.eml"},
        broken{u"C:\\broken.eml", u"C:\\one.eml"};
    const HWND tree = control(u"SysTreeView32"), list = control(u"SysListView32");
    constexpr DWORD copy = DROPEFFECT_COPY, none = DROPEFFECT_NONE;
    const std::size_t before = count(inbox);
    EXPECT_EQ(drop(tree, tree_line(u"Drafts"), two), none);
    EXPECT_EQ(count(inbox), before);
    EXPECT_EQ(drop(tree, tree_line(u"Inbox"), two), copy);
    EXPECT_EQ(count(inbox), before + 2);
    EXPECT_EQ(surroundings.read, (std::vector<Text>{u"C:\\one.eml", u"C:\\two words.eml"}));
    EXPECT_EQ(drop(list, list_line(0), broken), copy) << "the Inbox is shown";
    EXPECT_EQ(count(inbox), before + 3) << "one that can't be read keeps no other back";
    EXPECT_EQ(surroundings.questions,
              std::vector<Text>{u"These files were not delivered.\n\nC:\\broken.eml:\nThis is no mail."});
    desk.explorers()->open.front()->show_folder(desk.default_folder(drafts));
    run_messages();
    EXPECT_EQ(drop(list, list_line(0), two), none) << "mails arrive in the Inbox";
}

/// The tree's own drop target, asked as the system asks it.
TEST_F(DeskDragging, TheTreeTakesWhatIsDraggedOutOfAMainWindowOnly) {
    const HWND tree = control(u"SysTreeView32");
    auto* const target = static_cast<IDropTarget*>(GetPropW(tree, L"OleDropTargetInterface"));
    ASSERT_TRUE(target);
    const POINT place = tree_line(u"Deleted Items");
    const auto data = desk::Dragged::create(module);
    DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    EXPECT_EQ(target->DragEnter(data.get(), MK_LBUTTON, {place.x, place.y}, &effect), S_OK);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_NONE));
    effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    EXPECT_EQ(target->Drop(data.get(), 0, {place.x, place.y}, &effect), S_OK);
    run_messages();
    EXPECT_EQ(count(deleted_items), 0U);
}

}  // namespace
}  // namespace desk_tests
