// The application: the way into everything else.
#pragma once

#include "desk/model/base.h"

namespace desk {

class Surface;

class Application : public ModelObject<Application> {
  public:
    static constexpr std::string_view name = "Application";
    static constexpr host::TextView default_name = u"Name";

    using ModelObject::ModelObject;
    static const host::Members<Application>& members();
    std::int32_t number() const override { return object_class::application; }
    host::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    host::Object create_item(std::int32_t type) const;
    host::Object surface();

  private:
    std::shared_ptr<Surface> surface_;
};

/// The languages of the user interface.
class LanguageSettings : public ModelObject<LanguageSettings> {
  public:
    static constexpr std::string_view name = "LanguageSettings";
    static constexpr host::TextView default_name = u"LanguageID";

    using ModelObject::ModelObject;
    static const host::Members<LanguageSettings>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override;
};

}  // namespace desk
