#include "desk/model/explorers.h"

#include <algorithm>

#include "desk/model/application.h"
#include "desk/model/command_bars.h"
#include "desk/model/desk.h"
#include "desk/model/folder.h"
#include "desk/model/host_event_tables.h"

namespace desk {

using host::Arguments;
using host::Failure;
using host::Object;
using host::Takes;
using host::Use;
using host::Value;
namespace result = host::result;

namespace {

const Object& element(const std::vector<Object>& all, const Value& index) {
    const std::int32_t place = index.to_integer();
    if (place < 1 || static_cast<std::size_t>(place) > all.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return all[static_cast<std::size_t>(place - 1)];
}

/// A window's place or size, read and written.
template <std::int32_t Explorer::*place>
Value placed(Explorer& self, const Arguments& arguments) {
    if (arguments.is_put()) self.*place = arguments.assigned().to_integer();
    return self.*place;
}

}  // namespace

const host::Members<Selection>& Selection::members() {
    static const host::Members<Selection> table{
        {u"Count", 0x50, Use::get,
         [](Selection& self, const Arguments&) {
             return Value(static_cast<std::int32_t>(self.items.size()));
         }},
        {u"Item",
         0x51,
         Use::method,
         {{u"Index"}},
         [](Selection& self, const Arguments& a) { return Value(element(self.items, a[0])); }},
    };
    return table;
}

Explorer::Explorer(Desk& desk, RowId folder)
    : ModelObject(desk), folder_(folder), bars_(CommandBars::of_explorer(desk)) {}

Object Explorer::parent() const { return desk().application()->self(); }

EventInterfaces Explorer::event_interfaces() const { return events::explorer; }

host::Text Explorer::caption() const {
    const FolderRow* const row = desk().folder_row(folder_);
    return (row ? row->name : host::Text()) + u" - Outlook";
}

void Explorer::show_folder(RowId folder) {
    if (folder == folder_) return;
    std::vector<Value> arguments{Value(std::make_shared<Folder>(desk(), folder)->self()), false};
    subscriptions().raise(u"BeforeFolderSwitch", arguments);
    if (arguments[1].to_boolean()) return;
    folder_ = folder;
    selected_.clear();
    desk().surroundings().changed();
    raise(u"FolderSwitch");
    raise(u"SelectionChange");
}

void Explorer::select(std::vector<Object> items) {
    selected_ = std::move(items);
    desk().surroundings().changed();
    raise(u"SelectionChange");
}

void Explorer::activate() {
    auto& open = desk().explorers()->open;
    const auto own = std::ranges::find(open, this, &std::shared_ptr<Explorer>::get);
    if (own == open.end() || own + 1 == open.end()) return;
    const std::shared_ptr<Explorer> former = open.back();
    std::rotate(own, own + 1, open.end());
    former->raise(u"Deactivate");
    raise(u"Activate");
}

void Explorer::close_window() {
    const std::shared_ptr<Explorer> alive = shared_from_this();
    auto& open = desk().explorers()->open;
    if (std::erase(open, alive) == 0) return;
    raise(u"Close");
    desk().surroundings().changed();
    if (open.empty()) desk().surroundings().quit();
}

const host::Members<Explorer>& Explorer::members() {
    static const host::Members<Explorer> table{
        {u"CommandBars", 0x2100, Use::get,
         [](Explorer& self, const Arguments&) { return Value(self.bars()->self()); }},
        {u"CurrentFolder", 0x2101, Use::get_put,
         [](Explorer& self, const Arguments& a) {
             if (a.is_put()) self.show_folder(folder_of(a.assigned()).id());
             return Value(std::make_shared<Folder>(self.desk(), self.folder())->self());
         }},
        {u"SelectFolder",
         0xFAB1,
         Use::method,
         {{u"Folder", Takes::object}},
         [](Explorer& self, const Arguments& a) {
             self.show_folder(folder_of(a[0]).id());
             return Value();
         }},
        {u"Selection", 0x2202, Use::get,
         [](Explorer& self, const Arguments&) {
             return Value(std::make_shared<Selection>(self.desk(), self.selected(), self.self())->self());
         }},
        {u"AddToSelection",
         0xFC36,
         Use::method,
         {{u"Item", Takes::object}},
         [](Explorer& self, const Arguments& a) {
             std::vector<Object> items = self.selected();
             items.push_back(a[0].to_object());
             self.select(std::move(items));
             return Value();
         }},
        {u"ClearSelection", 0xFC39, Use::method,
         [](Explorer& self, const Arguments&) {
             self.select({});
             return Value();
         }},
        {u"Caption", 0x2111, Use::get,
         [](Explorer& self, const Arguments&) { return Value(self.caption()); }},
        {u"Left", 0x2115, Use::get_put, placed<&Explorer::left>},
        {u"Top", 0x2116, Use::get_put, placed<&Explorer::top>},
        {u"Width", 0x2117, Use::get_put, placed<&Explorer::width>},
        {u"Height", 0x2114, Use::get_put, placed<&Explorer::height>},
        {u"WindowState", 0x2112, Use::get_put, placed<&Explorer::window_state>},
        {u"Display", 0x2104, Use::method,
         [](Explorer& self, const Arguments&) {
             self.activate();
             self.desk().surroundings().changed();
             return Value();
         }},
        {u"Activate", 0x2113, Use::method,
         [](Explorer& self, const Arguments&) {
             self.activate();
             return Value();
         }},
        {u"Close", 0x2103, Use::method,
         [](Explorer& self, const Arguments&) {
             self.close_window();
             return Value();
         }},
    };
    return table;
}

Object Explorers::parent() const { return desk().application()->self(); }

EventInterfaces Explorers::event_interfaces() const { return events::explorers; }

Object Explorers::active() const { return open.empty() ? Object() : open.back()->self(); }

Object Explorers::at(const Value& index) const {
    std::vector<Object> all;
    for (const auto& explorer : open) all.push_back(explorer->self());
    return element(all, index);
}

Object Explorers::make(RowId folder) {
    auto explorer = std::make_shared<Explorer>(desk(), folder);
    open.insert(open.empty() ? open.end() : open.end() - 1,
                explorer);  // behind the active one until it is displayed
    desk().surroundings().changed();
    raise(u"NewExplorer", {Value(explorer->self())});
    return explorer->self();
}

void Explorers::show(RowId folder) {
    const Object explorer = make(folder);
    explorer.call(u"Display");
}

const host::Members<Explorers>& Explorers::members() {
    static const host::Members<Explorers> table{
        {u"Count", 0x50, Use::get,
         [](Explorers& self, const Arguments&) {
             return Value(static_cast<std::int32_t>(self.open.size()));
         }},
        {u"Item",
         0x51,
         Use::method,
         {{u"Index"}},
         [](Explorers& self, const Arguments& a) { return Value(self.at(a[0])); }},
        {u"Add",
         0x5F,
         Use::method,
         {{u"Folder"}, {u"DisplayMode", Takes::value, true}},
         [](Explorers& self, const Arguments& a) { return Value(self.make(folder_of(a[0]).id())); }},
    };
    return table;
}

}  // namespace desk
