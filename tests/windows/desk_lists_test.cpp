// What a main window tells of folders and items, and what the keyboard and a click on a heading do there.
#include <set>

#include "tests/windows/support/desk_windows_fixture.h"

namespace desk_tests {
namespace {

class DeskListsTest : public DeskWindowsTest {
  protected:
    Object folder(std::int32_t number) const {
        const Object session = desk.application()->self().call(u"GetNamespace", {u"MAPI"}).to_object();
        return session.call(u"GetDefaultFolder", {number}).to_object();
    }

    void add(std::int32_t number, const desk::ItemData& item) {
        const desk::RowId place = desk.default_folder(number);
        desk.item_added(place, desk.store().add_item(place, item));
        run_messages();
    }
    struct Plan {
        TextView subject, from, received;
        bool unread;
    };
    /// A mail of the Inbox, as it came.
    void add_mail(const Plan& plan) {
        desk::ItemData mail;
        mail.message_class = u"IPM.Note";
        mail.fields[u"Subject"] = Value(plan.subject);
        mail.fields[u"SenderName"] = Value(plan.from);
        mail.fields[u"ReceivedTime"] = Value(*automation::read_date(plan.received));
        mail.fields[u"UnRead"] = Value(plan.unread);
        add(inbox, mail);
    }
    /// So many mails of the Inbox, whose subjects bear their numbers after a beginning.
    void add_mails(int count, const Text& beginning) const {
        const desk::RowId place = desk.default_folder(inbox);
        desk::Store::Transaction together(desk.store());
        for (int i = 0; i < count; ++i) {
            desk::ItemData mail;
            mail.message_class = u"IPM.Note";
            mail.fields[u"Subject"] = Value(beginning + automation::to_text(static_cast<long long>(i)));
            desk.item_added(place, desk.store().add_item(place, mail));
        }
        together.keep();
    }
    void show(std::int32_t number) {
        desk.explorers()->open.front()->show_folder(desk.default_folder(number));
        run_messages();
    }

    static HWND list() { return windows_of_class(u"SysListView32", explorer_window()).front(); }
    static HWND tree() { return windows_of_class(u"SysTreeView32", explorer_window()).front(); }

    /// A column of the list, from the first line on.
    static std::vector<Text> column(int number) {
        std::vector<Text> all;
        const int count = ListView_GetItemCount(list());
        for (int line = 0; line < count; ++line) {
            std::array<wchar_t, 100> text{};
            ListView_GetItemText(list(), line, number, text.data(), static_cast<int>(text.size()));
            all.emplace_back(reinterpret_cast<const char16_t*>(text.data()));
        }
        return all;
    }
    static std::vector<Text> subjects() { return column(1); }

    struct Shown {
        Text text;
        bool bold;
        friend bool operator==(const Shown&, const Shown&) = default;
    };
    /// A folder directly below the first store, as the tree shows it.
    static Shown shown_folder(int place) {
        HTREEITEM item = TreeView_GetChild(tree(), TreeView_GetRoot(tree()));
        while (place-- > 0) item = TreeView_GetNextSibling(tree(), item);
        std::array<wchar_t, 100> text{};
        TVITEMW told{};
        told.mask = TVIF_TEXT | TVIF_STATE;
        told.hItem = item;
        told.stateMask = TVIS_BOLD;
        told.pszText = text.data();
        told.cchTextMax = static_cast<int>(text.size());
        SendMessageW(tree(), TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&told));
        return {reinterpret_cast<const char16_t*>(text.data()), (told.state & TVIS_BOLD) != 0};
    }

    /// The mark of a heading: HDF_SORTUP, HDF_SORTDOWN or neither.
    static int mark(int number) {
        HDITEMW heading{};
        heading.mask = HDI_FORMAT;
        SendMessageW(ListView_GetHeader(list()), HDM_GETITEMW, static_cast<WPARAM>(number),
                     reinterpret_cast<LPARAM>(&heading));
        return heading.fmt & (HDF_SORTUP | HDF_SORTDOWN);
    }
    /// As a person who clicks on a heading.
    void click_heading(int number) {
        const HWND headings = ListView_GetHeader(list());
        RECT box{};
        Header_GetItemRect(headings, number, &box);
        const LPARAM point = MAKELPARAM((box.left + box.right) / 2, (box.top + box.bottom) / 2);
        SendMessageW(headings, WM_LBUTTONDOWN, MK_LBUTTON, point);
        SendMessageW(headings, WM_LBUTTONUP, 0, point);
        run_messages();
    }
    void press(WPARAM key) {
        SendMessageW(list(), WM_KEYDOWN, key, 1);
        run_messages();
    }

