// The reading pane of a main window: what it shows, and that showing is no reading.
#include "addin/host/host_events.h"
#include "desk/outlook/item.h"
#include "tests/windows/support/desk_windows_fixture.h"

namespace desk_tests {
namespace {

using desk::ExplorerCommand;

class DeskReading : public DeskWindowsTest {
  protected:
    DeskReading() {
        add_mail(u"An offer", u"Ann Lee", u"We take it.\nPlease send the papers.");
        add_mail(u"A question", u"Ben Hart", u"What does it cost?");
        desk.explorers()->open.front()->show_folder(inbox());
        run_messages();
    }
    desk::RowId inbox() const { return desk.default_folder(6); }

    void add_mail(TextView subject, TextView from, TextView text) {
        desk::ItemData data;
        data.message_class = u"IPM.Note";
        data.fields[u"Subject"] = Value(subject);
        data.fields[u"SenderName"] = Value(from);
        data.fields[u"SentOn"] = Value(*automation::read_date(u"2026-03-02 09:15"));
        data.fields[u"Body"] = Value(text);
        data.fields[u"UnRead"] = true;
        std::make_shared<desk::Item>(desk, inbox(), std::move(data))->save();
    }
    std::shared_ptr<desk::Item> mail(std::size_t place) const {
        return desk.open_item(desk.contents(inbox()).at(place));
    }
    Object inbox_items() const {
        const Object session = desk.application()->self().call(u"GetNamespace", {u"MAPI"}).to_object();
        return session.call(u"GetDefaultFolder", {6}).to_object().get(u"Items").to_object();
    }

    static HWND pane() { return windows_of_class(u"TarnwellDeskPane", explorer_window()).front(); }
    static HWND pane_text() { return windows_of_class(u"Edit", pane()).front(); }
    static HWND list() { return windows_of_class(u"SysListView32", explorer_window()).front(); }
    static RECT place_of(HWND window) {
        RECT box{};
        GetWindowRect(window, &box);
        return box;
    }

