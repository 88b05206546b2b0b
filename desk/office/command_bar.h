// A command bar with its controls.
#pragma once

#include "desk/office/command_bar_control.h"

namespace desk {

class CommandBars;

/// What `FindControl` is asked for; what is left out fits everything.
struct ControlWish {
    std::optional<automation::Value> type{}, id{}, tag{}, visible{};
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
    void check_may_change() const;  ///< throws `result::fail` for a protected bar
    /// Throws for a protected bar; for a popup, unless this is a menu bar or a popup's menu that it does not
    /// hold itself.
    void check_may_take(const CommandBarControl& control) const;
    void check_place(const std::optional<automation::Value>& before) const;  ///< throws `result::bad_index`
    void remove();  ///< refused for a bar that is the host's own, and for a popup's menu
    void end();     ///< it is gone, and its controls with it
    void
    end_window();  ///< its window has closed: of the host's own bars what isn't temporary can still be read
    /// The first control that fits; in its popups' menus as well, if that is wanted.
    std::shared_ptr<CommandBarControl> find(const ControlWish& wish, bool in_menus = false) const;
    /// All that fit, in the popups' menus as well.
    std::vector<std::shared_ptr<CommandBarControl>> find_all(const ControlWish& wish) const;
    std::shared_ptr<CommandBarControl> add(const std::optional<automation::Value>& type,
                                           const std::optional<automation::Value>& id,
                                           const std::optional<automation::Value>& parameter,
                                           const std::optional<automation::Value>& before, bool temporary);
    std::shared_ptr<CommandBarControl> add_own(std::int32_t id, automation::TextView caption,
                                               std::function<void()> action);
    void insert(std::shared_ptr<CommandBarControl> control, const std::optional<automation::Value>& before);
    std::shared_ptr<CommandBars> owner() const { return owner_.lock(); }
    std::int32_t index() const;  ///< its place among the window's bars, from 1; 0 for a popup's menu
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

/// A control as it is answered; Nothing for none.
inline automation::Value answer_of(const std::shared_ptr<CommandBarControl>& control) {
    return control ? automation::Value(control->self()) : automation::Value(automation::Object());
}

}  // namespace desk
