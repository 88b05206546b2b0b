#include "bench/wine/desk_process.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "desk/setup/desk_settings.h"
#include "tests/wine/support/windows_handle.h"

#include <psapi.h>

namespace bench {
std::optional<std::string> log_line(const std::string& start) {
    std::optional<std::string> found;
    std::ifstream file(std::filesystem::path(desk::read_settings().log_file), std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(start)) found = line.substr(start.size());
    }
    return found;
}

std::uint64_t desk_memory() {
    const std::optional<std::string> id = log_line("process ");
    if (!id) throw std::runtime_error("the desk's log does not tell its process");
    const wine::windows_handle process(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, static_cast<DWORD>(std::stoul(*id))));
    PROCESS_MEMORY_COUNTERS counters{};
    if (!process || !GetProcessMemoryInfo(process.get(), &counters, sizeof counters)) {
        throw std::runtime_error("the memory of the desk's process can't be read");
    }
    return counters.WorkingSetSize;
}

}  // namespace bench
