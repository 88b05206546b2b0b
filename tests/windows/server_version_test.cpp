#include "tests/windows/support/server_fixture.h"

namespace windows::testing {
namespace {

class Version : public ServerTest {
  protected:
    Version() {
        const Text file = folder + u"TarnwellNote.dll";
        DWORD unused = 0;
        resource_.resize(GetFileVersionInfoSizeW(wide(file), &unused));
        EXPECT_TRUE(
            GetFileVersionInfoW(wide(file), 0, static_cast<DWORD>(resource_.size()), resource_.data()));
    }

    Text text(const Text& name) {
        void* found = nullptr;
        UINT length = 0;
        const Text path = u"\\StringFileInfo\\040904B0\\" + name;
        if (!VerQueryValueW(resource_.data(), wide(path), &found, &length) || length == 0) return u"(none)";
        return Text(from_wide(static_cast<const wchar_t*>(found), length - 1));
    }

    VS_FIXEDFILEINFO numbers() {
        void* found = nullptr;
        UINT length = 0;
        EXPECT_TRUE(VerQueryValueW(resource_.data(), L"\\", &found, &length));
        return *static_cast<const VS_FIXEDFILEINFO*>(found);
    }

  private:
    std::vector<BYTE> resource_;
};

TEST_F(Version, IsThePublishedOne) {
    EXPECT_EQ(numbers().dwFileVersionMS, static_cast<DWORD>(MAKELONG(0, 6)));
    EXPECT_EQ(numbers().dwFileVersionLS, static_cast<DWORD>(MAKELONG(0, 2178)));
    EXPECT_EQ(text(u"FileVersion"), u"6.00.2178");
}

TEST_F(Version, TellsWhatTheFileIs) {
    EXPECT_EQ(text(u"FileDescription"), u"Tarnwell Create Note Add-in");
    EXPECT_EQ(text(u"ProductName"), u"Tarnwell Create Note AddIn Project");
    EXPECT_EQ(text(u"OriginalFilename"), u"TarnwellNote.dll");
}

}  // namespace
}  // namespace windows::testing
