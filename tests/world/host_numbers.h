// Numbers of the host, as the tests write them.
#pragma once

#include <cstdint>

namespace acceptance {

// the answers of message boxes: IDOK, IDCANCEL, IDYES, IDNO
inline constexpr std::int32_t ok = 1, cancel = 2, yes = 6, no = 7;

// OlDefaultFolders
inline constexpr std::int32_t contacts = 10, notes = 12, drafts = 16;

}  // namespace acceptance
