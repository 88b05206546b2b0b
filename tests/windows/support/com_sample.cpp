#include "tests/windows/support/com_sample.h"

namespace windows::testing {
namespace {

using automation::Arguments;
using automation::Takes;
using automation::Use;

Value joined(const Arguments& arguments) {
    Text text;
    for (std::size_t i = 0; i < 3; ++i) text += (arguments.has(i) ? arguments[i].to_text() : u"-") + u";";
    return text;
}

}  // namespace

const automation::Members<Sample>& Sample::members() {
    static const automation::Members<Sample> table{
        {u"Value",
         automation::default_member,
         Use::get_put,
         {{u"Index", Takes::value, true}},
         [](Sample& self, const Arguments& arguments) -> Value {
             if (arguments.is_put()) {
                 self.value = arguments.assigned();
                 return {};
             }
             return arguments.has(0) ? Value(u"at " + arguments[0].to_text()) : self.value;
         }},
        {u"Echo",
         automation::no_id,
         Use::method,
         {{u"What", Takes::value, true}},
         [](Sample&, const Arguments& arguments) { return arguments[0]; }},
        {u"Join",
         automation::no_id,
         Use::method,
         {{u"First"}, {u"Second", Takes::value, true}, {u"Third", Takes::value, true}},
         [](Sample&, const Arguments& arguments) { return joined(arguments); }},
        {u"Swap",
         automation::no_id,
         Use::method,
         {{u"Left"}, {u"Right"}},
         [](Sample&, const Arguments& arguments) -> Value {
             std::swap(arguments[0], arguments[1]);
             return {};
         }},
        {u"Double",
         automation::no_id,
         Use::method,
         {{u"Number", Takes::integer}},
         [](Sample&, const Arguments& arguments) -> Value { return arguments[0].to_integer() * 2; }},
        {u"Fail",
         automation::no_id,
         Use::method,
         {{u"Number", Takes::integer}},
         [](Sample&, const Arguments& arguments) -> Value {
             throw Failure(arguments[0].to_integer(), u"Refused on purpose");
         }},
        {u"Break",
         automation::no_id,
         Use::method,
         {{u"How", Takes::text}},
         [](Sample&, const Arguments& arguments) -> Value {
             if (arguments[0].to_text() == u"memory") throw std::bad_alloc();
             throw 7;
         }},
        {u"Me", automation::no_id, Use::get,
         [](Sample& self, const Arguments&) -> Value { return Object(self.shared_from_this()); }},
        {u"Count", automation::no_id, Use::get,
         [](Sample& self, const Arguments&) -> Value {
             return static_cast<std::int32_t>(self.items.size());
         }},
        {u"Item",
         automation::no_id,
         Use::method,
         {{u"Index", Takes::integer}},
         [](Sample& self, const Arguments& arguments) -> Value {
             const auto index = static_cast<std::size_t>(arguments[0].to_integer());
             if (index < 1 || index > self.items.size()) throw Failure(automation::result::bad_index);
             if (self.items[index - 1] == Value(broken)) throw Failure(automation::result::object_deleted);
             return self.items[index - 1];
         }},
    };
    return table;
}

bool Sample::has_events(const automation::Guid& interface_id) { return interface_id == sample_interface.id; }

std::int32_t Sample::subscribe(const automation::Guid& interface_id, const Object& sink) {
    if (!has_events(interface_id)) throw Failure(automation::result::no_connection);
    if (!sink) throw Failure(automation::result::invalid_argument);
    sinks[++last_cookie_] = sink;
    return last_cookie_;
}

void Sample::unsubscribe(const automation::Guid&, std::int32_t cookie) {
    if (sinks.erase(cookie) == 0) throw Failure(automation::result::no_connection);
}

void Sample::raise(std::int32_t id, std::vector<Value>& arguments, std::uint32_t by_reference) {
    const auto now = sinks;
    for (const auto& [cookie, sink] : now) {
        Request request{.access = Access::call,
                        .member = {},
                        .id = id,
                        .arguments = arguments,
                        .by_reference = by_reference};
        sink.invoke(request);
        arguments = request.arguments;
    }
}

const automation::Members<LaterSample>& LaterSample::members() {
    static const automation::Members<LaterSample> table{
        {u"Echo",
         0x777,
         Use::method,
         {{u"What", Takes::value, true}},
         [](LaterSample&, const Arguments& arguments) -> Value {
             return u"later " + arguments[0].to_text();
         }},
    };
    return table;
}

}  // namespace windows::testing
