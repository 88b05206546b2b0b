// The commands of a main window by its menus and its keys, the search box, and the picking of a folder.
#include "desk/outlook/item.h"
#include "tests/windows/support/desk_windows_fixture.h"

namespace desk_tests {
namespace {

constexpr std::int32_t deleted_folder = 3, drafts_folder = 16, inbox_folder = 6, calendar_folder = 9;

class DeskMenus : public DeskWindowsTest {
  protected:
    DeskMenus() {
        add_mail(u"An offer", u"We take it.");
        add_mail(u"A question", u"What does the offer cost?");
        add_mail(u"Lunch", u"On Friday?");
        desk.explorers()->open.front()->show_folder(desk.default_folder(inbox_folder));
        run_messages();
    }

    void add_mail(TextView subject, TextView text) {
        desk::ItemData data;
        data.message_class = u"IPM.Note";
        data.fields[u"Subject"] = Value(subject);
        data.fields[u"SenderName"] = u"Ann Lee";
        data.fields[u"SenderEmailAddress"] = u"ann@lee.example";
        data.fields[u"Body"] = Value(text);
        data.fields[u"Sent"] = true;
        data.fields[u"UnRead"] = true;
        std::make_shared<desk::Item>(desk, desk.default_folder(inbox_folder), std::move(data))->save();
    }
    std::shared_ptr<desk::Item> mail(std::size_t place) const {
        return desk.open_item(desk.contents(desk.default_folder(inbox_folder)).at(place));
    }
    std::size_t count(std::int32_t folder) const { return desk.contents(desk.default_folder(folder)).size(); }

    static HWND list() { return windows_of_class(u"SysListView32", explorer_window()).front(); }
    static HWND search_box() { return windows_of_class(u"Edit", explorer_window()).front(); }
    static HWND status() { return windows_of_class(u"msctls_statusbar32", explorer_window()).front(); }

