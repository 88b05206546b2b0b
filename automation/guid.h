// Interface ids as data, readable from their usual spelling at compile time.
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace automation {

/// A 128-bit interface or class id, laid out as the platform's GUID.
struct Guid {
    std::uint32_t first = 0;
    std::uint16_t second = 0;
    std::uint16_t third = 0;
    std::array<std::uint8_t, 8> rest{};

    friend auto operator<=>(const Guid&, const Guid&) = default;
};

/// The id of a spelling such as "{00063077-0000-0000-C000-000000000046}". Evaluated by the compiler, so a
/// wrong digit is an error of the build.
consteval Guid guid(std::string_view spelling) {
    auto digit = [&](std::size_t at) -> std::uint32_t {
        const char c = spelling[at];
        if (c >= '0' && c <= '9') return static_cast<std::uint32_t>(c - '0');
        if (c >= 'A' && c <= 'F') return static_cast<std::uint32_t>(c - 'A' + 10);
        if (c >= 'a' && c <= 'f') return static_cast<std::uint32_t>(c - 'a' + 10);
        throw "not a hexadecimal digit";
    };
    auto number = [&](std::size_t from, std::size_t digits) {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < digits; ++i) value = value * 16 + digit(from + i);
        return value;
    };
    if (spelling.size() != 38 || spelling.front() != '{' || spelling.back() != '}') throw "not a guid";
    Guid id;
    id.first = number(1, 8);
    id.second = static_cast<std::uint16_t>(number(10, 4));
    id.third = static_cast<std::uint16_t>(number(15, 4));
    id.rest[0] = static_cast<std::uint8_t>(number(20, 2));
    id.rest[1] = static_cast<std::uint8_t>(number(22, 2));
    for (std::size_t i = 0; i < 6; ++i) id.rest[2 + i] = static_cast<std::uint8_t>(number(25 + 2 * i, 2));
    return id;
}

}  // namespace automation
