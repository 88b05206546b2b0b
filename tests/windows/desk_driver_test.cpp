// The add-in's windows as scripts drive them, on a window of the system's own controls.
#include <gtest/gtest.h>

#include <optional>

#include "automation/failure.h"
#include "desk/driver/window_driver.h"
#include "desk/windows/main_loop.h"
#include "forms/windows/drop_target.h"
#include "tests/windows/support/desk_sample_window.h"

namespace desk_tests {
namespace {

using automation::TextView;
using desk::ControlDriver;
using desk::WindowDriver;

using Told = std::vector<std::string>;

class Driver : public testing::Test {
  protected:
    Driver() { OleInitialize(nullptr); }
    ~Driver() override { OleUninitialize(); }

    std::unique_ptr<WindowDriver> find(TextView caption) {
        return desk::find_window(caption, module,
                                 [this](std::function<void()> action) { loop.post(std::move(action)); });
    }
    std::unique_ptr<ControlDriver> control(TextView name) { return find(u"Sample")->control(name); }

    /// What the window was told until all messages were through.
    Told told() {
        SampleWindow::run_messages();
        return std::exchange(window.told, {});
    }
    static std::int32_t failure_of(const std::function<void()>& action) {
        try {
            action();
        } catch (const automation::Failure& failure) {
            return failure.number();
        }
        return 0;
    }

