#include "desk/windows/fault_watch.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <iterator>

namespace desk {
namespace {

constexpr DWORD faults[] = {EXCEPTION_ACCESS_VIOLATION, EXCEPTION_IN_PAGE_ERROR,
                            EXCEPTION_ILLEGAL_INSTRUCTION, EXCEPTION_INT_DIVIDE_BY_ZERO,
                            EXCEPTION_STACK_OVERFLOW};

struct Noted {
    std::atomic<std::uint32_t> count = 0;
    std::atomic<std::uintptr_t> last_place = 0;
};

/// A handler of the process is told nothing of its own.
Noted& noted() {
    static Noted of_process;
    return of_process;
}

LONG CALLBACK note(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (std::ranges::find(faults, record.ExceptionCode) != std::end(faults)) {
        ++noted().count;
        noted().last_place = reinterpret_cast<std::uintptr_t>(record.ExceptionAddress);
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

FaultWatch::FaultWatch() : handler_(AddVectoredExceptionHandler(1, note)) {}

FaultWatch::~FaultWatch() { RemoveVectoredExceptionHandler(handler_); }

host::Text FaultWatch::told() {
    const std::uint32_t count = noted().count;
    if (count == 0) return u"0";
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%u, the last one at 0x%llx", count,
                  static_cast<unsigned long long>(noted().last_place));
    return host::from_utf8(text.data());
}

}  // namespace desk
