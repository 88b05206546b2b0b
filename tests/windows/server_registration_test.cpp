#include <set>

#include "tests/windows/support/server_fixture.h"

namespace windows::testing {
namespace {

/// Every key and value below a key, as lines.
void list(HKEY root, const Text& path, std::set<Text>& lines) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, wide(path), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    lines.insert(path);
    wchar_t name[512];
    for (DWORD i = 0, size = 512; RegEnumValueW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) == 0;
         ++i, size = 512) {
        lines.insert(path + u" : " + Text(from_wide(name, size)));
    }
    for (DWORD i = 0, size = 512; RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) == 0;
         ++i, size = 512) {
        list(root, path + u"\\" + Text(from_wide(name, size)), lines);
    }
    RegCloseKey(key);
}

struct Everything {
    std::set<Text> user, machine;
    friend bool operator==(const Everything&, const Everything&) = default;
};

Everything everything() {
    Everything all;
    list(HKEY_CURRENT_USER, u"Software", all.user);
    list(HKEY_LOCAL_MACHINE, u"Software\\Classes", all.machine);
    return all;
}

Text text_at(HKEY root, const Text& path, const wchar_t* name = nullptr) {
    wchar_t buffer[512]{};
    DWORD size = sizeof buffer;
    if (RegGetValueW(root, wide(path), name, RRF_RT_REG_SZ, nullptr, buffer, &size) != ERROR_SUCCESS)
        return u"(none)";
    return Text(from_wide(buffer, size / sizeof(wchar_t) - 1));
}

bool is_there(HKEY root, const Text& path) {
    HKEY key = nullptr;
    const bool there = RegOpenKeyExW(root, wide(path), 0, KEY_READ, &key) == ERROR_SUCCESS;
    if (there) RegCloseKey(key);
    return there;
}

const Text class_id = automation::from_utf8(connect_class_spelling);
const Text class_path = u"Software\\Classes\\CLSID\\" + class_id;
const Text name_path = u"Software\\Classes\\CreateNote.Connect";
const Text add_in_path = u"Software\\Microsoft\\Office\\Outlook\\Addins\\CreateNote.Connect";

/// The keys of the add-in alone, wherever they could be: to look through all takes seconds.
Everything ours() {
    Everything all;
    for (const Text& path : {class_path, name_path, add_in_path}) {
        list(HKEY_CURRENT_USER, path, all.user);
        list(HKEY_LOCAL_MACHINE, path, all.machine);
    }
    return all;
}

/// Stands a root of the registry where nothing can be made: in a key that is deleted already.
class Refused {
  public:
    explicit Refused(HKEY root) : root_(root) {
        RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Tarnwell Test", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &gone_, nullptr);
        RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Tarnwell Test");
        EXPECT_EQ(RegOverridePredefKey(root_, gone_), ERROR_SUCCESS);
    }
    Refused(const Refused&) = delete;
    Refused& operator=(const Refused&) = delete;
    ~Refused() {
        RegOverridePredefKey(root_, nullptr);
        RegCloseKey(gone_);
    }

  private:
    HKEY root_;
    HKEY gone_ = nullptr;
};

class Registration : public ServerTest {
  protected:
    ~Registration() override { unregister_server(); }
};

TEST_F(Registration, EntersTheClassForTheUserAndNothingForTheMachine) {
    unregister_server();
    const std::set<Text> machine = ours().machine;
    ASSERT_EQ(register_server(), S_OK);
    const HKEY user = HKEY_CURRENT_USER;
    EXPECT_EQ(text_at(user, u"Software\\Classes\\CreateNote.Connect\\CLSID"), class_id);
    EXPECT_EQ(text_at(user, class_path + u"\\InprocServer32"), folder + u"TarnwellNote.dll");
    EXPECT_EQ(text_at(user, class_path + u"\\InprocServer32", L"ThreadingModel"), u"Apartment");
    EXPECT_EQ(text_at(user, class_path + u"\\ProgID"), u"CreateNote.Connect");
    EXPECT_EQ(ours().machine, machine);
}

