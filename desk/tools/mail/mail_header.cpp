#include "desk/tools/mail/mail_header.h"

#include <algorithm>
#include <array>
#include <string>

#include "desk/mail/item_json.h"

namespace desk::mail {
namespace {

/// A file that has none of these fields is some other file with colons in it.
constexpr std::array<std::string_view, 16> mail_fields = {
    "from",        "to",           "cc",           "bcc",        "subject",     "date",
    "sender",      "reply-to",     "message-id",   "received",   "return-path", "mime-version",
    "in-reply-to", "content-type", "delivered-to", "references",
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

bool is_mail_field(std::string_view name) {
    return std::ranges::any_of(mail_fields, [&](std::string_view field) {
        return std::ranges::equal(
            name, field, [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; });
    });
}

}  // namespace

std::string_view checked_message(std::string_view bytes) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    constexpr std::string_view not_a_mail = "The file is not a mail: ";
    bool ended = false;
    if (bytes.starts_with(byte_order_mark)) bytes.remove_prefix(byte_order_mark.size());
    if (bytes.starts_with("From ")) take_line(bytes, ended);
    if (bytes.empty()) refuse("The file is empty.");

    bool is_mail = false;
    int number = 0;
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::string_view line = take_line(rest, ended);
        ++number;
        if (line.find('\0') != std::string_view::npos)
            refuse(std::string(not_a_mail) + "its beginning is binary.");
        if (line.empty() && ended) {
            if (!is_mail) refuse(std::string(not_a_mail) + "its header has no field that a mail has.");
            return bytes;
        }
        if (number > 1 && (line.starts_with(' ') || line.starts_with('\t')))
            continue;  // a folded field goes on
        const std::string_view name = field_name(line);
        if (name.empty() && ended) {
            if (!is_mail) refuse(std::string(not_a_mail) + "it does not begin with a header.");
            refuse("The header of the mail has no end: line " + std::to_string(number) + " is no field.");
        }
        is_mail = is_mail || is_mail_field(name);
    }
    if (!is_mail) refuse(std::string(not_a_mail) + "it has no header that a mail has.");
    refuse("The mail is cut off: the file ends inside the header.");
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
