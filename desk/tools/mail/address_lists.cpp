#include "desk/tools/mail/address_lists.h"

#include <algorithm>

namespace desk::mail {
namespace {

constexpr std::string_view blanks_of_fields = " \t\r\n";

std::string_view without_blanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks_of_fields), text.size()));
    return text.substr(0, text.find_last_not_of(blanks_of_fields) + 1);
}

/// The length of the first entry of a list, up to its comma. Commas between quotation marks do not count; an
/// entry with comments or groups goes on to the end of the list, since nothing is to be changed in it.
std::size_t length_of_entry(std::string_view list) {
    bool quoted = false;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (list[i] == '\\') {
            ++i;
        } else if (list[i] == '"') {
            quoted = !quoted;
        } else if (!quoted && (list[i] == '(' || list[i] == ':')) {
            return list.size();
        } else if (!quoted && list[i] == ',') {
            return i;
        }
    }
    return list.size();
}

std::string in_quotes(std::string_view name) {
    if (name.starts_with('"') || name.find("=?") != std::string_view::npos) return std::string(name);
    std::string quoted = "\"";
    for (const char c : name) {
        if (c == '\r' || c == '\n') continue;
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

std::string mended_entry(std::string_view entry) {
    const std::string_view words = without_blanks(entry);
    const std::size_t blank = words.find_last_of(blanks_of_fields);
    if (blank == std::string_view::npos || words.find_first_of("<>(:;") != std::string_view::npos)
        return std::string(entry);
    const std::string_view name = without_blanks(words.substr(0, blank)), last = words.substr(blank + 1);
    const bool one_address = last.find('@') != std::string_view::npos &&
                             last.find('"') == std::string_view::npos &&
                             name.find('@') == std::string_view::npos;
    if (one_address) return " " + in_quotes(name) + " <" + std::string(last) + ">";
    if (words.find('@') == std::string_view::npos)
        return " " + in_quotes(words) + " <" + std::string(no_address) + ">";
    return std::string(entry);
}

}  // namespace

std::string with_angle_brackets(std::string_view field) {
    std::string mended;
    while (true) {
        const std::size_t length = length_of_entry(field);
        mended += mended_entry(field.substr(0, length));
        if (length >= field.size()) return mended;
        mended += ',';
        field.remove_prefix(length + 1);
    }
}

}  // namespace desk::mail
