// The family's programs, as far as the add-in sees them: each notes that it was started, and ends.
#include <windows.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "family/windows/registry_list.h"

namespace {

std::wstring working_folder() {
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

/// The command line as its writer had it: the shell puts the whole path, between quotes, where he wrote the
/// program's name.
std::wstring written(std::wstring_view command_line) {
    const bool quoted = command_line.starts_with(L'"');
    if (quoted) command_line.remove_prefix(1);
    const std::size_t end = std::min(command_line.find(quoted ? L'"' : L' '), command_line.size());
    const std::wstring_view program = command_line.substr(0, end);
    const std::wstring_view rest = command_line.substr(std::min(end + quoted, command_line.size()));
    const std::size_t folder = program.find_last_of(L"\\/:");
    return std::wstring(program.substr(folder == program.npos ? 0 : folder + 1)) + std::wstring(rest);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    return family::note_start(L"Programs", working_folder() + L"|" + written(GetCommandLineW())) ? 0 : 1;
}
