#include "desk/cdo/cdo_message.h"

#include <array>
#include <string>

#include "desk/base/desk.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/item_kinds.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

constexpr std::int32_t message_class_number = 3;  // CdoMsg
constexpr TextView message_class = u"MessageClass";

/// The schema address of a tag.
Text address_of(std::int32_t tag) {
    constexpr char16_t digits[] = u"0123456789abcdef";
    Text address = u"http://schemas.microsoft.com/mapi/proptag/0x";
    constexpr int most_significant = 28, bits_of_a_digit = 4;
    for (int shift = most_significant; shift >= 0; shift -= bits_of_a_digit) {
        address += digits[static_cast<std::uint32_t>(tag) >> shift & 0xFU];
    }
    return address;
}

[[noreturn]] void refuse_property() {
    throw Failure(result::not_found, u"The message has no such property.");
}

/// A field under the name that CDO has for it.
template <const TextView& field_name>
constexpr automation::Property named{
    +[](CdoMessage& self) { return self.field(field_name); },
    +[](CdoMessage& self, const Value& value) { self.field(field_name, value); }};
constexpr TextView subject = u"Subject", body = u"Body";

}  // namespace

std::int32_t CdoMessage::number() const { return message_class_number; }

Value CdoMessage::field(TextView field_name) const {
    if (const auto changed = changed_.find(field_name); changed != changed_.end()) return changed->second;
    return field_value(row_.data, field_name).value_or(Value(u""));
}

void CdoMessage::field(TextView field_name, const Value& value) {
    if (automation::same_ignoring_case(field_name, message_class)) {
        changed_[Text(field_name)] = value.to_text();
        return;
    }
    const tables::FieldRow* const row = find_field(kind_of(row_.data.message_class), field_name);
    if (!row) refuse_property();
    changed_[Text(row->name)] = converted(value, row->type);
}

Value CdoMessage::property(std::int32_t tag) const {
    const Text address = address_of(tag);
    const auto changed = changed_.find(field_of_address(address));
    if (changed != changed_.end()) return changed->second;
    if (std::optional<Value> found = schema_property(row_.data, address)) return *found;
    refuse_property();
}

void CdoMessage::property(std::int32_t tag, const Value& value) {
    const Text name = field_of_address(address_of(tag));
    if (name.empty()) refuse_property();
    field(name, value);
}

void CdoMessage::update(bool for_good, bool refresh) {
    std::optional<ItemRow> stored = desk().store().load(row_.id);
    if (!stored || stored->folder != row_.folder) {
        throw Failure(result::not_found, u"The message has been moved or deleted.");
    }
    if (for_good && !changed_.empty()) {
        for (const auto& [name, value] : changed_) {
            if (automation::same_ignoring_case(name, message_class)) {
                stored->data.message_class = value.to_text();
                apply_form(stored->data);
            } else {
                stored->data.fields[name] = value;
            }
        }
        stored->data.fields[u"LastModificationTime"] = desk().surroundings().now();
        desk().rewrite_item(row_.id, row_.folder, stored->data);
        row_ = *stored;
        changed_.clear();
    }
    if (refresh) {
        row_ = std::move(*stored);
        changed_.clear();
    }
}

const automation::Members<CdoMessage>& CdoMessage::members() {
    static const automation::Members<CdoMessage> table{
        {u"ID", automation::no_id, Use::get,
         [](CdoMessage& self) { return self.desk().item_entry_id(self.stored().id, self.stored().folder); }},
        {u"StoreID", automation::no_id, Use::get,
         [](CdoMessage& self) { return self.desk().store_uid(self.stored().folder); }},
        {u"FolderID", automation::no_id, Use::get,
         [](CdoMessage& self) { return self.desk().folder_entry_id(self.stored().folder); }},
        {u"Type", automation::no_id, named<message_class>},
        {u"Subject", automation::no_id, named<subject>},
        {u"Text", automation::no_id, named<body>},
        {u"Fields",
         automation::no_id,
         Use::get,
         {u"Tag"},
         [](CdoMessage& self, std::int32_t tag) { return cdo_field(self, tag); }},
        {u"Update",
         automation::no_id,
         Use::method,
         {u"makePermanent", u"refreshObject"},
         [](CdoMessage& self, std::optional<bool> make_permanent, std::optional<bool> refresh_object) {
             self.update(make_permanent.value_or(true), refresh_object.value_or(false));
         }},
    };
    return table;
}

}  // namespace desk
