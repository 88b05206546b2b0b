// The desk's process, seen from outside.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace bench {

/// What follows after the beginning of a line of the desk's log, of the last such line; nothing if there is
/// none.
std::optional<std::string> log_line(const std::string& start);

/// Bytes of the running desk that are in memory. Throws `std::runtime_error` if they can't be read.
std::uint64_t desk_memory();

}  // namespace bench
