// Mail as a person writes it: with the keyboard, from the first line to the last key.
#include "desk/outlook/item.h"
#include "tests/windows/support/desk_windows_fixture.h"
#include "tests/windows/support/hand.h"

namespace desk_tests {
namespace {

class DeskWriting : public DeskWindowsTest {
  protected:
    using Steps = std::vector<Hand::Step>;

    static Steps typed(std::wstring_view text) {
        Steps steps;
        for (const wchar_t letter : text) steps.push_back({.point = {}, .letter = letter});
        return steps;
    }
    static Hand::Step key(WORD code, WORD held = 0) { return {.point = {}, .key = code, .held = held}; }

    /// Types at the keyboard, with messages handled meanwhile, into the window that is in front.
    bool type(const std::vector<Steps>& parts) {
        Steps all;
        for (const Steps& part : parts) all.insert(all.end(), part.begin(), part.end());
        const Hand hand(std::move(all));
        return wait_until([&] { return hand.done(); });
    }
    /// The window of the active inspector has the keyboard.
    bool in_front(std::size_t windows) {
        return wait_until([&] {
            const auto all = windows_of_class(u"TarnwellDeskInspector");
            if (all.size() != windows) return false;
            const HWND focus = GetFocus();
            if (GetForegroundWindow() != all.front()) SetForegroundWindow(all.front());
            return focus && IsChild(all.front(), focus) != FALSE;
        });
    }
    static HWND field(std::size_t place) { return windows_of_class(u"Edit", inspector_window()).at(place); }

    std::size_t count(std::int32_t folder) { return desk.contents(desk.default_folder(folder)).size(); }
    std::shared_ptr<desk::Item> first(std::int32_t folder) {
        return desk.open_item(desk.contents(desk.default_folder(folder)).at(0));
    }
    /// A mail of the Inbox, from Ann, opened.
    void open_received() {
        desk::ItemData mail;
        mail.message_class = u"IPM.Note";
        mail.fields[u"Subject"] = Value(u"Offer");
        mail.fields[u"Body"] = Value(u"We take it.");
        mail.fields[u"Sent"] = Value(true);
        mail.fields[u"SenderName"] = Value(u"Ann Lee");
        mail.fields[u"SenderEmailAddress"] = Value(u"ann@one.example");
        mail.fields[u"SenderEmailType"] = Value(u"SMTP");
        const auto item = std::make_shared<desk::Item>(desk, desk.default_folder(inbox), std::move(mail));
        item->save();
        item->inspector()->display();
        run_messages();
    }

