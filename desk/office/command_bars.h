// Command bars: those of a window, the host's own among them.
#pragma once

#include "desk/office/command_bar_control.h"

namespace desk {

class CommandBars;

/// What `FindControl` is asked for; what is left out fits everything.
struct ControlWish {
    automation::Value type, id, tag, visible;
};

class CommandBar : public ModelObject<CommandBar> {
  public:
    static constexpr std::string_view name = "CommandBar";
    static constexpr automation::TextView default_name = u"Name";

    enum Kind : std::int32_t { normal = 0, menu_bar = 1, popup = 2 };                       // MsoBarType
    static constexpr std::int32_t top_position = 1, popup_position = 5, last_position = 6;  // MsoBarPosition
    static constexpr std::int32_t no_customize = 1;  ///< a bit of the protection: no control comes or goes

    CommandBar(Desk& desk, std::weak_ptr<CommandBars> owner, automation::Text bar_name, bool built_in)
        : ModelObject(desk), bar_name(std::move(bar_name)), built_in(built_in), owner_(std::move(owner)) {}
    static const automation::Members<CommandBar>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;
    /// Fails with `result::object_deleted` for a bar that was deleted.
    automation::Value invoke(automation::Request& request) override;

    void check_there() const;
    void check_may_change() const;                            ///< throws `result::fail` for a protected bar
    void check_place(const automation::Value& before) const;  ///< throws `result::bad_index`
    void remove();                                            ///< refused for a bar that is the host's own
    void end();                                               ///< it is gone, and its controls with it
    void
    end_window();  ///< its window has closed: of the host's own bars what isn't temporary can still be read
    std::shared_ptr<CommandBarControl> find(const ControlWish& wish) const;
    std::shared_ptr<CommandBarControl> add(const automation::Value& type, const automation::Value& id,
                                           const automation::Value& parameter,
                                           const automation::Value& before, bool temporary);
    std::shared_ptr<CommandBarControl> add_own(std::int32_t id, automation::TextView caption,
                                               std::function<void()> action);
    void insert(std::shared_ptr<CommandBarControl> control, const automation::Value& before);
    std::shared_ptr<CommandBars> owner() const { return owner_.lock(); }
    std::int32_t index() const;  ///< its place among the window's bars, from 1
    void kept_changed();

    automation::Text bar_name;
    bool built_in;
    bool temporary = false;
    bool visible = true, enabled = true, adaptive_menu = true;
    std::int32_t position = top_position, row_index = 0, protection = 0, bar_type = normal, id = 1;
    std::int32_t left = 0, top = 0, width = 200, height = 26;
    automation::Text context;
    std::vector<std::shared_ptr<CommandBarControl>> controls;

  private:
    std::weak_ptr<CommandBars> owner_;
    bool deleted_ = false;
};

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
    std::shared_ptr<CommandBar> add(const automation::Value& bar_name, const automation::Value& position,
                                    bool is_menu_bar, bool temporary);
    std::shared_ptr<CommandBarControl> find(const ControlWish& wish) const;
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
