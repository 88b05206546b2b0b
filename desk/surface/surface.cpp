#include "desk/surface/surface.h"

#include "desk/base/desk.h"
#include "desk/office/command_bars.h"
#include "desk/outlook/explorers.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/item.h"
#include "desk/surface/surface_window.h"

namespace desk {

using automation::Failure;
using automation::Object;
using automation::Text;
using automation::Value;
namespace result = automation::result;

void offer_surface(Desk& desk) { desk.surface = std::make_shared<Surface>(desk)->self(); }

Object Surface::parent() const { return desk().application_object(); }

void Surface::select(const std::vector<Value>& items) {
    std::vector<Object> selected;
    RowId folder = 0;
    for (const Value& value : items) {
        const Object object = value.to_object();
        const auto item = std::dynamic_pointer_cast<desk::Item>(object.target());
        if (!item) throw Failure(result::type_mismatch, u"Only items can be selected.");
        folder = item->folder();
        selected.push_back(object);
    }
    Explorer& explorer = active_explorer();
    const Object alive = explorer.self();
    if (folder != 0) explorer.show_folder(folder);  // one can only click what is shown
    explorer.select(std::move(selected));
}

void Surface::drag(const Value& folder, bool copies) {
    const RowId target = folder_of(folder).id();
    const Object alive = active_explorer().self();
    active_explorer().drop_selection_on(target, copies);
}

Explorer& Surface::active_explorer() {
    const auto& open = desk().explorers()->open;
    if (open.empty()) throw Failure(result::fail, u"There is no explorer.");
    return *open.back();
}

void Surface::press(const Object& control) {
    const auto button = std::dynamic_pointer_cast<CommandBarControl>(control.target());
    if (!button) throw Failure(result::type_mismatch, u"A control of a command bar is expected.");
    if (!button->is_there()) throw Failure(result::object_deleted, u"The control was deleted.");
    desk().surroundings().post([button] {
        if (button->is_there()) button->press();
    });
}

Object Surface::context_menu() { return active_explorer().context_menu()->self(); }

Object Surface::window(const Text& caption) {
    std::unique_ptr<WindowDriver> found = desk().surroundings().window(caption);
    if (!found) return {};
    return std::make_shared<SurfaceWindow>(desk(), std::move(found))->self();
}

void Surface::meanwhile(const Text& moment, const Object& object, const Text& member,
                        const std::optional<Value>& value) {
    if (moment.empty()) throw Failure(result::invalid_argument, u"The moment needs a name.");
    desk().when(moment, [object, member, value] {
        if (!value) {
            object.call(member);
            return;
        }
        if (value->is(Value::Type::array)) {  // a method with several arguments
            const automation::Array& all = value->to_array();
            automation::Request request{.access = automation::Access::call, .member = member};
            const automation::Array::Bounds bounds = all.dimensions().front();
            for (std::int32_t i = 0; i < bounds.count; ++i)
                request.arguments.push_back(all.at(bounds.lower + i));
            object.invoke(request);
            return;
        }
        try {
            object.put(member, *value);
        } catch (const Failure& failure) {
            if (failure.number() != result::member_not_found) throw;
            object.call(member, {*value});  // a method with one argument
        }
    });
}

void Surface::copies(const Object& original, std::int32_t count, const Text& field) {
    const auto item = std::dynamic_pointer_cast<Item>(original.target());
    if (!item) throw Failure(result::type_mismatch, u"Copies are made of an item.");
    const auto place = [&field](Item& of) {
        const Object property =
            of.self().get(u"UserProperties").to_object().call(u"Find", {Value(field)}).to_object();
        return property ? std::pair(property, Text(u"Value")) : std::pair(of.self(), field);
    };
    const auto [object, member] = place(*item);
    const Text text = object.get(member).to_text();
    const std::size_t digits = automation::to_text(count).size();
    for (std::int32_t i = 1; i <= count; ++i) {
        const std::shared_ptr<Item> twin = item->copy();
        const Text number = automation::to_text(i);
        const auto [twin_object, twin_member] = place(*twin);
        twin_object.put(twin_member, Value(text + u" " + Text(digits - number.size(), u'0') + number));
        twin->save();
    }
}

}  // namespace desk
