// Schema addresses: the names by which properties are known beyond the object model's own.
#include <algorithm>
#include <optional>

#include "desk/base/base.h"
#include "desk/outlook/contact_rules.h"
#include "desk/outlook/item_kinds.h"
#include "desk/outlook/tables/schema_names.h"

namespace desk {

using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

constexpr TextView tag_root = u"http://schemas.microsoft.com/mapi/proptag/0x";
constexpr TextView string_root = u"http://schemas.microsoft.com/mapi/string/";
constexpr TextView id_root = u"http://schemas.microsoft.com/mapi/id/";
constexpr TextView user_set = u"{00020329-0000-0000-C000-000000000046}";
constexpr std::size_t digits_of_tag = 8, digits_of_id = 4;
constexpr std::uint32_t first_named_id = 0x8000;

/// Properties whose tags are not the dispatch ids of fields.
struct TagRow {
    std::uint32_t id;
    TextView field;
};
constexpr TagRow tags[] = {
    {0x001A, u"MessageClass"},
    {0x1000, u"Body"},
    {0x1013, u"HTMLBody"},
    {0x5D01, u"SenderSmtpAddress"},
    {0x1035, u"InternetMessageId"},
    {0x007D, u"InternetHeaders"},
    {0x0E1D, u"Subject"},
    {0x0E1B, tables::has_attachments},
    {0x0E08, tables::size_in_bytes},
};

/// The set in which the numbers of fields with a common first byte are.
struct NumberedSet {
    std::uint32_t first_byte;
    TextView guid;
};
constexpr NumberedSet numbered_sets[] = {
    {0x80, u"{00062004-0000-0000-C000-000000000046}"}, {0x81, u"{00062003-0000-0000-C000-000000000046}"},
    {0x82, u"{00062002-0000-0000-C000-000000000046}"}, {0x85, u"{00062008-0000-0000-C000-000000000046}"},
    {0x8B, u"{0006200E-0000-0000-C000-000000000046}"},
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

/// What stands behind a root; nothing if the address has another one.
std::optional<TextView> behind(TextView root, TextView address) {
    if (!address.starts_with(root)) return std::nullopt;
    return address.substr(root.size());
}

/// A set's guid, and what stands behind it and a slash.
struct InSet {
    TextView guid, name;
};

std::optional<InSet> in_set(TextView rest) {
    constexpr TextView form = u"{........-....-....-....-............}/";
    if (rest.size() <= form.size()) return std::nullopt;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool fits = form[i] == u'.' ? hexadecimal(rest.substr(i, 1)).has_value() : form[i] == rest[i];
        if (!fits) return std::nullopt;
    }
    return InSet{rest.substr(0, form.size() - 1), rest.substr(form.size())};
}

/// The field of a dispatch id, by which the same number may be another one of another kind of item.
Text field_of_id(std::uint32_t id, const ItemKind* kind) {
    const auto signed_id = static_cast<std::int32_t>(id);
    const tables::FieldRow* field = kind ? find_field(*kind, signed_id) : nullptr;
    for (const TextView base :
         {u"IPM.Note", u"IPM.Contact", u"IPM.Appointment", u"IPM.Task", u"IPM.Post", u"IPM.StickyNote"}) {
        if (!field) field = find_field(kind_of(base), signed_id);
    }
    return field ? Text(field->name) : Text();
}

std::optional<SchemaName> tagged(TextView digits, const ItemKind* kind) {
    const std::optional<std::uint32_t> tag = hexadecimal(digits);
    if (!tag || digits.size() != digits_of_tag) return std::nullopt;
    const std::uint32_t id = *tag >> 16;
    if (id >= first_named_id) return std::nullopt;
    const auto* const row = std::ranges::find(tags, id, &TagRow::id);
    return SchemaName{row != std::end(tags) ? Text(row->field) : field_of_id(id, kind), *tag & 0xFFFF};
}

/// 8083 alone or with the type's four digits behind it, and 0x before it or not.
std::optional<SchemaName> numbered(const InSet& place, const ItemKind* kind) {
    const TextView digits = place.name.starts_with(u"0x") ? place.name.substr(2) : place.name;
    const std::optional<std::uint32_t> number = hexadecimal(digits);
    if (!number || (digits.size() != digits_of_tag && digits.size() != digits_of_id)) return std::nullopt;
    const bool typed = digits.size() == digits_of_tag;
    const std::uint32_t id = typed ? *number >> 16 : *number;
    const auto* const set = std::ranges::find(numbered_sets, id >> 8, &NumberedSet::first_byte);
    const bool here = set != std::end(numbered_sets) && automation::same_ignoring_case(set->guid, place.guid);
    return SchemaName{here ? field_of_id(id, kind) : Text(), typed ? *number & 0xFFFF : 0};
}

/// A name between a set and a type that may stand behind it: /0000001f.
SchemaName of_string(const InSet& place) {
    TextView name = place.name;
    SchemaName found;
    if (const std::size_t slash = name.rfind(u'/'); slash != TextView::npos && slash > 0) {
        const TextView digits = name.substr(slash + 1);
        const auto type = hexadecimal(digits);
        if (type && digits.size() == digits_of_tag && digits.starts_with(u"0000")) {
            found.type = *type;
            name = name.substr(0, slash);
        }
    }
    found.is_user_property = automation::same_ignoring_case(place.guid, user_set);
    if (found.is_user_property) found.field = unescaped(name);
    return found;
}

/// Fields that every item has which is of a kind that has them, set or not.
constexpr TextView always_there[] = {u"Importance",  u"Sensitivity",    u"UnRead",       u"AllDayEvent",
                                     u"BusyStatus",  u"Duration",       u"Complete",     u"Status",
                                     u"ReminderSet", u"ResponseStatus", u"MeetingStatus"};

std::optional<Value> user_property(const ItemData& item, TextView name) {
    for (const UserPropertyData& property : item.user_properties) {
        if (!automation::same_ignoring_case(property.name, name)) continue;
        if (property.value.is(Value::Type::empty)) return std::nullopt;
        return property.value;
    }
    return std::nullopt;
}

std::optional<Value> built_in(const ItemData& item, TextView name) {
    if (automation::same_ignoring_case(name, u"MessageClass")) return Value(item.message_class);
    if (const auto set = item.fields.find(name); set != item.fields.end()) {
        const bool nothing = set->second == Value(u"") || set->second == Value(no_date);
        return nothing ? std::nullopt : std::optional(set->second);
    }
    const ItemKind& kind = kind_of(item.message_class);
    if (const auto text = kind.number == object_class::contact ? composed_name(item, name) : std::nullopt)
        return text->empty() ? std::nullopt : std::optional(Value(*text));
    const tables::FieldRow* const field = find_field(kind, name);
    const bool there = field && std::ranges::find(always_there, field->name) != std::end(always_there);
    return there ? std::optional(default_value(kind, *field)) : std::nullopt;
}

}  // namespace

std::optional<SchemaName> schema_name(TextView address, const ItemKind* kind) {
    if (const auto digits = behind(tag_root, address)) return tagged(*digits, kind);
    if (const auto rest = behind(id_root, address)) {
        const std::optional<InSet> place = in_set(*rest);
        return place ? numbered(*place, kind) : std::nullopt;
    }
    if (const auto rest = behind(string_root, address)) {
        const std::optional<InSet> place = in_set(*rest);
        return place ? std::optional(of_string(*place)) : std::nullopt;
    }
    const tables::SchemaNameRow* const row = tables::find_schema_name(address);
    if (!row) return std::nullopt;
    return SchemaName{Text(row->field), 0, false, row->opposite};
}

Text field_of_address(TextView address) { return schema_name(address).value_or(SchemaName()).field; }

std::optional<Value> schema_property(const ItemData& item, TextView address) {
    const std::optional<SchemaName> name = schema_name(address, &kind_of(item.message_class));
    if (!name || name->field.empty()) return std::nullopt;
    if (name->is_user_property) return user_property(item, name->field);
    std::optional<Value> value = built_in(item, name->field);
    if (value && name->opposite) value = !value->to_boolean();
    return value;
}

}  // namespace desk
