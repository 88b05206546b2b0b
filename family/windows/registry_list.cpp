#include "family/windows/registry_list.h"

#include <windows.h>

#include <array>
#include <cwchar>
#include <memory>
#include <string>
#include <type_traits>

namespace family {
namespace {

struct CloseHandleDeleter {
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseHandleDeleter>;

struct CloseKeyDeleter {
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using UniqueKey = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKeyDeleter>;

/// Held while a number is chosen and written, so that no two writers choose the same one.
class Turn {
  public:
    Turn() : mutex_(CreateMutexW(nullptr, FALSE, L"Local\\TarnwellFamilyList")) {
        if (mutex_) WaitForSingleObject(mutex_.get(), INFINITE);
    }
    ~Turn() {
        if (mutex_) ReleaseMutex(mutex_.get());
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

  private:
    UniqueHandle mutex_;
};

UniqueKey open_list(std::wstring_view list) {
    const std::wstring path = std::wstring(family_key) + L"\\" + std::wstring(list);
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key,
                    nullptr);
    return UniqueKey(key);
}

std::wstring value_name(DWORD number) {
    std::wstring digits = std::to_wstring(number);
    if (digits.size() < 4) digits.insert(0, 4 - digits.size(), L'0');
    return digits;
}

/// The first free name from the count of values on: the next number, unless somebody deleted values between.
std::wstring next_name(HKEY key) {
    DWORD number = 0;
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &number, nullptr, nullptr,
                     nullptr, nullptr);
    do {
        ++number;
    } while (RegQueryValueExW(key, value_name(number).c_str(), nullptr, nullptr, nullptr, nullptr) ==
             ERROR_SUCCESS);
    return value_name(number);
}

}  // namespace

bool append_to_list(std::wstring_view list, std::wstring_view text) {
    const Turn turn;
    const UniqueKey key = open_list(list);
    if (!key) return false;
    const std::wstring value(text);
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetValueExW(key.get(), next_name(key.get()).c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(value.c_str()), size) == ERROR_SUCCESS;
}

bool note_start(std::wstring_view list, std::wstring_view note) {
    FILETIME created{}, unused{};
    GetProcessTimes(GetCurrentProcess(), &created, &unused, &unused, &unused);
    std::array<wchar_t, 17> digits{};
    swprintf(digits.data(), digits.size(), L"%08lX%08lX", created.dwHighDateTime, created.dwLowDateTime);
    return append_to_list(list, std::wstring(note) + L"\t" + digits.data());
}

}  // namespace family