    /// How many dots of a line differ from the background.
    int ink_of_line(int line) {
        run_messages();
        UpdateWindow(list());
        RECT box{};
        ListView_GetSubItemRect(list(), line, 1, LVIR_LABEL, &box);
        const HDC context = GetDC(list());
        const COLORREF background = GetSysColor(COLOR_WINDOW);
        int ink = 0;
        for (int y = box.top; y < box.bottom; ++y) {
            for (int x = box.left; x < box.right; ++x) ink += GetPixel(context, x, y) != background ? 1 : 0;
        }
        ReleaseDC(list(), context);
        return ink;
    }

    static constexpr std::int32_t inbox = 6, sent_items = 5, deleted_items = 3;
};

TEST_F(DeskListsTest, TellHowManyMailsAreUnreadBesideTheFoldersName) {
    EXPECT_EQ(shown_folder(0), (Shown{u"Inbox", false}));
    add_mail({u"One", u"Ann", u"2026-03-01 09:00", true});
    add_mail({u"Two", u"Ben", u"2026-03-02 09:00", true});
    add_mail({u"Three", u"Cid", u"2026-03-03 09:00", false});
    EXPECT_EQ(shown_folder(0), (Shown{u"Inbox (2)", true}));
    const Object mail = folder(inbox).get(u"Items").to_object().call(u"Item", {1}).to_object();
    mail.put(u"UnRead", false);
    mail.call(u"Save");
    run_messages();
    EXPECT_EQ(shown_folder(0), (Shown{u"Inbox (1)", true}));
    EXPECT_EQ(shown_folder(1), (Shown{u"Sent Items", false}));
}

TEST_F(DeskListsTest, WriteUnreadMailsInBold) {
    add_mail({u"The same words", u"Ann", u"2026-03-01 09:00", false});
    add_mail({u"The same words", u"Ann", u"2026-03-02 09:00", true});
    show(inbox);
    EXPECT_GT(ink_of_line(0), ink_of_line(1) * 11 / 10) << "the unread one is the newer, and stands first";
}

TEST_F(DeskListsTest, SortByTheHeadingThatIsClicked) {
    add_mail({u"Banana", u"Cid", u"2026-03-03 09:00", false});
    add_mail({u"apple", u"Ann", u"2026-03-02 09:00", false});
    add_mail({u"Cherry", u"Ben", u"2026-03-01 09:00", false});
    add_mail({u"apple", u"Dan", u"2026-03-04 09:00", false});
    show(inbox);
    struct Click {
        int heading;
        std::vector<Text> subjects;
        int mark;
    };
    constexpr int none = -1, subject = 1, received = 2;
    const Click clicks[] = {
        {none, {u"apple", u"Banana", u"apple", u"Cherry"}, 0},  // by the date of receipt, the newest first
        {subject, {u"apple", u"apple", u"Banana", u"Cherry"}, HDF_SORTUP},
        {subject, {u"Cherry", u"Banana", u"apple", u"apple"}, HDF_SORTDOWN},
        {received, {u"apple", u"Banana", u"apple", u"Cherry"}, HDF_SORTDOWN},
        {received, {u"Cherry", u"apple", u"Banana", u"apple"}, HDF_SORTUP},
    };
    EXPECT_EQ(mark(received), HDF_SORTDOWN);
    for (const Click& click : clicks) {
        SCOPED_TRACE(click.heading);
        if (click.heading != none) click_heading(click.heading);
        EXPECT_EQ(subjects(), click.subjects);
        if (click.heading == none) continue;
        EXPECT_EQ(mark(click.heading), click.mark);
        EXPECT_EQ(mark(3 - click.heading), 0) << "one heading is marked";
    }
    add_mail({u"Date", u"Eve", u"2026-03-02 12:00", false});
    EXPECT_EQ(subjects(), (std::vector<Text>{u"Cherry", u"apple", u"Date", u"Banana", u"apple"}))
        << "what comes takes its place";
    click_heading(subject);
    Object mail = folder(inbox).get(u"Items").to_object().call(u"Item", {1}).to_object();
    ASSERT_EQ(mail.get(u"Subject"), Value(u"Banana"));
    mail.put(u"Subject", u"Elder");
    mail.call(u"Save");
    run_messages();
    EXPECT_EQ(subjects(), (std::vector<Text>{u"apple", u"apple", u"Cherry", u"Date", u"Elder"}))
        << "so does what changes";
    click_heading(received);
    click_heading(received);
    show(sent_items);
    show(inbox);
    EXPECT_EQ(mark(received), HDF_SORTUP) << "a folder keeps its sorting";
}

TEST_F(DeskListsTest, TakeTheKeysOfAList) {
    for (const TextView subject : {u"One", u"Two", u"Three"}) {
        add_mail({subject, u"Ann", u"2026-03-01 09:00", false});
    }
    show(inbox);
    ListView_SetItemState(list(), 1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    run_messages();
    press(VK_DELETE);
    EXPECT_EQ(subjects(), (std::vector<Text>{u"Three", u"One"}));
    EXPECT_EQ(desk.contents(desk.default_folder(deleted_items)).size(), 1U);
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    press('A');
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
    press(VK_DELETE);
    EXPECT_EQ(subjects(), std::vector<Text>{});
    EXPECT_EQ(desk.contents(desk.default_folder(deleted_items)).size(), 3U);
}

TEST_F(DeskListsTest, SortLargeFoldersAnewWhenTheyAreAskedTo) {
    constexpr int many = 2001;
    add_mails(many, u"B");
    show(inbox);
    click_heading(1);
    const Object last = folder(inbox).get(u"Items").to_object().call(u"Item", {many}).to_object();
    last.put(u"Subject", u"A first one");
    last.call(u"Save");
    run_messages();
    EXPECT_NE(subjects().front(), u"A first one");
    press(VK_F5);
    EXPECT_EQ(subjects().front(), u"A first one");
}

/// Notes which lines the list asks its window for, while it lives.
class AskedLines {
  public:
    explicit AskedLines(HWND window) : window_(window) {
        SetWindowSubclass(window_, note, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    ~AskedLines() { RemoveWindowSubclass(window_, note, 1); }
    AskedLines(const AskedLines&) = delete;
    AskedLines& operator=(const AskedLines&) = delete;

    std::set<int> lines;

  private:
    static LRESULT CALLBACK note(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                 DWORD_PTR self) {
        if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(second)->code == LVN_GETDISPINFOW) {
            reinterpret_cast<AskedLines*>(self)->lines.insert(
                reinterpret_cast<NMLVDISPINFOW*>(second)->item.iItem);
        }
        return DefSubclassProc(window, message, first, second);
    }

    HWND window_;
};

TEST_F(DeskListsTest, AskForTheLinesThatAreSeenAloneHoweverManyThereAre) {
    constexpr int many = 10'000;
    add_mails(many, u"Mail ");
    AskedLines asked(explorer_window());
    const auto page = static_cast<std::size_t>(ListView_GetCountPerPage(list())) + 2;
    const auto expect_few = [&](const char* what) {
        UpdateWindow(list());
        EXPECT_GT(asked.lines.size(), 0U) << what;
        EXPECT_LE(asked.lines.size(), 2 * page) << what;
        asked.lines.clear();
    };
    show(inbox);
    EXPECT_EQ(ListView_GetItemCount(list()), many);
    expect_few("when it is shown");
    press(VK_END);
    EXPECT_TRUE(asked.lines.contains(many - 1));
    expect_few("at its end");
    desk.explorers()->open.front()->select(
        {desk.open_item(desk.contents(desk.default_folder(inbox)).front())->self()});
    run_messages();
    expect_few("when something is selected");
}

TEST(DeskColumns, SayYesOrNothingOfWhatIsEitherOr) {
    constexpr desk::Column done{u"Done", u"Complete", 60};
    desk::ItemData task;
    task.message_class = u"IPM.Task";
    for (const bool complete : {true, false}) {
        task.fields[u"Complete"] = Value(complete);
        EXPECT_EQ(desk::cell_text(task, done), complete ? u"Yes" : u"");
    }
}

TEST_F(DeskListsTest, TellToWhomSentMailsWent) {
    desk::ItemData mail;
    mail.message_class = u"IPM.Note";
    mail.fields[u"Subject"] = Value(u"An offer");
    mail.fields[u"To"] = Value(u"Ann Lee; Ben Hart");
    add(sent_items, mail);
    show(sent_items);
    EXPECT_EQ(column(0), std::vector<Text>{u"Ann Lee; Ben Hart"});
    EXPECT_EQ(column(1), std::vector<Text>{u"An offer"});
}

}  // namespace
}  // namespace desk_tests
