// What only real windows have: names, tool tips, the keyboard, sizes on the screen, and their end.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>

#include "forms/windows/form_control.h"
#include "tests/forms/support/gallery.h"
#include "tests/windows/support/forms_stage.h"

namespace forms_test {
namespace {

using automation::Text;
using automation::TextView;
using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;
using windows::window_text;

struct RealForms : testing::Test {
    WindowsStage stage;

    std::shared_ptr<Noted> shown(const FormTable& table) {
        auto form = std::make_shared<Noted>(stage.engine(), table);
        form->show();
        pump();
        form->told.clear();
        return form;
    }
};

std::vector<HWND> windows_of_thread() {
    std::vector<HWND> all;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM into) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(into)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&all));
    return all;
}

Text class_of(HWND window) {
    std::array<wchar_t, 64> name{};
    const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return Text(windows::from_wide(name.data(), static_cast<std::size_t>(length)));
}

TEST_F(RealForms, EveryControlAnswersToItsName) {
    const auto form = shown(gallery);
    const HWND window = find_window(gallery_caption);
    EXPECT_EQ(name_of(window), u"Gallery");
    for (const ControlRow& row : gallery.controls) {
        const HWND control = find_control(window, row.name);
        EXPECT_EQ(control == nullptr, row.kind == ControlKind::image_list) << automation::to_utf8(row.name);
    }
}

TEST_F(RealForms, NameIsCutToItsPlace) {
    const auto form = shown(gallery);
    const HWND window = find_window(gallery_caption);
    const UINT question = RegisterWindowMessageW(L"WM_GETCONTROLNAME");
    std::array<wchar_t, 4> buffer{L'x', L'x', L'x', L'x'};
    EXPECT_EQ(SendMessageW(window, question, 3, reinterpret_cast<LPARAM>(buffer.data())), 3);
    EXPECT_STREQ(buffer.data(), L"Ga");
    EXPECT_EQ(buffer[3], L'x');
    EXPECT_EQ(SendMessageW(window, question, 0, reinterpret_cast<LPARAM>(buffer.data())), 0);
    EXPECT_EQ(SendMessageW(window, question, 4, 0), 0);
}

struct KindOfWindow {
    TextView name, window_class;
};
TEST_F(RealForms, ControlsAreTheSystemsOwn) {
    const auto form = shown(gallery);
    constexpr KindOfWindow kinds[] = {
        {u"label", u"Static"},       {u"words", u"Edit"},      {u"go", u"Button"},
        {u"free", u"ComboBox"},      {u"strict", u"ComboBox"}, {u"check", u"Button"},
        {u"list", u"SysListView32"}, {u"frame", u"Button"},    {u"link", u"Button"},
    };
    for (const KindOfWindow& kind : kinds) {
        EXPECT_EQ(class_of(find_control(find_window(gallery_caption), kind.name)), kind.window_class);
    }
}

/// What readers of the screen tell of a control: its own text, or the label that stands before it.
Text accessible_name(HWND control) {
    if (const Text own = window_text(control); !own.empty() && class_of(control) == u"Button") return own;
    for (HWND before = GetWindow(control, GW_HWNDPREV); before; before = GetWindow(before, GW_HWNDPREV)) {
        const LONG style = GetWindowLongW(before, GWL_STYLE);
        if (!(style & WS_VISIBLE)) continue;
        if (class_of(before) == u"Static") return window_text(before);
        if (style & WS_TABSTOP) break;
    }
    return {};
}

TEST_F(RealForms, WhateverTakesTheFocusHasAnAccessibleName) {
    const auto form = shown(gallery);
    const HWND window = find_window(gallery_caption);
    struct AccessibleName {
        TextView control, name;
    };
    constexpr AccessibleName names[] = {{u"words", u"Words & more:"},
                                        {u"go", u"Go"},
                                        {u"plus", u"Add"},
                                        {u"free", u"Choose:"},
                                        {u"strict", u"Strict choice"},
                                        {u"link", u"Who is it"},
                                        {u"list", u"Found"},
                                        {u"check", u"Leave it open"}};
    for (const AccessibleName& one : names) {
        EXPECT_EQ(automation::to_utf8(accessible_name(find_control(window, one.control))),
                  automation::to_utf8(one.name));
    }
}

