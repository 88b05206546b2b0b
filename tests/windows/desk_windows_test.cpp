// The desk's own windows: toolbars that follow the command bars, the context menu, mail that is written.
#include "addin/host/host_events.h"
#include "tests/windows/support/desk_windows_fixture.h"

namespace desk_tests {
namespace {

TEST_F(DeskWindowsTest, ShowBarsAsToolbarsThatFollow) {
    const Object inspector = open_mail();
    const Object bar = add_bar(bars_of(inspector), u"Notes");
    const Object one = add_button(bar, u"One");
    const Object two = add_button(bar, u"Two");
    two.put(u"BeginGroup", true);
    run_messages();
    EXPECT_EQ(captions(toolbar(inspector_window(), u"Notes")), (std::vector<Text>{u"One", u"|", u"Two"}));
    two.put(u"Caption", u"Second");
    one.put(u"Visible", false);
    run_messages();
    EXPECT_EQ(captions(toolbar(inspector_window(), u"Notes")), std::vector<Text>{u"Second"});
    bar.put(u"Visible", false);
    run_messages();
    EXPECT_FALSE(toolbar(inspector_window(), u"Notes"));
    bar.put(u"Visible", true);
    run_messages();
    EXPECT_TRUE(toolbar(inspector_window(), u"Notes"));
    bar.call(u"Delete");
    run_messages();
    EXPECT_FALSE(toolbar(inspector_window(), u"Notes"));
}

TEST_F(DeskWindowsTest, PressWhatIsClicked) {
    const Object inspector = open_mail();
    const Object bar = add_bar(bars_of(inspector), u"Notes");
    const Object one = add_button(bar, u"One"), two = add_button(bar, u"Two");
    two.put(u"Enabled", false);
    std::string told;
    automation::Sink first, second;
    first.connect(host::events::button, one,
                  {{u"Click", [&](std::span<Value>) {
                        told += "one ";
                        bar.call(u"Delete");  // the toolbar goes with its own click
                    }}});
    second.connect(host::events::button, two, {{u"Click", [&](std::span<Value>) { told += "two "; }}});
    run_messages();
    click(toolbar(inspector_window(), u"Notes"), 1);
    EXPECT_EQ(told, "") << "it is disabled";
    click(toolbar(inspector_window(), u"Notes"), 0);
    EXPECT_EQ(told, "one ");
    EXPECT_FALSE(toolbar(inspector_window(), u"Notes"));
}

TEST_F(DeskWindowsTest, LetAMailBeWrittenAndSent) {
    const Object inspector = open_mail();
    const Object mail = inspector.get(u"CurrentItem").to_object();
    const auto fields = windows_of_class(u"Edit", inspector_window());
    ASSERT_EQ(fields.size(), 5U);  // To, Cc, Bcc, Subject, text
    const wchar_t* typed[] = {L"ann@one.example; ", L"ben@one.example", L"", L"Delivery dates",
                              L"As agreed."};
    for (std::size_t i = 0; i < std::size(typed); ++i) {
        SendMessageW(fields[i], EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(typed[i]));
    }
    run_messages();
    EXPECT_EQ(mail.get(u"Subject"), Value(u"Delivery dates"));
    EXPECT_EQ(mail.get(u"Body"), Value(u"As agreed."));
    EXPECT_EQ(mail.get(u"To"), Value(u"ann@one.example"));
    EXPECT_EQ(mail.get(u"CC"), Value(u"ben@one.example"));
    EXPECT_EQ(window_text(fields[0]), u"ann@one.example; ") << "nobody interferes with the typing";
    SetFocus(fields[0]);
    PostMessageW(fields[0], WM_KEYDOWN, VK_TAB, 1);
    run_messages();
    EXPECT_EQ(GetFocus(), fields[1]) << "the tabulator key leads on";
    EXPECT_EQ(window_text(inspector_window()), u"Delivery dates - Message");
    click(toolbar(inspector_window(), u"Standard"), 0);
    EXPECT_FALSE(inspector_window());
    EXPECT_EQ(desk.contents(desk.default_folder(5)).size(), 1U);
}

TEST_F(DeskWindowsTest, MakeNewItemsByTheirMenu) {
    const HMENU file_menu = GetSubMenu(GetMenu(explorer_window()), 0);
    const HMENU menu = GetSubMenu(file_menu, 0);
    const std::pair<int, TextView> entries[] = {{1, u"IPM.Note"}, {0, u"IPM.Note"}};
    for (const auto& [entry, message_class] : entries) {
        SendMessageW(explorer_window(), WM_COMMAND, GetMenuItemID(menu, entry), 0);
        run_messages();
        ASSERT_FALSE(desk.inspectors()->open.empty());
        const Object item = desk.inspectors()->active().get(u"CurrentItem").to_object();
        EXPECT_EQ(item.get(u"MessageClass"), Value(message_class));
        item.call(u"Close", {1});
        run_messages();
    }
}

TEST_F(DeskWindowsTest, ShowWhatOthersChangeInAnItem) {
    const Object inspector = open_mail();
    inspector.get(u"CurrentItem").to_object().put(u"Subject", u"From elsewhere");
    desk.surroundings().changed();
    run_messages();
    EXPECT_EQ(window_text(windows_of_class(u"Edit", inspector_window())[3]), u"From elsewhere");
}

/// The entries of the menu that is open, a line as "|".
std::vector<Text> entries_of_menu() {
    constexpr UINT menu_of_window = 0x01E1;  // MN_GETHMENU
    const HWND window = windows_of_class(u"#32768").front();
    const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, menu_of_window, 0, 0));
    std::vector<Text> entries;
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        std::array<wchar_t, 100> text{};
        GetMenuStringW(menu, static_cast<UINT>(i), text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
        const bool line = (GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_SEPARATOR) != 0;
        entries.emplace_back(line ? u"|" : reinterpret_cast<const char16_t*>(text.data()));
    }
    return entries;
}

