#include "desk/outlook/item_kinds.h"

#include <algorithm>
#include <array>

#include "desk/base/base.h"
#include "desk/outlook/contact_rules.h"
#include "desk/outlook/item_texts.h"

namespace desk {

using automation::Text;
using automation::TextView;
using automation::Value;
using tables::FieldRow;
using tables::FieldType;

namespace {

constexpr std::span<const FieldRow> no_fields() { return {}; }

// clang-format off
constexpr ItemKind kinds[] = {
    {u"IPM.Note",        "MailItem",        object_class::mail,        0, 16, true,  false, tables::mail_fields},
    {u"IPM.Appointment", "AppointmentItem", object_class::appointment, 1, 9,  true,  false, tables::appointment_fields},
    {u"IPM.Contact",     "ContactItem",     object_class::contact,     2, 10, false, false, tables::contact_fields},
    {u"IPM.DistList",    "DistListItem",    object_class::dist_list,   7, 10, false, false, tables::dist_list_fields},
    {u"IPM.Task",        "TaskItem",        object_class::task,        3, 13, true,  false, tables::task_fields},
    {u"IPM.Activity",    "JournalItem",     object_class::journal,     4, 11, false, false, no_fields},
    {u"IPM.StickyNote",  "NoteItem",        object_class::note,        5, 12, false, true,  tables::note_fields},
    {u"IPM.Post",        "PostItem",        object_class::post,        6, 6,  false, false, tables::post_fields},
};

/// Fields whose value, when unset, is not the empty one of their type.
struct FieldDefault {
    TextView base_class, field;
    std::int32_t value;
};
constexpr FieldDefault field_defaults[] = {
    {u"", u"Importance", 1},                  {u"IPM.Appointment", u"Duration", 30},
    {u"IPM.Appointment", u"BusyStatus", 2},   {u"IPM.Appointment", u"ReminderMinutesBeforeStart", 15},
    {u"IPM.StickyNote", u"Color", 3},         {u"IPM.StickyNote", u"Width", 200},
    {u"IPM.StickyNote", u"Height", 166},      {u"IPM.StickyNote", u"Left", 80},
    {u"IPM.StickyNote", u"Top", 80},
};
// clang-format on

bool is_class(TextView message_class, TextView base) {
    if (message_class.size() < base.size() ||
        !automation::same_ignoring_case(message_class.substr(0, base.size()), base)) {
        return false;
    }
    return message_class.size() == base.size() || message_class[base.size()] == u'.';
}

template <class Test>
const FieldRow* find_row(const ItemKind& kind, Test test) {
    const auto in = [&](std::span<const FieldRow> rows) -> const FieldRow* {
        const auto found = std::ranges::find_if(rows, test);
        return found == rows.end() ? nullptr : &*found;
    };
    if (const FieldRow* row = in(kind.own_fields())) return row;
    return kind.is_note ? nullptr : in(tables::common_fields());
}

}  // namespace

const ItemKind& kind_of(TextView message_class) {
    const auto found = std::ranges::find_if(
        kinds, [&](const ItemKind& kind) { return is_class(message_class, kind.base_class); });
    return found == std::end(kinds) ? kinds[0] : *found;
}

const ItemKind& kind_of_type(std::int32_t item_type) {
    const auto found = std::ranges::find(kinds, item_type, &ItemKind::item_type);
    if (found == std::end(kinds)) {
        throw automation::Failure(automation::result::invalid_argument,
                                  u"There is no type of item with that number.");
    }
    return *found;
}

const FieldRow* find_field(const ItemKind& kind, TextView name) {
    return find_row(kind,
                    [&](const FieldRow& row) { return automation::same_ignoring_case(row.name, name); });
}

const FieldRow* find_field(const ItemKind& kind, std::int32_t id) {
    return find_row(kind, [&](const FieldRow& row) { return row.id == id; });
}

namespace {

/// The name of the first built-in field, of any kind of item, whose name fits; empty if none does.
template <class Fits>
TextView find_built_in(Fits fits) {
    constexpr TextView computed[] = {u"MessageClass", u"Size", u"EntryID", u"Parent", u"Class"};
    for (const ItemKind& kind : kinds) {
        if (const FieldRow* row = find_row(kind, [&](const FieldRow& each) { return fits(each.name); }))
            return row->name;
    }
    const auto* const found = std::ranges::find_if(computed, fits);
    return found == std::end(computed) ? TextView() : *found;
}

constexpr bool is_capital(char16_t c) { return c >= u'A' && c <= u'Z'; }

/// Whether a text is a name of several words, such as "MessageClass", with a blank between each two of them.
bool are_words_of(TextView words, TextView name) {
    std::size_t at = 0;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool begins_word = i > 0 && is_capital(name[i]) && !is_capital(name[i - 1]);
        if (begins_word && (at == words.size() || words[at++] != u' ')) return false;
        if (at == words.size() || automation::upper(words[at++]) != automation::upper(name[i])) return false;
    }
    return at == words.size();
}

}  // namespace