/// The window of the tips that the form's controls have.
HWND tool_tips() {
    for (const HWND other : windows_of_thread()) {
        if (class_of(other) == u"tooltips_class32" && SendMessageW(other, TTM_GETTOOLCOUNT, 0, 0) > 0)
            return other;
    }
    return nullptr;
}

TEST_F(RealForms, ToolTipsAreTheTables) {
    const auto form = shown(gallery);
    const HWND window = find_window(gallery_caption);
    const HWND tips = tool_tips();
    ASSERT_TRUE(tips);
    for (const ControlRow& row : gallery.controls) {
        const HWND control = find_control(window, row.name);
        std::array<wchar_t, 256> text{};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.uFlags = TTF_IDISHWND;
        tool.hwnd = window;
        tool.uId = reinterpret_cast<UINT_PTR>(control);
        tool.lpszText = text.data();
        SendMessageW(tips, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
        EXPECT_EQ(Text(windows::from_wide(text.data(), wcslen(text.data()))), row.tool_tip)
            << automation::to_utf8(row.name);
    }
}

TEST_F(RealForms, ToolTipComesUpWhereTheMouseRests) {
    const auto form = shown(gallery);
    const HWND control = find_control(find_window(gallery_caption), u"list");
    const POINT below_the_headings{9, 60};
    POINT place = below_the_headings;
    ClientToScreen(control, &place);
    SetCursorPos(static_cast<int>(place.x), static_cast<int>(place.y));
    PostMessageW(control, WM_MOUSEMOVE, 0, MAKELPARAM(below_the_headings.x, below_the_headings.y));
    EXPECT_TRUE(wait_until([] { return SendMessageW(tool_tips(), TTM_GETCURRENTTOOLW, 0, 0) != 0; }));
}

TEST_F(RealForms, TopmostStaysOnTop) {
    const auto form = std::make_shared<Noted>(stage.engine(), gallery);
    form->view().topmost();
    EXPECT_FALSE(form->view().visible());
    EXPECT_TRUE(stage.topmost(gallery_caption));
    form->show();
    EXPECT_TRUE(stage.topmost(gallery_caption));
}

TEST_F(RealForms, HeadersMarksAreDrawnPicturesOfTheirSize) {
    struct Size {
        int dots, pixels;
    };
    for (const Size size : {Size{96, 13}, Size{120, 16}, Size{144, 20}, Size{192, 26}}) {
        stage.dots_per_inch(size.dots);
        const auto form = shown(gallery);
        const HWND list = find_control(find_window(gallery_caption), u"list");
        const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
        const auto images = reinterpret_cast<HIMAGELIST>(SendMessageW(header, HDM_GETIMAGELIST, 0, 0));
        ASSERT_TRUE(images);
        EXPECT_EQ(ImageList_GetImageCount(images), 2);
        int width = 0, height = 0;
        ImageList_GetIconSize(images, &width, &height);
        EXPECT_EQ(width, size.pixels);
        EXPECT_EQ(height, size.pixels);
    }
}

// The keyboard alone

TEST_F(RealForms, EveryStopIsReachedByTabAndNoOther) {
    const auto form = shown(gallery);
    std::vector<Text> stops;
    const Text first = stage.focused(gallery_caption);
    do {
        stops.push_back(stage.focused(gallery_caption));
        ASSERT_TRUE(stage.key({gallery_caption, {}}, VK_TAB));
    } while (stage.focused(gallery_caption) != first && stops.size() < 30);
    EXPECT_THAT(stops, testing::ElementsAre(u"words", u"go", u"stop", u"check", u"left", u"alone", u"free",
                                            u"strict", u"link", u"plus", u"list"));
}

TEST_F(RealForms, SpaceArrowsAndEnterWorkTheControls) {
    const auto form = shown(gallery);
    for (const TextView name : {u"check", u"link", u"plus"}) {
        EXPECT_TRUE(stage.key({gallery_caption, name}, VK_SPACE));
    }
    EXPECT_TRUE(stage.key({gallery_caption, u"link"}, VK_RETURN));
    EXPECT_TRUE(stage.key({gallery_caption, u"left"}, VK_DOWN));
    EXPECT_TRUE(stage.key({gallery_caption, u"strict"}, VK_DOWN));
    EXPECT_EQ(form->control(u"strict").text(), u"Notes");
    std::erase_if(form->told, [](const std::string& event) { return !event.starts_with("click"); });
    EXPECT_THAT(form->told, testing::ElementsAre("click check", "click link", "click plus", "click link",
                                                 "click right", "click strict"));
}

TEST_F(RealForms, RowsAreChosenWithTheArrows) {
    const auto form = shown(gallery);
    forms::List& list = form->control(u"list").list();
    list.add(u"one");
    list.add(u"two");
    list.select(0);
    EXPECT_TRUE(stage.key({gallery_caption, u"list"}, VK_DOWN));
    EXPECT_EQ(list.selected(), 1);
}

/// Counts what comes to a window as long as it lives.
class Messages {
  public:
    explicit Messages(HWND window) : window_(window) {
        SetWindowSubclass(window_, procedure, id, reinterpret_cast<DWORD_PTR>(this));
    }
    ~Messages() { RemoveWindowSubclass(window_, procedure, id); }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    int all = 0, paintings = 0;

  private:
    static constexpr UINT_PTR id = 77;
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                      DWORD_PTR data) {
        auto& messages = *reinterpret_cast<Messages*>(data);
        ++messages.all;
        if (message == WM_PAINT) ++messages.paintings;
        return DefSubclassProc(window, message, first, second);
    }

    HWND window_;
};

