// All properties of an item in one collection: the built-in fields, then the user properties.
#pragma once

#include "desk/outlook/item.h"

namespace desk {

class ItemProperties : public ModelObject<ItemProperties> {
  public:
    static constexpr std::string_view name = "ItemProperties";
    static constexpr automation::TextView default_name = u"Item";

    ItemProperties(Desk& desk, std::shared_ptr<Item> item) : ModelObject(desk), item_(std::move(item)) {}
    static const automation::Members<ItemProperties>& members();
    std::int32_t number() const override { return object_class::item_properties; }
    automation::Object parent() const override { return item_->self(); }

    std::vector<automation::Text> names() const;
    automation::Object at(
        const automation::Value& index) const;  ///< by number from 0, as the host counts here, or by name
    Item& item() const { return *item_; }

  private:
    std::shared_ptr<Item> item_;
};

class ItemProperty : public ModelObject<ItemProperty> {
  public:
    static constexpr std::string_view name = "ItemProperty";
    static constexpr automation::TextView default_name = u"Value";

    ItemProperty(Desk& desk, std::shared_ptr<Item> item, automation::Text property_name)
        : ModelObject(desk), item_(std::move(item)), property_name_(std::move(property_name)) {}
    static const automation::Members<ItemProperty>& members();
    std::int32_t number() const override { return object_class::item_property; }
    automation::Object parent() const override { return item_->self(); }

    automation::Object user_property() const;  ///< Nothing for a built-in field
    automation::Value ask(automation::Access access, std::vector<automation::Value> arguments) const;
    const automation::Text& property_name() const { return property_name_; }

  private:
    std::shared_ptr<Item> item_;
    automation::Text property_name_;
};

}  // namespace desk
