// The kinds of items, told apart by the beginning of the message class.
#pragma once

#include <optional>
#include <span>

#include "desk/outlook/tables/fields.h"
#include "desk/store/item_data.h"

namespace desk {

struct ItemKind {
    automation::TextView base_class;  ///< the host's own message class of the kind
    std::string_view name;            ///< the type's name, as automation clients know it
    std::int32_t number;              ///< OlObjectClass
    std::int32_t item_type;           ///< OlItemType
    std::int32_t default_folder;      ///< number of the default folder that a new one is saved to
    bool has_people;                  ///< recipients
    bool is_note;                     ///< a sticky note: fields of its own only
    std::span<const tables::FieldRow> (*own_fields)();
};

/// The kind of a message class; an unknown class is shown as a mail.
const ItemKind& kind_of(automation::TextView message_class);
const ItemKind& kind_of_type(std::int32_t item_type);  ///< throws `automation::Failure` for an unknown number

/// A built-in field by its name or dispatch id; null if items of the kind have none such.
const tables::FieldRow* find_field(const ItemKind& kind, automation::TextView name);
const tables::FieldRow* find_field(const ItemKind& kind, std::int32_t id);

/// Whether any kind of item has a built-in field of that name.
bool is_built_in_field(automation::TextView name);

/// A value in the type of a field. Throws `result::type_mismatch` if it can't be turned into it.
automation::Value converted(const automation::Value& value, tables::FieldType type);

/// The built-in field that a name means which is written as the host's windows write it, with a blank between
/// its words: "MessageClass" for "Message Class". Empty if there is none such.
automation::TextView built_in_field_of_words(automation::TextView words);

/// The type of a built-in field of any kind of item, by its name; nothing if there is none.
std::optional<tables::FieldType> type_of_built_in(automation::TextView name);

/// The value of a field that isn't set.
automation::Value default_value(const ItemKind& kind, const tables::FieldRow& field);

/// "No date", as the host shows it: 1 January 4501.
inline constexpr automation::Date no_date{949998.0};

/// The user properties that the form of a message class defines, in its order; empty for a class without a
/// form.
struct FormProperty {
    automation::TextView name;
    std::int32_t type;  ///< OlUserPropertyType
};
std::span<const FormProperty> form_of(automation::TextView message_class);

/// Has an item bear the properties of its class's form, empty, beside those that it has.
void apply_form(ItemData& item);

/// What a schema address names.
struct SchemaName {
    automation::Text field;  ///< a user property or a built-in field; empty if no item here has it
    std::uint32_t type = 0;  ///< its MAPI type, 0 if the address says none
    bool is_user_property = false;
    bool opposite = false;  ///< says yes where the field says no
};

/// Nothing if the address is none of the host's. Without a kind of item the first one counts whose items have
/// such a property.
std::optional<SchemaName> schema_name(automation::TextView address, const ItemKind* kind = nullptr);

/// A property of an item by its schema address; nothing if the item lacks it or the address names none.
std::optional<automation::Value> schema_property(const ItemData& item, automation::TextView address);

/// The user property or built-in field that a schema address names, for looking it up in an index; empty if
/// none.
automation::Text field_of_address(automation::TextView address);

/// A field of an item by its English name, built-in or user property.
std::optional<automation::Value> field_value(const ItemData& item, automation::TextView name);

/// The same of a built-in field alone, whatever user properties the item bears.
std::optional<automation::Value> built_in_value(const ItemData& item, automation::TextView name);

}  // namespace desk
