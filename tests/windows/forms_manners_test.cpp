// How windows behave towards the person who works beside them: the keyboard, the place, and quick or mixed
// input.
#include <gtest/gtest.h>

#include "addin/ground/status_windows.h"
#include "addin/quickview/quick_view.h"
#include "tests/forms/support/gallery.h"
#include "tests/windows/support/forms_stage.h"

namespace forms_test {
namespace {

using automation::TextView;
using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;

constexpr TextView side_caption = u"On The Side";
constexpr TextView side_entries[] = {u"One", u"Two"};
constexpr ControlRow side_rows[] = {{.kind = ControlKind::combo_box,
                                     .name = u"choice",
                                     .place = {60, 60, 1500, 315},
                                     .entries = side_entries}};
constexpr FormTable side{.name = u"Side",
                         .caption = side_caption,
                         .width = 1650,
                         .height = 2000,
                         .tool_window = true,
                         .takes_keyboard = false,
                         .beside_host = true,
                         .controls = side_rows};

std::vector<std::string> clicks(const Noted& form) {
    std::vector<std::string> told = form.told;
    std::erase_if(told, [](const std::string& event) { return !event.starts_with("click"); });
    return told;
}

RECT box_of(HWND window) {
    RECT box{};
    GetWindowRect(window, &box);
    return box;
}

/// Moves a window. The screen may tell late of the place at which it came up, and so take the move back: it
/// is there when it is so at several looks.
bool moves(HWND window, int left, int top) {
    constexpr int looks = 10;
    int seen = 0;
    return wait_until([&] {
        const RECT box = box_of(window);
        const bool is_there = box.left == left && box.top == top;
        seen = is_there ? seen + 1 : 0;
        if (!is_there) SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        return seen == looks;
    });
}

RECT free_part_of_screen() {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

struct Manners : testing::Test {
    WindowsStage stage;
    HWND host = FindWindowW(L"STATIC", L"The host");

    std::shared_ptr<Noted> made(const FormTable& table) {
        return std::make_shared<Noted>(stage.engine(), table);
    }
    void place_host(int left, int top, int width, int height) {
        SetWindowPos(host, nullptr, left, top, width, height, SWP_NOZORDER);
        pump();
    }
};

// The keyboard

TEST_F(Manners, WindowOnTheSideLeavesTheKeyboardWhereItIs) {
    const HWND field = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, host, nullptr,
                                       nullptr, nullptr);
    SetForegroundWindow(host);
    SetFocus(field);
    for (const FormTable* table :
         {&side, &addin::quickview::quick_view_table(), &addin::search_form_table()}) {
        SCOPED_TRACE(automation::to_utf8(table->name));
        const auto form = made(*table);
        form->view().topmost();
        for (int times = 0; times < 2; ++times) {
            form->show();
            pump();
            EXPECT_TRUE(form->view().visible());
            EXPECT_EQ(GetActiveWindow(), host);
            EXPECT_EQ(GetFocus(), field);
            form->hide();
            pump();
            EXPECT_EQ(GetFocus(), field);
        }
    }
    const auto form = made(side);
    form->show();
    EXPECT_TRUE(stage.activate(side_caption)) << "as a click does";
    EXPECT_EQ(stage.focused(side_caption), u"choice");
}

TEST_F(Manners, WindowOnTheSideComesBeforeWhatWasInFrontOfIt) {
    constexpr FormTable status{.name = u"Status",
                               .caption = side_caption,
                               .width = 1650,
                               .height = 2000,
                               .tool_window = true,
                               .takes_keyboard = false};
    const auto form = made(status);
    form->show();
    form->hide();
    SetForegroundWindow(host);
    pump();
    form->show();
    HWND below = find_window(side_caption);
    while (below && below != host) below = GetWindow(below, GW_HWNDNEXT);
    EXPECT_EQ(below, host);
}

// The place

TEST_F(Manners, WindowComesUpBesideTheHostAtFirstAndLaterWhereItWasLeft) {
    place_host(40, 60, 500, 400);
    auto form = made(side);
    form->show();
    const RECT beside = box_of(find_window(side_caption));
    EXPECT_EQ(beside.left, box_of(host).right);
    EXPECT_EQ(beside.top, box_of(host).top);

    ASSERT_TRUE(moves(find_window(side_caption), 333, 222));
    place_host(90, 90, 500, 400);
    form->hide();
    form->show();
    EXPECT_EQ(box_of(find_window(side_caption)).left, 333) << "hidden and shown again";
    form->unload();
    form->show();
    EXPECT_EQ(box_of(find_window(side_caption)).left, 333) << "unloaded and made anew";
    EXPECT_EQ(box_of(find_window(side_caption)).top, 222);
}

TEST_F(Manners, WindowStaysOnTheScreenThatIsThere) {
    const RECT screen = free_part_of_screen();
    place_host(screen.left, screen.top, screen.right - screen.left, screen.bottom - screen.top);
    const auto form = made(side);
    form->show();
    const HWND window = find_window(side_caption);
    EXPECT_EQ(box_of(window).right, screen.right) << "there is no room beside the host";
    EXPECT_GT(box_of(window).top, box_of(host).top + 100) << "the host's own buttons stay free";

    struct Case {
        const char* name;
        int left, top;
        bool is_left_there;
    };
    const Case cases[] = {{"a screen to the right that has gone", screen.right + 500, 100, false},
                          {"a screen to the left", -4000, 100, false},
                          {"above the screen", 100, -900, false},
                          {"half over the edge", screen.right - 60, 100, true}};
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        form->hide();
        SetWindowPos(window, nullptr, one.left, one.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        form->show();
        const RECT box = box_of(window);
        if (one.is_left_there) {
            EXPECT_EQ(box.left, one.left);
            EXPECT_EQ(box.top, one.top);
        } else {
            EXPECT_GE(box.left, screen.left);
            EXPECT_LE(box.right, screen.right);
            EXPECT_GE(box.top, screen.top);
        }
    }
}

// What is modal

bool is_in_front_of(HWND window, HWND other) {
    while (window && window != other) window = GetWindow(window, GW_HWNDNEXT);
    return window != nullptr;
}

TEST_F(Manners, ModalWindowStaysInFrontOfTheOneThatTheUserWorksIn) {
    SetForegroundWindow(host);
    const auto dialog = made(with_keys);
    HWND window = nullptr;
    stage.modal([&] { dialog->show_modal(); }, {[&] {
                    window = find_window(with_keys_caption);
                    EXPECT_EQ(GetWindow(window, GW_OWNER), host);
                    EXPECT_FALSE(IsWindowEnabled(host));
                    SetWindowPos(host, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);  // as a task bar does
                    EXPECT_TRUE(is_in_front_of(window, host));
                    dialog->view().topmost();
                    EXPECT_TRUE(stage.topmost(with_keys_caption));
                    dialog->hide();
                }});
    EXPECT_TRUE(IsWindowEnabled(host));
    EXPECT_EQ(GetActiveWindow(), host);
    EXPECT_EQ(GetWindow(window, GW_OWNER), nullptr) << "hidden, it is nobody's";
}

TEST_F(Manners, ModalWindowOutlivesTheOneThatTheUserWorkedIn) {
    const HWND mail = CreateWindowExW(0, L"STATIC", L"A mail", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200,
                                      100, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(mail);
    const auto dialog = made(with_keys);
    stage.modal([&] { dialog->show_modal(); },
                {[&] {
                     EXPECT_EQ(GetWindow(find_window(with_keys_caption), GW_OWNER), mail);
                     DestroyWindow(mail);
                 },
                 [&] {
                     EXPECT_TRUE(dialog->view().visible());
                     EXPECT_TRUE(stage.type({with_keys_caption, u"words"}, u"still here"));
                     EXPECT_EQ(dialog->control(u"words").text(), u"still here");
                     dialog->hide();
                 }});
    EXPECT_TRUE(IsWindowEnabled(host));
}

// A choice

struct ChoiceCase {
    const char* name;
    std::function<void(WindowsStage&)> choose;
    std::vector<std::string> clicks;
    TextView text;
};

void open_list(WindowsStage& stage) {
    const HWND list = find_control(find_window(gallery_caption), u"strict");
    SetFocus(list);
    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    stage.key({gallery_caption, {}}, VK_DOWN);
    stage.key({gallery_caption, {}}, VK_DOWN);
}

TEST_F(Manners, OneChoiceIsOneClickWhateverRunsMeanwhile) {
    const std::vector<std::string> one_click{"click strict"};
    const ChoiceCase cases[] = {
        {"with the mouse",
         [](WindowsStage& s) {
             s.choose({gallery_caption, u"strict"}, 2);
         },
         one_click, u"My Calendar"},
        {"the same entry again",
         [](WindowsStage& s) {
             s.choose({gallery_caption, u"strict"}, 0);
         },
         one_click, u"Notes"},
        {"with an arrow key",
         [](WindowsStage& s) {
             s.key({gallery_caption, u"strict"}, VK_DOWN);
         },
         one_click, u"Opportunities"},
        {"in the open list with arrows and Enter",
         [](WindowsStage& s) {
             open_list(s);
             s.key({gallery_caption, {}}, VK_RETURN);
         },
         one_click, u"My Calendar"},
        {"in the open list, and Escape",
         [](WindowsStage& s) {
             open_list(s);
             s.key({gallery_caption, {}}, VK_ESCAPE);
         },
         {},
         u"Notes"},
    };
    for (const ChoiceCase& one : cases) {
        SCOPED_TRACE(one.name);
        const auto form = made(gallery);
        const auto dialog = made(with_keys);
        form->show();
        form->control(u"strict").choice().choose(0);
        pump();
        form->told.clear();
        bool list_was_open = false;
        form->at = [&](const std::string& event) {
            if (!event.starts_with("click")) return;
            list_was_open = SendMessageW(find_control(find_window(gallery_caption), u"strict"),
                                         CB_GETDROPPEDSTATE, 0, 0) != 0;
            stage.modal([&] { dialog->show_modal(); }, {[&] {
                            Sleep(30);  // other messages have other times
                            dialog->hide();
                        }});
        };
        one.choose(stage);
        pump();
        EXPECT_EQ(clicks(*form), one.clicks);
        EXPECT_EQ(form->control(u"strict").text(), one.text);
        EXPECT_FALSE(list_was_open);
    }
}

// Quick clicks

/// The system's time of a double click while this lives.
class DoubleClickTime {
  public:
    explicit DoubleClickTime(UINT milliseconds) : former_(GetDoubleClickTime()) {
        SetDoubleClickTime(milliseconds);
    }
    ~DoubleClickTime() { SetDoubleClickTime(former_); }
    DoubleClickTime(const DoubleClickTime&) = delete;
    DoubleClickTime& operator=(const DoubleClickTime&) = delete;

  private:
    UINT former_;
};

void post_click(HWND window, UINT down = WM_LBUTTONDOWN) {
    PostMessageW(window, down, MK_LBUTTON, MAKELPARAM(4, 4));
    PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
}

TEST_F(Manners, QuickClicksOnALinkAreOne) {
    const auto form = made(gallery);
    form->show();
    pump();
    const HWND link = find_control(find_window(gallery_caption), u"link");
    post_click(link);
    post_click(link, WM_LBUTTONDBLCLK);
    post_click(link);
    pump();
    EXPECT_EQ(clicks(*form), std::vector<std::string>{"click link"});
    form->control(u"link").text(u"Somebody else");
    post_click(link);
    pump();
    EXPECT_EQ(clicks(*form), (std::vector<std::string>{"click link", "click link"}));
}

TEST_F(Manners, ClickOnALinkThatWasMadeBeforeItsWorkWasDoneIsTheSame) {
    const DoubleClickTime short_time(1);
    const auto form = made(gallery);
    form->show();
    pump();
    const HWND link = find_control(find_window(gallery_caption), u"link");
    form->at = [&](const std::string& event) {
        if (event != "click link" || clicks(*form).size() > 1) return;
        Sleep(30);
        post_click(link);
        Sleep(30);
    };
    post_click(link);
    pump();
    EXPECT_EQ(clicks(*form).size(), 1U);
    Sleep(30);
    post_click(link);
    pump();
    EXPECT_EQ(clicks(*form).size(), 2U);
}

// What the user changes while the window is there

std::string told(const RECT& box) {
    return std::to_string(box.left) + "," + std::to_string(box.top) + "," + std::to_string(box.right) + "," +
           std::to_string(box.bottom);
}

/// How big everything in the gallery is.
std::vector<std::string> look_of(HWND window) {
    std::vector<std::string> all;
    for (const ControlRow& row : gallery.controls) {
        if (const HWND control = find_control(window, row.name)) {
            all.push_back(automation::to_utf8(row.name) + " " + told(box_of(control)));
        }
    }
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(find_control(window, u"words"), WM_GETFONT, 0, 0)),
               sizeof font, &font);
    all.push_back("font " + std::to_string(font.lfHeight));
    const HWND list = find_control(window, u"list");
    all.push_back("column " + std::to_string(SendMessageW(list, LVM_GETCOLUMNWIDTH, 0, 0)));
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    all.push_back("header " + told(box_of(header)));
    int width = 0, height = 0;
    ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(SendMessageW(header, HDM_GETIMAGELIST, 0, 0)), &width,
                          &height);
    all.push_back("mark " + std::to_string(width));
    return all;
}

