#include "desk/office/command_bar.h"

#include <algorithm>
#include <iterator>

#include "desk/base/desk.h"
#include "desk/base/kept.h"
#include "desk/office/command_bars.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

constexpr std::int32_t icon_and_caption = 3;  // MsoButtonStyle

bool fits(const CommandBarControl& control, const ControlWish& wish) {
    if (wish.type && control.type != wish.type->to_integer()) return false;
    if (wish.id && control.id != wish.id->to_integer()) return false;
    if (wish.tag && control.tag != wish.tag->to_text()) return false;
    return !wish.visible || !wish.visible->to_boolean() || control.visible;
}

}  // namespace

Object CommandBar::parent() const {
    const auto bars = owner();
    return bars ? bars->self() : Object();
}

Value CommandBar::invoke(automation::Request& request) {
    check_there();
    return ModelObject::invoke(request);
}

void CommandBar::check_there() const {
    if (deleted_) throw Failure(result::object_deleted, u"The command bar was deleted.");
}

void CommandBar::check_may_change() const {
    check_there();
    if (protection & no_customize) {
        throw Failure(result::fail, u"The command bar \"" + bar_name + u"\" is protected.");
    }
}

void CommandBar::check_may_take(const CommandBarControl& control) const {
    check_may_change();
    if (control.type != CommandBarControl::popup_type) return;
    if (bar_type != menu_bar && index() != 0) {
        throw Failure(result::invalid_argument, u"The desk's command bars take popups in their menus only.");
    }
    if (control.holds(*this)) throw Failure(result::invalid_argument, u"A popup can't stand in itself.");
}

void CommandBar::check_place(const std::optional<Value>& before) const {
    if (!before) return;
    const std::int32_t wanted = before->to_integer();
    if (wanted < 1 || static_cast<std::size_t>(wanted) > controls.size() + 1) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
}

void CommandBar::kept_changed() {
    if (const auto bars = owner()) bars->kept_changed();
}

std::int32_t CommandBar::index() const {
    const auto bars = owner();
    if (!bars) return 0;
    const auto own = std::ranges::find(bars->all, this, &std::shared_ptr<CommandBar>::get);
    return own == bars->all.end() ? 0 : static_cast<std::int32_t>(own - bars->all.begin()) + 1;
}

void CommandBar::end() {
    deleted_ = true;
    for (const auto& control : controls) control->end();
    controls.clear();
}

void CommandBar::end_window() {
    if (!built_in) return end();
    const auto before = controls;
    for (const auto& control : before) {
        if (control->temporary) {
            std::erase(controls, control);
            control->end();
        } else {
            control->end_window();
        }
    }
}

void CommandBar::remove() {
    if (built_in) {
        throw Failure(result::fail, u"The host's own command bar \"" + bar_name + u"\" can't be deleted.");
    }
    if (index() == 0) throw Failure(result::fail, u"A popup's menu goes with the popup.");
    const auto alive = shared_from_this();
    if (const auto bars = owner()) {
        std::erase(bars->all, alive);
        bars->kept_changed();
    }
    end();
}

std::shared_ptr<CommandBarControl> CommandBar::find(const ControlWish& wish, bool in_menus) const {
    for (const auto& control : controls) {
        if (fits(*control, wish)) return control;
        if (!in_menus || !control->menu) continue;
        if (auto found = control->menu->find(wish, in_menus)) return found;
    }
    return nullptr;
}

std::vector<std::shared_ptr<CommandBarControl>> CommandBar::find_all(const ControlWish& wish) const {
    std::vector<std::shared_ptr<CommandBarControl>> found;
    for (const auto& control : controls) {
        if (fits(*control, wish)) found.push_back(control);
        if (control->menu) std::ranges::copy(control->menu->find_all(wish), std::back_inserter(found));
    }
    return found;
}

