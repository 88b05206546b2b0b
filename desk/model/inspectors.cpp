#include "desk/model/inspectors.h"

#include <algorithm>

#include "desk/model/application.h"
#include "desk/model/command_bars.h"
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

constexpr std::int32_t save_changes = 0, discard_changes = 1;  // OlInspectorClose

/// What a window calls its item, by the number of the item's class.
struct WindowName {
    std::int32_t number;
    host::TextView name;
};
constexpr WindowName window_names[] = {{object_class::mail, u"Message"},
                                       {object_class::appointment, u"Appointment"},
                                       {object_class::contact, u"Contact"},
                                       {object_class::task, u"Task"},
                                       {object_class::journal, u"Journal Entry"},
                                       {object_class::note, u"Note"},
                                       {object_class::post, u"Post"}};

template <std::int32_t Inspector::*place>
Value placed(Inspector& self, const Arguments& arguments) {
    if (arguments.is_put()) self.*place = arguments.assigned().to_integer();
    return self.*place;
}

}  // namespace

Inspector::Inspector(Desk& desk, std::shared_ptr<Item> item)
    : ModelObject(desk), item_(std::move(item)), bars_(CommandBars::of_inspector(desk)) {}

Object Inspector::parent() const { return desk().application()->self(); }

EventInterfaces Inspector::event_interfaces() const { return events::inspector; }

Text Inspector::caption() const {
    const Text subject = item_->subject();
    return (subject.empty() ? Text(u"Untitled") : subject) + u" - " +
           Text(std::ranges::find(window_names, item_->kind().number, &WindowName::number)->name);
}

bool Inspector::is_open() const {
    return std::ranges::find(desk().inspectors()->open, this, &std::shared_ptr<Inspector>::get) !=
           desk().inspectors()->open.end();
}

void Inspector::display() {
    auto& open = desk().inspectors()->open;
    if (is_open()) {
        const auto own = std::ranges::find(open, this, &std::shared_ptr<Inspector>::get);
        if (own + 1 == open.end()) return;
        const std::shared_ptr<Inspector> former = open.back();
        std::rotate(own, own + 1, open.end());
        former->raise(u"Deactivate");
        raise(u"Activate");
        return;
    }
    const std::shared_ptr<Inspector> former = open.empty() ? nullptr : open.back();
    open.push_back(shared_from_this());
    desk().surroundings().changed();
    desk().inspectors()->raise(u"NewInspector", {Value(self())});
    if (former) former->raise(u"Deactivate");
    raise(u"Activate");
}

void Inspector::close_window() {
    const std::shared_ptr<Inspector> alive = shared_from_this();
    if (std::erase(desk().inspectors()->open, alive) == 0) return;
    raise(u"Close");
    desk().surroundings().changed();
}

const host::Members<Inspector>& Inspector::members() {
    static const host::Members<Inspector> table{
        {u"CommandBars", 0x2100, Use::get,
         [](Inspector& self, const Arguments&) { return Value(self.bars()->self()); }},
        {u"CurrentItem", 0x2102, Use::get,
         [](Inspector& self, const Arguments&) { return Value(self.item()->self()); }},
        {u"Caption", 0x2111, Use::get,
         [](Inspector& self, const Arguments&) { return Value(self.caption()); }},
        {u"IsWordMail", 0x2105, Use::method, [](Inspector&, const Arguments&) { return Value(false); }},
        {u"EditorType", 0x2110, Use::get, [](Inspector&, const Arguments&) { return Value(1); }},
        {u"Left", 0x2115, Use::get_put, placed<&Inspector::left>},
        {u"Top", 0x2116, Use::get_put, placed<&Inspector::top>},
        {u"Width", 0x2117, Use::get_put, placed<&Inspector::width>},
        {u"Height", 0x2114, Use::get_put, placed<&Inspector::height>},
        {u"WindowState", 0x2112, Use::get_put, placed<&Inspector::window_state>},
        {u"Display",
         0x2104,
         Use::method,
         {{u"Modal", Takes::value, true}},
         [](Inspector& self, const Arguments&) {
             self.display();
             return Value();
         }},
        {u"Activate", 0x2113, Use::method,
         [](Inspector& self, const Arguments&) {
             self.display();
             return Value();
         }},
        {u"Close",
         0x2103,
         Use::method,
         {{u"SaveMode", Takes::integer}},
         [](Inspector& self, const Arguments& a) {
             const std::int32_t mode = a[0].to_integer();
             if (mode == save_changes) self.item()->save();
             if (mode == discard_changes) self.item()->revert();
             self.close_window();
             return Value();
         }},
    };
    return table;
}

Object Inspectors::parent() const { return desk().application()->self(); }

EventInterfaces Inspectors::event_interfaces() const { return events::inspectors; }

Object Inspectors::active() const { return open.empty() ? Object() : open.back()->self(); }

Object Inspectors::at(const Value& index) const {
    const std::int32_t place = index.to_integer();
    if (place < 1 || static_cast<std::size_t>(place) > open.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return open[static_cast<std::size_t>(place - 1)]->self();
}

const host::Members<Inspectors>& Inspectors::members() {
    static const host::Members<Inspectors> table{
        {u"Count", 0x50, Use::get,
         [](Inspectors& self, const Arguments&) {
             return Value(static_cast<std::int32_t>(self.open.size()));
         }},
        {u"Item",
         0x51,
         Use::method,
         {{u"Index"}},
         [](Inspectors& self, const Arguments& a) { return Value(self.at(a[0])); }},
        {u"Add",
         0x5F,
         Use::method,
         {{u"Item", Takes::object}},
         [](Inspectors&, const Arguments& a) {
             const auto item = std::dynamic_pointer_cast<desk::Item>(a[0].to_object().target());
             if (!item) throw Failure(result::type_mismatch, u"An item is expected.");
             return Value(item->inspector()->self());
         }},
    };
    return table;
}

}  // namespace desk
