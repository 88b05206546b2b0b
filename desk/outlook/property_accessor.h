// Properties by their schema addresses.
#pragma once

#include <functional>

#include "desk/outlook/item.h"

namespace desk {

class PropertyAccessor : public ModelObject<PropertyAccessor> {
  public:
    static constexpr std::string_view name = "PropertyAccessor";
    static constexpr automation::TextView default_name = u"";
    using Reader = std::function<std::optional<automation::Value>(automation::TextView address)>;
    using Writer = std::function<void(automation::TextView address, const automation::Value& value)>;

    PropertyAccessor(Desk& desk, automation::Object owner, Reader reader, Writer writer)
        : ModelObject(desk),
          owner_(std::move(owner)),
          reader_(std::move(reader)),
          writer_(std::move(writer)) {}

    static std::shared_ptr<PropertyAccessor> of_item(const std::shared_ptr<Item>& item);
    static std::shared_ptr<PropertyAccessor> of_person(Desk& desk, const Person& person,
                                                       automation::Object owner);
    /// Of a folder: the class of the items that are made in it is all that there is.
    static std::shared_ptr<PropertyAccessor> of_folder(Desk& desk, RowId folder);

    static const automation::Members<PropertyAccessor>& members();
    std::int32_t number() const override { return object_class::property_accessor; }
    automation::Object parent() const override { return owner_; }

    /// Throws `result::not_found` for a property that the owner lacks.
    automation::Value value(const automation::Text& address) const;
    void value(const automation::Text& address, const automation::Value& value) const;

  private:
    automation::Object owner_;
    Reader reader_;
    Writer writer_;
};

}  // namespace desk
