#include "desk/outlook/item_properties.h"

#include <algorithm>

#include "desk/outlook/user_properties.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Text;
using automation::Use;
using automation::Value;
namespace result = automation::result;

std::vector<Text> ItemProperties::names() const {
    item_->check_there();
    std::vector<Text> names;
    const ItemKind& kind = item_->kind();
    if (!kind.is_note) {
        for (const tables::FieldRow& field : tables::common_fields()) names.emplace_back(field.name);
    }
    for (const tables::FieldRow& field : kind.own_fields()) names.emplace_back(field.name);
    for (const UserPropertyData& property : item_->data().user_properties) names.push_back(property.name);
    return names;
}

automation::Object ItemProperties::at(const Value& index) const {
    const std::vector<Text> all = names();
    if (index.is(Value::Type::text)) {
        const Text wanted = index.to_text();
        const auto found = std::ranges::find_if(
            all, [&](const Text& n) { return automation::same_ignoring_case(n, wanted); });
        if (found == all.end())
            throw Failure(result::not_found, u"The item has no property \"" + wanted + u"\".");
        return std::make_shared<ItemProperty>(desk(), item_, *found)->self();
    }
    const std::int32_t place = index.to_integer();
    if (place < 0 || static_cast<std::size_t>(place) >= all.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return std::make_shared<ItemProperty>(desk(), item_, all[static_cast<std::size_t>(place)])->self();
}

const automation::Members<ItemProperties>& ItemProperties::members() {
    static const automation::Members<ItemProperties> table{
        {u"Count", 0x50, Use::get, [](ItemProperties& self) { return self.names().size(); }},
        {u"Item", 0x0, Use::method, {u"Index"}, calls<&ItemProperties::at>},
    };
    return table;
}

automation::Object ItemProperty::user_property() const {
    return UserProperties(desk(), item_).property(property_name_);
}

Value ItemProperty::ask(automation::Access access, std::vector<Value> arguments) const {
    const automation::Object property = user_property();
    automation::Request request{
        .access = access,
        .member = property ? automation::TextView(u"Value") : automation::TextView(property_name_),
        .arguments = std::move(arguments)};
    return property ? property.invoke(request) : item_->invoke(request);
}

const automation::Members<ItemProperty>& ItemProperty::members() {
    static const automation::Members<ItemProperty> table{
        {u"Value", 0x0, [](ItemProperty& self) { return self.ask(automation::Access::get, {}); },
         [](ItemProperty& self, const Value& given) { self.ask(automation::Access::put, {given}); }},
        {u"Name", 0x70, Use::get, calls<&ItemProperty::property_name>},
        {u"IsUserProperty", 0xFA08, Use::get,
         [](ItemProperty& self) { return static_cast<bool>(self.user_property()); }},
    };
    return table;
}

}  // namespace desk
