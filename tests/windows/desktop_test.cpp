// The system's calls behind the narrow interface, on the real system.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "addin/server/desktop/windows_desktop.h"
#include "automation/com/failure.h"
#include "automation/com/module_file.h"

namespace windows::testing {
namespace {

using automation::Failure;
using automation::Text;
using automation::TextView;

std::int32_t failure_number(const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}

class DesktopTest : public ::testing::Test {
  protected:
    DesktopTest() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~DesktopTest() override { CoUninitialize(); }

    Module module;
    WindowsDesktop desktop{Apartment::create(module, u"Test")};
};

class RegistryTest : public DesktopTest {
  protected:
    static constexpr const char* path = "Software\\Tarnwell Test\\Registry";
    RegistryTest() { EXPECT_EQ(registry.create_key(host::current_user, path, key), ERROR_SUCCESS); }
    ~RegistryTest() override {
        registry.close_key(key);
        RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Tarnwell Test");
    }

    host::Registry& registry = desktop.registry();
    host::KeyHandle key = host::no_key;
};

TEST_F(RegistryTest, KeepsTypesSizesAndTerminators) {
    EXPECT_EQ(registry.set_value(key, "with", host::registry_type::text, "abc", 4), ERROR_SUCCESS);
    const std::uint32_t number = 0x12345678;
    EXPECT_EQ(registry.set_value(key, "number", host::registry_type::dword, &number, 4), ERROR_SUCCESS);

    host::KeyHandle opened = host::no_key;
    ASSERT_EQ(registry.open_key(host::current_user, path, opened), ERROR_SUCCESS);
    std::uint32_t type = 0, size = 0;
    EXPECT_EQ(registry.query_value(opened, "with", type, nullptr, size), ERROR_SUCCESS);
    EXPECT_EQ(type, host::registry_type::text);
    EXPECT_EQ(size, 4U) << "the terminator counts where it was stored";

    char buffer[8]{};
    size = 2;
    EXPECT_EQ(registry.query_value(opened, "with", type, buffer, size), host::registry_status::more_data);
    size = sizeof buffer;
    EXPECT_EQ(registry.query_value(opened, "with", type, buffer, size), ERROR_SUCCESS);
    EXPECT_STREQ(buffer, "abc");

    std::uint32_t read = 0;
    size = 4;
    EXPECT_EQ(registry.query_value(opened, "number", type, &read, size), ERROR_SUCCESS);
    EXPECT_EQ(type, host::registry_type::dword);
    EXPECT_EQ(read, number);
    EXPECT_EQ(registry.close_key(opened), ERROR_SUCCESS);
}

TEST_F(RegistryTest, TellsWhatIsNotThere) {
    host::KeyHandle other = host::no_key;
    std::uint32_t type = 0, size = 0;
    EXPECT_EQ(registry.open_key(host::current_user, "Software\\Tarnwell Test\\Nowhere", other),
              host::registry_status::file_not_found);
    EXPECT_EQ(other, host::no_key);
    EXPECT_EQ(registry.query_value(key, "nothing", type, nullptr, size),
              host::registry_status::file_not_found);
    EXPECT_EQ(registry.query_value(host::no_key, "nothing", type, nullptr, size),
              host::registry_status::invalid_handle);
}

TEST_F(DesktopTest, ObjectsAreMadeByName) {
    const automation::Object files = desktop.create(u"Scripting.FileSystemObject");
    EXPECT_EQ(files.call(u"GetFileName", {u"C:\\folder\\file.txt"}), automation::Value(u"file.txt"));
    EXPECT_EQ(failure_number([&] { desktop.create(u"No.Such.Class"); }), automation::result::bad_prog_id);
}

/// A class of the machine under a program id of its own: the system's dictionary.
class OwnClass : public DesktopTest {
  protected:
    static constexpr TextView prog_id = u"Tarnwell.TestClass";
    OwnClass() {
        CLSID id{};
        wchar_t text[40]{};
        EXPECT_EQ(CLSIDFromProgID(L"Scripting.Dictionary", &id), S_OK);
        const int length = StringFromGUID2(id, text, static_cast<int>(std::size(text)));
        EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, L"Tarnwell.TestClass\\CLSID", nullptr, REG_SZ, text,
                                  static_cast<DWORD>(length * sizeof *text)),
                  ERROR_SUCCESS);
    }
    ~OwnClass() override { forget(); }
    static void forget() { RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Tarnwell.TestClass"); }
};

TEST_F(OwnClass, IsLookedUpOnceAndStillMakesANewObjectEachTime) {
    const automation::Object first = desktop.create(prog_id);
    forget();
    const automation::Object second = desktop.create(prog_id);
    first.call(u"Add", {u"who", u"first"});
    EXPECT_EQ(second.get(u"Count"), automation::Value(0)) << "it is another object";
    desktop.release_others();
    EXPECT_EQ(failure_number([&] { desktop.create(prog_id); }), automation::result::bad_prog_id);
}

TEST_F(DesktopTest, PropertiesOfTheSystemsObjectsAreReadAndWritten) {
    const automation::Object shell = desktop.create(u"WScript.Shell");
    const automation::Value before = shell.get(u"CurrentDirectory");
    shell.put(u"CurrentDirectory", u"C:\\windows");
    EXPECT_EQ(automation::folded(shell.get(u"CurrentDirectory").to_text()), u"c:\\windows");
    shell.put(u"CurrentDirectory", before);
}

class Files : public DesktopTest {
  protected:
    Files() {
        wchar_t base[MAX_PATH]{};
        GetTempPathW(MAX_PATH, base);
        folder = Text(from_wide(base, wcslen(base))) + u"tarnwell test " +
                 automation::to_text(static_cast<long long>(GetCurrentProcessId()));
        CreateDirectoryW(wide(folder), nullptr);
    }
    ~Files() override {
        for (const Text& file : made) {
            SetFileAttributesW(wide(file), FILE_ATTRIBUTE_NORMAL);
            DeleteFileW(wide(file));
        }
        RemoveDirectoryW(wide(folder + u"\\a folder"));
        RemoveDirectoryW(wide(folder));
    }

