// The fields that are defined in a folder, for all of its items.
#pragma once

#include "desk/base/base.h"
#include "desk/store/store.h"

namespace desk {

class UserDefinedProperties : public ModelObject<UserDefinedProperties> {
  public:
    static constexpr std::string_view name = "UserDefinedProperties";
    static constexpr automation::TextView default_name = u"Item";

    UserDefinedProperties(Desk& desk, RowId folder_id) : ModelObject(desk), folder_(folder_id) {}
    static const automation::Members<UserDefinedProperties>& members();
    std::int32_t number() const override { return object_class::user_defined_properties; }
    automation::Object parent() const override;

    const std::vector<FolderField>& fields() const;
    automation::Object find(const automation::Text& field_name) const;  ///< Nothing if there is none
    automation::Object at(const automation::Value& index) const;        ///< by number from 1, or by name
    automation::Object add(const automation::Text& field_name, std::int32_t type);
    void remove(std::int32_t place);

  private:
    RowId folder_;
};

/// Found anew by its name at each access, so that it outlives changes of its neighbours.
class UserDefinedProperty : public ModelObject<UserDefinedProperty> {
  public:
    static constexpr std::string_view name = "UserDefinedProperty";
    static constexpr automation::TextView default_name = u"Name";

    UserDefinedProperty(Desk& desk, RowId folder_id, automation::Text field_name)
        : ModelObject(desk), folder_(folder_id), field_name_(std::move(field_name)) {}
    static const automation::Members<UserDefinedProperty>& members();
    std::int32_t number() const override { return object_class::user_defined_property; }
    automation::Object parent() const override;

    const FolderField& field() const;  ///< throws `result::object_deleted` for one that is gone
    void remove();

  private:
    RowId folder_;
    automation::Text field_name_;
};

}  // namespace desk
