#include "desk/office/command_bar_control.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/base/host_event_tables.h"
#include "desk/base/kept.h"
#include "desk/office/command_bars.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Ignored;
using automation::Object;
using automation::Use;
using automation::Value;
namespace result = automation::result;

Object CommandBarControl::parent() const {
    const auto owner = bar();
    return owner ? owner->self() : Object();
}

EventInterfaces CommandBarControl::event_interfaces() const { return events::button; }

Value CommandBarControl::invoke(automation::Request& request) {
    if (deleted_) throw Failure(result::object_deleted, u"The control was deleted.");
    return ModelObject::invoke(request);
}

void CommandBarControl::kept_changed() {
    if (const auto owner = bar()) owner->kept_changed();
}

std::int32_t CommandBarControl::index() const {
    const auto owner = bar();
    if (!owner) return 0;
    const auto own = std::ranges::find(owner->controls, this, &std::shared_ptr<CommandBarControl>::get);
    return static_cast<std::int32_t>(own - owner->controls.begin()) + 1;
}

void CommandBarControl::become_popup() {
    type = popup_type;
    const auto owner = bar();
    menu = std::make_shared<CommandBar>(desk(), owner ? owner->owner() : nullptr, u"Custom Popup", false);
    menu->bar_type = CommandBar::popup;
    menu->position = CommandBar::popup_position;
    menu->visible = false;  // a menu is seen only while it is open
}

bool CommandBarControl::holds(const CommandBar& target) const {
    return menu && (menu.get() == &target || std::ranges::any_of(menu->controls, [&](const auto& each) {
                        return each->holds(target);
                    }));
}

void CommandBarControl::end() {
    deleted_ = true;
    end_window();
    if (menu) menu->end();
}

void CommandBarControl::end_window() {
    action = nullptr;
    subscriptions().clear();
    if (!menu) return;
    for (const auto& entry : menu->controls) entry->end_window();
}

void CommandBarControl::remove() {
    const auto alive = shared_from_this();
    if (const auto owner = bar()) {
        std::erase(owner->controls, alive);
        owner->kept_changed();
    }
    end();
}

void CommandBarControl::move_to(CommandBar& target, const std::optional<Value>& before) {
    const auto alive = shared_from_this();
    target.check_may_take(*this);
    target.check_place(before);
    if (const auto owner = bar()) {
        std::erase(owner->controls, alive);
        owner->kept_changed();
    }
    target.insert(alive, before);
    bar_ = target.weak_from_this();
}

std::shared_ptr<CommandBarControl> CommandBarControl::copy_to(CommandBar& target,
                                                              const std::optional<Value>& before) const {
    auto twin = std::make_shared<CommandBarControl>(desk(), target.weak_from_this(), temporary);
    twin->id = id;
    twin->caption = caption;
    twin->tag = tag;
    twin->on_action = on_action;
    twin->parameter = parameter;
    twin->tool_tip = tool_tip;
    twin->description = description;
    twin->shortcut = shortcut;
    twin->style = style;
    twin->face_id = face_id;
    twin->priority = priority;
    twin->visible = visible;
    twin->enabled = enabled;
    twin->begin_group = begin_group;
    twin->action = action;
    target.check_may_take(*this);
    target.check_place(before);
    if (menu) {
        twin->become_popup();
        for (const auto& entry : menu->controls) entry->copy_to(*twin->menu, std::nullopt);
    }
    target.insert(twin, before);
    return twin;
}

bool CommandBarControl::press() {
    if (deleted_) throw Failure(result::object_deleted, u"The control was deleted.");
    if (!enabled || !visible || menu) return false;
    const auto alive = shared_from_this();
    const auto own_bar = bar();
    const auto bars = own_bar ? own_bar->owner() : nullptr;
    if (bars) bars->pressed.push_back(alive);
    std::vector<Value> arguments{Value(self()), false};
    raise_with_answer(u"Click", arguments);
    if (bars) bars->pressed.pop_back();
    const bool cancelled = arguments[1].to_boolean();
    if (!cancelled && action) {
        const std::function<void()> own_action = action;  // it may end the control
        own_action();
    }
    return cancelled;
}

namespace {

/// What a popup alone has.
CommandBar& menu_of(const CommandBarControl& control) {
    if (!control.menu) throw Failure(result::member_not_found, u"Only a popup has a menu.");
    return *control.menu;
}

/// The bar that `Copy` and `Move` lead to: the one given, or the control's own.
CommandBar& target_of(const CommandBarControl& control, const std::optional<Value>& given) {
    if (!given) {
        const auto own = control.bar();
        if (own) return *own;
    } else if (const auto bar = std::dynamic_pointer_cast<CommandBar>(given->to_object().target())) {
        return *bar;
    }
    throw Failure(result::type_mismatch, u"A command bar is expected.");
}

}  // namespace

