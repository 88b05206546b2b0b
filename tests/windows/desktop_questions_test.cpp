// Message boxes: whose they are, and what waits behind them.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "addin/server/desktop/windows_desktop.h"
#include "forms/windows/modal_show.h"

namespace windows::testing {
namespace {

/// A window as a host has it, shown in front of those that are there and active.
class HostWindow {
  public:
    explicit HostWindow(DWORD style = WS_OVERLAPPEDWINDOW, DWORD extended_style = 0)
        : window_(CreateWindowExW(extended_style, L"STATIC", L"", style, 100, 100, 300, 200, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr)) {
        ShowWindow(window_, SW_SHOW);
        come_up();
    }
    ~HostWindow() { end(); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND handle() const { return window_; }
    void come_up() const {
        SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        SetForegroundWindow(window_);
    }
    bool takes_input() const { return IsWindowEnabled(window_) != FALSE; }
    void end() {
        if (window_) DestroyWindow(window_);
        window_ = nullptr;
    }

  private:
    HWND window_;
};

/// The two windows of a host and a small one that tells how far something is.
struct Host {
    HostWindow main, mail;
    std::unique_ptr<HostWindow> status, dialog;

    void show_status() {
        status = std::make_unique<HostWindow>(WS_OVERLAPPED | WS_CAPTION, WS_EX_TOOLWINDOW);
    }
    void show_dialog() { dialog = std::make_unique<HostWindow>(WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU); }
};

/// Looks at the message box that waits, does something while it does, and presses a button.
class Onlooker {
  public:
    explicit Onlooker(int button, std::function<void()> meanwhile = {})
        : button_(button), meanwhile_(std::move(meanwhile)) {
        self() = this;
        timer_ =
            SetTimer(nullptr, 0, USER_TIMER_MINIMUM, [](HWND, UINT, UINT_PTR, DWORD) { self()->look(); });
    }
    ~Onlooker() {
        KillTimer(nullptr, timer_);
        self() = nullptr;
    }
    Onlooker(const Onlooker&) = delete;
    Onlooker& operator=(const Onlooker&) = delete;

    HWND owner = nullptr;
    bool seen = false;

  private:
    static Onlooker*& self() {
        static Onlooker* the_one = nullptr;
        return the_one;
    }
    void look() {
        const HWND box = FindWindowW(L"#32770", L"A question of this test");
        if (seen || !box || !IsWindowVisible(box)) return;
        seen = true;
        owner = GetWindow(box, GW_OWNER);
        if (meanwhile_) meanwhile_();
        if (IsWindow(box)) PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button_), 0);
    }
    int button_;
    std::function<void()> meanwhile_;
    UINT_PTR timer_;
};

class Questions : public ::testing::Test {
  protected:
    Questions() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Questions() override { CoUninitialize(); }

    int ask() { return desktop.message_box(u"Is it so?", u"A question of this test", host::box::yes_no); }

    Module module;
    WindowsDesktop desktop{Apartment::create(module, u"Test")};
};

TEST_F(Questions, BelongToTheWindowThatTheUserWorksIn) {
    struct Case {
        const char* name;
        std::function<void(Host&)> happens;
        std::function<HWND(Host&)> owner;
    };
    const auto main = [](Host& host) { return host.main.handle(); };
    const auto mail = [](Host& host) { return host.mail.handle(); };
    const Case cases[] = {
        {"the window opened last", [](Host&) {}, mail},
        {"another was clicked on", [](Host& host) { host.main.come_up(); }, main},
        {"a status window came up", [](Host& host) { host.show_status(); }, mail},
        {"a status window came up over the other",
         [](Host& host) {
             host.main.come_up();
             host.show_status();
         },
         main},
        {"the last one is minimized", [](Host& host) { ShowWindow(host.mail.handle(), SW_MINIMIZE); }, main},
        {"a dialog is open", [](Host& host) { host.show_dialog(); },
         [](Host& host) { return host.dialog->handle(); }},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        Host host;
        one.happens(host);
        const HWND expected = one.owner(host);
        const Onlooker onlooker(host::box::answer_yes);
        EXPECT_EQ(ask(), host::box::answer_yes);
        EXPECT_EQ(onlooker.owner, expected);
    }
}

TEST_F(Questions, BelongToTheDialogAlsoWhereTheStatusWindowCameUpAfterIt) {
    Host host;
    host.show_dialog();
    const ModalShow modal(host.dialog->handle());
    host.show_status();
    const Onlooker onlooker(host::box::answer_no);
    EXPECT_EQ(ask(), host::box::answer_no);
    EXPECT_EQ(onlooker.owner, host.dialog->handle());
}

TEST_F(Questions, HaveAllWindowsOfTheHostWait) {
    Host host;
    host.show_status();
    HostWindow disabled;
    EnableWindow(disabled.handle(), FALSE);
    bool waited = false;
    const Onlooker onlooker(host::box::answer_yes, [&] {
        waited = !host.main.takes_input() && !host.mail.takes_input() && !host.status->takes_input();
    });
    EXPECT_EQ(ask(), host::box::answer_yes);
    EXPECT_TRUE(waited);
    EXPECT_TRUE(host.main.takes_input());
    EXPECT_TRUE(host.mail.takes_input());
    EXPECT_TRUE(host.status->takes_input());
    EXPECT_FALSE(disabled.takes_input()) << "it took none before";
}

TEST_F(Questions, GoUnansweredWithTheirWindowAndLetTheOthersOn) {
    Host host;
    const Onlooker onlooker(host::box::answer_yes, [&] { host.mail.end(); });
    EXPECT_NE(ask(), host::box::answer_yes);
    EXPECT_TRUE(onlooker.seen);
    EXPECT_TRUE(host.main.takes_input());
}

TEST_F(Questions, AreShownWithoutAnyWindow) {
    const Onlooker onlooker(host::box::answer_no);
    EXPECT_EQ(ask(), host::box::answer_no);
    EXPECT_EQ(onlooker.owner, nullptr);
}

}  // namespace
}  // namespace windows::testing
