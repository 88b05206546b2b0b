#include "desk/outlook/user_properties.h"

#include <algorithm>

#include "desk/base/desk.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Ignored;
using automation::Text;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

namespace property_type {
constexpr std::int32_t text = 1, number = 3, date = 5, yes_no = 6, duration = 7, keywords = 11, percent = 12,
                       currency = 14, integer = 20;
}

template <class Properties>
auto find_in(Properties& properties, automation::TextView name) {
    return std::ranges::find_if(properties,
                                [&](const auto& p) { return automation::same_ignoring_case(p.name, name); });
}

Value converted(const Value& value, std::int32_t type) {
    switch (type) {
        case property_type::text:
        case property_type::keywords:
            return value.to_text();
        case property_type::number:
        case property_type::percent:
        case property_type::currency:
            return value.to_number();
        case property_type::date:
            return value.to_date();
        case property_type::yes_no:
            return value.to_boolean();
        case property_type::duration:
        case property_type::integer:
            return value.to_integer();
        default:
            return value;
    }
}

/// What a property that was never set reads as.
Value unset(std::int32_t type) {
    switch (type) {
        case property_type::text:
        case property_type::keywords:
            return u"";
        case property_type::number:
        case property_type::percent:
        case property_type::currency:
            return 0.0;
        case property_type::date:
            return no_date;
        case property_type::yes_no:
            return false;
        case property_type::duration:
        case property_type::integer:
            return 0;
        default:
            return {};
    }
}

}  // namespace

automation::Object UserProperties::property(const Text& property_name) const {
    item_->check_there();
    const auto& properties = item_->data().user_properties;
    const auto found = find_in(properties, property_name);
    if (found == properties.end()) return {};
    return std::make_shared<UserProperty>(desk(), item_, found->name)->self();
}

automation::Object UserProperties::at(const Value& index) const {
    item_->check_there();
    if (index.is(Value::Type::text)) {
        if (automation::Object found = property(index.to_text())) return found;
        throw Failure(result::not_found, u"The item has no user property \"" + index.to_text() + u"\".");
    }
    const auto& properties = item_->data().user_properties;
    const std::int32_t place = index.to_integer();
    if (place < 1 || static_cast<std::size_t>(place) > properties.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return property(properties[static_cast<std::size_t>(place - 1)].name);
}

automation::Object UserProperties::add(const Text& property_name, std::int32_t type, bool to_folder_fields) {
    if (property_name.empty()) throw Failure(result::invalid_argument, u"A user property needs a name.");
    if (is_built_in_field(property_name) && find_field(item_->kind(), property_name)) {
        throw Failure(result::invalid_argument, u"The field \"" + property_name + u"\" exists already.");
    }
    if (!property(property_name)) item_->change().user_properties.push_back({property_name, type, {}});
    if (to_folder_fields && item_->folder() != 0) {
        FolderRow folder = desk().existing_folder(item_->folder());
        if (find_in(folder.fields, property_name) == folder.fields.end()) {
            folder.fields.push_back({property_name, type});
            desk().change_folder(folder);
        }
    }
    return property(property_name);
}

const automation::Members<UserProperties>& UserProperties::members() {
    static const automation::Members<UserProperties> table{
        {u"Count", 0x50, Use::get,
         [](UserProperties& self) { return self.item().data().user_properties.size(); }},
        {u"Item", 0x51, Use::method, {u"Index"}, calls<&UserProperties::at>},
        {u"Add",
         0x66,
         Use::method,
         {u"Name", u"Type", u"AddToFolderFields", u"DisplayFormat"},
         [](UserProperties& self, const Text& name, std::int32_t type,
            std::optional<bool> add_to_folder_fields,
            Ignored) { return self.add(name, type, add_to_folder_fields.value_or(true)); }},
        {u"Find",
         0x67,
         Use::method,
         {u"Name", u"Custom"},
         [](UserProperties& self, const Text& name, Ignored) { return self.property(name); }},
        {u"Remove",
         0x52,
         Use::method,
         {u"Index"},
         [](UserProperties& self, std::int32_t index) {
             auto found = std::dynamic_pointer_cast<UserProperty>(self.at(index).target());
             found->remove();
         }},
    };
    return table;
}

const UserPropertyData& UserProperty::data() const {
    item_->check_there();
    const auto& properties = item_->data().user_properties;
    const auto found = find_in(properties, property_name_);
    if (found == properties.end()) {
        throw Failure(result::object_deleted, u"The user property \"" + property_name_ + u"\" was deleted.");
    }
    return *found;
}

Value UserProperty::value() const {
    const UserPropertyData& property = data();
    return property.value.is(Value::Type::empty) ? unset(property.type) : property.value;
}

void UserProperty::value(const Value& value) {
    Value stored = converted(value, data().type);
    find_in(item_->change().user_properties, property_name_)->value = std::move(stored);
    item_->raise(u"CustomPropertyChange", {Value(property_name_)});
}

void UserProperty::remove() {
    data();
    std::erase_if(item_->change().user_properties, [&](const UserPropertyData& p) {
        return automation::same_ignoring_case(p.name, property_name_);
    });
}

const automation::Members<UserProperty>& UserProperty::members() {
    static const automation::Members<UserProperty> table{
        {u"Value", 0x0, [](UserProperty& self) { return self.value(); },
         [](UserProperty& self, const Value& given) { self.value(given); }},
        {u"Name", 0x70, Use::get, [](UserProperty& self) { return self.data().name; }},
        {u"Type", 0x6D, Use::get, [](UserProperty& self) { return self.data().type; }},
        {u"IsUserProperty", 0xFA08, Use::get, [](UserProperty&) { return true; }},
        {u"Delete", 0x6C, Use::method, calls<&UserProperty::remove>},
    };
    return table;
}

}  // namespace desk
