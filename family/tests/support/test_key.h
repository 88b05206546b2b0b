// Registry keys that a test has for itself.
#pragma once

#include <string>

#include "automation/com/platform.h"

namespace family_test {

/// An empty registry key that stands in for a predefined one in this process, and is gone with its owner.
class TestKey {
  public:
    explicit TestKey(HKEY stands_for)
        : stands_for_(stands_for),
          path_(L"Software\\Tarnwell\\Test" + std::to_wstring(GetCurrentProcessId()) + L"." +
                std::to_wstring(GetTickCount64())) {
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                        nullptr);
        RegOverridePredefKey(stands_for_, key_);
    }
    ~TestKey() {
        RegOverridePredefKey(stands_for_, nullptr);
        RegCloseKey(key_);
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, path_.c_str());
    }
    TestKey(const TestKey&) = delete;
    TestKey& operator=(const TestKey&) = delete;

  private:
    HKEY stands_for_;
    std::wstring path_;
    HKEY key_ = nullptr;
};

/// A text value; "(none)" if there is none.
inline std::wstring read_text(HKEY root, const std::wstring& key, const std::wstring& name) {
    std::wstring text(1024, L'\0');
    auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(root, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &bytes) !=
        ERROR_SUCCESS) {
        return L"(none)";
    }
    return text.substr(0, text.find(L'\0'));
}

inline void write_text(HKEY root, const std::wstring& key, const std::wstring& name,
                       const std::wstring& text) {
    RegSetKeyValueW(root, key.c_str(), name.c_str(), REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

}  // namespace family_test
