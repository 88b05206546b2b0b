// The members that scripts know: a contract with those who wrote them.
#include "desk/base/desk.h"
#include "desk/outlook/application.h"
#include "desk/outlook/item.h"
#include "desk/surface/description.h"
#include "desk/surface/surface.h"

namespace desk {

using automation::Failure;
using automation::Object;
using automation::Text;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

/// Most items that `Select` takes in one call.
constexpr std::size_t most_selected = 20;

Value as_text(const Value& value) {
    if (value.is(Value::Type::array) || value.is(Value::Type::object)) {
        throw Failure(result::type_mismatch, u"The value can't be shown as text.");
    }
    return value.is(Value::Type::null) ? Value(u"") : Value(value.to_text());
}

}  // namespace

const automation::Members<Surface>& Surface::members() {
    static const automation::Members<Surface> table{
        {u"Deliver",
         automation::no_id,
         Use::method,
         {u"Path"},
         [](Surface& self, const Text& path) { return self.desk().deliver(path)->self(); }},
        {u"Answer",
         automation::no_id,
         Use::method,
         {u"Title", u"Fragment", u"Button"},
         [](Surface& self, const Text& title, const Text& fragment, std::int32_t button) {
             self.desk().answers.push_back({title, fragment, button});
         }},
        {u"Messages", automation::no_id, Use::get, automation::calls<&Surface::messages>},
        {u"Statuses", automation::no_id, Use::get, automation::calls<&Surface::statuses>},
        {u"Opened", automation::no_id, Use::get, automation::calls<&Surface::opened>},
        {u"Programs", automation::no_id, Use::get, automation::calls<&Surface::programs>},
        {u"Displayed", automation::no_id, Use::get, automation::calls<&Surface::displayed>},
        {u"Pump",
         automation::no_id,
         Use::method,
         {u"Milliseconds"},
         [](Surface& self, std::int32_t milliseconds) { self.desk().surroundings().pump(milliseconds); }},
        {u"Select",
         automation::no_id,
         Use::method,
         {u"Item"},
         [](Surface& self, automation::UpTo<most_selected> items) {
             self.select({items.values.begin(), items.values.end()});
         }},
        {u"Drag",
         automation::no_id,
         Use::method,
         {u"Folder", u"Copies"},
         [](Surface& self, const Object& folder, std::optional<bool> copies) {
             self.drag(folder, copies.value_or(false));
         }},
        {u"Press", automation::no_id, Use::method, {u"Control"}, automation::calls<&Surface::press>},
        {u"ContextMenu", automation::no_id, Use::get, automation::calls<&Surface::context_menu>},
        {u"Window", automation::no_id, Use::method, {u"Caption"}, automation::calls<&Surface::window>},
        {u"Options",
         automation::no_id,
         {u"Name"},
         [](Surface& self, const Text& name) { return self.option(name); },
         [](Surface& self, const Text& name, const Value& given) { self.option(name, given); }},
        {u"Live", automation::no_id, Use::get, {u"Kind"}, automation::calls<&Surface::live>},
        {u"Text",
         automation::no_id,
         Use::method,
         {u"Object", u"Member"},
         [](Surface&, const Object& object, const Text& member) { return as_text(object.get(member)); }},
        {u"Snapshot",
         automation::no_id,
         Use::method,
         {u"Path"},
         [](Surface& self, const Text& path) { self.desk().surroundings().snapshot(path); }},
        // beyond the contract: for the desk's own tests and benchmarks
        {u"Fail",
         automation::no_id,
         Use::method,
         {u"Member", u"After", u"Times", u"Number"},
         [](Surface& self, const Text& member, std::optional<std::int32_t> after,
            std::optional<std::int32_t> times, std::optional<std::int32_t> number) {
             self.desk().planned_failures.push_back(
                 {member, after.value_or(0), times.value_or(1), number.value_or(result::fail)});
         }},
        {u"Meanwhile",
         automation::no_id,
         Use::method,
         {u"Moment", u"Object", u"Member", u"Value"},
         automation::calls<&Surface::meanwhile>},
        {u"Copies",
         automation::no_id,
         Use::method,
         {u"Item", u"Count", u"Field"},
         automation::calls<&Surface::copies>},
        {u"Describe",
         automation::no_id,
         Use::method,
         {u"Item"},
         [](Surface&, const Object& item) { return description(item); }},
        {u"Filters", automation::no_id, Use::get, automation::calls<&Surface::filters>},
        {u"Raise",
         automation::no_id,
         Use::method,
         {u"Event"},
         [](Surface& self, const Text& event) {
             self.desk().application()->raise(event);  // one of the application's, alone
         }},
        {u"Calls", automation::no_id, Use::get, automation::calls<&Surface::calls>},
        {u"Forget", automation::no_id, Use::method, [](Surface& self) { self.forget(); }},
        {u"Telling", automation::no_id, Use::get, [](Surface& self) { return self.desk().telling(); }},
        {u"ResetCalls", automation::no_id, Use::method,
         [](Surface& self) { self.desk().surroundings().reset_calls(); }},
    };
    return table;
}

}  // namespace desk