/// Presses keys in the menu that is about to open, and notes its entries before.
class MenuKeys {
  public:
    explicit MenuKeys(std::vector<int> keys) : keys_(std::move(keys)) {
        self() = this;
        timer_ = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) {
            if (!windows_of_class(u"#32768").empty() && self()) self()->press();
        });
    }
    ~MenuKeys() {
        KillTimer(nullptr, timer_);
        self() = nullptr;
    }
    MenuKeys(const MenuKeys&) = delete;
    MenuKeys& operator=(const MenuKeys&) = delete;

    std::vector<Text> entries;

  private:
    static MenuKeys*& self() {
        static MenuKeys* the_one = nullptr;
        return the_one;
    }
    void press() {
        if (!keys_.empty()) entries = entries_of_menu();
        for (const int key : std::exchange(keys_, {})) {
            PostMessageW(explorer_of_thread(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        }
    }
    static HWND explorer_of_thread() { return windows_of_class(u"TarnwellDeskExplorer").front(); }

    std::vector<int> keys_;
    UINT_PTR timer_;
};

class ContextMenuTest : public DeskWindowsTest {
  protected:
    /// A mail of the Inbox.
    Object add_mail(TextView subject) {
        const Object inbox = desk.application()
                                 ->self()
                                 .call(u"GetNamespace", {u"MAPI"})
                                 .to_object()
                                 .call(u"GetDefaultFolder", {6})
                                 .to_object();
        const Object mail = inbox.get(u"Items").to_object().call(u"Add", {u"IPM.Note"}).to_object();
        mail.put(u"Subject", Value(subject));
        mail.call(u"Save");
        return mail;
    }

    Object menu_bar() const {
        return bars_of(desk.explorers()->active()).get(u"Item", {u"Context Menu"}).to_object();
    }

    static HWND list() { return windows_of_class(u"SysListView32", explorer_window()).front(); }

    /// The subjects of what is selected in the explorer.
    std::vector<Text> selected() const {
        const Object selection = desk.explorers()->active().get(u"Selection").to_object();
        const std::int32_t count = selection.get(u"Count").to_integer();
        std::vector<Text> subjects;
        for (std::int32_t i = 1; i <= count; ++i) {
            subjects.push_back(selection.call(u"Item", {i}).to_object().get(u"Subject").to_text());
        }
        return subjects;
    }

    /// A point in a line, or below all lines, of the list.
    static POINT point_in(int line) {
        RECT box{};
        GetClientRect(list(), &box);
        POINT point{5, box.bottom - 5};
        if (ListView_GetItemRect(list(), line, &box, LVIR_LABEL)) {
            point = {box.left + 5, (box.top + box.bottom) / 2};
        }
        return point;
    }

    /// Has the menu opened at a line, as the system does after a right click, and left again. Its entries are
    /// answered.
    std::vector<Text> open_menu_at(int line) {
        MenuKeys pressed({VK_ESCAPE});
        POINT point = point_in(line);
        ClientToScreen(list(), &point);
        SendMessageW(explorer_window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list()),
                     MAKELPARAM(point.x, point.y));
        run_messages();
        return pressed.entries;
    }
};

