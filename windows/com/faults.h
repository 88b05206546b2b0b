// Mistakes of the program itself: whatever is thrown and is no `host::Failure`. They all come here.
#pragma once

#include <source_location>
#include <string_view>

#include "windows/com/platform.h"

namespace windows {

/// What a line of the debugger's begins with that tells of one.
inline constexpr std::string_view fault_beginning = "Tarnwell fault in ";

/// Takes the exception that is being handled: tells the debugger where it came up and what it was. Nothing is
/// kept here; `FaultWatch` counts what is told. Answers the result code for whoever called.
HRESULT take_fault(const std::source_location& where) noexcept;

}  // namespace windows
