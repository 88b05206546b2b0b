#include "desk/outlook/contact_addresses.h"

#include <algorithm>
#include <array>
#include <optional>

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr TextView line_end = u"\r\n";

/// An address apart. What is written for the box, as "PO Box 12", has a line of its own.
struct Address {
    Text street, box, city, state, postal_code, country;
};

struct Part {
    TextView ending;  ///< of its field's name
    Text Address::*text;
};
constexpr Part address_parts[] = {
    {u"Street", &Address::street}, {u"PostOfficeBox", &Address::box},      {u"City", &Address::city},
    {u"State", &Address::state},   {u"PostalCode", &Address::postal_code}, {u"Country", &Address::country}};

/// The addresses of a contact, and the number by which one is selected for mail (OlMailingAddress).
struct AddressRow {
    TextView field;
    std::int32_t number;
};
constexpr AddressRow address_rows[] = {
    {u"HomeAddress", 1}, {u"BusinessAddress", 2}, {u"OtherAddress", 3}, {u"MailingAddress", 0}};
constexpr TextView mailing = u"MailingAddress", selected = u"SelectedMailingAddress";

Text field_text(const ItemData& contact, TextView field) {
    const auto found = contact.fields.find(field);
    return found == contact.fields.end() ? Text() : found->second.to_text();
}

std::vector<Text> lines_of_address(TextView text) {
    std::vector<Text> lines;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of(line_end);
        Text line = automation::trimmed(text.substr(0, end));
        if (!line.empty()) lines.push_back(std::move(line));
        text = end == TextView::npos ? TextView() : text.substr(end + 1);
    }
    return lines;
}

bool has_digit(TextView word) {
    return std::ranges::any_of(word, [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

TextView first_word(TextView line) { return line.substr(0, line.find(u' ')); }

/// The code that a line begins with, as "10115" of "10115 Berlin"; a house has fewer digits.
bool begins_with_postal_code(TextView line) {
    constexpr std::size_t least_digits = 4;
    const TextView word = first_word(line);
    return word.size() >= least_digits && word.size() < line.size() &&
           std::ranges::all_of(word, [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

bool is_city_line(TextView line) {
    const TextView last_word = line.substr(line.rfind(u' ') + 1);
    return line.find(u',') != TextView::npos || begins_with_postal_code(line) ||
           (last_word.size() < line.size() && has_digit(last_word));
}

bool is_box_line(TextView line) {
    Text letters;
    for (const char16_t c : line.substr(0, line.find_first_of(u"0123456789"))) {
        if (c != u'.' && c != u' ') letters += automation::upper(c);
    }
    return letters == u"POBOX" || letters == u"POSTOFFICEBOX";
}

/// "York, Yorkshire YO1 7AB", "10115 Berlin".
void read_city_line(TextView line, Address& address) {
    if (begins_with_postal_code(line)) {
        address.postal_code = first_word(line);
        address.city = automation::trimmed(line.substr(address.postal_code.size()));
        return;
    }
    const std::size_t comma = line.find(u',');
    TextView rest = comma == TextView::npos ? line : line.substr(comma + 1);
    std::size_t code = 0;  // where the first word with a digit begins
    while (code < rest.size() && !has_digit(first_word(rest.substr(code)))) {
        const std::size_t blank = rest.find(u' ', code);
        code = blank == TextView::npos ? rest.size() : blank + 1;
    }
    address.postal_code = automation::trimmed(rest.substr(code));
    Text before = automation::trimmed(rest.substr(0, code));
    if (comma == TextView::npos) {
        address.city = std::move(before);
    } else {
        address.city = automation::trimmed(line.substr(0, comma));
        address.state = std::move(before);
    }
}

/// Street, the box, city with state and code, country: each of them may be missing. One line is a street.
Address read_address(TextView text) {
    Address address;
    std::vector<Text> lines = lines_of_address(text);
    if (lines.size() > 1) {
        std::size_t city = lines.size() - 1;
        while (city > 0 && (is_box_line(lines[city]) || !is_city_line(lines[city]))) --city;
        if (city == 0) city = lines.size() - 1;
        if (!is_box_line(lines[city])) {
            for (std::size_t i = city + 1; i < lines.size(); ++i) {
                if (!address.country.empty()) address.country += line_end;
                address.country += lines[i];
            }
            read_city_line(lines[city], address);
            lines.resize(city);
        }
    }
    for (Text& line : lines) {
        if (address.box.empty() && is_box_line(line)) {
            address.box = std::move(line);
            continue;
        }
        if (!address.street.empty()) address.street += line_end;
        address.street += line;
    }
    return address;
}

Text written_address(const Address& address) {
    Text region = address.state;
    if (!region.empty() && !address.postal_code.empty()) region += u' ';
    region += address.postal_code;
    Text city = address.city;
    if (!city.empty() && !region.empty()) city += address.state.empty() ? u" " : u", ";
    city += region;
    Text all;
    for (const Text& line : {address.street, address.box, city, address.country}) {
        if (!line.empty() && !all.empty()) all += line_end;
        all += line;
    }
    return all;
}

void put_parts(ItemData& contact, TextView field, const Address& address) {
    for (const Part& part : address_parts)
        contact.fields[Text(field) + Text(part.ending)] = address.*part.text;
}

Address parts_in(const ItemData& contact, TextView field) {
    Address address;
    for (const Part& part : address_parts)
        address.*part.text = field_text(contact, Text(field) + Text(part.ending));
    return address;
}

bool is_part_of(TextView changed, TextView field) {
    return std::ranges::any_of(address_parts, [&](const Part& part) {
        return automation::same_ignoring_case(changed, Text(field) + Text(part.ending));
    });
}

void copy_to_mailing(ItemData& contact, TextView source) {
    contact.fields[Text(mailing)] = field_text(contact, source);
    put_parts(contact, mailing, parts_in(contact, source));
}

}  // namespace

void follow_address(ItemData& contact, TextView changed) {
    const auto number = contact.fields.find(selected);
    const std::int32_t for_mail = number == contact.fields.end() ? 0 : number->second.to_integer();
    for (const AddressRow& row : address_rows) {
        const bool is_whole = automation::same_ignoring_case(changed, row.field);
        const bool is_part = is_part_of(changed, row.field);
        if (is_whole) put_parts(contact, row.field, read_address(field_text(contact, row.field)));
        if (is_part) contact.fields[Text(row.field)] = written_address(parts_in(contact, row.field));
        const bool is_chosen = automation::same_ignoring_case(changed, selected);
        if (row.number != 0 && row.number == for_mail && (is_whole || is_part || is_chosen))
            copy_to_mailing(contact, row.field);
    }
}

}  // namespace desk
