// The attachments of an item as a person meets them: a row of names that open, are saved, added and removed.
#include <fstream>

#include "desk/outlook/item.h"
#include "desk/windows/mail_files.h"
#include "forms/windows/common_controls.h"
#include "tests/windows/support/desk_windows_fixture.h"
#include "tests/windows/support/hand.h"

namespace desk_tests {
namespace {

/// Answers the system's next dialog for files with a path.
class FileAnswer {
  public:
    explicit FileAnswer(std::filesystem::path path) : path_(std::move(path)) {
        self() = this;
        constexpr UINT pace = 40;  // milliseconds
        timer_ = SetTimer(nullptr, 0, pace, [](HWND, UINT, UINT_PTR, DWORD) {
            if (self()) self()->look();
        });
    }
    ~FileAnswer() {
        KillTimer(nullptr, timer_);
        self() = nullptr;
    }
    FileAnswer(const FileAnswer&) = delete;
    FileAnswer& operator=(const FileAnswer&) = delete;

    bool given = false;

  private:
    static FileAnswer*& self() {
        static FileAnswer* the_one = nullptr;
        return the_one;
    }
    void look() {
        constexpr int most_looks = 250;  // a dialog that isn't answered by then is closed, and the test fails
        const bool too_late = ++looks_ == most_looks;
        for (const HWND dialog : windows_of_class(u"#32770")) {
            if (too_late) PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
            if (!given && IsWindowVisible(dialog)) answer(dialog);
        }
    }
    void answer(HWND dialog) {
        for (const HWND line : windows_of_class(u"Edit", dialog)) {
            if (!IsWindowVisible(line)) continue;
            given = true;
            SendMessageW(line, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path_.c_str()));
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
            return;
        }
    }

    std::filesystem::path path_;
    int looks_ = 0;
    UINT_PTR timer_;
};

/// A folder that goes with it.
class FileFolder {
  public:
    FileFolder()
        : path_(std::filesystem::temp_directory_path() /
                ("attached" + std::to_string(GetCurrentProcessId()))) {
        std::filesystem::create_directories(path_);
    }
    ~FileFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    FileFolder(const FileFolder&) = delete;
    FileFolder& operator=(const FileFolder&) = delete;

    std::filesystem::path operator/(const char* name) const { return path_ / name; }
    static std::string content(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

  private:
    std::filesystem::path path_;
};

/// What the shell does with documents of a kind, for as long as it lives.
class DocumentKind {
  public:
    DocumentKind(const wchar_t* ending, const std::wstring& command) : ending_(ending) {
        set(ending_.c_str(), L"Tarnwell.TestDocument");
        set(L"Tarnwell.TestDocument\\shell\\open\\command", command.c_str());
    }
    ~DocumentKind() {
        RegDeleteTreeW(HKEY_CLASSES_ROOT, ending_.c_str());
        RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Tarnwell.TestDocument");
    }
    DocumentKind(const DocumentKind&) = delete;
    DocumentKind& operator=(const DocumentKind&) = delete;