const automation::Members<CommandBarControl>& CommandBarControl::members() {
    using Self = CommandBarControl;
    static const automation::Members<Self> table{
        {u"Caption", 0x60040003, kept<&Self::caption>},
        {u"Tag", 0x60040023, kept<&Self::tag>},
        {u"OnAction", 0x6004001A, kept<&Self::on_action>},
        {u"Parameter", 0x6004001D, kept<&Self::parameter>},
        {u"TooltipText", 0x60040025, kept<&Self::tool_tip>},
        {u"DescriptionText", 0x60040008, kept<&Self::description>},
        {u"ShortcutText", 0x60050006, kept<&Self::shortcut>},
        {u"HelpFile", 0x60040011, kept<&Self::help_file>},
        {u"HelpContextId", 0x6004000F, kept<&Self::help_context>},
        {u"OLEUsage", 0x60040018, kept<&Self::ole_usage>},
        {u"Style", 0x6005000A, kept<&Self::style>},
        {u"FaceId", 0x60050003, kept<&Self::face_id>},
        {u"State", 0x60050008, kept<&Self::state>},
        {u"Priority", 0x6004001F, kept<&Self::priority>},
        {u"Width", 0x6004002B, kept<&Self::width>},
        {u"Height", 0x6004000D, kept<&Self::height>},
        {u"Visible", 0x60040029, kept<&Self::visible>},
        {u"Enabled", 0x6004000A, kept<&Self::enabled>},
        {u"BeginGroup", 0x60040000, kept<&Self::begin_group>},
        {u"IsPriorityDropped", 0x6004002D, Use::get, shown<&Self::is_priority_dropped>},
        {u"CommandBar", 0x60050000, Use::get, [](Self& self) { return menu_of(self).self(); }},
        {u"Controls", 0x60050001, Use::get,
         [](Self& self) {
             menu_of(self);
             return std::make_shared<CommandBarControls>(self.desk(), self.menu)->self();
         }},
        {u"Id", 0x60040013, Use::get, shown<&Self::id>},
        {u"Type", 0x60040028, Use::get, shown<&Self::type>},
        {u"Index", 0x60040014, Use::get, calls<&Self::index>},
        {u"BuiltIn", 0x60040002, Use::get, calls<&Self::is_built_in>},
        {u"Delete", 0x60040007, Use::method, {u"Temporary"}, [](Self& self, Ignored) { self.remove(); }},
        {u"Execute", 0x6004000C, Use::method, [](Self& self) { self.press(); }},
        {u"Copy",
         0x60040006,
         Use::method,
         {u"Bar", u"Before"},
         [](Self& self, const std::optional<Value>& bar, const std::optional<Value>& before) {
             return self.copy_to(target_of(self, bar), before)->self();
         }},
        {u"Move",
         0x60040016,
         Use::method,
         {u"Bar", u"Before"},
         [](Self& self, const std::optional<Value>& bar, const std::optional<Value>& before) {
             self.move_to(target_of(self, bar), before);
             return self.self();
         }},
        {u"Reset", 0x60040021, Use::method, [](Self&) {}},
        {u"SetFocus", 0x60040022, Use::method, [](Self&) {}},
    };
    return table;
}

Object control_at(const std::vector<std::shared_ptr<CommandBarControl>>& controls, const Value& index) {
    return named_or_numbered(
               controls, index, [](const CommandBarControl& control) { return control.caption; }, u"control")
        ->self();
}

Object CommandBarControls::parent() const { return bar_->self(); }

Value CommandBarControls::invoke(automation::Request& request) {
    bar_->check_there();
    return ModelObject::invoke(request);
}

const automation::Members<CommandBarControls>& CommandBarControls::members() {
    using Self = CommandBarControls;
    static const automation::Members<Self> table{
        {u"Count", 0x60030001, Use::get, [](Self& self) { return self.bar().controls.size(); }},
        {u"Item",
         0x0,
         Use::get,
         {u"Index"},
         [](Self& self, const Value& index) { return control_at(self.bar().controls, index); }},
        {u"Add",
         0x60030000,
         Use::method,
         {u"Type", u"Id", u"Parameter", u"Before", u"Temporary"},
         [](Self& self, const std::optional<Value>& type, const std::optional<Value>& id,
            const std::optional<Value>& parameter, const std::optional<Value>& before,
            std::optional<bool> temporary) {
             return self.bar().add(type, id, parameter, before, temporary.value_or(false))->self();
         }},
    };
    return table;
}

}  // namespace desk