    /// As a person who clicks on a line; the newest mail stands first.
    void click_line(int line, WPARAM keys = 0) {
        RECT box{};
        ListView_GetItemRect(list(), line, &box, LVIR_LABEL);
        const LPARAM point = MAKELPARAM(box.left + 5, (box.top + box.bottom) / 2);
        PostMessageW(list(), WM_LBUTTONDOWN, MK_LBUTTON | keys, point);
        PostMessageW(list(), WM_LBUTTONUP, keys, point);
        run_messages();
    }
    void choose(ExplorerCommand command) {
        SendMessageW(explorer_window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
        run_messages();
    }
};

TEST_F(DeskReading, FollowsTheSelection) {
    EXPECT_EQ(window_text(pane()), u"Nothing is selected");
    EXPECT_FALSE(IsWindowVisible(pane_text()));
    click_line(1);
    EXPECT_EQ(window_text(pane()), u"An offer\r\nFrom:  Ann Lee\r\nSent:  2026-03-02 09:15");
    EXPECT_EQ(window_text(pane_text()), u"We take it.\r\nPlease send the papers.");
    EXPECT_TRUE(IsWindowVisible(pane_text()));
    click_line(0);
    EXPECT_EQ(window_text(pane()), u"A question\r\nFrom:  Ben Hart\r\nSent:  2026-03-02 09:15");
    EXPECT_EQ(window_text(pane_text()), u"What does it cost?");
    desk.explorers()->open.front()->select({mail(0)->self(), mail(1)->self()});
    run_messages();
    EXPECT_EQ(window_text(pane()), u"2 items are selected");
    click_line(0);
    mail(1)->remove();
    run_messages();
    EXPECT_EQ(window_text(pane()), u"Nothing is selected") << "what is gone isn't read any more";
}

TEST_F(DeskReading, ShowsWhatOthersChange) {
    click_line(1);
    const Object offer = inbox_items().call(u"Item", {1}).to_object();
    offer.put(u"Body", u"We don't.");
    offer.call(u"Save");
    run_messages();
    EXPECT_EQ(window_text(pane_text()), u"We don't.");
}

TEST_F(DeskReading, LeavesAMailUnreadAndRaisesNoEventOfIt) {
    std::vector<std::string> told;
    automation::Sink of_items;
    const auto note = [&](const char* name) {
        return [&told, name](std::span<Value>) { told.emplace_back(name); };
    };
    of_items.connect(
        host::events::items, inbox_items(),
        {{u"ItemAdd", note("add")}, {u"ItemChange", note("change")}, {u"ItemRemove", note("remove")}});
    click_line(1);
    click_line(0);
    click_line(1);
    EXPECT_EQ(told, std::vector<std::string>{});
    EXPECT_TRUE(mail(0)->field(u"UnRead").to_boolean());
    EXPECT_TRUE(mail(1)->field(u"UnRead").to_boolean());
    EXPECT_TRUE(mail(0)->is_saved()) << "nothing of it has changed";

    choose(desk::leaving_reads_command);
    click_line(0);
    EXPECT_EQ(told, std::vector<std::string>{"change"}) << "a person wants that it has been read by now";
    EXPECT_FALSE(mail(0)->field(u"UnRead").to_boolean());
    EXPECT_TRUE(mail(1)->field(u"UnRead").to_boolean()) << "this one is still being read";
    desk.explorers()->open.front()->select({});
    run_messages();
    EXPECT_TRUE(mail(1)->field(u"UnRead").to_boolean()) << "a program selects, and reads nothing";
}

TEST_F(DeskReading, IsSwitchedOnAndOff) {
    click_line(1);
    const RECT with_pane = place_of(list());
    EXPECT_GT(place_of(pane()).top, with_pane.bottom);
    choose(desk::show_pane_command);
    EXPECT_FALSE(IsWindowVisible(pane()));
    EXPECT_GT(place_of(list()).bottom, with_pane.bottom) << "the list takes its place";
    click_line(0);
    choose(desk::show_pane_command);
    EXPECT_TRUE(IsWindowVisible(pane()));
    EXPECT_EQ(place_of(list()).bottom, with_pane.bottom);
    EXPECT_EQ(window_text(pane_text()), u"What does it cost?");
}

TEST_F(DeskReading, IsMadeLargerByItsBar) {
    const RECT before = place_of(pane());
    RECT bar{before.left, before.top - desk::SplitBars::thickness, before.right, before.top};
    MapWindowPoints(nullptr, explorer_window(), reinterpret_cast<POINT*>(&bar), 2);
    const LONG x = (bar.left + bar.right) / 2, y = bar.top + 2;
    SendMessageW(explorer_window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    SendMessageW(explorer_window(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y - 60));
    SendMessageW(explorer_window(), WM_LBUTTONUP, 0, MAKELPARAM(x, y - 60));
    EXPECT_EQ(place_of(pane()).top, before.top - 60);
    EXPECT_EQ(place_of(pane()).bottom, before.bottom);
    EXPECT_EQ(place_of(list()).bottom, before.top - 60 - desk::SplitBars::thickness);
    SendMessageW(explorer_window(), WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
    EXPECT_EQ(place_of(pane()).top, before.top - 60) << "it was let go";
}

TEST(DeskPane, TellsWhatAnItemHas) {
    IdleSurroundings surroundings;
    desk::Desk desk(surroundings, desk::Store::open(":memory:"), desk::Options{});
    struct Case {
        const char* name;
        TextView message_class;
        std::vector<std::pair<TextView, Value>> fields;
        Text headline;
        std::vector<Text> lines;
    };
    const Case cases[] = {
        {"a mail", u"IPM.Note", {{u"Subject", u"Hello"}, {u"To", u"Ann; Ben"}}, u"Hello", {u"To:  Ann; Ben"}},
        {"without a subject", u"IPM.Note", {}, u"(no subject)", {}},
        {"a contact",
         u"IPM.Contact",
         {{u"FullName", u"Ann Lee"}, {u"CompanyName", u"Lee Ltd"}, {u"Email1Address", u"ann@lee.example"}},
         u"Ann Lee",
         {u"Company:  Lee Ltd", u"E-mail:  ann@lee.example"}},
        {"an appointment",
         u"IPM.Appointment",
         {{u"Subject", u"Visit"},
          {u"Start", *automation::read_date(u"2026-03-05 10:30")},
          {u"End", *automation::read_date(u"2026-03-05 11:00")},
          {u"Location", u"Room 2"}},
         u"Visit",
         {u"Start:  2026-03-05 10:30", u"End:  2026-03-05 11:00", u"Where:  Room 2"}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        desk::ItemData data;
        data.message_class = Text(one.message_class);
        for (const auto& [name, value] : one.fields) data.fields[Text(name)] = value;
        const auto item = std::make_shared<desk::Item>(desk, 0, std::move(data));
        const desk::PaneContents shown = desk::pane_contents(*item);
        EXPECT_EQ(shown.headline, one.headline);
        EXPECT_EQ(shown.lines, one.lines);
    }
}

TEST(DeskPane, SaysThatALongTextGoesOn) {
    IdleSurroundings surroundings;
    desk::Desk desk(surroundings, desk::Store::open(":memory:"), desk::Options{});
    desk::ItemData data;
    data.message_class = u"IPM.Note";
    data.fields[u"Body"] = Value(Text(5'000'000, u'x'));
    const auto item = std::make_shared<desk::Item>(desk, 0, std::move(data));
    const Text text = desk::pane_contents(*item).text;
    EXPECT_LT(text.size(), 110'000U);
    EXPECT_TRUE(text.ends_with(u"[The rest is shown when the item is opened.]"));
}

}  // namespace
}  // namespace desk_tests
