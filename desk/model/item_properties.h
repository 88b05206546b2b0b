// All properties of an item in one collection: the built-in fields, then the user properties.
#pragma once

#include "desk/model/item.h"

namespace desk {

class ItemProperties : public ModelObject<ItemProperties> {
  public:
    static constexpr std::string_view name = "ItemProperties";
    static constexpr host::TextView default_name = u"Item";

    ItemProperties(Desk& desk, std::shared_ptr<Item> item) : ModelObject(desk), item_(std::move(item)) {}
    static const host::Members<ItemProperties>& members();
    std::int32_t number() const override { return object_class::item_properties; }
    host::Object parent() const override { return item_->self(); }

    std::vector<host::Text> names() const;
    host::Object at(
        const host::Value& index) const;  ///< by number from 0, as the host counts here, or by name
    Item& item() const { return *item_; }

  private:
    std::shared_ptr<Item> item_;
};

class ItemProperty : public ModelObject<ItemProperty> {
  public:
    static constexpr std::string_view name = "ItemProperty";
    static constexpr host::TextView default_name = u"Value";

    ItemProperty(Desk& desk, std::shared_ptr<Item> item, host::Text property_name)
        : ModelObject(desk), item_(std::move(item)), property_name_(std::move(property_name)) {}
    static const host::Members<ItemProperty>& members();
    std::int32_t number() const override { return object_class::item_property; }
    host::Object parent() const override { return item_->self(); }

    host::Object user_property() const;  ///< Nothing for a built-in field
    host::Value ask(host::Access access, std::vector<host::Value> arguments) const;
    const host::Text& property_name() const { return property_name_; }

  private:
    std::shared_ptr<Item> item_;
    host::Text property_name_;
};

}  // namespace desk
