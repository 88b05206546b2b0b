#include "family/named_properties.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>

#include "family/hexadecimal.h"

namespace family {

using automation::Failure;
using automation::Text;
using automation::TextView;
using automation::Value;
namespace result = automation::result;

namespace {

constexpr TextView root = u"http://schemas.microsoft.com/mapi/";
constexpr std::uint32_t first_id = first_named_id + 1;
constexpr std::uint32_t last_id = 0xFFFE;
constexpr std::uint32_t text_type = 0x001E;  // PT_STRING8

/// A whole number in a notation; nothing if a sign of another kind stands in it, or no digit.
std::optional<long long> digits(TextView text, int base) {
    const std::string bytes = automation::to_utf8(text);
    long long number = 0;
    const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number, base);
    const bool whole = error == std::errc() && end == bytes.data() + bytes.size();
    return whole ? std::optional(number) : std::nullopt;
}

std::optional<long long> read_number(TextView text) {
    const Text spelling = automation::upper(automation::trimmed(text));
    const TextView view = spelling;
    const bool hexadecimal = view.starts_with(u"0X") || view.starts_with(u"&H");
    if (!hexadecimal) return digits(view, 10);
    TextView rest = view.substr(2);
    if (view.front() == u'&' && rest.ends_with(u'&'))
        rest.remove_suffix(1);  // Basic's sign of a 32-bit number
    return rest.starts_with(u'-') ? std::nullopt : digits(rest, 16);
}

/// The 32 bits of a number that may have been taken as signed on its way.
std::optional<std::uint32_t> bits(std::optional<long long> number) {
    if (!number || *number < INT32_MIN || *number > UINT32_MAX) return std::nullopt;
    return static_cast<std::uint32_t>(*number);
}

std::optional<std::uint32_t> read_bits(const Value& value) {
    switch (value.type()) {
        case Value::Type::integer:
            return static_cast<std::uint32_t>(value.to_integer());
        case Value::Type::number: {
            const double number = value.to_number();
            if (!(number >= INT32_MIN && number <= UINT32_MAX)) return std::nullopt;
            return bits(static_cast<long long>(number));
        }
        case Value::Type::text:
            return bits(read_number(value.to_text()));
        default:
            return std::nullopt;
    }
}

bool is_guid(TextView text) {
    constexpr TextView shape = u"{00000000-0000-0000-0000-000000000000}";
    constexpr TextView hexadecimal_digits = u"0123456789ABCDEF";
    return std::ranges::equal(text, shape, [&](char16_t unit, char16_t expected) {
        return expected == u'0' ? hexadecimal_digits.find(unit) != TextView::npos : unit == expected;
    });
}

/// A name as a part of an address: what would end it, and blanks, as per cent codes.
Text escaped(TextView name) {
    Text text;
    for (const char16_t unit : name) {
        const bool plain = unit > u' ' && TextView(u"%/?#\"<>\\^`{|}").find(unit) == TextView::npos;
        if (plain) {
            text += unit;
        } else {
            text += u'%';
            append_hexadecimal(text, unit, 2);
        }
    }
    return text;
}

}  // namespace

Tag read_tag(const Value& value) {
    const std::optional<std::uint32_t> tag = read_bits(value);
    if (!tag) throw Failure(result::invalid_argument, u"This is not a property tag");
    return *tag;
}

NamedProperty read_named_property(TextView set, const Value& id_or_name) {
    NamedProperty property{.set = automation::upper(automation::trimmed(set))};
    if (!is_guid(property.set))
        throw Failure(result::invalid_argument, u"This is not the id of a property set");
    if (id_or_name.is(Value::Type::text)) {
        property.id = id_or_name.to_text();
        if (id_or_name.to_text().empty())
            throw Failure(result::invalid_argument, u"A named property needs a name");
        return property;
    }
    const std::optional<std::uint32_t> id = read_bits(id_or_name);
    if (!id) throw Failure(result::invalid_argument, u"A named property needs a name or a number");
    const bool sign_extended = *id >= 0xFFFF8000;
    property.id = sign_extended ? *id & 0xFFFF : *id;
    return property;
}

Tag NamedProperties::tag(const NamedProperty& property) {
    const auto [place, is_new] = places_.try_emplace(property, given_.size());
    if (is_new && first_id + given_.size() > last_id) {
        places_.erase(place);
        throw Failure(result::fail, u"All named properties are given out");
    }
    if (is_new) given_.push_back(property);
    return (first_id + static_cast<Tag>(place->second)) << 16;
}

Text NamedProperties::address(Tag tag) const {
    const std::uint32_t id = tag >> 16;
    Text text(root);
    if (id < first_named_id) {
        text += u"proptag/0x";
        append_hexadecimal(text, tag, 8);
        return text;
    }
    if (id - first_id >= given_.size()) {
        throw Failure(result::not_found, u"This named property is not known");
    }
    const NamedProperty& property = given_[id - first_id];
    if (const Text* name = std::get_if<Text>(&property.id)) {
        return text + u"string/" + property.set + u"/" + escaped(*name);
    }
    const std::uint32_t type = tag & 0xFFFF;
    text += u"id/" + property.set + u"/";
    append_hexadecimal(text, std::get<std::uint32_t>(property.id), 4);
    append_hexadecimal(text, type == 0 ? text_type : type, 4);
    return text;
}

}  // namespace family
