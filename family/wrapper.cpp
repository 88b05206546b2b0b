#include "family/wrapper.h"

namespace family {

using automation::Object;
using automation::Value;

namespace {

/// The host's objects that are asked for properties share the dispatch ids of these members.
constexpr automation::Kind owner_kind{"owner of properties"}, accessor_kind{"PropertyAccessor"};

Object accessor(const Object& owner) {
    const Object asked(owner.target(), &owner_kind);
    return Object(asked.get(u"PropertyAccessor").to_object().target(), &accessor_kind);
}

/// Scalars as text. Several values in one property stay an array.
Value as_text(const Value& value, Context& context) {
    switch (value.type()) {
        case Value::Type::number:
            return context.number_text(value.to_number());
        case Value::Type::boolean:
        case Value::Type::integer:
        case Value::Type::date:
            return value.to_text();
        default:
            return value;
    }
}

}  // namespace

Value read_field(const Object& owner, Context& context, const Value& tag) {
    const automation::Text address = context.memory().named_properties.address(read_tag(tag));
    const Object properties = accessor(owner);
    try {
        return as_text(properties.call(u"GetProperty", {address}), context);
    } catch (const automation::Failure& failure) {
        if (failure.number() != automation::result::not_found) throw;
        return {};
    }
}

void write_field(const Object& owner, const NamedProperties& named, const Value& tag, const Value& value) {
    accessor(owner).call(u"SetProperty", {named.address(read_tag(tag)), value});
}

}  // namespace family
