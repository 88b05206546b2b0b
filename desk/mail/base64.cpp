#include "desk/mail/base64.h"

#include <array>
#include <cstdint>

namespace desk::mail {
namespace {

constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t no_letter = 0xFF;

constexpr std::array<std::uint8_t, 256> values_of_letters() {
    std::array<std::uint8_t, 256> values{};
    values.fill(no_letter);
    for (std::size_t i = 0; i < letters.size(); ++i) {
        values[static_cast<unsigned char>(letters[i])] = static_cast<std::uint8_t>(i);
    }
    return values;
}

}  // namespace

std::string to_base64(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t here = bytes.size() - at < 3 ? bytes.size() - at : 3;
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            group = group << 8 | (i < here ? static_cast<unsigned char>(bytes[at + i]) : 0U);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            text += i <= here ? letters[group >> (18 - 6 * i) & 0x3F] : '=';
        }
    }
    return text;
}

std::optional<std::string> from_base64(std::string_view text) {
    static constexpr auto values = values_of_letters();
    if (text.size() % 4 != 0) return std::nullopt;
    std::size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') ++padding;
    text.remove_suffix(padding);

    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 3);
    std::uint32_t group = 0;
    unsigned bits = 0;
    for (const char letter : text) {
        const std::uint8_t value = values[static_cast<unsigned char>(letter)];
        if (value == no_letter) return std::nullopt;
        group = (group << 6 | value) & 0xFFFFFF;
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes += static_cast<char>(group >> bits & 0xFF);
        }
    }
    return bytes;
}

}  // namespace desk::mail