void CommandBar::insert(std::shared_ptr<CommandBarControl> control, const std::optional<Value>& before) {
    check_place(before);
    const auto place =
        before ? std::ptrdiff_t{before->to_integer()} - 1 : static_cast<std::ptrdiff_t>(controls.size());
    controls.insert(controls.begin() + place, std::move(control));
    kept_changed();
}

std::shared_ptr<CommandBarControl> CommandBar::add(const std::optional<Value>& type,
                                                   const std::optional<Value>& control_id,
                                                   const std::optional<Value>& parameter,
                                                   const std::optional<Value>& before, bool is_temporary) {
    const std::int32_t wanted = type ? type->to_integer() : CommandBarControl::button_type;
    if (wanted != CommandBarControl::button_type && wanted != CommandBarControl::popup_type) {
        throw Failure(result::invalid_argument, u"The desk's command bars take buttons and popups only.");
    }
    if (control_id && control_id->to_integer() != CommandBarControl::custom_id) {
        throw Failure(result::invalid_argument, u"The desk has no built-in control with that number to add.");
    }
    auto control = std::make_shared<CommandBarControl>(desk(), weak_from_this(), is_temporary);
    if (wanted == CommandBarControl::popup_type) control->become_popup();
    check_may_take(*control);
    if (parameter) control->parameter = parameter->to_text();
    insert(control, before);
    return control;
}

std::shared_ptr<CommandBarControl> CommandBar::add_own(std::int32_t control_id, TextView caption,
                                                       std::function<void()> action) {
    auto control = std::make_shared<CommandBarControl>(desk(), weak_from_this(), false);
    control->id = control_id;
    control->face_id = control_id;
    control->style = icon_and_caption;
    control->caption = Text(caption);
    control->action = std::move(action);
    insert(control, std::nullopt);
    return control;
}

const automation::Members<CommandBar>& CommandBar::members() {
    using Self = CommandBar;
    static const automation::Members<Self> table{
        {u"Name", 0x6004000E, Use::get, shown<&Self::bar_name>},
        {u"NameLocal", 0x60040010, Use::get, shown<&Self::bar_name>},
        {u"BuiltIn", 0x60040000, Use::get, shown<&Self::built_in>},
        {u"Type", 0x6004001D, Use::get, shown<&Self::bar_type>},
        {u"Id", 0x60040024, Use::get, shown<&Self::id>},
        {u"Index", 0x6004000A, Use::get, calls<&Self::index>},
        {u"Controls", 0x60040003, Use::get,
         [](Self& self) {
             return std::make_shared<CommandBarControls>(self.desk(), self.shared_from_this())->self();
         }},
        {u"Visible", 0x6004001E, kept<&Self::visible>},
        {u"Enabled", 0x60040005, kept<&Self::enabled>},
        {u"Position", 0x60040013, kept<&Self::position>},
        {u"RowIndex", 0x60040015, kept<&Self::row_index>},
        {u"Protection", 0x60040017, kept<&Self::protection>},
        {u"Left", 0x6004000C, kept<&Self::left>},
        {u"Top", 0x6004001B, kept<&Self::top>},
        {u"Width", 0x60040020, kept<&Self::width>},
        {u"Height", 0x60040008, kept<&Self::height>},
        {u"AdaptiveMenu", 0x60040022, kept<&Self::adaptive_menu>},
        {u"Context", 0x60040001, kept<&Self::context>},
        {u"FindControl",
         0x60040007,
         Use::method,
         {u"Type", u"Id", u"Tag", u"Visible", u"Recursive"},
         [](Self& self, const std::optional<Value>& type, const std::optional<Value>& id,
            const std::optional<Value>& tag, const std::optional<Value>& visible,
            std::optional<bool> recursive) {
             return answer_of(self.find({type, id, tag, visible}, recursive.value_or(false)));
         }},
        {u"Delete", 0x60040004, Use::method, calls<&Self::remove>},
        {u"Reset", 0x60040019, Use::method, [](Self&) {}},
    };
    return table;
}

}  // namespace desk