TEST_F(RealForms, SelectedRowComesIntoSightThoughRowsArePaintedLate) {
    const auto form = shown(gallery);
    forms::List& list = form->control(u"list").list();
    const HWND window = find_control(find_window(gallery_caption), u"list");
    for (int row = 0; row < 100; ++row) list.add(u"row");
    list.select(99);
    EXPECT_GT(SendMessageW(window, LVM_GETTOPINDEX, 0, 0), 50);
    pump();
    Messages messages(window);
    list.add(u"one more");
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE)) << "it waits for its time";
    EXPECT_TRUE(wait_until([&] { return messages.paintings > 0; }));
}

TEST_F(RealForms, RowTakesOneMessageForEachCellAndNoProperty) {
    const auto form = shown(gallery);
    forms::List& list = form->control(u"list").list();
    const HWND window = find_control(find_window(gallery_caption), u"list");
    EXPECT_FALSE(GetPropW(window, L"CC32SubclassInfo"))
        << "the common controls' own would be looked for at each message";
    Messages messages(window);
    const std::array<Text, 3> cells{u"a", u"b", u"c"};
    constexpr int rows = 100;
    for (int row = 0; row < rows; ++row) list.add(cells);
    constexpr int more = 30;  // when the painting is held back
    EXPECT_LE(messages.all, rows * 3 + more);
    EXPECT_EQ(list.count(), rows);
}

TEST_F(RealForms, ListThatIsFilledIsPaintedTenTimesASecond) {
    const auto form = shown(gallery);
    forms::List& list = form->control(u"list").list();
    Messages messages(find_control(find_window(gallery_caption), u"list"));
    const ULONGLONG begin = GetTickCount64();
    for (int row = 0; row < 200; ++row) {
        list.add(u"row");
        pump();
    }
    constexpr ULONGLONG interval = 100;  // milliseconds
    EXPECT_LE(static_cast<ULONGLONG>(messages.paintings), (GetTickCount64() - begin) / interval + 2);
    const int before = messages.paintings;
    list.add(u"the last one");
    EXPECT_TRUE(wait_until([&] { return messages.paintings > before; })) << "it is shown in the end";
}

TEST_F(RealForms, KeysNeverReachTheLoopOfTheHost) {
    const auto form = shown(gallery);
    SetFocus(find_control(find_window(gallery_caption), u"words"));
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
    MSG message{};
    bool key_seen = false;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        key_seen = key_seen || (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST);
        DispatchMessageW(&message);
    }
    EXPECT_FALSE(key_seen);
    EXPECT_EQ(stage.focused(gallery_caption), u"go");
}