    static constexpr std::int32_t inbox = 6, sent_items = 5, drafts = 16;
};

TEST_F(DeskWriting, GoesFromTheLineOfNamesToTheLastKey) {
    open_mail();
    ASSERT_TRUE(in_front(1));
    EXPECT_EQ(GetFocus(), field(0)) << "it begins with whom it is for";
    const Steps next{key(VK_TAB)};
    ASSERT_TRUE(type({typed(L"ann@one.example"),
                      next,
                      typed(L"ben@one.example"),
                      next,
                      next,
                      typed(L"Visit"),
                      next,
                      typed(L"One"),
                      {key(VK_RETURN)},
                      typed(L"Two"),
                      {key(VK_RETURN, VK_CONTROL)}}));
    ASSERT_TRUE(wait_until([&] { return count(sent_items) == 1; }));
    EXPECT_FALSE(inspector_window());
    const auto mail = first(sent_items);
    EXPECT_EQ(mail->field(u"To"), Value(u"ann@one.example"));
    EXPECT_EQ(mail->field(u"CC"), Value(u"ben@one.example"));
    EXPECT_EQ(mail->subject(), u"Visit");
    EXPECT_EQ(mail->field(u"Body"), Value(u"One\r\nTwo"));
}

TEST_F(DeskWriting, AnswersAMailByItsKeys) {
    struct Case {
        const char* name;
        Steps keys;
        Text subject, to;
        std::size_t focus;
    };
    constexpr std::size_t line_of_names = 0, text = 4;
    const Case cases[] = {
        {"reply", {key('R', VK_CONTROL)}, u"RE: Offer", u"Ann Lee", text},
        {"forward", {key('F', VK_CONTROL)}, u"FW: Offer", u"", line_of_names},
    };
    open_received();
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        ASSERT_TRUE(in_front(1));
        ASSERT_TRUE(type({one.keys}));
        ASSERT_TRUE(in_front(2));
        const auto answer = desk.inspectors()->open.back()->item();
        EXPECT_EQ(answer->subject(), one.subject);
        EXPECT_EQ(answer->field(u"To").to_text(), one.to);
        EXPECT_EQ(GetFocus(), field(one.focus));
        EXPECT_NE(window_text(field(text)).find(u"Original Message"), Text::npos);
        ASSERT_TRUE(type({{key(VK_ESCAPE)}}));
        ASSERT_TRUE(in_front(1));
        EXPECT_TRUE(surroundings.questions.empty()) << "nothing was written yet";
    }
    ASSERT_TRUE(type({{key('R', VK_CONTROL)}}));
    ASSERT_TRUE(in_front(2));
    ASSERT_TRUE(type({typed(L"Thank you."), {key(VK_RETURN, VK_CONTROL)}}));
    ASSERT_TRUE(wait_until([&] { return count(sent_items) == 1; }));
    EXPECT_TRUE(first(sent_items)->field(u"Body").to_text().starts_with(u"Thank you.\r\n\r\n-----Original"));
}

TEST_F(DeskWriting, LosesNoDraft) {
    constexpr int yes = 6, no = 7, cancel = 2;
    struct Case {
        int answer;
        std::size_t kept;
        bool open;
    };
    const Case cases[] = {{cancel, 0, true}, {no, 0, false}, {yes, 1, false}};
    for (const Case& one : cases) {
        SCOPED_TRACE(one.answer);
        surroundings.answer = one.answer;
        surroundings.questions.clear();
        if (!inspector_window()) open_mail();
        ASSERT_TRUE(in_front(1));
        ASSERT_TRUE(type({typed(L"a"), {key(VK_ESCAPE)}}));
        ASSERT_TRUE(wait_until([&] { return !surroundings.questions.empty(); }));
        EXPECT_EQ(surroundings.questions, std::vector<Text>{u"Do you want to keep this mail in Drafts?"});
        EXPECT_TRUE(wait_until([&] { return (inspector_window() != nullptr) == one.open; }));
        EXPECT_EQ(count(drafts), one.kept);
        if (one.open) desk.inspectors()->open.front()->close(desk::save_mode::discard);
        run_messages();
    }
}

TEST_F(DeskWriting, KeepsADraftByCtrlS) {
    open_mail();
    ASSERT_TRUE(in_front(1));
    ASSERT_TRUE(type({typed(L"ann"), {key('S', VK_CONTROL)}}));
    EXPECT_TRUE(wait_until([&] { return count(drafts) == 1; }));
    ASSERT_TRUE(type({{key(VK_ESCAPE)}}));
    EXPECT_TRUE(wait_until([] { return inspector_window() == nullptr; }));
    EXPECT_TRUE(surroundings.questions.empty()) << "nothing has changed since";
}

TEST_F(DeskWriting, RefusesAnAddressThatCanBeNone) {
    open_mail();
    ASSERT_TRUE(in_front(1));
    ASSERT_TRUE(type({typed(L"ann@"), {key(VK_RETURN, VK_CONTROL)}}));
    ASSERT_TRUE(wait_until([&] { return !surroundings.questions.empty(); }));
    EXPECT_EQ(surroundings.questions, std::vector<Text>{u"\"ann@\" can't be an address."});
    EXPECT_TRUE(inspector_window());
    EXPECT_EQ(count(sent_items), 0U);
}

}  // namespace
}  // namespace desk_tests
