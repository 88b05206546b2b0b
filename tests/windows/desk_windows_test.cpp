// The desk's own windows: toolbars that follow the command bars, the context menu, mail that is written, and
// that nothing stays behind.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "desk/model/application.h"
#include "desk/model/command_bars.h"
#include "desk/model/explorers.h"
#include "desk/model/inspectors.h"
#include "desk/windows/desk_windows.h"
#include "desk/windows/main_loop.h"
#include "desk/windows/named_window.h"
#include "host/failure.h"
#include "host/host_events.h"
#include "windows/forms/common_controls.h"
#include "windows/forms/form_control.h"

namespace desk_tests {
namespace {

using host::Object;
using host::Text;
using host::TextView;
using host::Value;
using windows::window_text;

/// A desk in this process: a database of its own, and a message loop that the test runs.
class QuietSurroundings final : public desk::Surroundings {
  public:
    desk::MainLoop loop;
    bool asked_to_quit = false;

    host::Date now() override { return host::to_date({2026, 3, 3, 9, 15, 0}); }
    std::string random_bytes(std::size_t count) override { return std::string(count, 'r'); }
    desk::ItemData read_mail(TextView) override { return {}; }
    void wake() override { loop.wake(); }
    void post(std::function<void()> action) override { loop.post(std::move(action)); }
    void pump(std::int32_t milliseconds) override { loop.pump(static_cast<DWORD>(milliseconds)); }
    std::unique_ptr<desk::WindowDriver> window(TextView) override { return nullptr; }
    int ask(TextView, TextView, std::uint32_t) override { return 0; }
    Object create_object(TextView) override { return {}; }
    std::vector<desk::StartedProgram> programs() override { return {}; }
    std::vector<desk::LiveCount> live() override { return {}; }
    std::vector<desk::CallCount> calls() override { return {}; }
    void reset_calls() override {}
    void snapshot(TextView) override {}
    void connect_add_in(TextView, bool) override {}
    void quit() override { asked_to_quit = true; }
    void changed() override { loop.change(); }
    void remember_option(TextView, TextView) override {}
};

/// A database in a file that goes with it.
class DatabaseFile {
  public:
    DatabaseFile() {
        std::array<wchar_t, MAX_PATH> folder{}, name{};
        GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
        GetTempFileNameW(folder.data(), L"dsk", 0, name.data());
        path_ = name.data();
        std::filesystem::remove(path_);
    }
    ~DatabaseFile() {
        std::error_code ignored;
        for (const wchar_t* end : {L"", L"-wal", L"-shm"}) {
            std::filesystem::remove(path_.native() + end, ignored);
        }
    }
    DatabaseFile(const DatabaseFile&) = delete;
    DatabaseFile& operator=(const DatabaseFile&) = delete;

    std::unique_ptr<desk::Store> open() const {
        auto store = desk::Store::open(path_);
        desk::FolderRow root;
        root.name = u"Mailbox";
        root.store_uid = Text(32, u'1');
        const desk::RowId mailbox = store->add_folder(root);
        const std::pair<std::int32_t, const char16_t*> folders[] = {
            {6, u"Inbox"}, {5, u"Sent Items"}, {3, u"Deleted Items"}, {16, u"Drafts"}};
        for (const auto& [number, name] : folders) {
            desk::FolderRow row;
            row.parent = mailbox;
            row.name = name;
            row.default_number = number;
            row.default_class = u"IPM.Note";
            store->add_folder(row);
        }
        return store;
    }

  private:
    std::filesystem::path path_;
};

std::vector<HWND> windows_of_class(TextView wanted, HWND inside = nullptr) {
    std::vector<HWND> found = inside ? desk::windows_inside(inside) : desk::windows_of_thread();
    std::erase_if(found,
                  [&](HWND window) { return !host::same_ignoring_case(desk::class_name(window), wanted); });
    return found;
}

class DeskWindowsTest : public testing::Test {
  protected:
    DeskWindowsTest() {
        surroundings.loop.on_wake = [this] { desk.yield(); };
        surroundings.loop.on_change = [this] { windows.follow(); };
        windows.follow();
        run_messages();
    }
    ~DeskWindowsTest() override { windows.close_all(); }

