// Ini files as the platform's private-profile calls read them.
#pragma once

#include <cstdint>
#include <filesystem>

#include "automation/text.h"

namespace native {

/// The sections' names, each with a terminator, cut off as the platform does when they don't fit into `size`
/// characters; empty for a file that isn't there.
automation::Text ini_section_names(const std::filesystem::path& file, std::uint32_t size);

/// The value of a key, without blanks and quotes around it, cut off at `size` characters with its terminator;
/// empty if there is none. Names compare without regard to case.
automation::Text ini_text(const std::filesystem::path& file, automation::TextView section,
                          automation::TextView key, std::uint32_t size);

}  // namespace native
