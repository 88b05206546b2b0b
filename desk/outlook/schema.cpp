// Schema addresses: the names by which properties are known beyond the object model's own.
#include <algorithm>
#include <optional>

#include "desk/outlook/item_kinds.h"

namespace desk {

using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

constexpr TextView tag_root = u"http://schemas.microsoft.com/mapi/proptag/0x";
constexpr TextView string_root =
    u"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/";
constexpr TextView id_root = u"http://schemas.microsoft.com/mapi/id/{";
constexpr std::size_t guid_digits = 36;

/// Properties whose tags are not the dispatch ids of fields, and named addresses.
struct TagRow {
    std::int32_t id;
    TextView field;
};
constexpr TagRow tags[] = {
    {0x001A, u"MessageClass"},      {0x1000, u"Body"},
    {0x1013, u"HTMLBody"},          {0x5D01, u"SenderSmtpAddress"},
    {0x1035, u"InternetMessageId"}, {0x007D, u"InternetHeaders"},
    {0x0E1D, u"Subject"},
};
struct NameRow {
    TextView address, field;
};
constexpr NameRow names[] = {
    {u"urn:schemas:httpmail:subject", u"Subject"},
    {u"urn:schemas:httpmail:fromname", u"SenderName"},
    {u"urn:schemas:httpmail:fromemail", u"SenderEmailAddress"},
    {u"urn:schemas:httpmail:textdescription", u"Body"},
    {u"urn:schemas:httpmail:displayto", u"To"},
    {u"urn:schemas:httpmail:displaycc", u"CC"},
    {u"urn:schemas:httpmail:date", u"SentOn"},
    {u"urn:schemas:httpmail:datereceived", u"ReceivedTime"},
    {u"urn:schemas:httpmail:read", u"UnRead"},
    {u"http://schemas.microsoft.com/exchange/messageclass", u"MessageClass"},
};

std::optional<std::uint32_t> hexadecimal(TextView digits) {
    if (digits.empty() || digits.size() > 8) return std::nullopt;
    std::uint32_t value = 0;
    for (const char16_t c : digits) {
        const char16_t digit = automation::lower(c);
        if (digit >= u'0' && digit <= u'9') {
            value = value * 16 + (digit - u'0');
        } else if (digit >= u'a' && digit <= u'f') {
            value = value * 16 + (digit - u'a' + 10U);
        } else {
            return std::nullopt;
        }
    }
    return value;
}

/// A name out of an address: "%20" stands for a blank and so on.
Text unescaped(TextView name) {
    Text text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto code =
            name[i] == u'%' && i + 2 < name.size() ? hexadecimal(name.substr(i + 1, 2)) : std::nullopt;
        if (code) {
            text.push_back(static_cast<char16_t>(*code));
            i += 2;
        } else {
            text.push_back(name[i]);
        }
    }
    return text;
}

bool begins(TextView address, TextView root) {
    return address.size() > root.size() &&
           automation::same_ignoring_case(address.substr(0, root.size()), root);
}

/// The number of the property that an address tells, of a tag or of a numbered property.
std::optional<std::int32_t> property_id(TextView address) {
    if (begins(address, tag_root)) {
        const auto tag = hexadecimal(address.substr(tag_root.size()));
        if (tag) return static_cast<std::int32_t>(*tag >> 16);
    }
    if (begins(address, id_root) && address.size() > id_root.size() + guid_digits + 2) {
        const TextView rest = address.substr(id_root.size() + guid_digits + 2);
        const bool prefixed = rest.starts_with(u"0x");
        const auto id = hexadecimal(prefixed ? rest.substr(2) : rest);
        // 0x8083 alone, or with the type's four digits behind it
        if (id) return static_cast<std::int32_t>(*id > 0xFFFF ? *id >> 16 : *id);
    }
    return std::nullopt;
}

}  // namespace

Text field_of_address(TextView address) {
    if (begins(address, string_root)) return unescaped(address.substr(string_root.size()));
    for (const NameRow& row : names) {
        if (automation::same_ignoring_case(row.address, address)) return Text(row.field);
    }
    const std::optional<std::int32_t> id = property_id(address);
    if (!id) return {};
    for (const TagRow& row : tags) {
        if (row.id == *id) return Text(row.field);
    }
    for (const TextView base : {u"IPM.Note", u"IPM.Contact", u"IPM.Appointment", u"IPM.Task", u"IPM.Post"}) {
        if (const tables::FieldRow* field = find_field(kind_of(base), *id)) return Text(field->name);
    }
    return {};
}

std::optional<Value> schema_property(const ItemData& item, TextView address) {
    if (begins(address, string_root)) {
        const Text name = unescaped(address.substr(string_root.size()));
        for (const UserPropertyData& property : item.user_properties) {
            if (!automation::same_ignoring_case(property.name, name)) continue;
            if (property.value.is(Value::Type::empty)) return std::nullopt;
            return property.value;
        }
        return std::nullopt;
    }
    const ItemKind& kind = kind_of(item.message_class);
    Text name = field_of_address(address);
    if (const std::optional<std::int32_t> id = property_id(address)) {
        // the same number may be another field of another kind of item
        if (const tables::FieldRow* field = find_field(kind, *id)) name = Text(field->name);
    }
    if (name.empty()) return std::nullopt;
    if (automation::same_ignoring_case(name, u"MessageClass")) return Value(item.message_class);
    if (const auto set = item.fields.find(name); set != item.fields.end()) {
        const bool nothing = set->second.is(Value::Type::text) && set->second.to_text().empty();
        return nothing ? std::nullopt : std::optional(set->second);
    }
    return std::nullopt;
}

}  // namespace desk
