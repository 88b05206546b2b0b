#include "tests/windows/support/com_sample.h"

namespace windows::testing {
namespace {

using automation::Ignored;
using automation::Use;

Text joined(Sample&, const Value& first, const std::optional<Value>& second,
            const std::optional<Value>& third) {
    const auto shown = [](const std::optional<Value>& value) {
        return (value ? value->to_text() : u"-") + u";";
    };
    return shown(first) + shown(second) + shown(third);
}

}  // namespace

const automation::Members<Sample>& Sample::members() {
    static const automation::Members<Sample> table{
        {u"Value",
         automation::default_member,
         {u"Index"},
         [](Sample& self, const std::optional<Value>& index) {
             return index ? Value(u"at " + index->to_text()) : self.value;
         },
         [](Sample& self, Ignored, const Value& given) { self.value = given; }},
        {u"Echo",
         automation::no_id,
         Use::method,
         {u"What"},
         [](Sample&, const std::optional<Value>& what) { return what.value_or(automation::Missing{}); }},
        {u"Join", automation::no_id, Use::method, {u"First", u"Second", u"Third"}, joined},
        {u"Swap",
         automation::no_id,
         Use::method,
         {u"Left", u"Right"},
         [](Sample&, Value& left, Value& right) { std::swap(left, right); }},
        {u"Double",
         automation::no_id,
         Use::method,
         {u"Number"},
         [](Sample&, std::int32_t number) { return number * 2; }},
        {u"Fail",
         automation::no_id,
         Use::method,
         {u"Number"},
         [](Sample&, std::int32_t number) -> Value { throw Failure(number, u"Refused on purpose"); }},
        {u"Break",
         automation::no_id,
         Use::method,
         {u"How"},
         [](Sample&, const Text& how) -> Value {
             if (how == u"memory") throw std::bad_alloc();
             throw 7;
         }},
        {u"Me", automation::no_id, Use::get, [](Sample& self) { return Object(self.shared_from_this()); }},
        {u"Count", automation::no_id, Use::get, [](Sample& self) { return self.items.size(); }},
        {u"Item",
         automation::no_id,
         Use::method,
         {u"Index"},
         [](Sample& self, std::int32_t number) {
             const auto index = static_cast<std::size_t>(number);
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
         {u"What"},
         [](LaterSample&, const std::optional<Value>& what) {
             return u"later " + what.value_or(automation::Missing{}).to_text();
         }},
    };
    return table;
}

}  // namespace windows::testing
