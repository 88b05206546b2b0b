#include "desk/outlook/written_people.h"

#include <algorithm>

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr std::size_t longest_name = 64, longest_label = 63, longest_domain = 253;
constexpr TextView never_in_names = u" \t\r\n()<>[]:;,@\\\"";

bool is_letter_or_digit(char16_t c) {
    constexpr char16_t first_beyond_ascii = 0x80;
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
           c >= first_beyond_ascii;
}

/// What stands before the @: parts with dots between them.
bool can_be_name(TextView name) {
    return !name.empty() && name.size() <= longest_name && !name.starts_with(u'.') && !name.ends_with(u'.') &&
           name.find(u"..") == TextView::npos && name.find_first_of(never_in_names) == TextView::npos;
}

bool can_be_label(TextView label) {
    return !label.empty() && label.size() <= longest_label && !label.starts_with(u'-') &&
           !label.ends_with(u'-') &&
           std::ranges::all_of(label, [](char16_t c) { return is_letter_or_digit(c) || c == u'-'; });
}

bool can_be_domain(TextView domain) {
    if (domain.size() > longest_domain) return false;
    for (;;) {
        const std::size_t dot = domain.find(u'.');
        if (!can_be_label(domain.substr(0, dot))) return false;
        if (dot == TextView::npos) return true;
        domain.remove_prefix(dot + 1);
    }
}

}  // namespace

bool can_be_address(TextView text) {
    const std::size_t at = text.find(u'@');
    return at != TextView::npos && can_be_name(text.substr(0, at)) && can_be_domain(text.substr(at + 1));
}

Text unreachable(const ItemData& mail) {
    for (const Person& person : mail.recipients) {
        if (!person.resolved) {
            return u"\"" + person.name + u"\" is neither an address nor the full name of a contact.";
        }
        if (person.address_type == u"SMTP" && !can_be_address(person.address)) {
            return u"\"" + person.address + u"\" can't be an address.";
        }
    }
    return {};
}

Text written_line(const ItemData& mail, std::int32_t kind) {
    Text line;
    for (const Person& person : mail.recipients) {
        if (person.kind != kind) continue;
        if (!line.empty()) line += u"; ";
        const bool is_internet = !person.address.empty() && person.address_type == u"SMTP";
        if (!is_internet) {
            line += person.name;
        } else if (person.name.empty() || person.name == person.address) {
            line += person.address;
        } else {
            line += automation::replaced(person.name, u";", u",") + u" <" + person.address + u">";
        }
    }
    return line;
}

}  // namespace desk
