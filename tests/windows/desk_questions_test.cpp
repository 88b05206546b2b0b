// A question of an add-in before the desk's own windows, with a real mouse and keyboard as far as the system
// goes.
#include "addin/host/host_events.h"
#include "addin/server/desktop/windows_desktop.h"
#include "automation/events.h"
#include "desk/outlook/item.h"
#include "tests/windows/support/desk_windows_fixture.h"
#include "tests/windows/support/hand.h"

namespace desk_tests {
namespace {

constexpr std::int32_t default_inbox = 6;

class DeskQuestions : public DeskWindowsTest {
  protected:
    DeskQuestions() {
        for (const TextView subject : {u"One", u"Two", u"Three", u"Four"}) {
            desk::ItemData data;
            data.message_class = u"IPM.Note";
            data.fields[u"Subject"] = Value(subject);
            std::make_shared<desk::Item>(desk, desk.default_folder(default_inbox), std::move(data))->save();
        }
        SetWindowPos(explorer_window(), nullptr, 0, 0, 900, 600, SWP_NOZORDER);
        SetForegroundWindow(explorer_window());
        run_messages();
    }

    static HWND list() { return windows_of_class(u"SysListView32", explorer_window()).front(); }
    static POINT line(int number) {
        RECT box{};
        ListView_GetItemRect(list(), number, &box, LVIR_LABEL);
        POINT point{box.left + 12, (box.top + box.bottom) / 2};
        ClientToScreen(list(), &point);
        return point;
    }
    static HWND box() { return FindWindowW(L"#32770", L"A question"); }
    Text selected() {
        const auto& all = desk.explorers()->open.back()->selected();
        return all.size() == 1 ? all.front().get(u"Subject").to_text() : Text();
    }

    windows::WindowsDesktop desktop{windows::Apartment::create(module, u"Test")};
    automation::Sink sink;
};

/// What happens at the selection of a mail from a stranger: something is searched for, and then comes the
/// question.
TEST_F(DeskQuestions, StandBeforeTheMailThatWasDoubleClickedAndKeepAllInputToThemselves) {
    std::vector<Text> asked_about;
    int answer = 0;
    sink.connect(host::events::explorer, desk.explorers()->open.back()->self(),
                 {{u"SelectionChange", [&](auto) {
                       asked_about.push_back(selected());
                       wait_until([] { return inspector_window() != nullptr; });  // it gives way meanwhile
                       answer = desktop.message_box(u"Is it so?", u"A question", host::box::yes_no);
                   }}});
    HWND owner = nullptr, front = nullptr;
    bool explorer_waits = false;
    const auto question_is_there = [&] {
        if (!box() || !IsWindowVisible(box())) return false;
        owner = GetWindow(box(), GW_OWNER);
        front = GetActiveWindow();
        explorer_waits = !IsWindowEnabled(explorer_window());
        return front == box();
    };
    const POINT second = line(1), third = line(2);
    const Hand hand({{second},
                     {second, MOUSEEVENTF_LEFTDOWN},
                     {second, MOUSEEVENTF_LEFTUP},
                     {second, MOUSEEVENTF_LEFTDOWN},
                     {second, MOUSEEVENTF_LEFTUP},
                     {.point = third, .when = question_is_there},
                     {third, MOUSEEVENTF_LEFTDOWN},
                     {third, MOUSEEVENTF_LEFTUP},
                     {.point = third, .key = VK_RETURN}});
    EXPECT_TRUE(wait_until([&] { return hand.done() && answer != 0; }));
    EXPECT_EQ(owner, inspector_window());
    EXPECT_TRUE(explorer_waits);
    EXPECT_EQ(answer, host::box::answer_yes) << "the Enter key came to the question";
    EXPECT_EQ(asked_about, std::vector<Text>{u"Three"}) << "the click beside the question did nothing";
    EXPECT_TRUE(IsWindowEnabled(explorer_window()));
    EXPECT_TRUE(IsWindowEnabled(inspector_window()));
}

/// The list has the keyboard again after a question, so that the next arrow key leads to the next mail.
TEST_F(DeskQuestions, GiveTheKeyboardBackToWhereItWas) {
    std::vector<Text> asked_about;
    sink.connect(host::events::explorer, desk.explorers()->open.back()->self(),
                 {{u"SelectionChange", [&](auto) {
                       if (selected().empty()) return;  // between two mails
                       asked_about.push_back(selected());
                       if (asked_about.size() > 1) return;
                       desktop.message_box(u"Is it so?", u"A question", host::box::yes_no);
                   }}});
    const POINT first = line(0);
    const Hand hand(
        {{first},
         {first, MOUSEEVENTF_LEFTDOWN},
         {first, MOUSEEVENTF_LEFTUP},
         {.point = first, .key = VK_RETURN, .when = [] { return box() && GetActiveWindow() == box(); }},
         {.point = first, .key = VK_DOWN, .when = [] { return !box(); }},
         {.point = first, .key = VK_DOWN}});
    EXPECT_TRUE(wait_until([&] { return hand.done() && asked_about.size() == 3; }));
    EXPECT_EQ(asked_about, (std::vector<Text>{u"Four", u"Three", u"Two"}));
}

}  // namespace
}  // namespace desk_tests
