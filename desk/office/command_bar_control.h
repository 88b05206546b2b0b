// The controls of command bars. Bars take buttons, menu bars popups as well; other kinds of controls are
// refused.
#pragma once

#include <functional>

#include "desk/base/base.h"

namespace desk {

class CommandBar;

/// One control of a bar. All its values are kept; a click reaches those who listen.
class CommandBarControl : public ModelObject<CommandBarControl> {
  public:
    static constexpr std::string_view name = "CommandBarButton";
    static constexpr automation::TextView default_name = u"Caption";

    static constexpr std::int32_t button_type = 1, popup_type = 10;  // MsoControlType
    static constexpr std::int32_t custom_id = 1;  ///< of all controls that are not built in

    CommandBarControl(Desk& desk, std::weak_ptr<CommandBar> bar, bool temporary)
        : ModelObject(desk), temporary(temporary), bar_(std::move(bar)) {}
    static const automation::Members<CommandBarControl>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;
    EventInterfaces event_interfaces() const override;
    /// Fails with `result::object_deleted` for a control that was deleted.
    automation::Value invoke(automation::Request& request) override;

    /// Makes the new control a popup: it opens a menu, which it owns.
    void become_popup();
    bool holds(const CommandBar& bar) const;  ///< whether the bar is the popup's menu, or one in it

    void remove();
    void end();         ///< it goes with its bar
    void end_window();  ///< its window has closed: it does nothing any more
    void move_to(CommandBar& bar, const std::optional<automation::Value>& before);
    std::shared_ptr<CommandBarControl> copy_to(CommandBar& bar,
                                               const std::optional<automation::Value>& before) const;

    /// As a click on it: nothing for one that is disabled or hidden, and for a popup. Answers whether a
    /// listener cancelled what the control does by itself; what a custom one names as its action is text and
    /// nothing more here.
    bool press();

    std::shared_ptr<CommandBar> bar() const { return bar_.lock(); }
    std::int32_t index() const;  ///< its place in the bar, from 1
    bool is_built_in() const { return id != custom_id; }
    bool is_there() const { return !deleted_; }
    void kept_changed();

    std::int32_t type = button_type;
    bool temporary;
    std::int32_t id = custom_id;
    automation::Text caption, tag, on_action, parameter, tool_tip, description, shortcut, help_file;
    std::int32_t style = 0, face_id = 0, priority = 3, state = 0, help_context = 0, ole_usage = 1;
    std::int32_t width = 24, height = 22;
    bool visible = true, enabled = true, begin_group = false, is_priority_dropped = false;
    std::function<void()> action;      ///< what a built-in one does by itself
    std::shared_ptr<CommandBar> menu;  ///< of a popup; null for a button

  private:
    std::weak_ptr<CommandBar> bar_;
    bool deleted_ = false;
};

/// The control of a list that a number from 1 or a caption names. Throws if there is none.
automation::Object control_at(const std::vector<std::shared_ptr<CommandBarControl>>& controls,
                              const automation::Value& index);

class CommandBarControls : public ModelObject<CommandBarControls> {
  public:
    static constexpr std::string_view name = "CommandBarControls";
    static constexpr automation::TextView default_name = u"Item";

    CommandBarControls(Desk& desk, std::shared_ptr<CommandBar> bar)
        : ModelObject(desk), bar_(std::move(bar)) {}
    static const automation::Members<CommandBarControls>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;
    automation::Value invoke(automation::Request& request) override;

    CommandBar& bar() const { return *bar_; }

  private:
    std::shared_ptr<CommandBar> bar_;
};

}  // namespace desk
