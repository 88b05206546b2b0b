// Command bars: those of a window, the host's own among them.
#pragma once

#include "desk/office/command_bar.h"

namespace desk {

class CommandBars : public ModelObject<CommandBars> {
  public:
    static constexpr std::string_view name = "CommandBars";
    static constexpr automation::TextView default_name = u"Item";
    static constexpr automation::TextView menu_bar = u"Menu Bar", standard = u"Standard",
                                          context_menu = u"Context Menu";

    using ModelObject::ModelObject;
    static std::shared_ptr<CommandBars> with_own_bars(Desk& desk,
                                                      std::initializer_list<automation::TextView> names);
    static const automation::Members<CommandBars>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    std::vector<std::shared_ptr<CommandBar>> all;
    std::vector<std::shared_ptr<CommandBarControl>>
        pressed;  ///< whose clicks are being told, the last one last
    bool adaptive_menus = true, display_tool_tips = true, display_keys = false, large_buttons = false;

    /// By number from 1, or by name; fails for one that isn't there.
    std::shared_ptr<CommandBar> at(const automation::Value& index) const;
    std::shared_ptr<CommandBar> named(automation::TextView bar_name) const {
        return at(automation::Value(bar_name));
    }
    std::shared_ptr<CommandBar> add(const std::optional<automation::Value>& bar_name,
                                    const std::optional<automation::Value>& position, bool is_menu_bar,
                                    bool temporary);
    std::shared_ptr<CommandBarControl> find(const ControlWish& wish) const;
    automation::Object find_all(const ControlWish& wish);  ///< Nothing if there is no such control
    void
    end();  ///< the window is closed: custom bars and temporary controls are gone, nobody is told of anything

    /// Bars or what they are about have changed: `OnUpdate` comes at the next turn of the message loop, once
    /// for all changes until then. What its listeners change themselves makes no other one.
    void update_soon();
    void update_now();  ///< `OnUpdate` at once
    void kept_changed();

    /// Grows with each change, so that windows know whether to look.
    std::int64_t version() const { return version_; }

  private:
    std::int64_t version_ = 0;
    bool update_waits_ = false, updating_ = false, ended_ = false;
};

}  // namespace desk
