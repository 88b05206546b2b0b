// The add-ins that the host knows.
#pragma once

#include "desk/model/base.h"

namespace desk {

class AddIn : public ModelObject<AddIn> {
  public:
    static constexpr std::string_view name = "COMAddIn";
    static constexpr host::TextView default_name = u"Description";

    AddIn(Desk& desk, host::Text prog_id, host::Text description, host::Text guid)
        : ModelObject(desk),
          prog_id(std::move(prog_id)),
          description(std::move(description)),
          guid(std::move(guid)) {}
    static const host::Members<AddIn>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override;

    host::Text prog_id;
    host::Text description;
    host::Text guid;
    bool connected = false;
    host::Object published;  ///< what the add-in offers to others
};

class AddIns : public ModelObject<AddIns> {
  public:
    static constexpr std::string_view name = "COMAddIns";
    static constexpr host::TextView default_name = u"Item";

    using ModelObject::ModelObject;
    static const host::Members<AddIns>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override;

    std::vector<std::shared_ptr<AddIn>> all;
    host::Object at(const host::Value& index) const;  ///< by number from 1, or by ProgID
};

}  // namespace desk
