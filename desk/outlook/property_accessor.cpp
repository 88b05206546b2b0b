#include "desk/outlook/property_accessor.h"

#include <algorithm>
#include <functional>

#include "desk/base/desk.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/recipients.h"
#include "desk/outlook/user_properties.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

void write_property(const std::shared_ptr<Item>& item, TextView address, const Value& value) {
    const SchemaName name = schema_name(address, &item->kind()).value_or(SchemaName());
    if (const tables::FieldRow* field = find_field(item->kind(), name.field)) {
        return item->set_field(*field, name.opposite ? Value(!value.to_boolean()) : value);
    }
    if (!name.is_user_property || name.field.empty())
        throw Failure(result::not_found, u"The property \"" + Text(address) + u"\" is unknown.");
    constexpr std::int32_t text = 1;
    UserProperties properties(item->desk(), item);
    const automation::Object property = properties.add(name.field, text, false);
    property.put(u"Value", value);
}

/// The class of the items that are made in a folder, as 16-bit and as 8-bit text.
constexpr TextView default_class_addresses[] = {u"http://schemas.microsoft.com/mapi/proptag/0x36E5001F",
                                                u"http://schemas.microsoft.com/mapi/proptag/0x36E5001E"};

bool is_default_class(TextView address) {
    return std::ranges::any_of(default_class_addresses, [&](TextView known) {
        return automation::same_ignoring_case(known, address);
    });
}

}  // namespace

std::shared_ptr<PropertyAccessor> PropertyAccessor::of_folder(Desk& desk, RowId folder) {
    return std::make_shared<PropertyAccessor>(
        desk, std::make_shared<Folder>(desk, folder)->self(),
        [&desk, folder](TextView address) -> std::optional<Value> {
            if (!is_default_class(address)) return std::nullopt;
            return desk.existing_folder(folder).default_class;
        },
        [&desk, folder](TextView address, const Value& value) {
            if (!is_default_class(address))
                throw Failure(result::not_found, u"The property \"" + Text(address) + u"\" is unknown.");
            FolderRow changed = desk.existing_folder(folder);
            changed.default_class = value.to_text();
            desk.change_folder(changed);
        });
}

std::shared_ptr<PropertyAccessor> PropertyAccessor::of_item(const std::shared_ptr<Item>& item) {
    return std::make_shared<PropertyAccessor>(
        item->desk(), item->self(),
        [item](TextView address) {
            item->check_there();
            return schema_property(item->data(), address);
        },
        [item](TextView address, const Value& value) { write_property(item, address, value); });
}

std::shared_ptr<PropertyAccessor> PropertyAccessor::of_person(Desk& desk, const Person& person,
                                                              automation::Object owner) {
    return std::make_shared<PropertyAccessor>(
        desk, std::move(owner), [person](TextView address) { return person_property(person, address); },
        nullptr);
}

Value PropertyAccessor::value(const Text& address) const {
    if (std::optional<Value> found = reader_(address)) return *found;
    throw Failure(result::not_found, u"The property \"" + address + u"\" is unknown or cannot be found.");
}

void PropertyAccessor::value(const Text& address, const Value& value) const {
    if (!writer_) throw Failure(result::access_denied, u"The property \"" + address + u"\" can't be set.");
    writer_(address, value);
}

const automation::Members<PropertyAccessor>& PropertyAccessor::members() {
    static const automation::Members<PropertyAccessor> table{
        {u"GetProperty",
         0xFAFE,
         Use::method,
         {u"SchemaName"},
         [](PropertyAccessor& self, const Text& address) { return self.value(address); }},
        {u"SetProperty",
         0xFAFF,
         Use::method,
         {u"SchemaName", u"Value"},
         [](PropertyAccessor& self, const Text& address, const Value& given) { self.value(address, given); }},
    };
    return table;
}

}  // namespace desk