  private:
    static void set(const wchar_t* key, const wchar_t* text) {
        RegSetKeyValueW(HKEY_CLASSES_ROOT, key, nullptr, REG_SZ, text,
                        static_cast<DWORD>((std::wcslen(text) + 1) * sizeof *text));
    }
    std::wstring ending_;
};

class DeskAttachments : public DeskWindowsTest {
  protected:
    static desk::AttachmentData attached_file(TextView name, std::string content) {
        desk::AttachmentData data;
        data.file_name = data.display_name = Text(name);
        data.content = std::move(content);
        return data;
    }
    static desk::AttachmentData attached_mail(TextView subject) {
        desk::ItemData mail;
        mail.message_class = u"IPM.Note";
        mail.fields[u"Subject"] = Value(subject);
        mail.fields[u"Sent"] = Value(true);
        desk::AttachmentData data;
        data.type = 5;
        data.display_name = Text(subject);
        data.item = std::make_shared<desk::ItemData>(std::move(mail));
        return data;
    }
    /// Opens a post with these attachments, or a mail that is being written.
    void open(std::vector<desk::AttachmentData> attachments, bool written = false) {
        desk::ItemData data;
        data.message_class = u"IPM.Note";
        data.fields[u"Subject"] = Value(u"The outer one");
        data.fields[u"Sent"] = Value(!written);
        data.attachments = std::move(attachments);
        item = std::make_shared<desk::Item>(desk, desk.default_folder(written ? drafts : inbox),
                                            std::move(data));
        item->save();
        item->inspector()->display();
        run_messages();
        SetWindowPos(inspector_window(), HWND_TOPMOST, 100, 100, 700, 450, 0);
        run_messages();
    }
    static HWND list() { return windows_of_class(u"SysListView32", inspector_window()).front(); }
    static std::vector<Text> names() {
        std::vector<Text> all;
        const int count = ListView_GetItemCount(list());
        for (int place = 0; place < count; ++place) {
            std::array<wchar_t, 100> text{};
            ListView_GetItemText(list(), place, 0, text.data(), static_cast<int>(text.size()));
            all.emplace_back(reinterpret_cast<const char16_t*>(text.data()));
        }
        return all;
    }
    static POINT point_at(int place) {
        RECT box{};
        ListView_GetItemRect(list(), place, &box, LVIR_LABEL);
        POINT point{box.left + 4, (box.top + box.bottom) / 2};
        ClientToScreen(list(), &point);
        return point;
    }
    /// As a person who clicks twice on a name.
    bool double_click(int place) {
        const POINT point = point_at(place);
        const Hand hand({{point},
                         {point, MOUSEEVENTF_LEFTDOWN},
                         {point, MOUSEEVENTF_LEFTUP},
                         {point, MOUSEEVENTF_LEFTDOWN},
                         {point, MOUSEEVENTF_LEFTUP}});
        return wait_until([&] { return hand.done(); });
    }
    void select(int place) {
        SetFocus(list());
        ListView_SetItemState(list(), place, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    }
    void press(WPARAM key) {
        PostMessageW(list(), WM_KEYDOWN, key, 1);
        run_messages();
    }
    std::vector<Text> attached() {
        std::vector<Text> all;
        for (const desk::AttachmentData& each : item->whole().attachments) all.push_back(each.display_name);
        return all;
    }

    FileFolder folder;
    std::shared_ptr<desk::Item> item;
    static constexpr std::int32_t inbox = 6, drafts = 16;
};

TEST_F(DeskAttachments, StandAboveTheTextByTheirNames) {
    open({attached_mail(u"The inner one"), attached_file(u"Offer.doc", "twelve")});
    EXPECT_EQ(names(), (std::vector<Text>{u"The inner one", u"Offer.doc"}));
    EXPECT_TRUE(IsWindowVisible(list()));
    item->inspector()->close(desk::save_mode::discard);
    run_messages();
    open({});
    EXPECT_FALSE(IsWindowVisible(list())) << "nothing is attached, and nothing can be";
}

TEST_F(DeskAttachments, OpenAsAMailByADoubleClick) {
    open({attached_file(u"Offer.doc", "twelve"), attached_mail(u"The inner one")});
    ASSERT_TRUE(double_click(1));
    ASSERT_TRUE(wait_until([&] { return desk.inspectors()->open.size() == 2; }));
    EXPECT_EQ(desk.inspectors()->open.back()->item()->subject(), u"The inner one");
    EXPECT_TRUE(surroundings.questions.empty());
}

TEST_F(DeskAttachments, OpenByTheShell) {
    const std::filesystem::path seen = folder / "seen.txt";
    const DocumentKind kind(L".twdoc", L"cmd.exe /c copy \"%1\" \"" + seen.wstring() + L"\"");
    open({attached_file(u"..\\Offer.twdoc", "twelve")});
    select(0);
    press(VK_RETURN);
    EXPECT_TRUE(wait_until([&] { return FileFolder::content(seen) == "twelve"; }));
    EXPECT_TRUE(surroundings.questions.empty());
}

TEST_F(DeskAttachments, ThatAreProgramsDoNotOpenAndSaySo) {
    open({attached_file(u"Offer.doc.exe", "MZ")});
    select(0);
    press(VK_RETURN);
    EXPECT_TRUE(wait_until([&] { return !surroundings.questions.empty(); }));
    EXPECT_EQ(surroundings.questions,
              std::vector<Text>{u"\"Offer.doc.exe\" is a program, which is not opened out of an item."});
}

TEST_F(DeskAttachments, AreAddedAndRemovedWhileAMailIsWritten) {
    const std::filesystem::path file = folder / "Offer.txt";
    std::ofstream(file, std::ios::binary) << "twelve";
    open({attached_mail(u"The inner one")}, true);
    {
        const FileAnswer answer(file);
        for (const HWND button : windows_of_class(u"Button", inspector_window())) {
            if (window_text(button) == u"A&ttach...") PostMessageW(button, BM_CLICK, 0, 0);
        }
        EXPECT_TRUE(wait_until([&] { return answer.given && names().size() == 2; }));
    }
    EXPECT_EQ(names(), (std::vector<Text>{u"The inner one", u"Offer.txt"}));
    EXPECT_EQ(item->whole().attachments.at(1).content, "twelve");
    select(0);
    press(VK_DELETE);
    EXPECT_TRUE(wait_until([&] { return names() == std::vector<Text>{u"Offer.txt"}; }));
    EXPECT_EQ(attached(), std::vector<Text>{u"Offer.txt"});
}

TEST_F(DeskAttachments, OfAMailThatCameStay) {
    open({attached_file(u"Offer.doc", "twelve")});
    select(0);
    press(VK_DELETE);
    EXPECT_EQ(attached(), std::vector<Text>{u"Offer.doc"});
    EXPECT_TRUE(windows_of_class(u"Button", inspector_window()).empty());
}

TEST_F(DeskAttachments, AreReachedFromTheTextByTheKeyboard) {
    open({attached_file(u"Offer.doc", "twelve")}, true);
    const HWND window = inspector_window();
    const std::vector<HWND> lines = windows_of_class(u"Edit", window);
    EXPECT_EQ(GetNextDlgTabItem(window, lines.at(3), FALSE), lines.at(4)) << "the text follows the subject";
    const HWND button = GetNextDlgTabItem(window, lines.at(4), FALSE);
    EXPECT_EQ(window_text(button), u"A&ttach...");
    EXPECT_EQ(GetNextDlgTabItem(window, button, FALSE), list());
    EXPECT_EQ(ListView_GetSelectedCount(list()), 0U);
    SetFocus(list());
    EXPECT_EQ(ListView_GetSelectedCount(list()), 1U) << "so that keys find something to act on";
}

TEST_F(DeskAttachments, AreDraggedOutAsFiles) {
    const HWND other = CreateWindowW(WC_LISTVIEWW, L"other", WS_POPUP | WS_VISIBLE, 850, 100, 200, 200,
                                     nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    std::vector<Text> taken;
    const auto target = desk::FilesDropTarget::create(
        module,
        {.takes = [] { return true; }, .take = [&](const std::vector<Text>& paths) { taken = paths; }});
    ASSERT_EQ(RegisterDragDrop(other, target.get()), S_OK);
    open({attached_mail(u"The inner one"), attached_file(u"..\\Offer.doc", "twelve")});
    const Hand hand(Hand::dragging(point_at(1), {950, 200}));
    ASSERT_TRUE(wait_until([&] { return hand.done() && !taken.empty(); }));
    const std::filesystem::path path(windows::wide(taken.front()));
    EXPECT_EQ(path.filename(), L"Offer.doc");
    EXPECT_EQ(FileFolder::content(path), "twelve");
    RevokeDragDrop(other);
    DestroyWindow(other);
}

TEST_F(DeskAttachments, AreSavedAsFiles) {
    const std::filesystem::path file = folder / "Saved.doc";
    open({attached_file(u"Offer.doc", "twelve")});
    const FileAnswer answer(file);
    desk::save_attachment({item, 0}, inspector_window());
    EXPECT_TRUE(answer.given);
    EXPECT_EQ(FileFolder::content(file), "twelve");
}

}  // namespace
}  // namespace desk_tests