    windows::Module module;
    desk::MainLoop loop;
    SampleWindow window;
};

TEST_F(Driver, FindsWindowsByTheirCaptions) {
    ASSERT_TRUE(find(u"Sample"));
    EXPECT_EQ(find(u"Sample")->caption(), u"Sample");
    EXPECT_TRUE(find(u"Sample")->visible());
    EXPECT_FALSE(find(u"sample"));
    EXPECT_FALSE(find(u"No such window"));
}

TEST_F(Driver, PrefersAVisibleWindowToAHiddenOne) {
    const SampleWindow other(L"Twins"), hidden(L"Twins");
    ShowWindow(hidden.handle(), SW_HIDE);
    EXPECT_TRUE(find(u"Twins")->visible());
    ShowWindow(other.handle(), SW_HIDE);
    EXPECT_FALSE(find(u"Twins")->visible()) << "a hidden one is found, too";
}

TEST_F(Driver, FailsOnAWindowThatHasGone) {
    std::optional<SampleWindow> other(L"Other");
    other->add("Button1", L"BUTTON", 0, {0, 0, 50, 20});
    const auto gone = find(u"Other");
    const auto button = gone->control(u"Button1");
    other.reset();
    EXPECT_EQ(failure_of([&] { (void)gone->visible(); }), automation::result::object_deleted);
    EXPECT_EQ(failure_of([&] { (void)button->text(); }), automation::result::object_deleted);
    EXPECT_EQ(failure_of([&] { button->click(); }), automation::result::object_deleted);
}

TEST_F(Driver, TellsPlaceAndSizeOfAWindowAndChangesIt) {
    const auto found = find(u"Sample");
    found->resize(420, 310);
    const desk::WindowPlace place = found->place();
    EXPECT_EQ(place.width, 420);
    EXPECT_EQ(place.height, 310);
    EXPECT_EQ(place.left, 50);
    EXPECT_FALSE(found->topmost());
    SetWindowPos(window.handle(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_TRUE(found->topmost());
}

TEST_F(Driver, ClosesAsThePersonWouldAndNotBehindAModalWindow) {
    find(u"Sample")->close();
    EXPECT_EQ(told(), Told{"close"});
    EnableWindow(window.handle(), FALSE);
    find(u"Sample")->close();
    EXPECT_EQ(told(), Told{});
}

TEST_F(Driver, FindsControlsByTheirOwnNames) {
    window.add("Button1", L"BUTTON", 0, {0, 0, 50, 20}, L"&Go");
    EXPECT_EQ(control(u"button1")->text(), u"&Go");
    EXPECT_FALSE(control(u"Button2"));
    EXPECT_EQ(failure_of([&] { control(u"Button1")->select(0); }), automation::result::member_not_found);
}

TEST_F(Driver, ClicksAtTheNextTurn) {
    window.add("Button1", L"BUTTON", 0, {0, 0, 50, 20});
    control(u"Button1")->click();
    EXPECT_EQ(window.told, Told{}) << "not at once";
    EXPECT_EQ(told(), Told{"click Button1"});
}

TEST_F(Driver, ClicksNothingThatCannotBeReached) {
    const HWND button = window.add("Button1", L"BUTTON", 0, {0, 0, 50, 20});
    EnableWindow(button, FALSE);
    EXPECT_FALSE(control(u"Button1")->enabled());
    control(u"Button1")->click();
    EXPECT_EQ(told(), Told{});
    EnableWindow(button, TRUE);
    ShowWindow(button, SW_HIDE);
    EXPECT_FALSE(control(u"Button1")->visible());
    control(u"Button1")->click();
    EXPECT_EQ(told(), Told{});
    ShowWindow(button, SW_SHOW);
    EnableWindow(window.handle(), FALSE);
    control(u"Button1")->click();
    EXPECT_EQ(told(), Told{}) << "behind a modal window";
}

TEST_F(Driver, ChecksBoxes) {
    window.add("Check1", L"BUTTON", BS_AUTOCHECKBOX, {0, 0, 90, 20});
    EXPECT_EQ(control(u"Check1")->kind(), ControlDriver::Kind::toggle);
    EXPECT_FALSE(control(u"Check1")->is_checked());
    control(u"Check1")->click();
    EXPECT_EQ(told(), Told{"click Check1"});
    EXPECT_TRUE(control(u"Check1")->is_checked());
}

TEST_F(Driver, ClicksLabels) {
    window.add("Label1", L"STATIC", SS_NOTIFY, {0, 0, 90, 20}, L"A label");
    control(u"Label1")->click();
    EXPECT_EQ(told(), Told{"click Label1"});
    control(u"Label1")->double_click();
    EXPECT_EQ(told(), (Told{"click Label1", "double click Label1"}));
}

TEST_F(Driver, TypesTexts) {
    window.add("Text1", L"EDIT", ES_AUTOHSCROLL, {0, 0, 190, 20}, L"before");
    control(u"Text1")->type(u"after");
    EXPECT_EQ(control(u"Text1")->text(), u"after");
    EXPECT_EQ(told(), Told{"change Text1"});
    control(u"Text1")->type(u"");
    EXPECT_EQ(control(u"Text1")->text(), u"");
    window.add("Label1", L"STATIC", 0, {0, 30, 90, 20});
    EXPECT_EQ(failure_of([&] { control(u"Label1")->type(u"x"); }), automation::result::fail);
    EnableWindow(window.control("Text1"), FALSE);
    EXPECT_EQ(failure_of([&] { control(u"Text1")->type(u"x"); }), automation::result::fail);
}

TEST_F(Driver, PressesKeysWithTheCharactersThatTheyMake) {
    window.add("Text1", L"EDIT", ES_AUTOHSCROLL, {0, 0, 190, 20});
    for (const int key : {int{'A'}, int{'B'}, VK_BACK, int{'C'}}) control(u"Text1")->key(key);
    SampleWindow::run_messages();
    EXPECT_EQ(control(u"Text1")->text(), u"ac");
    find(u"Sample")->key('D');
    SampleWindow::run_messages();
    EXPECT_EQ(control(u"Text1")->text(), u"acd") << "it has the focus";
    SetFocus(window.handle());
    find(u"Sample")->key(VK_F5);
    EXPECT_EQ(told().back(), "key " + std::to_string(VK_F5));
}

TEST_F(Driver, ChoosesEntries) {
    const HWND combo = window.add("Combo1", L"COMBOBOX", CBS_DROPDOWNLIST, {0, 0, 190, 200});
    for (const wchar_t* entry : {L"One", L"Two", L"Three"}) {
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
    }
    EXPECT_EQ(control(u"Combo1")->kind(), ControlDriver::Kind::combo);
    EXPECT_EQ(control(u"Combo1")->count(), 3);
    EXPECT_EQ(control(u"Combo1")->item(1, 0), u"Two");
    EXPECT_EQ(control(u"Combo1")->selected(), -1);
    control(u"Combo1")->select(1);
    EXPECT_EQ(told(), Told{"choice Combo1"});
    EXPECT_EQ(control(u"Combo1")->selected(), 1);
    EXPECT_EQ(control(u"Combo1")->text(), u"Two");
    control(u"Combo1")->select(1);
    EXPECT_EQ(told(), Told{"choice Combo1"}) << "the same one again";
    control(u"Combo1")->type(u"Three");
    EXPECT_EQ(told(), Told{"choice Combo1"});
    EXPECT_EQ(control(u"Combo1")->selected(), 2);
    EXPECT_EQ(failure_of([&] { control(u"Combo1")->type(u"Four"); }), automation::result::fail);
}

TEST_F(Driver, TypesIntoACombosField) {
    window.add("Combo1", L"COMBOBOX", CBS_DROPDOWN, {0, 0, 190, 200});
    control(u"Combo1")->type(u"free text");
    EXPECT_EQ(control(u"Combo1")->text(), u"free text");
}

TEST_F(Driver, TellsToolTips) {
    const HWND button = window.add("Button1", L"BUTTON", 0, {0, 0, 50, 20});
    window.add("Button2", L"BUTTON", 0, {0, 30, 50, 20});
    const HWND tips = CreateWindowExW(0, TOOLTIPS_CLASSW, L"", WS_POPUP, 0, 0, 0, 0, window.handle(), nullptr,
                                      GetModuleHandleW(nullptr), nullptr);
    std::wstring tip = L"Click here to select an item.";
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = window.handle();
    tool.uId = reinterpret_cast<UINT_PTR>(button);
    tool.lpszText = tip.data();
    SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_EQ(control(u"Button1")->tool_tip(), u"Click here to select an item.");
    EXPECT_EQ(control(u"Button2")->tool_tip(), u"");
    DestroyWindow(tips);
}

class ListDriver : public Driver {
  protected:
    static constexpr int columns = 3, rows = 40;

    ListDriver() {
        list = window.add("List1", WC_LISTVIEWW, LVS_REPORT | LVS_SINGLESEL, {0, 0, 300, 150});
        for (int i = 0; i < columns; ++i) {
            std::wstring heading = L"Column " + std::to_wstring(i);
            LVCOLUMNW column{};
            column.mask = LVCF_TEXT | LVCF_WIDTH;
            column.pszText = heading.data();
            column.cx = 120 + i;
            SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
        }
        for (int row = 0; row < rows; ++row) {
            for (int i = 0; i < columns; ++i) {
                std::wstring text = std::to_wstring(row) + L"/" + std::to_wstring(i);
                LVITEMW item{};
                item.mask = LVIF_TEXT;
                item.iItem = row;
                item.iSubItem = i;
                item.pszText = text.data();
                SendMessageW(list, i == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0,
                             reinterpret_cast<LPARAM>(&item));
            }
        }
        SampleWindow::run_messages();
        window.told.clear();
    }

    HWND list;
};

TEST_F(ListDriver, TellsRowsAndColumns) {
    const auto driver = control(u"List1");
    EXPECT_EQ(driver->kind(), ControlDriver::Kind::list);
    EXPECT_EQ(driver->count(), rows);
    EXPECT_EQ(driver->item(30, 0), u"30/0");
    EXPECT_EQ(driver->item(30, 2), u"30/2");
    EXPECT_EQ(driver->columns(), columns);
    EXPECT_EQ(driver->column(1).text, u"Column 1");
    EXPECT_EQ(driver->column(1).width, 121);
    EXPECT_EQ(driver->column(1).image, -1);
    HDITEMW mark{};
    mark.mask = HDI_FORMAT | HDI_IMAGE;
    mark.fmt = HDF_STRING | HDF_IMAGE;
    mark.iImage = 1;
    SendMessageW(ListView_GetHeader(list), HDM_SETITEMW, 1, reinterpret_cast<LPARAM>(&mark));
    EXPECT_EQ(driver->column(1).image, 1);
}

TEST_F(ListDriver, SelectsAndOpensRowsWhereverTheyAre) {
    EXPECT_EQ(control(u"List1")->selected(), -1);
    for (const int row : {0, 35, 17}) {
        control(u"List1")->select(row);
        EXPECT_EQ(told(), Told{"click List1"});
        EXPECT_EQ(control(u"List1")->selected(), row);
        control(u"List1")->double_click();
        EXPECT_EQ(told().back(), "double click " + std::to_string(row));
    }
}

TEST_F(ListDriver, ClicksHeadingsInSightAndBeyond) {
    control(u"List1")->column_click(0);
    EXPECT_EQ(told(), Told{"column 0"});
    control(u"List1")->column_click(2);
    EXPECT_EQ(told(), Told{"column 2"}) << "it had to be scrolled to";
    control(u"List1")->column_click(0);
    EXPECT_EQ(told(), Told{"column 0"}) << "and back";
}

TEST_F(ListDriver, DropsOntoACellOfARow) {
    EXPECT_EQ(failure_of([&] { control(u"List1")->drop(0, 0); }), automation::result::fail)
        << "it takes none";
    std::vector<std::pair<int, int>> dropped;
    const auto target = windows::DropTarget::create(module, list, [&](int x, int y) {
        LVHITTESTINFO hit{};
        hit.pt = {x, y};
        SendMessageW(list, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        dropped.emplace_back(hit.iItem, hit.iSubItem);
    });
    ASSERT_EQ(RegisterDragDrop(list, target.get()), S_OK);
    control(u"List1")->drop(3, 0);
    control(u"List1")->drop(30, 0);
    control(u"List1")->drop(30, 2);
    SampleWindow::run_messages();
    EXPECT_EQ(dropped, (std::vector<std::pair<int, int>>{{3, 0}, {30, 0}, {30, 2}}));
    RevokeDragDrop(list);
}

}  // namespace
}  // namespace desk_tests
