// Hexadecimal text.
#pragma once

#include <cstdint>

#include "automation/text.h"

namespace family {

/// Appends a number in upper-case hexadecimal digits, filled up with zeros to at least `digits`.
inline void append_hexadecimal(automation::Text& text, std::uint64_t number, int digits) {
    constexpr automation::TextView all = u"0123456789ABCDEF";
    automation::Text reversed;
    for (; number != 0 || static_cast<int>(reversed.size()) < digits; number /= 16)
        reversed += all[number % 16];
    text.append(reversed.rbegin(), reversed.rend());
}

}  // namespace family
