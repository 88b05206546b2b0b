// The server's tests bring applications of their own: a desk that is registered here must not be started for
// them. And they register the library in many ways: the tests after them find it as it was.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "automation/com/platform.h"

namespace {

constexpr const wchar_t* key = L"Outlook.Application\\CLSID";

/// Leaves the name of the host's application unregistered while the tests run.
class WithoutHost : public testing::Environment {
  public:
    void SetUp() override {
        DWORD size = sizeof class_id_;
        there_ = RegGetValueW(HKEY_CLASSES_ROOT, key, nullptr, RRF_RT_REG_SZ, nullptr, class_id_.data(),
                              &size) == ERROR_SUCCESS;
        if (there_) RegDeleteTreeW(HKEY_CLASSES_ROOT, key);
    }
    void TearDown() override {
        if (!there_) return;
        const auto length = static_cast<DWORD>((wcslen(class_id_.data()) + 1) * sizeof(wchar_t));
        RegSetKeyValueW(HKEY_CLASSES_ROOT, key, nullptr, REG_SZ, class_id_.data(), length);
    }

  private:
    std::array<wchar_t, 64> class_id_{};
    bool there_ = false;
};

/// Registers the library again where it was before, if it was.
class RegisteredAgain : public testing::Environment {
  public:
    void SetUp() override {
        std::array<wchar_t, MAX_PATH> class_id{}, file{};
        if (!text_at(L"CreateNote.Connect\\CLSID", class_id)) return;
        const std::wstring server = L"CLSID\\" + std::wstring(class_id.data()) + L"\\InprocServer32";
        if (text_at(server.c_str(), file)) library_ = file.data();
    }
    void TearDown() override {
        if (library_.empty()) return;
        const HMODULE module = LoadLibraryW(library_.c_str());
        ASSERT_NE(module, nullptr);
        const auto entry = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
            reinterpret_cast<void*>(GetProcAddress(module, "DllRegisterServer")));
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entry(), S_OK);
        FreeLibrary(module);
    }

  private:
    static bool text_at(const wchar_t* path, std::array<wchar_t, MAX_PATH>& text) {
        DWORD size = sizeof text;
        return RegGetValueW(HKEY_CLASSES_ROOT, path, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size) ==
               ERROR_SUCCESS;
    }

    std::wstring library_;
};

const testing::Environment* const registered_again = testing::AddGlobalTestEnvironment(new RegisteredAgain);

const testing::Environment* const without_host = testing::AddGlobalTestEnvironment(new WithoutHost);

}  // namespace
