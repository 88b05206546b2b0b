// What the desk offers beyond the real host: to drive and watch from outside what a person would.
#pragma once

#include "desk/base/base.h"

namespace desk {

class Explorer;

class Surface : public ModelObject<Surface> {
  public:
    static constexpr std::string_view name = "Desk";
    static constexpr automation::TextView default_name = u"";

    using ModelObject::ModelObject;
    static const automation::Members<Surface>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;

    automation::Object messages();
    automation::Object programs();
    automation::Object calls();
    automation::Object statuses();
    automation::Object filters();
    automation::Object displayed();
    automation::Object opened();
    /// Lets go of what was kept for whoever watches: the statuses, the filters and the items that were shown.
    void forget();
    automation::Value live(const std::optional<automation::Text>& kind);
    automation::Value option(const automation::Text& option_name) const;
    void option(const automation::Text& option_name, const automation::Value& value);
    void select(const std::vector<automation::Value>& items);
    void drag(const automation::Value& folder, bool copies);
    void press(const automation::Object& control);
    automation::Object context_menu();
    automation::Object window(const automation::Text& caption);
    /// Makes copies of an item, each with a number of its own, "001" and so on, behind the text of one field.
    void copies(const automation::Object& original, std::int32_t count, const automation::Text& field);
    void meanwhile(const automation::Text& moment, const automation::Object& object,
                   const automation::Text& member, const std::optional<automation::Value>& value);

  private:
    Explorer& active_explorer();
};

/// Has the desk's application offer the surface.
void offer_surface(Desk& desk);

}  // namespace desk
