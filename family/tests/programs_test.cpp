#include <gtest/gtest.h>

#include <array>
#include <set>
#include <vector>

#include "family/tests/support/test_key.h"
#include "family/windows/registry_list.h"

namespace {

using namespace family_test;

const std::wstring& list_key() {
    static const std::wstring key = std::wstring(family::family_key) + L"\\Programs";
    return key;
}

/// The list of started programs as the test found it. What the test added is taken out at its end.
class StartedPrograms {
  public:
    StartedPrograms() : before_(names()) {}
    ~StartedPrograms() {
        for (const std::wstring& name : added())
            RegDeleteKeyValueW(HKEY_CURRENT_USER, list_key().c_str(), name.c_str());
    }
    StartedPrograms(const StartedPrograms&) = delete;
    StartedPrograms& operator=(const StartedPrograms&) = delete;

    std::vector<std::wstring> added_texts() const {
        std::vector<std::wstring> texts;
        for (const std::wstring& name : added()) {
            const std::wstring entry = read_text(HKEY_CURRENT_USER, list_key(), name);
            texts.push_back(entry.substr(0, entry.find(L'\t')));  // the time of the start stands behind it
        }
        return texts;
    }

  private:
    static std::set<std::wstring> names() {
        std::set<std::wstring> all;
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, list_key().c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
            return all;
        std::array<wchar_t, 64> name{};
        auto size = static_cast<DWORD>(name.size());
        for (DWORD i = 0;
             RegEnumValueW(key, i, name.data(), &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
             ++i) {
            all.insert(name.data());
            size = static_cast<DWORD>(name.size());
        }
        RegCloseKey(key);
        return all;
    }
    std::vector<std::wstring> added() const {
        std::vector<std::wstring> more;
        for (const std::wstring& name : names()) {
            if (!before_.contains(name)) more.push_back(name);
        }
        return more;
    }

    std::set<std::wstring> before_;
};

std::wstring folder_of_this_program() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return path.substr(0, path.find_last_of(L'\\'));
}

std::wstring system_folder() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetSystemDirectoryW(path.data(), MAX_PATH));
    return path;
}

/// Starts a program that lies beside this one; its process.
HANDLE start(const std::wstring& command_line) {
    std::wstring full = L"\"" + folder_of_this_program() + L"\\" + command_line;
    full.insert(full.find(L".exe") + 4, 1, L'"');
    STARTUPINFOW how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessW(nullptr, full.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               system_folder().c_str(), &how, &process));
    CloseHandle(process.hThread);
    return process.hProcess;
}

DWORD end_of(HANDLE process) {
    DWORD code = 99;
    WaitForSingleObject(process, INFINITE);
    GetExitCodeProcess(process, &code);
    CloseHandle(process);
    return code;
}

TEST(Programs, NoteTheirFolderAndTheirCommandLine) {
    const StartedPrograms started;
    for (const wchar_t* command_line :
         {L"TWstore.exe /s", L"TarnwellUtility.exe Alerts;;AccountID;A 1", L"TarnwellUpdate.exe"}) {
        EXPECT_EQ(end_of(start(command_line)), 0u);
        EXPECT_EQ(started.added_texts().back(), system_folder() + L"|" + command_line);
    }
}

TEST(Programs, NoteEachOfManyStartsAtOnce) {
    constexpr int many = 12;
    const StartedPrograms started;
    std::vector<HANDLE> processes;
    for (int i = 0; i < many; ++i) processes.push_back(start(L"TWstore.exe " + std::to_wstring(i)));
    for (const HANDLE process : processes) EXPECT_EQ(end_of(process), 0u);
    const std::vector<std::wstring> texts = started.added_texts();
    EXPECT_EQ(std::set<std::wstring>(texts.begin(), texts.end()).size(), static_cast<std::size_t>(many));
}

TEST(RegistryList, NumbersItsTexts) {
    const TestKey user(HKEY_CURRENT_USER);
    const std::wstring list = std::wstring(family::family_key) + L"\\Some";
    EXPECT_TRUE(family::append_to_list(L"Some", L"first"));
    EXPECT_TRUE(family::append_to_list(L"Some", L""));
    EXPECT_TRUE(family::append_to_list(L"Some", L"third"));
    EXPECT_EQ(read_text(HKEY_CURRENT_USER, list, L"0001"), L"first");
    EXPECT_EQ(read_text(HKEY_CURRENT_USER, list, L"0002"), L"");
    EXPECT_EQ(read_text(HKEY_CURRENT_USER, list, L"0003"), L"third");
}

TEST(RegistryList, NeverOverwritesAText) {
    const TestKey user(HKEY_CURRENT_USER);
    const std::wstring list = std::wstring(family::family_key) + L"\\Some";
    for (const wchar_t* text : {L"a", L"b", L"c"}) EXPECT_TRUE(family::append_to_list(L"Some", text));
    RegDeleteKeyValueW(HKEY_CURRENT_USER, list.c_str(), L"0001");
    EXPECT_TRUE(family::append_to_list(L"Some", L"d"));
    EXPECT_EQ(read_text(HKEY_CURRENT_USER, list, L"0003"), L"c");
    EXPECT_EQ(read_text(HKEY_CURRENT_USER, list, L"0004"), L"d");
}

}  // namespace
