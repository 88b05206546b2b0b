// What Wine's server does for the programs of this prefix.
#pragma once

#include <cstdint>
#include <optional>

namespace bench {

/// How many answers the server has given since it started: one for each round trip of any program, and some
/// more that wake one up. Nothing where the system doesn't tell.
std::optional<std::uint64_t> server_answers();

}  // namespace bench
