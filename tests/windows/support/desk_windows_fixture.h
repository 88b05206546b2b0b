// A desk in the test's own process, with its windows and a message loop that the test runs.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "desk/driver/named_window.h"
#include "desk/office/command_bars.h"
#include "desk/outlook/application.h"
#include "desk/outlook/explorers.h"
#include "desk/outlook/inspectors.h"
#include "desk/windows/desk_windows.h"
#include "desk/windows/explorer_window.h"
#include "desk/windows/inspector_window.h"
#include "desk/windows/main_loop.h"
#include "forms/windows/form_control.h"
#include "tests/support/idle_surroundings.h"

namespace desk_tests {
using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using windows::window_text;

/// A desk in this process: a database of its own, and a message loop that the test runs.
class QuietSurroundings final : public IdleSurroundings {
  public:
    desk::MainLoop loop;
    bool asked_to_quit = false;
    std::vector<Text> questions;  ///< that were asked
    int answer = 0;               ///< to each of them
    std::function<void()> on_came_up;

    void wake() override { loop.wake(); }
    void post(std::function<void()> action) override { loop.post(std::move(action)); }
    void pump(std::int32_t milliseconds) override { loop.pump(static_cast<DWORD>(milliseconds)); }
    int ask(TextView text, TextView, std::uint32_t) override {
        questions.emplace_back(text);
        return answer;
    }
    std::vector<Text> read;  ///< mail files
    Text unreadable;         ///< the path of a mail file that is none
    desk::ItemData read_mail(TextView path) override {
        if (path == unreadable) throw automation::Failure(automation::result::fail, u"This is no mail.");
        read.emplace_back(path);
        desk::ItemData mail;
        mail.message_class = u"IPM.Note";
        return mail;
    }
    void quit() override { asked_to_quit = true; }
    void changed() override { loop.change(); }
    void came_up() override {
        changed();
        if (on_came_up) on_came_up();
    }
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
            {6, u"Inbox"}, {5, u"Sent Items"}, {3, u"Deleted Items"}, {16, u"Drafts"}, {9, u"Calendar"}};
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

inline std::vector<HWND> windows_of_class(TextView wanted, HWND inside = nullptr) {
    std::vector<HWND> found = inside ? desk::windows_inside(inside) : desk::windows_of_thread();
    std::erase_if(found, [&](HWND window) {
        return !automation::same_ignoring_case(desk::class_name(window), wanted);
    });
    return found;
}

/// Drag and drop for this thread.
class Ole {
  public:
    Ole() { OleInitialize(nullptr); }
    ~Ole() { OleUninitialize(); }
    Ole(const Ole&) = delete;
    Ole& operator=(const Ole&) = delete;
};

class DeskWindowsTest : public testing::Test {
  protected:
    DeskWindowsTest() {
        surroundings.loop.on_wake = [this] { desk.yield(); };
        surroundings.loop.on_change = [this] { windows.follow(); };
        surroundings.on_came_up = [this] { windows.follow(); };
        windows.follow();
        run_messages();
    }
    ~DeskWindowsTest() override {
        surroundings.on_came_up = {};
        windows.close_all();
    }

    void run_messages() { surroundings.loop.pump(0); }
    /// Lets messages come until a condition holds, or a generous time has passed.
    template <class Condition>
    bool wait_until(Condition condition) {
        constexpr int most_rounds = 300, round = 20;  // milliseconds
        for (int i = 0; i < most_rounds && !condition(); ++i) surroundings.loop.pump(round);
        return condition();
    }

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

    Ole ole;
    DatabaseFile file;
    QuietSurroundings surroundings;
    mutable desk::Desk desk{surroundings, file.open(), desk::Options{}};
    windows::Module module;
    desk::DeskWindows windows{desk, module};
};

}  // namespace desk_tests
