#include "automation/automated.h"

#include <algorithm>

namespace automation {
namespace {

Value converted(const Value& value, Takes takes) {
    switch (takes) {
        case Takes::value:
            return value;
        case Takes::text:
            return value.is(Value::Type::text) ? value : Value(value.to_text());
        case Takes::integer:
            return value.to_integer();
        case Takes::boolean:
            return value.to_boolean();
        case Takes::number:
            return value.to_number();
        case Takes::date:
            return value.to_date();
        case Takes::object:
            return value.to_object();
    }
    return value;
}

std::optional<std::size_t> place_of(const MemberFacts& facts, TextView parameter) {
    const auto found = std::ranges::find_if(
        facts.parameters, [&](const Parameter& p) { return same_ignoring_case(p.name, parameter); });
    if (found == facts.parameters.end()) return std::nullopt;
    return static_cast<std::size_t>(found - facts.parameters.begin());
}

}  // namespace

MemberIds ids_of(const MemberFacts& facts, std::span<const Text> parameters) {
    MemberIds ids{.id = facts.id};
    for (const Text& parameter : parameters) {
        const std::optional<std::size_t> place = place_of(facts, parameter);
        ids.places.push_back(place ? static_cast<std::int32_t>(*place) : no_id);
    }
    return ids;
}

std::vector<Value> arrange(const MemberFacts& facts, Request& request) {
    const bool put = request.access == Access::put;
    if (put && facts.use != Use::get_put) {
        throw Failure(result::member_not_found, Text(facts.name));
    }
    std::vector<Value>& given = request.arguments;
    std::optional<Value> assigned;
    if (put) {
        if (given.empty()) throw Failure(result::bad_count, Text(facts.name));
        assigned = std::move(given.back());
        given.pop_back();
    }

    const std::size_t count = facts.parameters.size();
    std::vector<Value> rest;
    if (given.size() > count) {
        const bool property = facts.use == Use::get || facts.use == Use::get_put;
        if (put || !property || count > 0 || !request.named.empty()) {
            throw Failure(result::bad_count, Text(facts.name));
        }
        rest.assign(std::make_move_iterator(given.begin()), std::make_move_iterator(given.end()));
        given.clear();
    }
    given.resize(count, Missing{});
    for (NamedArgument& argument : request.named) {
        const std::optional<std::size_t> place = place_of(facts, argument.name);
        if (!place) throw Failure(result::unknown_name, argument.name);
        given[*place] = std::move(argument.value);
    }
    request.named.clear();

    for (std::size_t i = 0; i < count; ++i) {
        const Parameter& parameter = facts.parameters[i];
        if (given[i].is_missing()) {
            if (!parameter.optional) throw Failure(result::bad_count, Text(facts.name));
        } else {
            given[i] = converted(given[i], parameter.takes);
        }
    }
    if (assigned) given.push_back(std::move(*assigned));
    return rest;
}

Value ask_default_member(const Value& answer, std::vector<Value> arguments) {
    if (!answer.is(Value::Type::object)) throw Failure(result::bad_count);
    Request request{
        .access = Access::get, .member = {}, .id = default_member, .arguments = std::move(arguments)};
    return answer.to_object().invoke(request);
}

void throw_no_member(const Request& request) {
    const bool by_name = !request.member.empty();
    throw Failure(by_name ? result::unknown_name : result::member_not_found, Text(request.member));
}

}  // namespace automation
