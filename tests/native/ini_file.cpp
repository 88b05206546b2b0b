#include "tests/native/ini_file.h"

#include <fstream>
#include <sstream>
#include <vector>

namespace native {

using automation::Text;
using automation::TextView;

namespace {

constexpr const char* white = " \t\r\n\f\v";

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(white);
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(white) - first + 1);
}

struct Line {
    bool is_section;
    std::string name, value;
};

std::vector<Line> read_lines(const std::filesystem::path& file) {
    std::vector<Line> lines;
    std::ifstream input(file, std::ios::binary);
    for (std::string text; std::getline(input, text);) {
        const std::string line = trimmed(text);
        if (line.empty() || line.front() == ';') continue;
        if (line.front() == '[') {
            lines.push_back({true, line.substr(1, line.rfind(']') - 1), {}});
            continue;
        }
        const std::size_t sign = line.find('=');
        if (sign == std::string::npos) continue;
        std::string value = trimmed(line.substr(sign + 1));
        if (value.size() > 1 && value.front() == value.back() &&
            (value.front() == '"' || value.front() == '\'')) {
            value = value.substr(1, value.size() - 2);
        }
        lines.push_back({false, trimmed(line.substr(0, sign)), value});
    }
    return lines;
}

}  // namespace

Text ini_section_names(const std::filesystem::path& file, std::uint32_t size) {
    Text names;
    for (const Line& line : read_lines(file)) {
        if (!line.is_section) continue;
        names += automation::from_utf8(line.name);
        names += u'\0';
    }
    // what doesn't fit ends with the two terminators at the buffer's end
    constexpr std::uint32_t terminators = 2;
    if (names.size() + 1 > size) names.resize(size - terminators);
    return names;
}

Text ini_text(const std::filesystem::path& file, TextView section, TextView key, std::uint32_t size) {
    bool inside = false;
    for (const Line& line : read_lines(file)) {
        if (line.is_section) {
            if (inside) return {};
            inside = automation::same_ignoring_case(automation::from_utf8(line.name), section);
        } else if (inside && automation::same_ignoring_case(automation::from_utf8(line.name), key)) {
            return automation::from_utf8(line.value).substr(0, size - 1);
        }
    }
    return {};
}

}  // namespace native
