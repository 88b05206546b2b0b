#include "family/wrapper.h"

namespace family {

using host::Object;
using host::Value;

namespace {

Object accessor(const Object& owner) { return owner.get(u"PropertyAccessor").to_object(); }

/// Scalars as text. Several values in one property stay an array.
Value as_text(const Value& value) {
    switch (value.type()) {
        case Value::Type::boolean:
        case Value::Type::integer:
        case Value::Type::number:
        case Value::Type::date:
            return value.to_text();
        default:
            return value;
    }
}

}  // namespace

Value read_field(const Object& owner, const NamedProperties& named, const Value& tag) {
    const host::Text address = named.address(read_tag(tag));
    const Object properties = accessor(owner);
    try {
        return as_text(properties.call(u"GetProperty", {address}));
    } catch (const host::Failure& failure) {
        if (failure.number() != host::result::not_found) throw;
        return {};
    }
}

void write_field(const Object& owner, const NamedProperties& named, const Value& tag, const Value& value) {
    accessor(owner).call(u"SetProperty", {named.address(read_tag(tag)), value});
}

}  // namespace family