TEST_F(Registration, EntersTheAddInForTheHost) {
    ASSERT_EQ(register_server(), S_OK);
    EXPECT_EQ(text_at(HKEY_CURRENT_USER, add_in_path, L"FriendlyName"), u"Create Tarnwell Note");
    EXPECT_EQ(text_at(HKEY_CURRENT_USER, add_in_path, L"Description"), u"Tarnwell Note Add-in");
    DWORD load = 0, size = sizeof load;
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, wide(add_in_path), L"LoadBehavior", RRF_RT_REG_DWORD, nullptr,
                           &load, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(load, 3U);
}

/// There are systems that look for classes of the machine only, and what prepares them for the add-in copies
/// its class there. So does this, as long as it lives.
class CopiedForTheMachine {
  public:
    CopiedForTheMachine() {
        for (const Text& path : {class_path, name_path}) {
            HKEY from = nullptr, to = nullptr;
            if (is_there(HKEY_LOCAL_MACHINE, path)) continue;
            RegOpenKeyExW(HKEY_CURRENT_USER, wide(path), 0, KEY_READ, &from);
            RegCreateKeyExW(HKEY_LOCAL_MACHINE, wide(path), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &to,
                            nullptr);
            EXPECT_EQ(RegCopyTreeW(from, nullptr, to), ERROR_SUCCESS);
            RegCloseKey(from);
            RegCloseKey(to);
            copied_.push_back(path);
        }
    }
    CopiedForTheMachine(const CopiedForTheMachine&) = delete;
    CopiedForTheMachine& operator=(const CopiedForTheMachine&) = delete;
    ~CopiedForTheMachine() {
        for (const Text& path : copied_) RegDeleteTreeW(HKEY_LOCAL_MACHINE, wide(path));
    }

  private:
    std::vector<Text> copied_;
};

TEST_F(Registration, LetsComMakeTheAddInByName) {
    ASSERT_EQ(register_server(), S_OK);
    const CopiedForTheMachine copied;
    CLSID id{};
    ASSERT_EQ(CLSIDFromProgID(L"CreateNote.Connect", &id), S_OK);
    EXPECT_EQ(id, to_guid(connect_class));
    ComPtr<IDTExtensibility2> add_in;
    EXPECT_EQ(
        CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, to_guid(extensibility_id), add_in.put_void()),
        S_OK);
    EXPECT_TRUE(add_in);
}

TEST_F(Registration, IsUndoneWithoutATrace) {
    unregister_server();
    const Everything before = everything();
    ASSERT_EQ(register_server(), S_OK);
    EXPECT_NE(everything(), before);
    EXPECT_EQ(register_server(), S_OK) << "again changes nothing";
    EXPECT_EQ(unregister_server(), S_OK);
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(unregister_server(), S_OK) << "nothing to undo is no failure";
}

TEST_F(Registration, LeavesOtherAddInsAlone) {
    const Text other = u"Software\\Microsoft\\Office\\Outlook\\Addins\\Other.AddIn";
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, wide(other), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    RegCloseKey(key);
    EXPECT_EQ(register_server(), S_OK);
    EXPECT_EQ(unregister_server(), S_OK);
    EXPECT_TRUE(is_there(HKEY_CURRENT_USER, other));
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Office");
}

TEST_F(Registration, NeedsNoRightsOnTheMachine) {
    unregister_server();
    const Everything before = ours();
    {
        const Refused machine(HKEY_LOCAL_MACHINE);
        EXPECT_EQ(register_server(), S_OK);
        EXPECT_TRUE(is_there(HKEY_CURRENT_USER, class_path));
        EXPECT_TRUE(is_there(HKEY_CURRENT_USER, add_in_path));
        EXPECT_EQ(unregister_server(), S_OK);
    }
    EXPECT_EQ(ours(), before);
}

TEST_F(Registration, ThatCantBeWholeIsReportedAndTakenBack) {
    unregister_server();
    const Everything before = ours();
    {
        const Refused user(HKEY_CURRENT_USER);
        EXPECT_EQ(register_server(), SELFREG_E_CLASS);
    }
    EXPECT_EQ(ours(), before);
}

}  // namespace
}  // namespace windows::testing
