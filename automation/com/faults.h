// Mistakes of the program itself: whatever is thrown and is no `automation::Failure`. They all come here.
#pragma once

#include <string_view>

#include "automation/com/platform.h"

namespace windows {

/// What a line of the debugger's begins with that tells of one.
inline constexpr std::string_view fault_beginning = "Tarnwell fault in ";

/// Where in the program a call stands, as a default argument of what is called. The standard's own type is
/// not there for each compiler that reads this.
struct CodePlace {
    static constexpr CodePlace current(const char* function = __builtin_FUNCTION(),
                                       unsigned line = __builtin_LINE()) noexcept {
        return {function, line};
    }

    const char* function;
    unsigned line;
};

/// Takes the exception that is being handled: tells the debugger where it came up and what it was. Nothing is
/// kept here; `FaultWatch` counts what is told. Answers the result code for whoever called.
HRESULT take_fault(CodePlace where) noexcept;

}  // namespace windows
