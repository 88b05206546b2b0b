#include "desk/tools/mail/mail_header.h"

#include <algorithm>
#include <array>
#include <string>

#include "desk/mail/item_json.h"

namespace desk::mail {
namespace {

/// Behind a line that is no field, the header goes on only if one of these follows: a text may have colons,
/// too.
constexpr std::array<std::string_view, 18> mail_fields = {
    "from",
    "to",
    "cc",
    "bcc",
    "subject",
    "date",
    "sender",
    "reply-to",
    "message-id",
    "received",
    "return-path",
    "mime-version",
    "in-reply-to",
    "content-type",
    "content-transfer-encoding",
    "content-disposition",
    "delivered-to",
    "references",
};

/// Takes the next line off the bytes, without its line end. `ended` tells whether it had one.
std::string_view take_line(std::string_view& bytes, bool& ended) {
    const std::size_t end = bytes.find('\n');
    ended = end != std::string_view::npos;
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(ended ? end + 1 : bytes.size());
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

/// The name of a field's first line; empty for a line that is none.
std::string_view field_name(std::string_view line) {
    std::string_view name = line.substr(0, std::min(line.find(':'), line.size()));
    if (name.size() == line.size()) return {};
    while (name.ends_with(' ') || name.ends_with('\t'))
        name.remove_suffix(1);  // the obsolete syntax has blanks here
    const bool printable = std::ranges::all_of(name, [](char c) { return c > ' ' && c < 0x7F; });
    return printable ? name : std::string_view{};
}

bool is_folded(std::string_view line) { return line.starts_with(' ') || line.starts_with('\t'); }

std::string_view next_line(std::string_view bytes) {
    bool ended = false;
    return take_line(bytes, ended);
}

bool is_mail_field(std::string_view name) {
    return std::ranges::any_of(mail_fields, [&](std::string_view field) {
        return std::ranges::equal(
            name, field, [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; });
    });
}

}  // namespace

std::string mended_message(std::string_view bytes) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    constexpr std::string_view blanks = " \t\r\n";
    constexpr std::string_view not_a_mail = "The file is not a mail: ";
    bool ended = false;
    if (bytes.starts_with(byte_order_mark)) bytes.remove_prefix(byte_order_mark.size());
    if (bytes.empty()) refuse("The file is empty.");
    bytes.remove_prefix(std::min(bytes.find_first_not_of(blanks), bytes.size()));
    if (bytes.starts_with("From ")) take_line(bytes, ended);
    bytes.remove_prefix(std::min(bytes.find_first_not_of(blanks), bytes.size()));

    std::string_view rest = bytes;
    const std::string_view first = take_line(rest, ended);
    if (field_name(first).empty()) {
        const bool binary = first.find('\0') != std::string_view::npos;
        refuse(std::string(not_a_mail) +
               (binary ? "its beginning is binary." : "it does not begin with a header."));
    }

    const std::string_view line_end = bytes.substr(first.size(), 1) == "\r" ? "\r\n" : "\n";
    std::string message;
    message.reserve(bytes.size() + 2 * line_end.size());
    for (rest = bytes; !rest.empty();) {
        const std::string_view here = rest;
        const std::string_view line = take_line(rest, ended);
        if (line.empty()) return message.append(here);
        if (!is_folded(line) && field_name(line).empty()) {
            if (is_mail_field(field_name(next_line(rest)))) continue;
            return message.append(line_end).append(here);
        }
        const std::size_t start = message.size();
        message.append(here.substr(0, here.size() - rest.size()));
        std::replace(message.begin() + static_cast<std::ptrdiff_t>(start), message.end(), '\0', ' ');
    }
    if (!ended) message.append(line_end);
    return message.append(line_end);
}

std::string_view header_of(std::string_view message) {
    bool ended = true;
    std::string_view rest = message;
    while (!rest.empty()) {
        const std::size_t start = message.size() - rest.size();
        if (take_line(rest, ended).empty()) return message.substr(0, start);
    }
    return message;
}

}  // namespace desk::mail
