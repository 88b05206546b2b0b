// Fails a test in which the program made a mistake of its own.
#pragma once

#include <cstdint>

namespace windows::testing {

/// A test that lets the program make mistakes says how many, at any time.
void expect_faults(std::uint32_t faults);

}  // namespace windows::testing
