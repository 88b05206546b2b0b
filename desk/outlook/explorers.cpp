#include "desk/outlook/explorers.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/base/host_event_tables.h"
#include "desk/base/kept.h"
#include "desk/office/command_bars.h"
#include "desk/outlook/application.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item.h"

namespace desk {

using automation::calls;
using automation::Ignored;
using automation::Object;
using automation::Use;
using automation::Value;

namespace {

constexpr std::uint32_t failure_warning = 0x30;  // MB_ICONWARNING

}  // namespace

const automation::Members<Selection>& Selection::members() {
    static const automation::Members<Selection> table{
        {u"Count", 0x50, Use::get, [](Selection& self) { return self.items.size(); }},
        {u"Item",
         0x51,
         Use::method,
         {u"Index"},
         [](Selection& self, const Value& index) { return numbered(self.items, index); }},
    };
    return table;
}

Explorer::Explorer(Desk& desk, RowId folder)
    : ModelObject(desk),
      folder_(folder),
      bars_(CommandBars::with_own_bars(
          desk, {CommandBars::menu_bar, CommandBars::standard, CommandBars::context_menu})) {
    left = 40, top = 40, width = 1080, height = 640;
}

Object Explorer::parent() const { return desk().application()->self(); }

EventInterfaces Explorer::event_interfaces() const { return events::explorer; }

automation::Text Explorer::caption() const {
    const FolderRow* const row = desk().folder_row(folder_);
    return (row ? row->name : automation::Text()) + u" - Outlook";
}

void Explorer::kept_changed() { desk().surroundings().changed(); }

void Explorer::show_folder(RowId folder) {
    if (folder == folder_) return;
    std::vector<Value> arguments{Value(std::make_shared<Folder>(desk(), folder)->self()), false};
    raise_with_answer(u"BeforeFolderSwitch", arguments);
    if (arguments[1].to_boolean()) return;
    folder_ = folder;
    selected_.clear();
    kept_changed();
    raise(u"FolderSwitch");
    raise(u"SelectionChange");
    bars_->update_soon();
}

void Explorer::select(std::vector<Object> items) {
    selected_ = std::move(items);
    kept_changed();
    raise(u"SelectionChange");
    bars_->update_soon();
}

void Explorer::drop_selection_on(RowId folder, bool copies) {
    if (!desk().folder_row(folder) || (!copies && folder == folder_)) return;
    std::vector<Object> moved;
    for (Object& object : std::vector(selected_)) {
        const auto item = std::dynamic_pointer_cast<Item>(object.target());
        if (!item || item->is_gone()) continue;
        try {
            if (copies) {
                item->copy_to(folder);
            } else {
                const std::shared_ptr<Item> there = item->move_to(folder);
                if (there) moved.push_back(there->self());
            }
        } catch (const automation::Failure& failure) {
            desk().surroundings().ask(failure.description(), u"Outlook", failure_warning);
        }
    }
    if (moved.empty()) return;
    selected_ = moved;
    kept_changed();
    desk().later([explorer = shared_from_this(), moved] {
        if (explorer->selected_ == moved) explorer->select({});
    });
}

void Explorer::open_window(bool in_front) {
    auto& open = desk().explorers()->open;
    open.insert(in_front || open.empty() ? open.end() : open.end() - 1, shared_from_this());
    if (in_front) {
        enter_front();
    } else {
        enter_back();
    }
    kept_changed();
}

void Explorer::activate() {
    auto& open = desk().explorers()->open;
    const auto own = std::ranges::find(open, this, &std::shared_ptr<Explorer>::get);
    if (own == open.end()) return;
    std::rotate(own, own + 1, open.end());
    come_up();
}

void Explorer::close_by_user() {
    const std::shared_ptr<Explorer> alive = shared_from_this();
    if (desk().explorers()->open.size() == 1) {
        const std::vector<std::shared_ptr<Inspector>> items = desk().inspectors()->open;
        for (auto last = items.rbegin(); last != items.rend(); ++last) {  // the active one first
            if ((*last)->is_open()) (*last)->close_by_user();
            if ((*last)->is_open()) return;
        }
    }
    close_window();
}

void Explorer::close_window() {
    const std::shared_ptr<Explorer> alive = shared_from_this();
    auto& open = desk().explorers()->open;
    if (std::erase(open, alive) == 0) return;
    leave(true);
    if (open.empty()) desk().surroundings().quit();
}

std::shared_ptr<CommandBar> Explorer::context_menu() {
    bars_->update_now();
    return bars_->named(CommandBars::context_menu);
}

const automation::Members<Explorer>& Explorer::members() {
    static const automation::Members<Explorer> table{
        {u"CommandBars", 0x2100, Use::get, [](Explorer& self) { return self.bars()->self(); }},
        {u"CurrentFolder", 0x2101,
         [](Explorer& self) { return std::make_shared<Folder>(self.desk(), self.folder())->self(); },
         [](Explorer& self, const Value& given) { self.show_folder(folder_of(given).id()); }},
        {u"SelectFolder",
         0xFAB1,
         Use::method,
         {u"Folder"},
         [](Explorer& self, const Object& folder) { self.show_folder(folder_of(folder).id()); }},
        {u"Selection", 0x2202, Use::get,
         [](Explorer& self) {
             return std::make_shared<Selection>(self.desk(), self.selected(), self.self())->self();
         }},
        {u"AddToSelection",
         0xFC36,
         Use::method,
         {u"Item"},
         [](Explorer& self, const Object& item) {
             std::vector<Object> items = self.selected();
             items.push_back(item);
             self.select(std::move(items));
         }},
        {u"ClearSelection", 0xFC39, Use::method, [](Explorer& self) { self.select({}); }},
        {u"Caption", 0x2111, Use::get, calls<&Explorer::caption>},
        {u"Left", 0x2115, kept<&Explorer::left, Explorer>},
        {u"Top", 0x2116, kept<&Explorer::top, Explorer>},
        {u"Width", 0x2117, kept<&Explorer::width, Explorer>},
        {u"Height", 0x2114, kept<&Explorer::height, Explorer>},
        {u"WindowState", 0x2112, kept<&Explorer::window_state, Explorer>},
        {u"Display", 0x2104, Use::method, calls<&Explorer::activate>},
        {u"Activate", 0x2113, Use::method, calls<&Explorer::activate>},
        {u"Close", 0x2103, Use::method, calls<&Explorer::close_window>},
    };
    return table;
}

Object Explorers::parent() const { return desk().application()->self(); }

EventInterfaces Explorers::event_interfaces() const { return events::explorers; }

Object Explorers::active() const { return open.empty() ? Object() : open.back()->self(); }

Object Explorers::make(RowId folder) {
    auto explorer = std::make_shared<Explorer>(desk(), folder);
    explorer->open_window(false);  // behind the active one until it is displayed
    raise(u"NewExplorer", {Value(explorer->self())});
    return explorer->self();
}

void Explorers::show(RowId folder) {
    const Object explorer = make(folder);
    explorer.call(u"Display");
}

const automation::Members<Explorers>& Explorers::members() {
    static const automation::Members<Explorers> table{
        {u"Count", 0x50, Use::get, [](Explorers& self) { return self.open.size(); }},
        {u"Item",
         0x51,
         Use::method,
         {u"Index"},
         [](Explorers& self, const Value& index) { return numbered(self.open, index)->self(); }},
        {u"Add",
         0x5F,
         Use::method,
         {u"Folder", u"DisplayMode"},
         [](Explorers& self, const Value& folder, Ignored) { return self.make(folder_of(folder).id()); }},
    };
    return table;
}

}  // namespace desk