TEST_F(Manners, WindowMovedToAScreenOfAnotherResolutionIsAsOneMadeThere) {
    stage.dots_per_inch(192);
    auto form = made(gallery);
    form->show();
    const RECT box = box_of(find_window(gallery_caption));
    const std::vector<std::string> made_there = look_of(find_window(gallery_caption));
    form->unload();

    stage.dots_per_inch(96);
    form->show();
    const HWND window = find_window(gallery_caption);
    EXPECT_NE(look_of(window), made_there);
    const HWND list = find_control(window, u"list");
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&box));
    pump();
    EXPECT_EQ(look_of(window), made_there);
    EXPECT_EQ(form->view().dots_per_inch(), 192);
    EXPECT_EQ(find_control(window, u"list"), list) << "the same controls, with what is in them";
}

/// One of the system's colours while this lives.
class SystemColor {
  public:
    SystemColor(int index, COLORREF color) : index_(index), former_(GetSysColor(index)) {
        SetSysColors(1, &index_, &color);
    }
    ~SystemColor() { SetSysColors(1, &index_, &former_); }
    SystemColor(const SystemColor&) = delete;
    SystemColor& operator=(const SystemColor&) = delete;

  private:
    int index_;
    COLORREF former_;
};

TEST_F(Manners, ColorsAreTheUsersInHighContrastAndFollowTheirChange) {
    const auto form = made(gallery);
    form->show();
    const HWND window = find_window(gallery_caption), list = find_control(window, u"list");
    const auto color_of_status = [&] {
        const HDC context = GetDC(window);
        SendMessageW(window, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(find_control(window, u"status")));
        const COLORREF color = GetTextColor(context);
        ReleaseDC(window, context);
        return color;
    };
    EXPECT_EQ(color_of_status(), RGB(0, 0, 128));
    const SystemColor text(COLOR_BTNTEXT, RGB(255, 255, 0)), ground(COLOR_WINDOW, RGB(10, 20, 30));
    stage.high_contrast(true);
    SendMessageW(window, WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
    EXPECT_EQ(color_of_status(), RGB(255, 255, 0));
    EXPECT_EQ(SendMessageW(list, LVM_GETBKCOLOR, 0, 0), static_cast<LRESULT>(RGB(10, 20, 30)));
    stage.high_contrast(false);
    SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_EQ(color_of_status(), RGB(0, 0, 128));
}

}  // namespace
}  // namespace forms_test