    static std::vector<Text> subjects() {
        std::vector<Text> all;
        const int count = ListView_GetItemCount(list());
        for (int line = 0; line < count; ++line) {
            std::array<wchar_t, 100> text{};
            ListView_GetItemText(list(), line, 1, text.data(), static_cast<int>(text.size()));
            all.emplace_back(reinterpret_cast<const char16_t*>(text.data()));
        }
        return all;
    }
    /// As a person who clicks on lines; the newest mail stands first.
    void select(const std::vector<int>& lines) {
        ListView_SetItemState(list(), -1, 0, LVIS_SELECTED);
        for (const int line : lines) ListView_SetItemState(list(), line, LVIS_SELECTED, LVIS_SELECTED);
        run_messages();
    }
    void choose(int command) {
        SendMessageW(explorer_window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
        run_messages();
    }
    /// A key on its way to a control, with others held down.
    void press(HWND control, int key, const std::vector<int>& held = {}) {
        BYTE keys[256] = {};
        for (const int each : held) keys[each] = 0x80;
        SetKeyboardState(keys);
        MSG message{};
        message.hwnd = control;
        message.message = WM_KEYDOWN;
        message.wParam = static_cast<WPARAM>(key);
        if (!desk::DeskWindow::take_key(message))
            SendMessageW(control, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        std::ranges::fill(keys, BYTE{0});
        SetKeyboardState(keys);
        run_messages();
    }
    void type(HWND edit, const wchar_t* text) {
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
        run_messages();
    }
    /// The subject of the item whose window is open; it is closed again.
    Text opened() {
        if (desk.inspectors()->open.empty()) return u"nothing";
        const auto inspector = desk.inspectors()->open.back();
        const Text subject = inspector->item()->subject();
        inspector->close_window();
        run_messages();
        return subject;
    }
    /// Whether an entry of the menus can be chosen, as it is when its menu opens.
    static bool is_enabled(int command) {
        const HMENU bar = GetMenu(explorer_window());
        const int menus = GetMenuItemCount(bar);
        for (int i = 0; i < menus; ++i) {
            SendMessageW(explorer_window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(GetSubMenu(bar, i)),
                         i);
        }
        return (GetMenuState(bar, static_cast<UINT>(command), MF_BYCOMMAND) & MF_GRAYED) == 0;
    }
};

TEST_F(DeskMenus, HaveAnAccessKeyEachAndNoneTwice) {
    const auto access_keys = [](HMENU menu) {
        Text keys;
        const int count = GetMenuItemCount(menu);
        for (int i = 0; i < count; ++i) {
            std::array<wchar_t, 100> text{};
            const auto place = static_cast<UINT>(i);
            GetMenuStringW(menu, place, text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
            const Text caption(reinterpret_cast<const char16_t*>(text.data()));
            if (caption.empty()) continue;  // a line
            const std::size_t mark = caption.find(u'&');
            EXPECT_NE(mark, Text::npos) << automation::to_utf8(caption);
            if (mark == Text::npos) continue;
            const char16_t key = automation::folded(caption)[mark + 1];
            EXPECT_EQ(keys.find(key), Text::npos) << automation::to_utf8(caption);
            keys += key;
        }
        return keys;
    };
    const HMENU bar = GetMenu(explorer_window());
    EXPECT_EQ(access_keys(bar), u"fevgah");
    const int menus = GetMenuItemCount(bar);
    for (int i = 0; i < menus; ++i) access_keys(GetSubMenu(bar, i));
}

TEST_F(DeskMenus, EndWithThePopupsOfTheMenuBarAsTheyAreNow) {
    const auto bar = desk.explorers()->open.front()->bars()->named(desk::CommandBars::menu_bar);
    const auto last_menu = [] {
        const HMENU menus = GetMenu(explorer_window());
        return GetSubMenu(menus, GetMenuItemCount(menus) - 1);
    };
    const int own_menus = GetMenuItemCount(GetMenu(explorer_window()));
    const auto popup = bar->add(Value(desk::CommandBarControl::popup_type), {}, {}, {}, true);
    popup->caption = u"&Mill";
    const auto add_entry = [](desk::CommandBar& menu, TextView caption) {
        auto entry = menu.add({}, {}, {}, {}, true);
        entry->caption = Text(caption);
        return entry;
    };
    int ground = 0, baked = 0;
    add_entry(*popup->menu, u"&Grind")->action = [&] { ++ground; };
    const auto inner = popup->menu->add(Value(desk::CommandBarControl::popup_type), {}, {}, {}, true);
    inner->caption = u"&Oven";
    const auto bake = add_entry(*inner->menu, u"&Bake");
    bake->action = [&] { ++baked; };
    add_entry(*popup->menu, u"&Close")->enabled = false;
    popup->kept_changed();
    run_messages();

    ASSERT_EQ(GetMenuItemCount(GetMenu(explorer_window())), own_menus + 1);
    ASSERT_EQ(GetMenuItemCount(last_menu()), 3);
    choose(static_cast<int>(GetMenuItemID(last_menu(), 0)));
    choose(static_cast<int>(GetMenuItemID(GetSubMenu(last_menu(), 1), 0)));
    EXPECT_EQ(ground, 1);
    EXPECT_EQ(baked, 1);
    EXPECT_TRUE(GetMenuState(last_menu(), 2, MF_BYPOSITION) & MF_GRAYED);

    bake->remove();
    run_messages();
    EXPECT_EQ(GetMenuItemCount(GetSubMenu(last_menu(), 1)), 0);
    popup->remove();
    run_messages();
    EXPECT_EQ(GetMenuItemCount(GetMenu(explorer_window())), own_menus);
}

TEST_F(DeskMenus, DoWhatTheySayWithWhatIsSelected) {
    struct Case {
        const char* name;
        int command;
        int key;
        std::vector<int> held;
        Text opens;
    };
    const Case cases[] = {
        {"open", desk::open_command, 'O', {VK_CONTROL}, u"Lunch"},
        {"reply", desk::reply_command, 'R', {VK_CONTROL}, u"RE: Lunch"},
        {"reply to all", desk::reply_all_command, 'R', {VK_CONTROL, VK_SHIFT}, u"RE: Lunch"},
        {"forward", desk::forward_command, 'F', {VK_CONTROL}, u"FW: Lunch"},
        {"new", desk::new_item_command, 'N', {VK_CONTROL}, u""},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        select({0});
        choose(one.command);
        EXPECT_EQ(opened(), one.opens);
        press(list(), one.key, one.held);
        EXPECT_EQ(opened(), one.opens) << "by its key";
    }
    EXPECT_FALSE(mail(2)->field(u"UnRead").to_boolean()) << "it was opened, and only it";
    EXPECT_TRUE(mail(1)->field(u"UnRead").to_boolean());
}

TEST_F(DeskMenus, MarkAndDeleteAllThatIsSelected) {
    press(list(), 'A', {VK_CONTROL});
    choose(desk::mark_read_command);
    EXPECT_EQ(desk.store().unread(desk.default_folder(inbox_folder)), 0);
    select({0, 2});
    press(list(), 'U', {VK_CONTROL});
    EXPECT_TRUE(mail(0)->field(u"UnRead").to_boolean());
    EXPECT_FALSE(mail(1)->field(u"UnRead").to_boolean());
    EXPECT_TRUE(mail(2)->field(u"UnRead").to_boolean());
    select({0, 1});
    choose(desk::delete_command);
    EXPECT_EQ(count(deleted_folder), 2U);
    EXPECT_EQ(subjects(), std::vector<Text>{u"An offer"});
}

TEST_F(DeskMenus, OfferOnlyWhatCanBeDone) {
    struct Case {
        const char* name;
        std::vector<int> selected;
        bool open, reply, mark_read, mark_unread;
    };
    const auto lunch = mail(2);
    lunch->mark_read(true);
    lunch->save();
    const Case cases[] = {{"nothing", {}, false, false, false, false},
                          {"one that was read", {0}, true, true, false, true},
                          {"one that was not", {1}, true, true, true, false},
                          {"several", {0, 1}, true, false, true, true}};
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        select(one.selected);
        EXPECT_EQ(is_enabled(desk::open_command), one.open);
        EXPECT_EQ(is_enabled(desk::delete_command), one.open);
        EXPECT_EQ(is_enabled(desk::reply_command), one.reply);
        EXPECT_EQ(is_enabled(desk::mark_read_command), one.mark_read);
        EXPECT_EQ(is_enabled(desk::mark_unread_command), one.mark_unread);
        EXPECT_TRUE(is_enabled(desk::refresh_command));
    }
}

TEST_F(DeskMenus, GoToTheDefaultFolders) {
    press(list(), '2', {VK_CONTROL});
    EXPECT_EQ(window_text(explorer_window()), u"Calendar - Outlook");
    choose(desk::first_go_command);
    EXPECT_EQ(window_text(explorer_window()), u"Inbox - Outlook");
}

TEST_F(DeskMenus, MoveWhatIsSelectedToTheFolderThatIsPicked) {
    const auto picker = [] { return windows_of_class(u"TarnwellDeskFolders"); };
    const auto pick = [&](const wchar_t* letters, int key) {
        press(list(), 'V', {VK_CONTROL, VK_SHIFT});
        ASSERT_EQ(picker().size(), 1U);
        EXPECT_FALSE(IsWindowEnabled(explorer_window())) << "the main window waits";
        const HWND tree = windows_of_class(u"SysTreeView32", picker().front()).front();
        for (; *letters != L'\0'; ++letters) SendMessageW(tree, WM_CHAR, static_cast<WPARAM>(*letters), 1);
        press(tree, key);
        EXPECT_TRUE(picker().empty());
        EXPECT_TRUE(IsWindowEnabled(explorer_window()));
    };
    select({});
    press(list(), 'V', {VK_CONTROL, VK_SHIFT});
    EXPECT_TRUE(picker().empty()) << "there is nothing to be moved";
    select({1, 2});
    pick(L"drafts", VK_ESCAPE);
    EXPECT_EQ(count(inbox_folder), 3U);
    pick(L"drafts", VK_RETURN);
    EXPECT_EQ(count(inbox_folder), 1U);
    EXPECT_EQ(count(drafts_folder), 2U);
}

TEST_F(DeskMenus, FindWhatIsTypedIntoTheSearchBox) {
    press(list(), 'E', {VK_CONTROL});
    EXPECT_EQ(GetFocus(), search_box());
    select({0});
    struct Case {
        const wchar_t* typed;
        std::vector<Text> found;
        Text status;
    };
    const Case cases[] = {{L"offer", {u"A question", u"An offer"}, u"2 of 3 items"},
                          {L"OFFER ann", {u"A question", u"An offer"}, u"2 of 3 items"},
                          {L"offer cost", {u"A question"}, u"1 of 3 items"},
                          {L"nowhere", {}, u"0 of 3 items"},
                          {L"  ", {u"Lunch", u"A question", u"An offer"}, u"3 items, 3 unread"}};
    for (const Case& one : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(one.typed)));
        type(search_box(), one.typed);
        EXPECT_EQ(subjects(), one.found);
        EXPECT_EQ(window_text(status()), one.status);
    }
    type(search_box(), L"offer");
    EXPECT_TRUE(desk.explorers()->open.front()->selected().empty()) << "what isn't seen is not selected";
    add_mail(u"Another offer", u"");
    run_messages();
    EXPECT_EQ(subjects(), (std::vector<Text>{u"Another offer", u"A question", u"An offer"}));
    press(search_box(), VK_ESCAPE);
    EXPECT_EQ(window_text(search_box()), u"");
    EXPECT_EQ(subjects().size(), 4U);
    EXPECT_EQ(GetFocus(), list());
    type(search_box(), L"offer");
    desk.explorers()->open.front()->show_folder(desk.default_folder(calendar_folder));
    run_messages();
    EXPECT_EQ(window_text(search_box()), u"") << "another folder is shown whole";
}

TEST_F(DeskMenus, LeadTheTabulatorKeyThroughTheWindow) {
    select({0});
    SetFocus(list());
    std::vector<Text> classes;
    for (int i = 0; i < 4; ++i) {
        press(GetFocus(), VK_TAB);
        classes.push_back(desk::class_name(GetFocus()));
    }
    EXPECT_EQ(GetFocus(), list()) << "round and round";
    press(GetFocus(), VK_TAB, {VK_SHIFT});
    press(GetFocus(), VK_TAB);
    EXPECT_EQ(GetFocus(), list());
    EXPECT_EQ(classes.size(), 4U);
    EXPECT_EQ(std::ranges::count(classes, u"SysTreeView32"), 1);
    EXPECT_EQ(std::ranges::count(classes, u"Edit"), 2) << "the search box and the text that is read";
}

TEST_F(DeskMenus, AskForEachWindowThatWouldLoseSomethingBeforeTheLastMainWindowCloses) {
    for (const TextView subject : {u"One", u"", u"Three"}) {
        const Object mail = create_mail();
        mail.call(u"Display");
        if (!subject.empty()) mail.put(u"Subject", Value(subject));
        run_messages();
    }
    constexpr int cancel = 2, no = 7;
    surroundings.answer = cancel;
    choose(desk::exit_command);
    EXPECT_EQ(surroundings.questions.size(), 1U);
    EXPECT_EQ(desk.inspectors()->open.size(), 3U);
    EXPECT_EQ(desk.explorers()->open.size(), 1U);
    EXPECT_FALSE(surroundings.asked_to_quit);
    surroundings.questions.clear();
    surroundings.answer = no;
    SendMessageW(explorer_window(), WM_CLOSE, 0, 0);
    run_messages();
    EXPECT_EQ(surroundings.questions.size(), 2U) << "one of the three has nothing to lose";
    EXPECT_TRUE(desk.inspectors()->open.empty());
    EXPECT_TRUE(surroundings.asked_to_quit);
}

TEST_F(DeskMenus, OpenWindowsBesideEachOther) {
    std::vector<desk::HostWindow*> open;
    for (int i = 0; i < 3; ++i) {
        open_mail();
        open.push_back(desk.inspectors()->open.back().get());
    }
    EXPECT_EQ(open[1]->left - open[0]->left, 26);
    EXPECT_EQ(open[2]->left - open[1]->left, 26);
    EXPECT_EQ(open[2]->top - open[1]->top, 26);
    const std::int32_t first = open[0]->left;
    desk.inspectors()->open.front()->close_window();
    open_mail();
    EXPECT_EQ(desk.inspectors()->open.back()->left, first) << "a place that is free again is taken";
}

/// A large folder is searched a part at a time, and each item is looked at once.
TEST(DeskFolderSearch, LooksAtFewItemsAtATimeAndAtEachOnce) {
    constexpr std::size_t many = 2500, at_once = 1000;
    DatabaseFile file;
    IdleSurroundings surroundings;
    desk::Desk desk(surroundings, file.open(), desk::Options{});
    const desk::RowId inbox = desk.default_folder(inbox_folder);
    std::vector<desk::RowId> items;
    {
        desk::Store::Transaction together(desk.store());
        for (std::size_t i = 0; i < many; ++i) {
            desk::ItemData mail;
            mail.message_class = u"IPM.Note";
            mail.fields[u"Subject"] = Value(i % 100 == 0 ? u"A hundred" : u"Another");
            items.push_back(desk.store().add_item(inbox, mail));
        }
        together.keep();
    }
    const auto columns = desk::columns_of(*desk.folder_row(inbox));
    desk::FolderSearch search(desk);
    search.want(u"hundred");
    EXPECT_TRUE(search.look_further(items, columns, at_once));
    EXPECT_EQ(search.found(items).size(), 10U);
    EXPECT_TRUE(search.look_further(items, columns, at_once));
    EXPECT_FALSE(search.look_further(items, columns, at_once));
    EXPECT_EQ(search.found(items).size(), 25U);
    EXPECT_FALSE(search.look_further(items, columns, 0)) << "all have been looked at";
    search.want(u"another");
    EXPECT_TRUE(search.look_further(items, columns, 0)) << "other words are sought anew";
}

}  // namespace
}  // namespace desk_tests
