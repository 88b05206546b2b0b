// Command bars: those of a window, the host's own among them, and their controls.
#pragma once

#include "desk/model/base.h"

namespace desk {

class CommandBar;
class CommandBars;

/// One control of a bar. All its values are kept; a click reaches those who listen.
class CommandBarControl : public ModelObject<CommandBarControl> {
  public:
    static constexpr std::string_view name = "CommandBarButton";
    static constexpr host::TextView default_name = u"Caption";

    CommandBarControl(Desk& desk, std::weak_ptr<CommandBar> bar, std::int32_t type, bool temporary)
        : ModelObject(desk), type(type), temporary(temporary), bar_(std::move(bar)) {}
    static const host::Members<CommandBarControl>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    /// Throws `result::object_deleted` for a control that was deleted.
    void check_there() const;
    void remove();
    void press();  ///< as a click on it

    std::int32_t type;
    bool temporary;
    bool deleted = false;
    std::int32_t id = 1;  ///< 1 for all controls that are not built in
    host::Text caption, tag, on_action, parameter, tool_tip, description, shortcut;
    std::int32_t style = 0, face_id = 0, priority = 3, state = 0;
    bool visible = true, enabled = true, begin_group = false;

  private:
    std::weak_ptr<CommandBar> bar_;
};

class CommandBar : public ModelObject<CommandBar> {
  public:
    static constexpr std::string_view name = "CommandBar";
    static constexpr host::TextView default_name = u"Name";

    CommandBar(Desk& desk, std::weak_ptr<CommandBars> owner, host::Text bar_name, bool built_in)
        : ModelObject(desk), bar_name(std::move(bar_name)), built_in(built_in), owner_(std::move(owner)) {}
    static const host::Members<CommandBar>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override;

    void check_there() const;
    void remove();  ///< refused for a bar that is the host's own
    host::Object find(const host::Value& type, const host::Value& id, const host::Value& tag,
                      const host::Value& visible) const;
    host::Object add(std::int32_t type, const host::Value& parameter, const host::Value& before,
                     bool temporary);

    host::Text bar_name;
    bool built_in;
    bool temporary = false;
    bool deleted = false;
    bool visible = true, enabled = true;
    std::int32_t position = 1, row_index = 0, protection = 0, bar_type = 0;
    std::int32_t left = 0, top = 0, width = 200, height = 26;
    std::vector<std::shared_ptr<CommandBarControl>> controls;

  private:
    std::weak_ptr<CommandBars> owner_;
};

class CommandBarControls : public ModelObject<CommandBarControls> {
  public:
    static constexpr std::string_view name = "CommandBarControls";
    static constexpr host::TextView default_name = u"Item";

    CommandBarControls(Desk& desk, std::shared_ptr<CommandBar> bar)
        : ModelObject(desk), bar_(std::move(bar)) {}
    static const host::Members<CommandBarControls>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override { return bar_->self(); }

    CommandBar& bar() const { return *bar_; }
    host::Object at(const host::Value& index) const;  ///< by number from 1, or by caption

  private:
    std::shared_ptr<CommandBar> bar_;
};

class CommandBars : public ModelObject<CommandBars> {
  public:
    static constexpr std::string_view name = "CommandBars";
    static constexpr host::TextView default_name = u"Item";

    using ModelObject::ModelObject;
    static std::shared_ptr<CommandBars> of_explorer(Desk& desk);
    static std::shared_ptr<CommandBars> of_inspector(Desk& desk);
    static const host::Members<CommandBars>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override;
    EventInterfaces event_interfaces() const override;

    std::vector<std::shared_ptr<CommandBar>> all;
    host::Object at(
        const host::Value& index) const;  ///< by number from 1, or by name; fails for one that isn't there
    host::Object add(const host::Value& bar_name, const host::Value& position, bool menu_bar, bool temporary);
    host::Object find(const host::Value& type, const host::Value& id, const host::Value& tag,
                      const host::Value& visible) const;

  private:
    static std::shared_ptr<CommandBars> with_own_bars(Desk& desk,
                                                      std::initializer_list<host::TextView> names);
};

}  // namespace desk
