// Hexadecimal text.
#pragma once

#include <cstdint>

#include "host/text.h"

namespace family {

/// Appends a number in upper-case hexadecimal digits, filled up with zeros to at least `digits`.
inline void append_hexadecimal(host::Text& text, std::uint64_t number, int digits) {
    constexpr host::TextView all = u"0123456789ABCDEF";
    host::Text reversed;
    for (; number != 0 || static_cast<int>(reversed.size()) < digits; number /= 16)
        reversed += all[number % 16];
    text.append(reversed.rbegin(), reversed.rend());
}

}  // namespace family
