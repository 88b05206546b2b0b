#include <algorithm>
#include <cmath>
#include <compare>

#include "desk/filter/patterns.h"
#include "desk/filter/tree.h"

namespace desk::filter {
namespace {

using automation::Value;

/// Dates are compared by whole seconds: their fractions of a day are seldom exact.
double seconds_of(automation::Date date) { return std::round(date.days * 86400.0); }

std::partial_ordering compare_texts(automation::TextView left, automation::TextView right) {
    return automation::compare_ignoring_case(left, right) <=> 0;
}

/// Signs of an answer at the beginning of a subject.
constexpr automation::TextView answer_signs[] = {u"RE: ", u"FW: "};

automation::TextView without_sign(automation::TextView subject) {
    for (const automation::TextView sign : answer_signs) {
        if (automation::same_ignoring_case(subject.substr(0, sign.size()), sign)) {
            return subject.substr(sign.size());
        }
    }
    return subject;
}

/// A text that was not turned into a boolean when the filter was read is yes if there is any.
bool boolean_of(const Literal& literal) {
    if (literal.value.is(Value::Type::text)) return !literal.spelling.empty();
    return literal.value.to_boolean();
}

/// "No date" counts as the host shows it: 1 January 4501.
constexpr automation::Date no_date{949998};

/// Compares what isn't set: as the empty value of what the field holds, or else of the literal's type.
std::partial_ordering compare_unset(const Literal& literal, Content content) {
    switch (content) {
        case Content::date:
            return seconds_of(no_date) <=> seconds_of(literal.date.value_or(no_date));
        case Content::number:
            return 0.0 <=> literal.value.to_number();
        case Content::yes_no:
            return 0 <=> static_cast<int>(boolean_of(literal));
        default:
            if (literal.quoted) return compare_texts(u"", literal.spelling);
            return 0.0 <=> literal.value.to_number();
    }
}

/// Compares a value with a literal that is turned into the value's type. Throws `automation::Failure` if the
/// literal has no such form.
std::partial_ordering compare(const Value& value, const Literal& literal, Content content) {
    switch (value.type()) {
        case Value::Type::empty:
        case Value::Type::null:
            return compare_unset(literal, content);
        case Value::Type::boolean:
            return static_cast<int>(value.to_boolean()) <=> static_cast<int>(boolean_of(literal));
        case Value::Type::integer:
        case Value::Type::number:
            return value.to_number() <=> literal.value.to_number();
        case Value::Type::date:
            return seconds_of(value.to_date()) <=>
                   seconds_of(literal.date ? *literal.date : literal.value.to_date());
        case Value::Type::text:
            return compare_texts(value.to_text(), literal.spelling);
        default:
            return std::partial_ordering::unordered;
    }
}

/// Nothing, not an order, is what a value that can't be compared answers: no operator holds for it, `<>`
/// neither.
bool holds(Operator op, std::partial_ordering order) {
    if (order == std::partial_ordering::unordered) return false;
    switch (op) {
        case Operator::equal:
            return order == 0;
        case Operator::unequal:
            return order != 0;
        case Operator::less:
            return order < 0;
        case Operator::greater:
            return order > 0;
        case Operator::at_most:
            return order <= 0;
        case Operator::at_least:
            return order >= 0;
        default:
            return false;
    }
}

/// The single texts of a value of keywords.
std::vector<automation::Text> keywords_of(automation::TextView value) {
    std::vector<automation::Text> all;
    while (!value.empty()) {
        const std::size_t end = std::min(value.find_first_of(u",;"), value.size());
        if (automation::Text one = automation::trimmed(value.substr(0, end)); !one.empty()) {
            all.push_back(std::move(one));
        }
        value.remove_prefix(std::min(end + 1, value.size()));
    }
    return all;
}

/// Brackets find a phrase in a keyword, or all of the keywords together; @SQL finds a whole keyword.
bool is_keyword(const Test& test, automation::TextView value) {
    if (automation::same_ignoring_case(value, test.literal.spelling)) return true;
    return std::ranges::any_of(keywords_of(value), [&](const automation::Text& keyword) {
        return test.is_address ? automation::same_ignoring_case(keyword, test.literal.spelling)
                               : has_phrase(keyword, test.literal.parts);
    });
}

/// A subject is equal to itself, and to what stands behind the sign of an answer.
std::partial_ordering compare_subject(automation::TextView subject, automation::TextView other) {
    if (automation::same_ignoring_case(subject, other)) return std::partial_ordering::equivalent;
    return compare_texts(without_sign(subject), other);
}

bool is_like_subject(automation::TextView subject, const std::vector<automation::Text>& pieces) {
    return is_like(subject, pieces) || is_like(without_sign(subject), pieces);
}

bool is_like_keyword(automation::TextView value, const std::vector<automation::Text>& pieces) {
    return is_like(value, pieces) ||
           std::ranges::any_of(keywords_of(value),
                               [&](const automation::Text& one) { return is_like(one, pieces); });
}

bool holds(const Test& test, const Value& value) {
    try {
        if (test.content == Content::subject) {
            const automation::Text subject = value.to_text();
            if (test.op == Operator::like) return is_like_subject(subject, test.literal.parts);
            if (test.op < Operator::like) {
                return holds(test.op, compare_subject(subject, test.literal.spelling));
            }
        }
        if (test.content == Content::keywords) {
            const automation::Text keywords = value.to_text();
            if (test.op == Operator::like) return is_like_keyword(keywords, test.literal.parts);
            if (test.op == Operator::equal) return is_keyword(test, keywords);
            if (test.op == Operator::unequal) return !is_keyword(test, keywords);
        }
        switch (test.op) {
            case Operator::like:
                return is_like(value.to_text(), test.literal.parts);
            case Operator::phrase:
                return has_phrase(value.to_text(), test.literal.parts);
            case Operator::start:
                return has_starts(value.to_text(), test.literal.parts);
            default:
                return holds(test.op, compare(value, test.literal, test.content));
        }
    } catch (const automation::Failure&) {
        return false;  // the literal has no form in the value's type, so nothing equals it
    }
}

bool is_empty_text(const Value& value) { return value.is(Value::Type::text) && value.to_text().empty(); }

bool matches_test(const Test& test, const Record& record) {
    if (!test.is_address) return holds(test, record.field(test.name).value_or(Value()));

    const std::optional<Value> value = record.property(test.name);
    const bool lacking = !value || value->is(Value::Type::empty) || value->is(Value::Type::null);
    const bool is_null = lacking || is_empty_text(*value);
    if (test.op == Operator::null) return is_null;
    if (test.op == Operator::not_null) return !is_null;
    return !lacking && holds(test, *value);
}

bool matches_node(const Filter::Node& node, const Record& record) {
    if (const auto* test = std::get_if<Test>(&node.content)) return matches_test(*test, record);
    if (const auto* negation = std::get_if<Filter::Node::Negation>(&node.content)) {
        return !matches_node(*negation->child, record);
    }
    const auto& group = std::get<Filter::Node::Group>(node.content);
    auto child_matches = [&](const Filter::Node& child) { return matches_node(child, record); };
    return group.all ? std::ranges::all_of(group.children, child_matches)
                     : std::ranges::any_of(group.children, child_matches);
}

using Candidates = std::optional<std::vector<Equality>>;

Candidates candidates_of(const Filter::Node& node, const Filter::Usable& usable);

Candidates candidates_of_test(const Test& test, const Filter::Usable& usable) {
    const bool is_equality = test.op == Operator::equal && test.literal.quoted;
    const bool is_plain_like = test.op == Operator::like && test.literal.parts.size() == 1;
    if (!is_equality && !is_plain_like) return std::nullopt;
    if (test.content == Content::keywords) return std::nullopt;
    Equality equality{test.name, test.is_address, test.literal.spelling};
    if (usable && !usable(equality)) return std::nullopt;
    std::vector<Equality> all{equality};
    if (test.content != Content::subject) return all;
    for (const automation::TextView sign : answer_signs) {
        all.push_back(equality);
        all.back().value = automation::Text(sign) + equality.value;
    }
    return all;
}

/// All of them must hold, so the candidates of any one serve; the shortest list is the cheapest.
Candidates candidates_of_all(const std::vector<Filter::Node>& children, const Filter::Usable& usable) {
    Candidates best;
    for (const Filter::Node& child : children) {
        Candidates candidates = candidates_of(child, usable);
        if (candidates && (!best || candidates->size() < best->size())) best = std::move(candidates);
    }
    return best;
}

Candidates candidates_of_any(const std::vector<Filter::Node>& children, const Filter::Usable& usable) {
    std::vector<Equality> all;
    for (const Filter::Node& child : children) {
        Candidates candidates = candidates_of(child, usable);
        if (!candidates) return std::nullopt;
        std::ranges::move(*candidates, std::back_inserter(all));
    }
    return all;
}

Candidates candidates_of(const Filter::Node& node, const Filter::Usable& usable) {
    if (const auto* test = std::get_if<Test>(&node.content)) return candidates_of_test(*test, usable);
    const auto* group = std::get_if<Filter::Node::Group>(&node.content);
    if (!group) return std::nullopt;
    return group->all ? candidates_of_all(group->children, usable)
                      : candidates_of_any(group->children, usable);
}

}  // namespace

Filter::Filter(std::unique_ptr<Node> root) : root_(std::move(root)) {}
Filter::Filter(Filter&&) noexcept = default;
Filter& Filter::operator=(Filter&&) noexcept = default;
Filter::~Filter() = default;

bool Filter::matches(const Record& record) const { return matches_node(*root_, record); }

Candidates Filter::candidates(const Usable& usable) const { return candidates_of(*root_, usable); }

}  // namespace desk::filter
