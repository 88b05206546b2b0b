// The members that scripts know: a contract with those who wrote them.
#include "desk/base/desk.h"
#include "desk/outlook/application.h"
#include "desk/outlook/item.h"
#include "desk/surface/description.h"
#include "desk/surface/surface.h"

namespace desk {

using automation::Arguments;
using automation::Failure;
using automation::Takes;
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
    static const auto select_parameters = [] {
        std::vector<automation::Parameter> parameters;
        for (std::size_t i = 0; i < most_selected; ++i) parameters.push_back({u"Item", Takes::value, true});
        return parameters;
    }();
    static const automation::Members<Surface> table{
        {u"Deliver",
         automation::no_id,
         Use::method,
         {{u"Path", Takes::text}},
         [](Surface& self, const Arguments& a) {
             return Value(self.desk().deliver(a[0].to_text())->self());
         }},
        {u"Answer",
         automation::no_id,
         Use::method,
         {{u"Title", Takes::text}, {u"Fragment", Takes::text}, {u"Button", Takes::integer}},
         [](Surface& self, const Arguments& a) {
             self.desk().answers.push_back({a[0].to_text(), a[1].to_text(), a[2].to_integer()});
             return Value();
         }},
        {u"Messages", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.messages()); }},
        {u"Statuses", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.statuses()); }},
        {u"Opened", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.opened()); }},
        {u"Programs", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.programs()); }},
        {u"Displayed", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.displayed()); }},
        {u"Pump",
         automation::no_id,
         Use::method,
         {{u"Milliseconds", Takes::integer}},
         [](Surface& self, const Arguments& a) {
             self.desk().surroundings().pump(a[0].to_integer());
             return Value();
         }},
        {u"Select", automation::no_id, Use::method, select_parameters,
         [](Surface& self, const Arguments& a) {
             std::vector<Value> items;
             for (std::size_t i = 0; i < most_selected && a.has(i); ++i) items.push_back(a[i]);
             self.select(items);
             return Value();
         }},
        {u"Drag",
         automation::no_id,
         Use::method,
         {{u"Folder", Takes::object}, {u"Copies", Takes::boolean, true}},
         [](Surface& self, const Arguments& a) {
             self.drag(a[0], a.has(1) && a[1].to_boolean());
             return Value();
         }},
        {u"Press",
         automation::no_id,
         Use::method,
         {{u"Control", Takes::object}},
         [](Surface& self, const Arguments& a) {
             self.press(a[0]);
             return Value();
         }},
        {u"ContextMenu", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.context_menu()); }},
        {u"Window",
         automation::no_id,
         Use::method,
         {{u"Caption", Takes::text}},
         [](Surface& self, const Arguments& a) { return Value(self.window(a[0].to_text())); }},
        {u"Options",
         automation::no_id,
         Use::get_put,
         {{u"Name", Takes::text}},
         [](Surface& self, const Arguments& a) {
             if (a.is_put()) self.option(a[0].to_text(), a.assigned());
             return a.is_put() ? Value() : self.option(a[0].to_text());
         }},
        {u"Live",
         automation::no_id,
         Use::get,
         {{u"Kind", Takes::text, true}},
         [](Surface& self, const Arguments& a) { return self.live(a[0]); }},
        {u"Text",
         automation::no_id,
         Use::method,
         {{u"Object", Takes::object}, {u"Member", Takes::text}},
         [](Surface&, const Arguments& a) { return as_text(a[0].to_object().get(a[1].to_text())); }},
        {u"Snapshot",
         automation::no_id,
         Use::method,
         {{u"Path", Takes::text}},
         [](Surface& self, const Arguments& a) {
             self.desk().surroundings().snapshot(a[0].to_text());
             return Value();
         }},
        // beyond the contract: for the desk's own tests and benchmarks
        {u"Fail",
         automation::no_id,
         Use::method,
         {{u"Member", Takes::text},
          {u"After", Takes::integer, true},
          {u"Times", Takes::integer, true},
          {u"Number", Takes::integer, true}},
         [](Surface& self, const Arguments& a) {
             self.desk().planned_failures.push_back({a[0].to_text(), a.has(1) ? a[1].to_integer() : 0,
                                                     a.has(2) ? a[2].to_integer() : 1,
                                                     a.has(3) ? a[3].to_integer() : result::fail});
             return Value();
         }},
        {u"Meanwhile",
         automation::no_id,
         Use::method,
         {{u"Moment", Takes::text},
          {u"Object", Takes::object},
          {u"Member", Takes::text},
          {u"Value", Takes::value, true}},
         [](Surface& self, const Arguments& a) {
             self.meanwhile(a[0].to_text(), a[1].to_object(), a[2].to_text(), a[3]);
             return Value();
         }},
        {u"Copies",
         automation::no_id,
         Use::method,
         {{u"Item", Takes::object}, {u"Count", Takes::integer}, {u"Field", Takes::text}},
         [](Surface& self, const Arguments& a) {
             self.copies(a[0].to_object(), a[1].to_integer(), a[2].to_text());
             return Value();
         }},
        {u"Describe",
         automation::no_id,
         Use::method,
         {{u"Item", Takes::object}},
         [](Surface&, const Arguments& a) { return Value(description(a[0].to_object())); }},
        {u"Filters", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.filters()); }},
        {u"Raise",
         automation::no_id,
         Use::method,
         {{u"Event", Takes::text}},
         [](Surface& self, const Arguments& a) {
             self.desk().application()->raise(a[0].to_text());  // one of the application's, alone
             return Value();
         }},
        {u"Calls", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.calls()); }},
        {u"Telling", automation::no_id, Use::get,
         [](Surface& self, const Arguments&) { return Value(self.desk().telling()); }},
        {u"ResetCalls", automation::no_id, Use::method,
         [](Surface& self, const Arguments&) {
             self.desk().surroundings().reset_calls();
             return Value();
         }},
    };
    return table;
}

}  // namespace desk
