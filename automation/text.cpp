#include "automation/text.h"

#include <algorithm>

namespace automation {
namespace {

/// Letters whose cases stand in pairs or at a fixed distance: Unicode's simple case mappings for the
/// blocks that names are written in.
struct CaseRange {
    char16_t first, last;  ///< of the upper case
    int step;  ///< distance to the lower case; 1: pairs, upper case at the even places from `first`
};
constexpr CaseRange case_ranges[] = {
    {u'A', u'Z', 32},     {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32}, {0x0100, 0x012F, 1},
    {0x0132, 0x0137, 1},  {0x0139, 0x0148, 1},  {0x014A, 0x0177, 1},  {0x0179, 0x017E, 1},
    {0x0386, 0x0386, 38}, {0x0388, 0x038A, 37}, {0x0391, 0x03A1, 32}, {0x03A3, 0x03AB, 32},
    {0x0400, 0x040F, 80}, {0x0410, 0x042F, 32}, {0x0460, 0x0481, 1},  {0x048A, 0x04BF, 1},
    {0x1E00, 0x1E95, 1},
};

void append_utf8(std::string& bytes, char32_t c) {
    auto byte = [&](char32_t value) { bytes.push_back(static_cast<char>(value)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | (c >> 6));
        byte(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        byte(0xE0 | (c >> 12));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xF0 | (c >> 18));
        byte(0x80 | ((c >> 12) & 0x3F));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

constexpr char16_t replacement = 0xFFFD;

}  // namespace

std::string to_utf8(TextView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool high = unit >= 0xD800 && unit <= 0xDBFF;
        const bool pair = high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF;
        if (pair) {
            append_utf8(bytes,
                        0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[i + 1]} - 0xDC00));
            ++i;
        } else {
            append_utf8(bytes, unit >= 0xD800 && unit <= 0xDFFF ? replacement : unit);
        }
    }
    return bytes;
}

Text from_utf8(std::string_view bytes) {
    Text text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const std::size_t length = first < 0x80             ? 1
                                   : (first & 0xE0) == 0xC0 ? 2
                                   : (first & 0xF0) == 0xE0 ? 3
                                                            : 4;
        constexpr unsigned first_bits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
        constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
        bool good = length == 1 || (first >= 0xC2 && first <= 0xF4 && i + length <= bytes.size());
        char32_t c = first & first_bits[length];
        for (std::size_t k = 1; good && k < length; ++k) {
            const auto next = static_cast<unsigned char>(bytes[i + k]);
            good = (next & 0xC0) == 0x80;
            c = (c << 6) | (next & 0x3F);
        }
        good = good && c >= smallest[length] && c <= 0x10FFFF && !(c >= 0xD800 && c <= 0xDFFF);
        if (!good) {
            text.push_back(replacement);
            ++i;
            continue;
        }
        if (c < 0x10000) {
            text.push_back(static_cast<char16_t>(c));
        } else {
            text.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
            text.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
        }
        i += length;
    }
    return text;
}

char16_t lower(char16_t unit) {
    if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    for (const CaseRange& range : case_ranges) {
        if (unit < range.first || unit > range.last) continue;
        if (range.step > 1) return static_cast<char16_t>(unit + range.step);
        return (unit - range.first) % 2 == 0 ? static_cast<char16_t>(unit + 1) : unit;
    }
    return unit;
}

char16_t upper(char16_t unit) {
    for (const CaseRange& range : case_ranges) {
        if (range.step > 1) {
            if (unit >= range.first + range.step && unit <= range.last + range.step) {
                return static_cast<char16_t>(unit - range.step);
            }
        } else if (unit > range.first && unit <= range.last + 1 && (unit - range.first) % 2 == 1) {
            return static_cast<char16_t>(unit - 1);
        }
    }
    return unit;
}

Text upper(TextView text) {
    Text result(text);
    std::ranges::transform(result, result.begin(), [](char16_t unit) { return upper(unit); });
    return result;
}

Text folded(TextView text) {
    Text result(text);
    std::ranges::transform(result, result.begin(), [](char16_t unit) { return lower(unit); });
    return result;
}

bool same_ignoring_case(TextView left, TextView right) {
    return left.size() == right.size() && std::ranges::equal(left, right, [](char16_t a, char16_t b) {
               return a == b || lower(a) == lower(b);
           });
}

int compare_ignoring_case(TextView left, TextView right) {
    const auto [a, b] = std::ranges::mismatch(
        left, right, [](char16_t one, char16_t other) { return one == other || lower(one) == lower(other); });
    if (a == left.end()) return b == right.end() ? 0 : -1;
    if (b == right.end()) return 1;
    return lower(*a) < lower(*b) ? -1 : 1;
}

Text trimmed(TextView text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == TextView::npos) return {};
    return Text(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

Text replaced(TextView text, TextView what, TextView with) {
    Text result;
    for (;;) {
        const std::size_t found = text.find(what);
        result += text.substr(0, found);
        if (found == TextView::npos) return result;
        result += with;
        text.remove_prefix(found + what.size());
    }
}

Text to_text(long long number) { return from_utf8(std::to_string(number)); }

}  // namespace automation