    void run_messages() { surroundings.loop.pump(0); }

    Object create_mail() const { return desk.application()->self().call(u"CreateItem", {0}).to_object(); }
    Object open_mail() {
        const Object mail = create_mail();
        mail.call(u"Display");
        run_messages();
        return mail.get(u"GetInspector").to_object();
    }
    static Object bars_of(const Object& window) { return window.get(u"CommandBars").to_object(); }
    static Object add_bar(const Object& bars, TextView name) {
        const Object bar = bars.call(u"Add", {Value(name), 1, false, true}).to_object();
        bar.put(u"Visible", true);
        return bar;
    }
    static Object add_button(const Object& bar, TextView caption) {
        const Object button = bar.get(u"Controls").to_object().call(u"Add", {1}).to_object();
        button.put(u"Caption", Value(caption));
        button.put(u"Style", 3);
        return button;
    }
    static HWND inspector_window() {
        const auto all = windows_of_class(u"TarnwellDeskInspector");
        return all.empty() ? nullptr : all.front();
    }
    static HWND explorer_window() { return windows_of_class(u"TarnwellDeskExplorer").front(); }

    /// The toolbar of that name in a window, or null.
    static HWND toolbar(HWND window, TextView name) {
        for (const HWND bar : windows_of_class(u"ToolbarWindow32", window)) {
            if (window_text(bar) == name) return bar;
        }
        return nullptr;
    }
    static std::vector<Text> captions(HWND bar) {
        std::vector<Text> all;
        const auto count = static_cast<int>(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0));
        for (int i = 0; i < count; ++i) {
            TBBUTTON button{};
            SendMessageW(bar, TB_GETBUTTON, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&button));
            if (button.fsStyle & BTNS_SEP) {
                all.emplace_back(u"|");
                continue;
            }
            std::array<wchar_t, 100> text{};
            SendMessageW(bar, TB_GETBUTTONTEXTW, static_cast<WPARAM>(button.idCommand),
                         reinterpret_cast<LPARAM>(text.data()));
            all.emplace_back(reinterpret_cast<const char16_t*>(text.data()));
        }
        return all;
    }
    /// As a person who clicks on a toolbar's button.
    void click(HWND bar, int place) {
        RECT box{};
        SendMessageW(bar, TB_GETITEMRECT, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&box));
        const LPARAM point = MAKELPARAM((box.left + box.right) / 2, (box.top + box.bottom) / 2);
        SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point);
        SendMessageW(bar, WM_LBUTTONUP, 0, point);
        run_messages();
    }

    DatabaseFile file;
    QuietSurroundings surroundings;
    mutable desk::Desk desk{surroundings, file.open(), desk::Options{}};
    desk::DeskWindows windows{desk};
};

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
    host::Sink first, second;
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
    ASSERT_EQ(fields.size(), 3U);  // To, Subject, text
    const wchar_t* typed[] = {L"ann@one.example; ", L"Delivery dates", L"As agreed."};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        SendMessageW(fields[i], EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(typed[i]));
    }
    run_messages();
    EXPECT_EQ(mail.get(u"Subject"), Value(u"Delivery dates"));
    EXPECT_EQ(mail.get(u"Body"), Value(u"As agreed."));
    EXPECT_EQ(mail.get(u"To"), Value(u"ann@one.example"));
    EXPECT_EQ(window_text(fields[0]), u"ann@one.example; ") << "nobody interferes with the typing";
    EXPECT_EQ(window_text(inspector_window()), u"Delivery dates - Message");
    click(toolbar(inspector_window(), u"Standard"), 0);
    EXPECT_FALSE(inspector_window());
    EXPECT_EQ(desk.contents(desk.default_folder(5)).size(), 1U);
}

TEST_F(DeskWindowsTest, ShowWhatOthersChangeInAnItem) {
    const Object inspector = open_mail();
    inspector.get(u"CurrentItem").to_object().put(u"Subject", u"From elsewhere");
    desk.surroundings().changed();
    run_messages();
    EXPECT_EQ(window_text(windows_of_class(u"Edit", inspector_window())[1]), u"From elsewhere");
}

