// Tables of members: what the signatures of their codes say of parameters, and what a call that doesn't fit
// meets.
#include <gtest/gtest.h>

#include <functional>

#include "automation/automated.h"

namespace automation {
namespace {

/// Shows what came in: "text:a", "integer:1", nothing as "-".
std::string told(const Value& value) {
    switch (value.type()) {
        case Value::Type::missing:
            return "-";
        case Value::Type::object:
            return value.to_object() ? "object" : "nothing";
        case Value::Type::empty:
            return "empty";
        default:
            return to_utf8(value.to_text());
    }
}

struct SampleObject : Object {
    explicit SampleObject(const Object& object) : Object(object) {}
};

/// A class whose members have codes of all kinds of signatures.
class Sample : public Automated<Sample> {
  public:
    static const Members<Sample>& members();

    Text join(const Text& first, std::optional<std::int32_t> second) const {
        return name + u"," + first + u"," + (second ? to_text(*second) : u"-");
    }
    void forget() { name.clear(); }

    Text name = u"Ann";
    std::vector<Value> at{1, 2, 3};
};

template <class T>
Value same(Sample&, const T& value) {
    return value;
}

template <class T>
Value if_given(Sample&, const std::optional<T>& value) {
    return value ? Value(*value) : Value(u"left out");
}

const Members<Sample>& Sample::members() {
    static const Members<Sample> table{
        {u"Name", 1, [](Sample& self) { return self.name; },
         [](Sample& self, const Text& given) { self.name = given; }},
        {u"At",
         2,
         {u"Index"},
         [](Sample& self, std::int32_t index) { return self.at.at(static_cast<std::size_t>(index)); },
         [](Sample& self, std::int32_t index, const Value& value) {
             self.at.at(static_cast<std::size_t>(index)) = value;
         }},
        {u"Count", no_id, Use::get, [](Sample& self) { return self.at.size(); }},
        {u"Me", no_id, Use::get, [](Sample& self) { return Object(self.shared_from_this()); }},
        {u"Join", no_id, Use::method, {u"First", u"Second"}, calls<&Sample::join>},
        {u"Forget", no_id, Use::method, calls<&Sample::forget>},
        {u"Value", no_id, Use::method, {u"What"}, same<Value>},
        {u"Text", no_id, Use::method, {u"What"}, same<Text>},
        {u"View", no_id, Use::method, {u"What"}, [](Sample&, TextView what) { return Value(what); }},
        {u"Integer", no_id, Use::method, {u"What"}, same<std::int32_t>},
        {u"Boolean", no_id, Use::method, {u"What"}, same<bool>},
        {u"Number", no_id, Use::method, {u"What"}, same<double>},
        {u"Date", no_id, Use::method, {u"What"}, same<Date>},
        {u"Object", no_id, Use::method, {u"What"}, same<Object>},
        {u"Face", no_id, Use::method, {u"What"}, same<SampleObject>},
        {u"PerhapsValue", no_id, Use::method, {u"What"}, if_given<Value>},
        {u"PerhapsText", no_id, Use::method, {u"What"}, if_given<Text>},
        {u"PerhapsInteger", no_id, Use::method, {u"What"}, if_given<std::int32_t>},
        {u"PerhapsObject", no_id, Use::method, {u"What"}, if_given<Object>},
        {u"Nothing", no_id, Use::method, {u"Flag", u"Other"}, [](Sample&, std::optional<bool>, Ignored) {}},
        {u"Swap",
         no_id,
         Use::method,
         {u"Left", u"Right"},
         [](Sample&, Value& left, Value& right) { std::swap(left, right); }},
        {u"Several",
         no_id,
         Use::method,
         {u"First", u"Other"},
         [](Sample&, std::int32_t first, UpTo<3> others) {
             return to_text(first) + u" and " + to_text(others.values.size());
         }},
    };
    return table;
}

Value parameter_of_a_kind(Takes takes) {
    switch (takes) {
        case Takes::value:
            return u"value";
        case Takes::text:
            return u"text";
        case Takes::integer:
            return u"integer";
        case Takes::boolean:
            return u"boolean";
        case Takes::number:
            return u"number";
        case Takes::date:
            return u"date";
        case Takes::object:
            return u"object";
    }
    return {};
}

TEST(MemberTables, TellOfParametersWhatTheirTypesSay) {
    struct Case {
        TextView member;
        const char* parameters;
    };
    const Case cases[] = {{u"Name", ""},
                          {u"At", "Index integer;"},
                          {u"Join", "First text;Second [integer];"},
                          {u"Forget", ""},
                          {u"Value", "What value;"},
                          {u"Text", "What text;"},
                          {u"View", "What text;"},
                          {u"Boolean", "What boolean;"},
                          {u"Number", "What number;"},
                          {u"Date", "What date;"},
                          {u"Object", "What object;"},
                          {u"Face", "What object;"},
                          {u"PerhapsValue", "What [value];"},
                          {u"PerhapsObject", "What [object];"},
                          {u"Nothing", "Flag [boolean];Other [value];"},
                          {u"Swap", "Left value;Right value;"},
                          {u"Several", "First integer;Other [value];Other [value];Other [value];"}};
    for (const Case& one : cases) {
        std::string parameters;
        for (const Parameter& parameter : Sample::members().find(one.member)->parameters) {
            const std::string takes = told(parameter_of_a_kind(parameter.takes));
            parameters +=
                to_utf8(parameter.name) + " " + (parameter.optional ? "[" + takes + "]" : takes) + ";";
        }
        EXPECT_EQ(parameters, one.parameters) << to_utf8(one.member);
    }
    EXPECT_EQ(Sample::members().find(u"Name")->use, Use::get_put);
    EXPECT_EQ(Sample::members().find(u"Count")->use, Use::get);
}

/// What a call answers, or the number with which it fails.
struct Answer {
    std::string text{};
    std::int32_t failure = 0;
    friend bool operator==(const Answer&, const Answer&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Answer& answer) {
        return out << answer.text << " " << std::hex << answer.failure;
    }
};

Answer ask(Sample& sample, Request request) {
    try {
        return {told(sample.invoke(request))};
    } catch (const Failure& failure) {
        return {"", failure.number()};
    }
}

TEST(MemberTables, GiveTheCodeWhatItTakesOrSayWhatDoesNotFit) {
    const auto sample = std::make_shared<Sample>();
    const Value object{Object(sample)};
    struct Case {
        TextView member;
        std::vector<Value> given;
        Answer answer;
    };
    const Case cases[] = {
        {u"Join", {u"a", 2}, {"Ann,a,2"}},
        {u"Join", {7, u"2"}, {"Ann,7,2"}},
        {u"Join", {u"a"}, {"Ann,a,-"}},
        {u"Join", {u"a", Missing{}}, {"Ann,a,-"}},
        // too few, too many
        {u"Join", {}, {"", result::bad_count}},
        {u"Join", {Missing{}, 2}, {"", result::bad_count}},
        {u"Join", {u"a", 2, 3}, {"", result::bad_count}},
        {u"Forget", {1}, {"", result::bad_count}},
        {u"Name", {1}, {"", result::bad_count}},
        {u"At", {}, {"", result::bad_count}},
        // of another type
        {u"Join", {u"a", u"b"}, {"", result::type_mismatch}},
        {u"Join", {u"a", object}, {"", result::type_mismatch}},
        {u"Join", {object, 2}, {"", result::type_mismatch}},
        {u"Join", {u"a", 1e10}, {"", result::overflow}},
        {u"Integer", {u"12"}, {"12"}},
        {u"Integer", {2.5}, {"2"}},
        {u"Integer", {u"twelve"}, {"", result::type_mismatch}},
        {u"Integer", {Missing{}}, {"", result::bad_count}},
        {u"Boolean", {1}, {"True"}},
        {u"Boolean", {u"perhaps"}, {"", result::type_mismatch}},
        {u"Number", {u"1.5"}, {"1.5"}},
        {u"Number", {u"much"}, {"", result::type_mismatch}},
        {u"Date", {u"2026-03-03"}, {"2026-03-03 00:00:00"}},
        {u"Date", {u"soon"}, {"", result::type_mismatch}},
        {u"Text", {true}, {"True"}},
        {u"Text", {Null{}}, {"", result::type_mismatch}},
        {u"View", {u"a text of some length"}, {"a text of some length"}},
        {u"Object", {object}, {"object"}},
        {u"Object", {Value()}, {"nothing"}},
        {u"Object", {u"a"}, {"", result::type_mismatch}},
        {u"Face", {object}, {"object"}},
        {u"Face", {1}, {"", result::type_mismatch}},
        {u"Value", {Value()}, {"empty"}},
        // left out
        {u"PerhapsValue", {}, {"left out"}},
        {u"PerhapsValue", {Missing{}}, {"left out"}},
        {u"PerhapsValue", {Value()}, {"empty"}},
        {u"PerhapsText", {}, {"left out"}},
        {u"PerhapsText", {u""}, {""}},
        {u"PerhapsInteger", {Missing{}}, {"left out"}},
        {u"PerhapsInteger", {Value()}, {"0"}},
        {u"PerhapsInteger", {u"x"}, {"", result::type_mismatch}},
        {u"PerhapsObject", {}, {"left out"}},
        {u"PerhapsObject", {Object()}, {"nothing"}},
        // several
        {u"Several", {1}, {"1 and 0"}},
        {u"Several", {1, u"a", u"b", u"c"}, {"1 and 3"}},
        {u"Several", {1, u"a", Missing{}, u"c"}, {"1 and 1"}},
        {u"Several", {1, 2, 3, 4, 5}, {"", result::bad_count}},
        {u"Several", {}, {"", result::bad_count}},
        // answers
        {u"Count", {}, {"3"}},
        {u"Me", {}, {"object"}},
        {u"Forget", {}, {"empty"}},
        {u"Nothing", {}, {"empty"}},
        {u"Nothing", {Missing{}, u"a"}, {"empty"}},
        {u"Nothing", {u"a"}, {"", result::type_mismatch}},
        {u"Nothing", {true, 1, 2}, {"", result::bad_count}},
    };
    for (const Case& one : cases) {
        sample->name = u"Ann";
        EXPECT_EQ(ask(*sample, {.access = Access::call, .member = one.member, .arguments = one.given}),
                  one.answer)
            << to_utf8(one.member) << " with " << one.given.size();
    }
}

TEST(MemberTables, TakeNamedArguments) {
    const auto sample = std::make_shared<Sample>();
    EXPECT_EQ(ask(*sample, {.member = u"Join", .named = {{u"second", 2}, {u"first", u"a"}}}),
              Answer{"Ann,a,2"});
    EXPECT_EQ(ask(*sample, {.member = u"Join", .arguments = {u"a"}, .named = {{u"Third", 2}}}),
              (Answer{"", result::unknown_name}));
}

TEST(MemberTables, WriteWithTheSecondCode) {
    const auto sample = std::make_shared<Sample>();
    const auto put = [&](TextView member, std::vector<Value> given) {
        return ask(*sample, {.access = Access::put, .member = member, .arguments = std::move(given)}).failure;
    };
    EXPECT_EQ(put(u"Name", {5}), 0);
    EXPECT_EQ(sample->name, u"5");
    EXPECT_EQ(put(u"At", {1, u"two"}), 0);
    EXPECT_EQ(sample->at, (std::vector<Value>{1, u"two", 3}));
    EXPECT_EQ(put(u"Name", {}), result::bad_count);
    EXPECT_EQ(put(u"Name", {1, 2}), result::bad_count);
    EXPECT_EQ(put(u"Name", {Object(sample)}), result::type_mismatch);
    EXPECT_EQ(put(u"At", {2}), result::bad_count);
    EXPECT_EQ(put(u"At", {u"one", 2}), result::type_mismatch);
    EXPECT_EQ(put(u"Count", {2}), result::member_not_found);
    EXPECT_EQ(put(u"Forget", {2}), result::member_not_found);
}

TEST(MemberTables, LetTheCodeChangeTheCallersArguments) {
    const auto sample = std::make_shared<Sample>();
    Request request{.member = u"Swap", .arguments = {1, u"two"}, .by_reference = 3};
    sample->invoke(request);
    EXPECT_EQ(request.arguments, (std::vector<Value>{u"two", 1}));
}

}  // namespace
}  // namespace automation
