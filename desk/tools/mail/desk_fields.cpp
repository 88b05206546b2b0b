#include "desk/tools/mail/desk_fields.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>

#include "desk/mail/item_json.h"

namespace desk::mail {
namespace {

using automation::Text;
using automation::TextView;

constexpr TextView prefix = u"X-Desk-";

/// Takes the first word off a text; an empty text if there is none.
Text take_word(TextView& rest) {
    constexpr TextView blanks = u" \t";
    rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
    const Text word(rest.substr(0, rest.find_first_of(blanks)));
    rest.remove_prefix(word.size());
    rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
    return word;
}

/// `-` stands for an empty value.
Text value_of(const Text& written) { return written == u"-" ? Text() : written; }

/// The mail that the fields change, and its recipients by their addresses.
struct ChangedMail {
    ItemData& mail;
    std::unordered_multimap<Text, Person*> recipients;
};

struct NativeAddress {
    Text type;
    Text address;
};

/// Reads "TYPE ADDRESS"; the address may have blanks inside.
std::optional<NativeAddress> read_native(TextView rest) {
    const Text type = take_word(rest);
    const Text address = automation::trimmed(rest);
    if (type.empty() || address.empty()) return std::nullopt;
    return NativeAddress{value_of(type), value_of(address)};
}

bool set_sender(TextView value, ChangedMail& changed) {
    const auto native = read_native(value);
    if (!native) return false;
    changed.mail.fields[u"SenderEmailType"] = native->type;
    changed.mail.fields[u"SenderEmailAddress"] = native->address;
    return true;
}

Text in_lower_case(TextView text) {
    Text low(text);
    std::ranges::transform(low, low.begin(), [](char16_t unit) { return automation::lower(unit); });
    return low;
}

bool set_recipient(TextView value, ChangedMail& changed) {
    const Text smtp = take_word(value);
    const auto native = read_native(value);
    if (!native) return false;
    const auto [first, end] = changed.recipients.equal_range(in_lower_case(smtp));
    for (auto each = first; each != end; ++each) {
        each->second->address_type = native->type;
        each->second->address = native->address;
    }
    return first != end;
}

bool set_sensitivity(TextView value, ChangedMail& changed) {
    if (value.size() != 1 || value[0] < u'0' || value[0] > u'3') return false;
    changed.mail.fields[u"Sensitivity"] = static_cast<std::int32_t>(value[0] - u'0');
    return true;
}

bool set_class(TextView value, ChangedMail& changed) {
    const auto fits = [](char16_t c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
               c == u'.' || c == u'_' || c == u'-' || c == u' ';
    };
    if (value.empty() || !std::ranges::all_of(value, fits)) return false;
    changed.mail.message_class = value;
    return true;
}

struct FieldRow {
    TextView name;
    bool repeats;
    bool (*apply)(TextView value, ChangedMail& changed);  ///< tells whether the value was well-formed
    std::string_view expected;
};
constexpr std::array<FieldRow, 4> rows = {{
    {u"X-Desk-Sender", false, set_sender, "an address type and an address"},
    {u"X-Desk-Recipient", true, set_recipient,
     "the address of one of the mail's recipients, an address type and an address"},
    {u"X-Desk-Sensitivity", false, set_sensitivity, "a number from 0 to 3"},
    {u"X-Desk-Class", false, set_class, "a message class"},
}};

}  // namespace

bool is_desk_field(std::string_view name) {
    return automation::same_ignoring_case(automation::from_utf8(name).substr(0, prefix.size()), prefix);
}

void apply_desk_fields(const std::vector<HeaderField>& fields, ItemData& mail) {
    if (fields.empty()) return;
    ChangedMail changed{mail, {}};
    for (Person& person : mail.recipients)
        changed.recipients.emplace(in_lower_case(person.smtp_address), &person);
    std::array<int, rows.size()> seen{};
    for (const HeaderField& field : fields) {
        const Text name = automation::from_utf8(field.name);
        const auto row = std::ranges::find_if(
            rows, [&](const FieldRow& each) { return automation::same_ignoring_case(each.name, name); });
        if (row == rows.end())
            refuse("The mail has the field " + field.name + ", which the desk does not know.");
        if (seen[static_cast<std::size_t>(row - rows.begin())]++ > 0 && !row->repeats) {
            refuse("The mail has the field " + field.name + " twice.");
        }
        if (!row->apply(automation::trimmed(field.value), changed)) {
            refuse("The field " + field.name + " of the mail is malformed: it takes " +
                   std::string(row->expected) + ".");
        }
    }
}

}  // namespace desk::mail