bool is_built_in_field(TextView name) {
    return !find_built_in([&](TextView field) {
                return automation::same_ignoring_case(field, name);
            }).empty();
}

TextView built_in_field_of_words(TextView words) {
    if (words.find(u' ') == TextView::npos) return {};
    return find_built_in([&](TextView field) { return are_words_of(words, field); });
}

std::optional<FieldType> type_of_built_in(TextView name) {
    for (const ItemKind& kind : kinds) {
        if (const FieldRow* row = find_field(kind, name)) return row->type;
    }
    return std::nullopt;
}

Value converted(const Value& value, FieldType type) {
    switch (type) {
        case FieldType::text:
            return value.to_text();
        case FieldType::integer:
            return value.to_integer();
        case FieldType::boolean:
            return value.to_boolean();
        case FieldType::date:
            return value.to_date();
        case FieldType::number:
            break;
    }
    return value.to_number();
}

Value default_value(const ItemKind& kind, const FieldRow& field) {
    for (const FieldDefault& row : field_defaults) {
        if (row.field == field.name && (row.base_class.empty() || row.base_class == kind.base_class))
            return row.value;
    }
    switch (field.type) {
        case FieldType::text:
            return u"";
        case FieldType::integer:
            return 0;
        case FieldType::boolean:
            return false;
        case FieldType::number:
            return 0.0;
        case FieldType::date:
            break;
    }
    return no_date;
}

void apply_form(ItemData& item) {
    for (const FormProperty& property : form_of(item.message_class)) {
        const bool there = std::ranges::any_of(item.user_properties, [&](const UserPropertyData& p) {
            return automation::same_ignoring_case(p.name, property.name);
        });
        if (!there) item.user_properties.push_back({Text(property.name), property.type, {}});
    }
}

std::optional<Value> field_value(const ItemData& item, TextView name) {
    const bool is_set = item.fields.contains(name);
    for (const UserPropertyData& property : item.user_properties) {
        if (!is_set && automation::same_ignoring_case(property.name, name)) return property.value;
    }
    return built_in_value(item, name);
}

std::optional<Value> built_in_value(const ItemData& item, TextView name) {
    const ItemKind& kind = kind_of(item.message_class);
    if (const auto set = item.fields.find(name); set != item.fields.end()) return set->second;
    if (automation::same_ignoring_case(name, u"MessageClass")) return Value(item.message_class);
    const FieldRow* const field = find_field(kind, name);
    if (!field) return std::nullopt;
    if (std::optional<Value> body = composed_body(item, name)) return body;
    const bool is_contact = kind.number == object_class::contact;
    const std::optional<Text> composed = is_contact ? composed_name(item, name) : std::nullopt;
    return composed ? Value(*composed) : default_value(kind, *field);
}

}  // namespace desk