/// Presses keys in the menu that is about to open.
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

  private:
    static MenuKeys*& self() {
        static MenuKeys* the_one = nullptr;
        return the_one;
    }
    void press() {
        for (const int key : std::exchange(keys_, {})) {
            PostMessageW(explorer_of_thread(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        }
    }
    static HWND explorer_of_thread() { return windows_of_class(u"TarnwellDeskExplorer").front(); }

    std::vector<int> keys_;
    UINT_PTR timer_;
};

TEST_F(DeskWindowsTest, OpenAContextMenuWithTheBarsEntries) {
    const Object inbox = desk.application()
                             ->self()
                             .call(u"GetNamespace", {u"MAPI"})
                             .to_object()
                             .call(u"GetDefaultFolder", {6})
                             .to_object();
    const Object mail = inbox.get(u"Items").to_object().call(u"Add", {u"IPM.Note"}).to_object();
    mail.put(u"Subject", u"One");
    mail.call(u"Save");
    const Object explorer = desk.explorers()->active();
    const Object bar = bars_of(explorer).get(u"Item", {u"Context Menu"}).to_object();
    int updates = 0, clicks = 0;
    host::Sink update, click_of_one;
    update.connect(host::events::command_bars, bars_of(explorer),
                   {{u"OnUpdate", [&](std::span<Value>) { ++updates; }}});
    const Object one = add_button(bar, u"Tarnwell One");
    click_of_one.connect(host::events::button, one, {{u"Click", [&](std::span<Value>) { ++clicks; }}});
    run_messages();
    const HWND list = windows_of_class(u"SysListView32", explorer_window()).front();
    const auto right_click = [&](int line, std::vector<int> keys) {
        const MenuKeys pressed(std::move(keys));
        RECT box{};
        ListView_GetItemRect(list, line, &box, LVIR_LABEL);
        const LPARAM point = MAKELPARAM(box.left + 5, (box.top + box.bottom) / 2);
        PostMessageW(list, WM_RBUTTONDOWN, MK_RBUTTON, point);
        PostMessageW(list, WM_RBUTTONUP, 0, point);
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
    host::Sink sink;
    sink.connect(host::events::inspector, first, {{u"Activate", [&](std::span<Value>) { ++activations; }}});
    SetForegroundWindow(first_window);  // as a click on it does
    run_messages();
    EXPECT_EQ(activations, 1);
    EXPECT_EQ(desk.inspectors()->active(), first);
    SendMessageW(first_window, WM_CLOSE, 0, 0);
    run_messages();
    EXPECT_EQ(desk.inspectors()->open.size(), 1U);
    EXPECT_FALSE(IsWindow(first_window));
}

TEST_F(DeskWindowsTest, LeaveNothingBehindWhenAThousandWereOpen) {
    const Object mail = create_mail();
    const auto open_and_close = [&](int times) {
        for (int i = 0; i < times; ++i) {
            mail.call(u"Display");
            const Object inspector = mail.get(u"GetInspector").to_object();
            add_button(add_bar(bars_of(inspector), u"Notes"), u"One");
            run_messages();
            inspector.call(u"Close", {desk::save_mode::discard});
            run_messages();
        }
    };
    const auto resources = [](DWORD kind) { return GetGuiResources(GetCurrentProcess(), kind); };
    open_and_close(20);
    const std::size_t windows_before = desk::windows_of_thread().size();
    const DWORD drawn_before = resources(GR_GDIOBJECTS), user_before = resources(GR_USEROBJECTS);
    open_and_close(1000);
    EXPECT_EQ(desk::windows_of_thread().size(), windows_before);
    EXPECT_LE(resources(GR_GDIOBJECTS), drawn_before);
    EXPECT_LE(resources(GR_USEROBJECTS), user_before);
    std::cout << "resources: " << drawn_before << " drawn, " << user_before << " of windows\n";
    EXPECT_EQ(desk.inspectors()->open.size(), 0U);
    EXPECT_EQ(desk.window_order.size(), 1U);
}

}  // namespace
}  // namespace desk_tests
