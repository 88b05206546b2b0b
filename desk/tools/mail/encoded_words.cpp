#include "desk/tools/mail/encoded_words.h"

#include <gmime/gmime.h>

#include <algorithm>
#include <optional>

#include "desk/mail/base64.h"

namespace desk::mail {
namespace {

/// A word such as =?utf-8?B?w6Q=?=, and the place behind it.
struct EncodedWord {
    std::string charset;
    std::string bytes;
    std::size_t end;
};

bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

/// The base64 word that begins at a place, if one does. Words are short; what looks like the start of an
/// endless one is none.
std::optional<EncodedWord> word_at(std::string_view field, std::size_t start) {
    constexpr std::size_t longest = 8192;
    if (!field.substr(start).starts_with("=?")) return std::nullopt;
    field = field.substr(0, start + std::min(longest, field.size() - start));
    const std::size_t charset_end = field.find('?', start + 2);
    if (charset_end == std::string_view::npos || charset_end + 3 > field.size()) return std::nullopt;
    const char encoding = field[charset_end + 1];
    if ((encoding != 'B' && encoding != 'b') || field[charset_end + 2] != '?') return std::nullopt;
    const std::size_t text = charset_end + 3;
    const std::size_t end = field.find("?=", text);
    if (end == std::string_view::npos) return std::nullopt;
    auto bytes = from_base64(field.substr(text, end - text));
    if (!bytes) return std::nullopt;
    return EncodedWord{std::string(field.substr(start + 2, charset_end - start - 2)), std::move(*bytes),
                       end + 2};
}

/// The place behind a word such as =?utf-8?Q?=C3=A4?= that begins at a place; the place itself if none does.
std::size_t end_of_quoted_word(std::string_view field, std::size_t start) {
    constexpr std::size_t longest = 8192;
    const std::string_view rest = field.substr(start, longest);
    if (!rest.starts_with("=?")) return start;
    const std::size_t charset_end = std::min(rest.find('?', 2), rest.size());
    const std::string_view encoding = rest.substr(charset_end).substr(0, 3);
    if (encoding != "?Q?" && encoding != "?q?") return start;
    const std::size_t end = rest.find("?=", charset_end + 3);
    return end == std::string_view::npos ? start : start + end + 2;
}

bool is_8_bit(char c) { return static_cast<unsigned char>(c) >= 0x80; }

/// A field whose encoded words have no bare 8-bit letters: those of a word are in its character set like the
/// letters that it encodes, and beside others the parser would take them for text first and decode them
/// twice.
std::string with_encoded_letters(std::string_view field) {
    if (std::ranges::none_of(field, is_8_bit)) return std::string(field);
    std::string encoded;
    for (std::size_t at = 0; at < field.size();) {
        const std::size_t start = std::min(field.find("=?", at), field.size());
        encoded += field.substr(at, start - at);
        const std::size_t end = end_of_quoted_word(field, start);
        for (const char c : field.substr(start, end - start)) {
            constexpr std::string_view digits = "0123456789ABCDEF";
            const auto byte = static_cast<unsigned char>(c);
            encoded +=
                is_8_bit(c) ? std::string{'=', digits[byte >> 4U], digits[byte & 0xFU]} : std::string(1, c);
        }
        at = end;
        if (start < field.size() && end == start) encoded += field[at++];
    }
    return encoded;
}

std::string with_joined_words_of_field(std::string_view field) {
    std::string joined;
    for (std::size_t at = 0; at < field.size();) {
        std::optional<EncodedWord> word = word_at(field, at);
        if (!word) {
            const std::size_t next = std::min(field.find("=?", at + 1), field.size());
            joined += field.substr(at, next - at);
            at = next;
            continue;
        }
        int count = 1;
        while (true) {
            std::size_t next_start = word->end;
            while (next_start < field.size() && is_blank(field[next_start])) ++next_start;
            const auto next = next_start == word->end ? std::nullopt : word_at(field, next_start);
            if (!next || g_ascii_strcasecmp(next->charset.c_str(), word->charset.c_str()) != 0) break;
            word->bytes += next->bytes;
            word->end = next->end;
            ++count;
        }
        if (count == 1) {
            joined += field.substr(at, word->end - at);
        } else {
            joined += "=?" + word->charset + "?B?" + to_base64(word->bytes) + "?=";
        }
        at = word->end;
    }
    return joined;
}

bool begins_field(std::string_view line) {
    const std::size_t colon = line.find(':');
    return colon != std::string_view::npos && colon > 0 &&
           std::ranges::all_of(line.substr(0, colon), [](char c) { return g_ascii_isalnum(c) || c == '-'; });
}

}  // namespace

std::string with_joined_words(std::string_view message) {
    if (message.find("=?") == std::string_view::npos) return std::string(message);
    std::string joined;
    joined.reserve(message.size());
    while (!message.empty()) {
        // A field is its line and the folded ones behind it.
        std::size_t end = std::min(message.find('\n'), message.size() - 1) + 1;
        const bool field = begins_field(message.substr(0, end));
        while (field && end < message.size() && (message[end] == ' ' || message[end] == '\t')) {
            end = std::min(message.find('\n', end), message.size() - 1) + 1;
        }
        joined += field ? with_joined_words_of_field(with_encoded_letters(message.substr(0, end)))
                        : std::string(message.substr(0, end));
        message.remove_prefix(end);
    }
    return joined;
}

}  // namespace desk::mail
