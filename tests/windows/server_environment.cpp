// The server's tests bring applications of their own: a desk that is registered here must not be started for
// them.
#include <gtest/gtest.h>

#include <array>

#include "windows/com/platform.h"

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

const testing::Environment* const without_host = testing::AddGlobalTestEnvironment(new WithoutHost);

}  // namespace
