#include "desk/office/command_bars.h"

#include "desk/base/desk.h"
#include "desk/base/host_event_tables.h"
#include "desk/base/kept.h"
#include "desk/office/found_controls.h"

namespace desk {

using automation::Failure;
using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;
namespace result = automation::result;

std::shared_ptr<CommandBars> CommandBars::with_own_bars(Desk& desk, std::initializer_list<TextView> names) {
    auto bars = std::make_shared<CommandBars>(desk);
    for (const TextView bar_name : names) {
        auto bar = std::make_shared<CommandBar>(desk, bars, Text(bar_name), true);
        if (bar_name == menu_bar) bar->bar_type = CommandBar::menu_bar;
        if (bar_name == context_menu) {
            bar->bar_type = CommandBar::popup;
            bar->position = CommandBar::popup_position;
            bar->visible = false;  // a menu is seen only while it is open
        }
        bars->all.push_back(std::move(bar));
    }
    return bars;
}

Object CommandBars::parent() const { return desk().application_object(); }

EventInterfaces CommandBars::event_interfaces() const { return events::command_bars; }

std::shared_ptr<CommandBar> CommandBars::at(const Value& index) const {
    return named_or_numbered(
        all, index, [](const auto& bar) { return bar.bar_name; }, u"command bar");
}

std::shared_ptr<CommandBar> CommandBars::add(const std::optional<Value>& bar_name,
                                             const std::optional<Value>& position, bool is_menu_bar,
                                             bool temporary) {
    if (ended_) throw Failure(result::object_deleted, u"The window of these command bars has been closed.");
    const Text wanted = !bar_name || bar_name->to_text().empty()
                            ? u"Custom " + automation::to_text(static_cast<long long>(all.size()) + 1)
                            : bar_name->to_text();
    for (const auto& bar : all) {
        if (automation::same_ignoring_case(bar->bar_name, wanted)) {
            throw Failure(result::invalid_argument, u"A command bar \"" + wanted + u"\" exists already.");
        }
    }
    auto bar = std::make_shared<CommandBar>(desk(), weak_from_this(), wanted, false);
    if (position) bar->position = position->to_integer();
    if (bar->position < 0 || bar->position > CommandBar::last_position) {
        throw Failure(result::invalid_argument, u"There is no such position of a command bar.");
    }
    if (is_menu_bar) bar->bar_type = CommandBar::menu_bar;
    if (bar->position == CommandBar::popup_position) bar->bar_type = CommandBar::popup;
    bar->temporary = temporary;
    bar->visible = false;  // a new bar is hidden until it is shown
    all.push_back(bar);
    kept_changed();
    return bar;
}

std::shared_ptr<CommandBarControl> CommandBars::find(const ControlWish& wish) const {
    for (const auto& bar : all) {
        if (auto found = bar->find(wish, true)) return found;
    }
    return nullptr;
}

Object CommandBars::find_all(const ControlWish& wish) {
    std::vector<std::shared_ptr<CommandBarControl>> found;
    for (const auto& bar : all) {
        const auto of_bar = bar->find_all(wish);
        found.insert(found.end(), of_bar.begin(), of_bar.end());
    }
    return found.empty() ? Object()
                         : std::make_shared<FoundControls>(desk(), self(), std::move(found))->self();
}

void CommandBars::end() {
    ended_ = true;
    for (const auto& bar : all) bar->end_window();
    std::erase_if(all, [](const auto& bar) { return !bar->built_in; });
    subscriptions().clear();
}

void CommandBars::kept_changed() {
    ++version_;
    desk().surroundings().changed();
    update_soon();
}

void CommandBars::update_soon() {
    if (update_waits_ || updating_ || !subscriptions().any()) return;
    update_waits_ = true;
    desk().later([self = weak_from_this()] {
        if (const auto bars = self.lock(); bars && bars->update_waits_) bars->update_now();
    });
}

void CommandBars::update_now() {
    update_waits_ = false;
    if (updating_) return;
    updating_ = true;
    raise(u"OnUpdate");  // what a listener throws stays with it
    updating_ = false;
}

const automation::Members<CommandBars>& CommandBars::members() {
    using Self = CommandBars;
    static const automation::Members<Self> table{
        {u"Count", 0x60030003, Use::get, [](Self& self) { return self.all.size(); }},
        {u"Item",
         0x0,
         Use::get,
         {u"Index"},
         [](Self& self, const Value& index) { return self.at(index)->self(); }},
        {u"Add",
         0x60030002,
         Use::method,
         {u"Name", u"Position", u"MenuBar", u"Temporary"},
         [](Self& self, const std::optional<Value>& name, const std::optional<Value>& position,
            const std::optional<Value>& is_menu_bar, const std::optional<Value>& temporary) {
             return self
                 .add(name, position, is_menu_bar && is_menu_bar->to_boolean(),
                      temporary && temporary->to_boolean())
                 ->self();
         }},
        {u"FindControl",
         0x60030008,
         Use::method,
         {u"Type", u"Id", u"Tag", u"Visible"},
         [](Self& self, const std::optional<Value>& type, const std::optional<Value>& id,
            const std::optional<Value>& tag, const std::optional<Value>& visible) {
             return answer_of(self.find({type, id, tag, visible}));
         }},
        {u"FindControls",
         0x60030015,
         Use::method,
         {u"Type", u"Id", u"Tag", u"Visible"},
         [](Self& self, const std::optional<Value>& type, const std::optional<Value>& id,
            const std::optional<Value>& tag, const std::optional<Value>& visible) {
             return self.find_all({type, id, tag, visible});
         }},
        {u"ActionControl", 0x60030000, Use::get,
         [](Self& self) { return self.pressed.empty() ? Value(Object()) : answer_of(self.pressed.back()); }},
        {u"ActiveMenuBar", 0x60030001, Use::get, [](Self& self) { return self.named(menu_bar)->self(); }},
        {u"AdaptiveMenus", 0x60030013, kept<&Self::adaptive_menus>},
        {u"DisplayTooltips", 0x60030004, kept<&Self::display_tool_tips>},
        {u"DisplayKeysInTooltips", 0x60030006, kept<&Self::display_keys>},
        {u"LargeButtons", 0x6003000A, kept<&Self::large_buttons>},
        {u"ReleaseFocus", 0x60030010, Use::method, [](Self&) {}},
    };
    return table;
}

}  // namespace desk
