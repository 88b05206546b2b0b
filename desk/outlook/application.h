// The application: the way into everything else.
#pragma once

#include "desk/base/base.h"

namespace desk {

class Application : public ModelObject<Application> {
  public:
    static constexpr std::string_view name = "Application";
    static constexpr automation::TextView default_name = u"Name";

    using ModelObject::ModelObject;
    static const automation::Members<Application>& members();
    std::int32_t number() const override { return object_class::application; }
    automation::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    automation::Object create_item(std::int32_t type) const;
};

/// The languages of the user interface.
class LanguageSettings : public ModelObject<LanguageSettings> {
  public:
    static constexpr std::string_view name = "LanguageSettings";
    static constexpr automation::TextView default_name = u"LanguageID";

    using ModelObject::ModelObject;
    static const automation::Members<LanguageSettings>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;
};

}  // namespace desk
