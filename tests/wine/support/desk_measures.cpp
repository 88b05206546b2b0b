#include "tests/wine/support/desk_measures.h"

#include <bit>
#include <stdexcept>
#include <vector>

#include "tests/world/people.h"

#include <psapi.h>
#include <winternl.h>

namespace wine {
namespace {

/// The system's tables as they lie in memory in a 64-bit process. Below Wine, the functions that count
/// handles, drawing objects and user objects answer 0 for every process, so they are counted in these.
struct HandleEntry {
    void* object;
    ULONG_PTR process, handle;
    ULONG access;
    USHORT creator, type;
    ULONG attributes, reserved;
};
struct HandleTable {
    ULONG_PTR count, reserved;
    HandleEntry entries[1];
};
const auto extended_handle_information = std::bit_cast<SYSTEM_INFORMATION_CLASS>(64);

struct DrawingEntry {
    ULONGLONG object;
    ULONG owner;
    USHORT unique;
    UCHAR type, flags;
    ULONGLONG user_pointer;
};
constexpr std::size_t drawing_table_size = 0x4000, drawing_table_in_process = 0xf8;

/// User objects are numbered from one table of the session, the place that was given back last first. When so
/// many new ones stand one behind the other, all such places are taken, and the last number tells how many
/// there are.
constexpr std::size_t user_run = 64, most_user_probes = 20'000, first_user_number = 0x20;

[[noreturn]] void fail(const char* what) {
    throw std::runtime_error(std::string("the desk's ") + what + " can't be counted");
}

int handles_of(DWORD process) {
    for (std::size_t size = std::size_t{1} << 18;; size *= 2) {
        std::vector<HandleTable> buffer(size / sizeof(HandleTable));
        const NTSTATUS status =
            NtQuerySystemInformation(extended_handle_information, buffer.data(),
                                     static_cast<ULONG>(buffer.size() * sizeof(HandleTable)), nullptr);
        constexpr auto too_short = static_cast<NTSTATUS>(0xC0000004);
        if (status == too_short) continue;
        if (status < 0) fail("handles");
        const HandleEntry* const entries = buffer.front().entries;
        int count = 0;
        for (ULONG_PTR i = 0; i < buffer.front().count; ++i) count += entries[i].process == process ? 1 : 0;
        return count;
    }
}

int drawing_objects_of(HANDLE process) {
    PROCESS_BASIC_INFORMATION about{};
    void* table = nullptr;
    std::vector<DrawingEntry> entries(drawing_table_size);
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &about, sizeof about, nullptr) < 0 ||
        !ReadProcessMemory(process, reinterpret_cast<char*>(about.PebBaseAddress) + drawing_table_in_process,
                           static_cast<void*>(&table), sizeof table, nullptr) ||
        !ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(DrawingEntry), nullptr)) {
        fail("drawing objects");
    }
    int count = 0;
    for (const DrawingEntry& entry : entries) count += entry.type != 0 ? 1 : 0;
    return count;
}

int user_objects() {
    std::vector<HMENU> probes;
    std::size_t run = 0, last = 0;
    while (run < user_run && probes.size() < most_user_probes) {
        probes.push_back(CreateMenu());
        const std::size_t number = LOWORD(reinterpret_cast<ULONG_PTR>(probes.back()));
        run = number == last + 2 ? run + 1 : 0;
        last = number;
    }
    // in this order, so that the next ones to be made take these places from behind
    for (const HMENU probe : probes) DestroyMenu(probe);
    if (run < user_run) fail("user objects");
    return static_cast<int>((last - first_user_number) / 2 + 1 - probes.size());
}

}  // namespace

windows_handle desk_process() {
    DWORD id = 0;
    GetWindowThreadProcessId(FindWindowExW(HWND_MESSAGE, nullptr, L"TarnwellDeskLoop", nullptr), &id);
    windows_handle process(OpenProcess(
        PROCESS_QUERY_INFORMATION | PROCESS_VM_READ | PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id));
    if (!process) throw std::runtime_error("no desk runs");
    return process;
}

void kill_desk(const windows_handle& process) {
    constexpr UINT as_a_crash = 3;
    constexpr DWORD longest_wait = 10000;  // milliseconds
    TerminateProcess(process.get(), as_a_crash);
    if (WaitForSingleObject(process.get(), longest_wait) != WAIT_OBJECT_0)
        throw std::runtime_error("the desk can't be killed");
}

DeskMeasures measured(acceptance::World& world) {
    const windows_handle process = desk_process();
    PROCESS_MEMORY_COUNTERS memory{};
    if (!GetProcessMemoryInfo(process.get(), &memory, sizeof memory)) fail("memory");
    return {.private_bytes = memory.PagefileUsage,
            .handles = handles_of(GetProcessId(process.get())),
            .drawing_objects = drawing_objects_of(process.get()),
            .user_objects = user_objects(),
            .held = acceptance::held(world)};
}

}  // namespace wine
