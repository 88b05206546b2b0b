// The add-ins that the host knows.
#pragma once

#include "desk/base/base.h"

namespace desk {

class AddIn : public ModelObject<AddIn> {
  public:
    static constexpr std::string_view name = "COMAddIn";
    static constexpr automation::TextView default_name = u"Description";

    AddIn(Desk& desk, automation::Text prog_id, automation::Text description, automation::Text guid)
        : ModelObject(desk),
          prog_id(std::move(prog_id)),
          description(std::move(description)),
          guid(std::move(guid)) {}
    static const automation::Members<AddIn>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;

    automation::Text prog_id;
    automation::Text description;
    automation::Text guid;
    bool connected = false;
    automation::Object published;  ///< what the add-in offers to others
};

class AddIns : public ModelObject<AddIns> {
  public:
    static constexpr std::string_view name = "COMAddIns";
    static constexpr automation::TextView default_name = u"Item";

    using ModelObject::ModelObject;
    static const automation::Members<AddIns>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;

    std::vector<std::shared_ptr<AddIn>> all;
    automation::Object at(const automation::Value& index) const;  ///< by number from 1, or by ProgID
};

}  // namespace desk
