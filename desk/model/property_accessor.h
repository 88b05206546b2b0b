// Properties by their schema addresses.
#pragma once

#include <functional>

#include "desk/model/item.h"

namespace desk {

class PropertyAccessor : public ModelObject<PropertyAccessor> {
  public:
    static constexpr std::string_view name = "PropertyAccessor";
    static constexpr host::TextView default_name = u"";
    using Reader = std::function<std::optional<host::Value>(host::TextView address)>;
    using Writer = std::function<void(host::TextView address, const host::Value& value)>;

    PropertyAccessor(Desk& desk, host::Object owner, Reader reader, Writer writer)
        : ModelObject(desk),
          owner_(std::move(owner)),
          reader_(std::move(reader)),
          writer_(std::move(writer)) {}

    static std::shared_ptr<PropertyAccessor> of_item(const std::shared_ptr<Item>& item);
    static std::shared_ptr<PropertyAccessor> of_person(Desk& desk, const Person& person, host::Object owner);

    static const host::Members<PropertyAccessor>& members();
    std::int32_t number() const override { return object_class::property_accessor; }
    host::Object parent() const override { return owner_; }

    /// Throws `result::not_found` for a property that the owner lacks.
    host::Value value(const host::Text& address) const;
    void value(const host::Text& address, const host::Value& value) const;

  private:
    host::Object owner_;
    Reader reader_;
    Writer writer_;
};

}  // namespace desk
