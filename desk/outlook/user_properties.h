// The user properties of an item.
#pragma once

#include "desk/outlook/item.h"

namespace desk {

class UserProperties : public ModelObject<UserProperties> {
  public:
    static constexpr std::string_view name = "UserProperties";
    static constexpr automation::TextView default_name = u"Item";

    UserProperties(Desk& desk, std::shared_ptr<Item> item) : ModelObject(desk), item_(std::move(item)) {}
    static const automation::Members<UserProperties>& members();
    std::int32_t number() const override { return object_class::user_properties; }
    automation::Object parent() const override { return item_->self(); }

    Item& item() const { return *item_; }
    automation::Object property(const automation::Text& property_name) const;  ///< Nothing if there is none

    /// By number from 1, or by name. Throws `result::not_found`.
    automation::Object at(const automation::Value& index) const;
    automation::Object add(const automation::Text& property_name, std::int32_t type, bool to_folder_fields);

  private:
    std::shared_ptr<Item> item_;
};

/// Found anew by its name at each access, so that it outlives changes of its neighbours.
class UserProperty : public ModelObject<UserProperty> {
  public:
    static constexpr std::string_view name = "UserProperty";
    static constexpr automation::TextView default_name = u"Value";

    UserProperty(Desk& desk, std::shared_ptr<Item> item, automation::Text property_name)
        : ModelObject(desk), item_(std::move(item)), property_name_(std::move(property_name)) {}
    static const automation::Members<UserProperty>& members();
    std::int32_t number() const override { return object_class::user_property; }
    automation::Object parent() const override { return item_->self(); }

    const UserPropertyData& data() const;
    automation::Value value() const;
    void value(const automation::Value& value);
    void remove();

  private:
    std::shared_ptr<Item> item_;
    automation::Text property_name_;
};

}  // namespace desk