TEST_F(ContextMenuTest, SelectsWhatItIsOpenedAtUnlessThatIsSelected) {
    const Object one = add_mail(u"One"), two = add_mail(u"Two");
    const Object explorer = desk.explorers()->active();
    struct Case {
        const char* name;
        std::vector<Object> selected;
        int line;
        std::vector<Text> then;
    };
    constexpr int first_line = 0, second_line = 1, below = 9;  // the newest mail comes first
    const Case cases[] = {
        {"another item", {two}, second_line, {u"One"}},
        {"an item, and none is selected", {}, first_line, {u"Two"}},
        {"the selected item", {one}, second_line, {u"One"}},
        {"one of the selected items", {two, one}, second_line, {u"Two", u"One"}},
        {"nothing", {two}, below, {u"Two"}},
    };
    for (const Case& one_case : cases) {
        SCOPED_TRACE(one_case.name);
        desk.explorers()->open.front()->select(one_case.selected);
        run_messages();
        EXPECT_FALSE(open_menu_at(one_case.line).empty());
        EXPECT_EQ(selected(), one_case.then);
    }
}

TEST_F(ContextMenuTest, SetsTheBarsEntriesApartFromTheHostsOwnOnce) {
    const Object one = add_button(menu_bar(), u"Tarnwell One");
    add_button(menu_bar(), u"Tarnwell Two").put(u"BeginGroup", true);
    add_button(menu_bar(), u"Tarnwell Three");
    add_mail(u"One");
    const std::vector<Text> of_the_bar{u"Tarnwell One", u"|", u"Tarnwell Two", u"Tarnwell Three"};
    const auto with_the_bar = [&](std::vector<Text> own) {
        own.emplace_back(u"|");
        own.insert(own.end(), of_the_bar.begin(), of_the_bar.end());
        return own;
    };
    const std::vector<Text> of_an_item =
        with_the_bar({u"&Open\tCtrl+O", u"|", u"&Reply\tCtrl+R", u"Reply to &All\tCtrl+Shift+R",
                      u"&Forward\tCtrl+F", u"|", u"Mark as R&ead\tCtrl+Q", u"Mark as &Unread\tCtrl+U", u"|",
                      u"&Move to Folder...\tCtrl+Shift+V", u"&Delete\tDel"});
    const std::vector<Text> of_none =
        with_the_bar({u"&New Item\tCtrl+N", u"|", u"Select &All\tCtrl+A", u"Re&fresh\tF5"});
    for (const bool begins_group : {false, true}) {
        SCOPED_TRACE(begins_group);
        one.put(u"BeginGroup", begins_group);
        desk.explorers()->open.front()->select({});
        run_messages();
        EXPECT_EQ(open_menu_at(9), of_none);
        EXPECT_EQ(open_menu_at(0), of_an_item);
    }
}

TEST_F(ContextMenuTest, OpensWithTheBarsEntries) {
    add_mail(u"One");
    const Object explorer = desk.explorers()->active();
    int updates = 0, clicks = 0;
    automation::Sink update, click_of_one;
    update.connect(host::events::command_bars, bars_of(explorer),
                   {{u"OnUpdate", [&](std::span<Value>) { ++updates; }}});
    const Object one = add_button(menu_bar(), u"Tarnwell One");
    click_of_one.connect(host::events::button, one, {{u"Click", [&](std::span<Value>) { ++clicks; }}});
    run_messages();
    const auto right_click = [&](int line, std::vector<int> keys) {
        const MenuKeys pressed(std::move(keys));
        const LPARAM point = MAKELPARAM(point_in(line).x, point_in(line).y);
        PostMessageW(list(), WM_RBUTTONDOWN, MK_RBUTTON, point);
        PostMessageW(list(), WM_RBUTTONUP, 0, point);
        run_messages();
    };
    const int before = updates;
    right_click(0, {VK_UP, VK_RETURN});  // the last entry
    EXPECT_EQ(clicks, 1);
    EXPECT_GT(updates, before);
    EXPECT_EQ(explorer.get(u"Selection").to_object().get(u"Count"), Value(1)) << "the click selects, too";
    one.put(u"Visible", false);
    run_messages();
    right_click(0, {VK_UP, VK_RETURN});  // Delete
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(desk.contents(desk.default_folder(3)).size(), 1U);
    EXPECT_EQ(desk.contents(desk.default_folder(6)).size(), 0U);
}

TEST_F(DeskWindowsTest, ComeToTheFrontWithTheirEvents) {
    const Object first = open_mail();
    const HWND first_window = inspector_window();
    open_mail();
    int activations = 0;
    automation::Sink sink;
    sink.connect(host::events::inspector, first, {{u"Activate", [&](std::span<Value>) { ++activations; }}});
    // as a click on it does; the window manager may still be bringing up the other one, and then one clicks
    // again
    EXPECT_TRUE(wait_until([&] {
        if (desk.inspectors()->active() != first) SetForegroundWindow(first_window);
        return desk.inspectors()->active() == first;
    }));
    EXPECT_GE(activations, 1);
    SendMessageW(first_window, WM_CLOSE, 0, 0);
    run_messages();
    EXPECT_EQ(desk.inspectors()->open.size(), 1U);
    EXPECT_FALSE(IsWindow(first_window));
}

}  // namespace
}  // namespace desk_tests
