// The family's programs, as far as the add-in sees them: each notes that it was started, and ends.
#include <windows.h>

#include <string>

#include "family/windows/registry_list.h"

namespace {

std::wstring working_folder() {
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const std::wstring start = working_folder() + L"|" + GetCommandLineW();
    return family::append_to_list(L"Programs", start) ? 0 : 1;
}
