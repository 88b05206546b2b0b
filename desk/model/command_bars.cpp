#include "desk/model/command_bars.h"

#include <algorithm>

#include "desk/model/application.h"
#include "desk/model/desk.h"
#include "desk/model/host_event_tables.h"

namespace desk {

using host::Arguments;
using host::Failure;
using host::Object;
using host::Takes;
using host::Text;
using host::Use;
using host::Value;
namespace result = host::result;

namespace {

constexpr std::int32_t button_type = 1;
constexpr std::int32_t custom_id = 1;

/// A plain member of a control or bar, read and written as long as the object is there.
template <class T, auto member>
Value kept(T& self, const Arguments& arguments) {
    self.check_there();
    auto& value = self.*member;
    if (arguments.is_put()) {
        using Kind = std::remove_reference_t<decltype(value)>;
        if constexpr (std::is_same_v<Kind, bool>) {
            value = arguments.assigned().to_boolean();
        } else if constexpr (std::is_same_v<Kind, std::int32_t>) {
            value = arguments.assigned().to_integer();
        } else {
            value = arguments.assigned().to_text();
        }
        self.desk().surroundings().changed();
    }
    return value;
}

template <auto member>
constexpr auto control_value = kept<CommandBarControl, member>;
template <auto member>
constexpr auto bar_value = kept<CommandBar, member>;

bool fits(const CommandBarControl& control, const Value& type, const Value& id, const Value& tag,
          const Value& visible) {
    if (!type.is_missing() && control.type != type.to_integer()) return false;
    if (!id.is_missing() && control.id != id.to_integer()) return false;
    if (!tag.is_missing() && control.tag != tag.to_text()) return false;
    return visible.is_missing() || !visible.to_boolean() || control.visible;
}

template <class Elements, class Name>
Object named_or_numbered(const Elements& all, const Value& index, Name name_of, const Text& what) {
    if (index.is(Value::Type::text)) {
        const Text wanted = index.to_text();
        for (const auto& one : all) {
            if (host::same_ignoring_case(name_of(*one), wanted)) return one->self();
        }
        throw Failure(result::invalid_argument, u"There is no " + what + u" \"" + wanted + u"\".");
    }
    const std::int32_t place = index.to_integer();
    if (place < 1 || static_cast<std::size_t>(place) > all.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return all[static_cast<std::size_t>(place - 1)]->self();
}

}  // namespace

Object CommandBarControl::parent() const {
    const auto bar = bar_.lock();
    return bar ? bar->self() : Object();
}

EventInterfaces CommandBarControl::event_interfaces() const { return events::button; }

void CommandBarControl::check_there() const {
    if (deleted) throw Failure(result::object_deleted, u"The control was deleted.");
}

void CommandBarControl::remove() {
    check_there();
    deleted = true;
    if (const auto bar = bar_.lock()) {
        std::erase_if(bar->controls, [&](const auto& control) { return control.get() == this; });
    }
    desk().surroundings().changed();
}

void CommandBarControl::press() {
    check_there();
    if (!enabled) return;
    std::vector<Value> arguments{Value(self()), false};
    subscriptions().raise(u"Click", arguments);
}

const host::Members<CommandBarControl>& CommandBarControl::members() {
    using Self = CommandBarControl;
    static const host::Members<Self> table{
        {u"Caption", 0x60040003, Use::get_put, control_value<&Self::caption>},
        {u"Tag", 0x60040023, Use::get_put, control_value<&Self::tag>},
        {u"OnAction", 0x6004001A, Use::get_put, control_value<&Self::on_action>},
        {u"Parameter", 0x6004001D, Use::get_put, control_value<&Self::parameter>},
        {u"TooltipText", 0x60040025, Use::get_put, control_value<&Self::tool_tip>},
        {u"DescriptionText", 0x60040008, Use::get_put, control_value<&Self::description>},
        {u"ShortcutText", 0x60050006, Use::get_put, control_value<&Self::shortcut>},
        {u"Style", 0x6005000A, Use::get_put, control_value<&Self::style>},
        {u"FaceId", 0x60050003, Use::get_put, control_value<&Self::face_id>},
        {u"State", 0x60050008, Use::get_put, control_value<&Self::state>},
        {u"Priority", 0x6004001F, Use::get_put, control_value<&Self::priority>},
        {u"Visible", 0x60040029, Use::get_put, control_value<&Self::visible>},
        {u"Enabled", 0x6004000A, Use::get_put, control_value<&Self::enabled>},
        {u"BeginGroup", 0x60040000, Use::get_put, control_value<&Self::begin_group>},
        {u"Id", 0x60040013, Use::get, [](Self& self, const Arguments&) { return Value(self.id); }},
        {u"Type", 0x60040028, Use::get, [](Self& self, const Arguments&) { return Value(self.type); }},
        {u"BuiltIn", 0x60040002, Use::get,
         [](Self& self, const Arguments&) { return Value(self.id != custom_id); }},
        {u"Delete",
         0x60040007,
         Use::method,
         {{u"Temporary", Takes::value, true}},
         [](Self& self, const Arguments&) {
             self.remove();
             return Value();
         }},
        {u"Execute", 0x6004000C, Use::method,
         [](Self& self, const Arguments&) {
             self.press();
             return Value();
         }},
        {u"Reset", 0x60040021, Use::method,
         [](Self& self, const Arguments&) {
             self.check_there();
             return Value();
         }},
        {u"SetFocus", 0x60040022, Use::method, [](Self&, const Arguments&) { return Value(); }},
    };
    return table;
}

Object CommandBar::parent() const {
    const auto owner = owner_.lock();
    return owner ? owner->self() : Object();
}

void CommandBar::check_there() const {
    if (deleted) throw Failure(result::object_deleted, u"The command bar was deleted.");
}

void CommandBar::remove() {
    check_there();
    if (built_in) throw Failure(result::fail, u"A built-in command bar can't be deleted.");
    deleted = true;
    for (const auto& control : controls) control->deleted = true;
    if (const auto owner = owner_.lock()) {
        std::erase_if(owner->all, [&](const auto& bar) { return bar.get() == this; });
    }
    desk().surroundings().changed();
}

Object CommandBar::find(const Value& type, const Value& id, const Value& tag, const Value& visible) const {
    check_there();
    const auto found = std::ranges::find_if(
        controls, [&](const auto& control) { return fits(*control, type, id, tag, visible); });
    return found == controls.end() ? Object() : (*found)->self();
}

Object CommandBar::add(std::int32_t type, const Value& parameter, const Value& before, bool is_temporary) {
    check_there();
    constexpr std::int32_t no_customize = 1;
    if (protection & no_customize) {
        throw Failure(result::fail, u"The command bar \"" + bar_name + u"\" is protected.");
    }
    auto control = std::make_shared<CommandBarControl>(
        desk(), std::static_pointer_cast<CommandBar>(shared_from_this()), type, is_temporary);
    if (!parameter.is_missing()) control->parameter = parameter.to_text();
    std::size_t place = controls.size();
    if (!before.is_missing()) {
        const std::int32_t wanted = before.to_integer();
        if (wanted < 1 || static_cast<std::size_t>(wanted) > controls.size() + 1) {
            throw Failure(result::bad_index, u"Array index out of bounds.");
        }
        place = static_cast<std::size_t>(wanted - 1);
    }
    controls.insert(controls.begin() + static_cast<std::ptrdiff_t>(place), control);
    desk().surroundings().changed();
    return control->self();
}

const host::Members<CommandBar>& CommandBar::members() {
    using Self = CommandBar;
    static const host::Members<Self> table{
        {u"Name", 0x6004000E, Use::get, [](Self& self, const Arguments&) { return Value(self.bar_name); }},
        {u"NameLocal", 0x60040010, Use::get,
         [](Self& self, const Arguments&) { return Value(self.bar_name); }},
        {u"BuiltIn", 0x60040000, Use::get, [](Self& self, const Arguments&) { return Value(self.built_in); }},
        {u"Controls", 0x60040003, Use::get,
         [](Self& self, const Arguments&) {
             self.check_there();
             return Value(std::make_shared<CommandBarControls>(self.desk(), self.shared_from_this())->self());
         }},
        {u"Visible", 0x6004001E, Use::get_put, bar_value<&Self::visible>},
        {u"Enabled", 0x60040005, Use::get_put, bar_value<&Self::enabled>},
        {u"Position", 0x60040013, Use::get_put, bar_value<&Self::position>},
        {u"RowIndex", 0x60040015, Use::get_put, bar_value<&Self::row_index>},
        {u"Protection", 0x60040017, Use::get_put, bar_value<&Self::protection>},
        {u"Left", 0x6004000C, Use::get_put, bar_value<&Self::left>},
        {u"Top", 0x6004001B, Use::get_put, bar_value<&Self::top>},
        {u"Width", 0x60040020, Use::get_put, bar_value<&Self::width>},
        {u"Height", 0x60040008, Use::get_put, bar_value<&Self::height>},
        {u"Type", 0x6004001D, Use::get, [](Self& self, const Arguments&) { return Value(self.bar_type); }},
        {u"FindControl",
         0x60040007,
         Use::method,
         {{u"Type", Takes::value, true},
          {u"Id", Takes::value, true},
          {u"Tag", Takes::value, true},
          {u"Visible", Takes::value, true},
          {u"Recursive", Takes::value, true}},
         [](Self& self, const Arguments& a) { return Value(self.find(a[0], a[1], a[2], a[3])); }},
        {u"Delete", 0x60040004, Use::method,
         [](Self& self, const Arguments&) {
             self.remove();
             return Value();
         }},
        {u"Reset", 0x60040019, Use::method,
         [](Self& self, const Arguments&) {
             self.check_there();
             return Value();
         }},
    };
    return table;
}

Object CommandBarControls::at(const Value& index) const {
    bar_->check_there();
    return named_or_numbered(
        bar_->controls, index, [](const auto& control) { return control.caption; }, u"control");
}

const host::Members<CommandBarControls>& CommandBarControls::members() {
    using Self = CommandBarControls;
    static const host::Members<Self> table{
        {u"Count", 0x60030001, Use::get,
         [](Self& self, const Arguments&) {
             return Value(static_cast<std::int32_t>(self.bar().controls.size()));
         }},
        {u"Item",
         0x0,
         Use::get,
         {{u"Index"}},
         [](Self& self, const Arguments& a) { return Value(self.at(a[0])); }},
        {u"Add",
         0x60030000,
         Use::method,
         {{u"Type", Takes::integer, true},
          {u"Id", Takes::value, true},
          {u"Parameter", Takes::value, true},
          {u"Before", Takes::value, true},
          {u"Temporary", Takes::boolean, true}},
         [](Self& self, const Arguments& a) {
             return Value(self.bar().add(a.has(0) ? a[0].to_integer() : button_type, a[2], a[3],
                                         a.has(4) && a[4].to_boolean()));
         }},
    };
    return table;
}

std::shared_ptr<CommandBars> CommandBars::with_own_bars(Desk& desk,
                                                        std::initializer_list<host::TextView> names) {
    auto bars = std::make_shared<CommandBars>(desk);
    for (const host::TextView bar_name : names) {
        bars->all.push_back(std::make_shared<CommandBar>(desk, bars, Text(bar_name), true));
    }
    return bars;
}

std::shared_ptr<CommandBars> CommandBars::of_explorer(Desk& desk) {
    return with_own_bars(desk, {u"Menu Bar", u"Standard", u"Context Menu"});
}

std::shared_ptr<CommandBars> CommandBars::of_inspector(Desk& desk) {
    return with_own_bars(desk, {u"Menu Bar", u"Standard"});
}

Object CommandBars::parent() const { return desk().application()->self(); }

EventInterfaces CommandBars::event_interfaces() const { return events::command_bars; }

Object CommandBars::at(const Value& index) const {
    return named_or_numbered(
        all, index, [](const auto& bar) { return bar.bar_name; }, u"command bar");
}

Object CommandBars::add(const Value& bar_name, const Value& position, bool menu_bar, bool temporary) {
    const Text wanted = bar_name.is_missing()
                            ? u"Custom " + host::to_text(static_cast<long long>(all.size()) + 1)
                            : bar_name.to_text();
    for (const auto& bar : all) {
        if (host::same_ignoring_case(bar->bar_name, wanted)) {
            throw Failure(result::invalid_argument, u"A command bar \"" + wanted + u"\" exists already.");
        }
    }
    auto bar = std::make_shared<CommandBar>(desk(), shared_from_this(), wanted, false);
    if (!position.is_missing()) bar->position = position.to_integer();
    bar->bar_type = menu_bar ? 1 : 0;
    bar->temporary = temporary;
    bar->visible = false;  // a new bar is hidden until it is shown
    all.push_back(bar);
    desk().surroundings().changed();
    return bar->self();
}

Object CommandBars::find(const Value& type, const Value& id, const Value& tag, const Value& visible) const {
    for (const auto& bar : all) {
        if (Object found = bar->find(type, id, tag, visible)) return found;
    }
    return {};
}

const host::Members<CommandBars>& CommandBars::members() {
    using Self = CommandBars;
    static const host::Members<Self> table{
        {u"Count", 0x60030003, Use::get,
         [](Self& self, const Arguments&) { return Value(static_cast<std::int32_t>(self.all.size())); }},
        {u"Item",
         0x0,
         Use::get,
         {{u"Index"}},
         [](Self& self, const Arguments& a) { return Value(self.at(a[0])); }},
        {u"Add",
         0x60030002,
         Use::method,
         {{u"Name", Takes::value, true},
          {u"Position", Takes::value, true},
          {u"MenuBar", Takes::value, true},
          {u"Temporary", Takes::value, true}},
         [](Self& self, const Arguments& a) {
             return Value(self.add(a[0], a[1], a.has(2) && a[2].to_boolean(), a.has(3) && a[3].to_boolean()));
         }},
        {u"FindControl",
         0x60030008,
         Use::method,
         {{u"Type", Takes::value, true},
          {u"Id", Takes::value, true},
          {u"Tag", Takes::value, true},
          {u"Visible", Takes::value, true}},
         [](Self& self, const Arguments& a) { return Value(self.find(a[0], a[1], a[2], a[3])); }},
    };
    return table;
}

}  // namespace desk
