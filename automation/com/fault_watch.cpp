#include "automation/com/fault_watch.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <mutex>
#include <string_view>

#include "automation/com/faults.h"

namespace windows {
namespace {

constexpr DWORD crashes[] = {EXCEPTION_ACCESS_VIOLATION, EXCEPTION_IN_PAGE_ERROR,
                             EXCEPTION_ILLEGAL_INSTRUCTION, EXCEPTION_INT_DIVIDE_BY_ZERO,
                             EXCEPTION_STACK_OVERFLOW};

/// What is said of all faults. It has its place from the start: a crash may come where memory can't be had.
struct Noted {
    std::mutex guard;
    std::uint32_t count = 0;
    std::array<char, 4096> texts{};
    std::size_t used = 0;

    void add(std::string_view text) {
        const std::lock_guard lock(guard);
        ++count;
        append(used == 0 ? ": " : "; ");
        append(text);
    }

  private:
    void append(std::string_view text) {
        const std::size_t fitting = std::min(text.size(), texts.size() - used);
        std::copy_n(text.begin(), fitting, texts.begin() + static_cast<std::ptrdiff_t>(used));
        used += fitting;
    }
};

/// A handler of the process is told nothing of its own.
Noted& noted() {
    static Noted of_process;
    return of_process;
}

void note_crash(const EXCEPTION_RECORD& record) {
    constexpr std::string_view start = "at 0x";
    constexpr int hexadecimal = 16;
    std::array<char, 32> text{};  // of an overflown stack little is left
    char* const digits = std::copy(start.begin(), start.end(), text.data());
    const auto place = reinterpret_cast<std::uintptr_t>(record.ExceptionAddress);
    const char* const end = std::to_chars(digits, text.data() + text.size(), place, hexadecimal).ptr;
    noted().add({text.data(), static_cast<std::size_t>(end - text.data())});
}

/// A line for the debugger comes as an exception with its length and its place.
void note_line(const EXCEPTION_RECORD& record) {
    if (record.NumberParameters < 2 || record.ExceptionInformation[0] == 0) return;
    std::string_view line(reinterpret_cast<const char*>(record.ExceptionInformation[1]),
                          record.ExceptionInformation[0] - 1);
    if (!line.starts_with(fault_beginning)) return;
    line.remove_prefix(fault_beginning.find(" in ") + 1);
    while (line.ends_with('\n')) line.remove_suffix(1);
    noted().add(line);
}

LONG CALLBACK note(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (record.ExceptionCode == DBG_PRINTEXCEPTION_C) {
        note_line(record);
    } else if (std::ranges::find(crashes, record.ExceptionCode) != std::end(crashes)) {
        note_crash(record);
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

FaultWatch::FaultWatch() : handler_(AddVectoredExceptionHandler(1, note)) {}

FaultWatch::~FaultWatch() { RemoveVectoredExceptionHandler(handler_); }

std::uint32_t FaultWatch::count() {
    const std::lock_guard lock(noted().guard);
    return noted().count;
}

automation::Text FaultWatch::told() {
    const std::lock_guard lock(noted().guard);
    return automation::to_text(static_cast<long long>(noted().count)) +
           automation::from_utf8({noted().texts.data(), noted().used});
}

}  // namespace windows