    Text make(TextView name, DWORD attributes = FILE_ATTRIBUTE_NORMAL) {
        const Text path = folder + u"\\" + Text(name);
        const HANDLE file =
            CreateFileW(wide(path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, attributes, nullptr);
        EXPECT_NE(file, INVALID_HANDLE_VALUE);
        CloseHandle(file);
        made.push_back(path);
        return path;
    }

    Text folder;
    std::vector<Text> made;
};

TEST_F(Files, AreFoundByNameOrPattern) {
    const Text file = make(u"initial.txt");
    EXPECT_EQ(desktop.find_file(file), u"initial.txt");
    EXPECT_EQ(desktop.find_file(folder + u"\\*.TXT"), u"initial.txt");
    EXPECT_EQ(desktop.find_file(folder + u"\\other.txt"), u"");
    EXPECT_EQ(desktop.find_file(u"C:\\no such folder\\x"), u"");
}

TEST_F(Files, ThatAreHiddenOrFoldersAreNotFound) {
    const Text hidden = make(u"hidden.txt", FILE_ATTRIBUTE_HIDDEN);
    const Text system = make(u"system.txt", FILE_ATTRIBUTE_SYSTEM);
    CreateDirectoryW(wide(folder + u"\\a folder"), nullptr);
    EXPECT_EQ(desktop.find_file(hidden), u"");
    EXPECT_EQ(desktop.find_file(system), u"");
    EXPECT_EQ(desktop.find_file(folder + u"\\a folder"), u"");
    EXPECT_EQ(desktop.find_file(folder + u"\\*"), u"");
    make(u"visible.txt");
    EXPECT_EQ(desktop.find_file(folder + u"\\*"), u"visible.txt") << "what is passed over hides no other";
}

TEST_F(Files, AreDeletedOrTheFailureIsTold) {
    const Text file = make(u"initial.txt");
    desktop.delete_file(file);
    EXPECT_EQ(desktop.find_file(file), u"");
    EXPECT_EQ(failure_number([&] { desktop.delete_file(file); }), automation::result::file_not_found);
}

TEST_F(DesktopTest, OwnFolderIsWhereThisProgramLies) {
    const Text folder = desktop.own_folder();
    EXPECT_NE(folder.back(), u'\\');
    EXPECT_EQ(module_file(), folder + u"\\desktop_tests.exe");
    EXPECT_EQ(desktop.find_file(module_file()), u"desktop_tests.exe");
}

TEST_F(DesktopTest, TextNarrowsToTheSystemsCodePageAndBack) {
    const Text text = u"a\u00FC\u20AC";
    ASSERT_EQ(GetACP(), 1252U);
    EXPECT_EQ(desktop.narrow(text), "a\xFC\x80");
    EXPECT_EQ(desktop.widen(desktop.narrow(text)), text);
    EXPECT_EQ(desktop.narrow(u"\u4E00"), "?");
    EXPECT_EQ(desktop.narrow(u""), "");
    EXPECT_EQ(desktop.widen(""), u"");
}

/// A window that only receives messages.
class Receiver {
  public:
    Receiver() {
        WNDCLASSW window_class{};
        window_class.lpfnWndProc = &handle;
        window_class.lpszClassName = L"tarnwell test receiver";
        RegisterClassW(&window_class);
        window_ = CreateWindowW(window_class.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                nullptr, this);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~Receiver() { DestroyWindow(window_); }

    HWND window() const { return window_; }
    int received = 0;

  private:
    static LRESULT CALLBACK handle(HWND window, UINT message, WPARAM w, LPARAM l) {
        if (message == WM_APP) {
            auto& self = *reinterpret_cast<Receiver*>(GetWindowLongPtrW(window, GWLP_USERDATA));
            ++self.received;
            if (w > 0) PostMessageW(window, WM_APP, w - 1, 0);
        }
        return DefWindowProcW(window, message, w, l);
    }
    HWND window_ = nullptr;
};

TEST_F(DesktopTest, YieldRunsTheQueueUntilItIsEmpty) {
    Receiver receiver;
    PostMessageW(receiver.window(), WM_APP, 3, 0);
    desktop.yield();
    EXPECT_EQ(receiver.received, 4) << "messages that come meanwhile run as well";
}

TEST_F(DesktopTest, YieldLeavesTheMessageToQuit) {
    PostQuitMessage(42);
    desktop.yield();
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 42U);
}

TEST_F(DesktopTest, DotsAndPointerAreTheScreens) {
    HDC screen = GetDC(nullptr);
    EXPECT_EQ(desktop.dots_per_inch(), GetDeviceCaps(screen, LOGPIXELSX));
    EXPECT_GT(desktop.dots_per_inch(), 0);
    ReleaseDC(nullptr, screen);
    desktop.pointer(forms::Pointer::hourglass);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    desktop.pointer(forms::Pointer::standard);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

/// Answers the next message box of this thread, and remembers what it said.
class Answerer {
  public:
    explicit Answerer(int button) : button_(button) {
        current() = this;
        hook_ = SetWindowsHookExW(WH_CBT, &watch, nullptr, GetCurrentThreadId());
    }
    ~Answerer() {
        UnhookWindowsHookEx(hook_);
        current() = nullptr;
    }
    Text title, text;

  private:
    static Answerer*& current() {
        static Answerer* answerer = nullptr;
        return answerer;
    }
    static Text text_of(HWND window) {
        wchar_t buffer[200]{};
        return Text(from_wide(buffer, static_cast<std::size_t>(GetWindowTextW(window, buffer, 200))));
    }
    static LRESULT CALLBACK watch(int code, WPARAM w, LPARAM l) {
        const HWND window = reinterpret_cast<HWND>(w);
        const HWND message = code == HCBT_ACTIVATE ? GetDlgItem(window, 0xFFFF) : nullptr;  // a box's text
        if (message && current()->title.empty()) {
            current()->title = text_of(window);
            current()->text = text_of(message);
            PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(current()->button_), 0);
        }
        return CallNextHookEx(nullptr, code, w, l);
    }
    int button_;
    HHOOK hook_ = nullptr;
};

TEST_F(DesktopTest, MessageBoxesTellTheAnswer) {
    for (const int answer : {host::box::answer_yes, host::box::answer_no, host::box::answer_cancel}) {
        Answerer answerer(answer);
        EXPECT_EQ(desktop.message_box(u"Save the note?", u"Tarnwell", host::box::yes_no_cancel), answer);
        EXPECT_EQ(answerer.title, u"Tarnwell");
        EXPECT_EQ(answerer.text, u"Save the note?");
    }
}

}  // namespace
}  // namespace windows::testing