TEST_F(RealForms, KeySentPlainlyPressesItsButtonOnce) {
    const auto form = shown(with_keys);
    SendMessageW(find_control(find_window(with_keys_caption), u"list"), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_THAT(form->told, testing::ElementsAre("click stop"));
}

// The pointer

TEST_F(RealForms, WindowShowsThePointerThatIsWanted) {
    const auto form = shown(gallery);
    const HWND window = find_window(gallery_caption);
    const auto pointer_over = [&](TextView name) {
        SendMessageW(find_control(window, name), WM_SETCURSOR,
                     reinterpret_cast<WPARAM>(find_control(window, name)),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    EXPECT_EQ(pointer_over(u"link"), LoadCursorW(nullptr, IDC_HAND));
    EXPECT_EQ(pointer_over(u"go"), LoadCursorW(nullptr, IDC_ARROW));
    stage.pointer().show(forms::Pointer::hourglass);
    for (const TextView name : {u"link", u"go", u"words", u"list"}) {
        EXPECT_EQ(pointer_over(name), LoadCursorW(nullptr, IDC_WAIT));
    }
    stage.pointer().show(forms::Pointer::standard);
    EXPECT_EQ(pointer_over(u"words"), LoadCursorW(nullptr, IDC_IBEAM));
}

// Modal windows and the host

TEST_F(RealForms, QuittingEndsAModalShowAndIsLeftForTheHost) {
    const auto form = std::make_shared<Noted>(stage.engine(), gallery);
    PostQuitMessage(7);
    form->show_modal();
    EXPECT_FALSE(form->view().visible());
    MSG message{};
    bool quit = false;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) quit = message.wParam == 7;
    }
    EXPECT_TRUE(quit);
}

TEST_F(RealForms, HostsWindowsWaitBehindAModalOne) {
    const HWND open = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 9, 9,
                                      nullptr, nullptr, nullptr, nullptr);
    const HWND disabled = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_DISABLED,
                                          0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    const auto form = std::make_shared<Noted>(stage.engine(), gallery);
    bool waited = false;
    stage.modal([&] { form->show_modal(); }, {[&] {
                    waited = !IsWindowEnabled(open);
                    form->hide();
                    EXPECT_TRUE(IsWindowEnabled(open))
                        << "before another program's window comes to the front";
                }});
    EXPECT_TRUE(waited);
    EXPECT_FALSE(IsWindowEnabled(disabled)) << "it was so before";
    DestroyWindow(open);
    DestroyWindow(disabled);
}

/// An engine with what it belongs to, as the add-in has them.
struct Owner {
    explicit Owner(WindowsStage& stage) : engine(stage.module(), [] { return 96; }) {}
    windows::FormEngine engine;
    std::shared_ptr<Noted> form = std::make_shared<Noted>(engine, gallery);
};

TEST_F(RealForms, BelongToSomethingThatOutlivesTheEventInWhichItIsLetGoOf) {
    struct Case {
        const char* name;
        bool unloads;  ///< before, as the add-in does when it stops
    };
    for (const Case& one : {Case{"unloaded", true}, Case{"as they are", false}}) {
        SCOPED_TRACE(one.name);
        auto owner = std::make_shared<Owner>(stage);
        const std::weak_ptr<Owner> there = owner;
        owner->engine.keep_during_events(owner);
        owner->form->show();
        pump();
        bool outlived = false;
        owner->form->at = [&](const std::string& event) {
            if (event != "column list 1" || !owner) return;
            if (one.unloads) owner->form->unload();
            owner.reset();
            outlived = !there.expired();
        };
        ASSERT_TRUE(stage.column_click({gallery_caption, u"list"}, 1));
        EXPECT_TRUE(wait_until([&] { return there.expired(); }));
        EXPECT_TRUE(outlived);
        EXPECT_EQ(find_window(gallery_caption), nullptr);
    }
}

}  // namespace
}  // namespace forms_test
