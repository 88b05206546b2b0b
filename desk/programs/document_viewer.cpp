// Stands for whatever opens documents on a machine: notes which file it was given, and ends.
#include <windows.h>

#include <shellapi.h>

#include <memory>
#include <string>

#include "family/windows/registry_list.h"

namespace {

struct LocalMemory {
    void operator()(wchar_t** memory) const { LocalFree(memory); }
};

/// A path from the root on, whatever the folder that it was told in.
std::wstring whole_path(const wchar_t* path) {
    std::wstring whole(GetFullPathNameW(path, 0, nullptr, nullptr), L'\0');
    whole.resize(GetFullPathNameW(path, static_cast<DWORD>(whole.size()), whole.data(), nullptr));
    return whole;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    int count = 0;
    const std::unique_ptr<wchar_t*[], LocalMemory> arguments(CommandLineToArgvW(GetCommandLineW(), &count));
    if (!arguments || count < 2) return 1;
    return family::note_start(L"Opened", whole_path(arguments[1])) ? 0 : 1;
}
