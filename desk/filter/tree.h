// A filter that was read, as a tree. Chains of And or Or are one node, so only parentheses and Not make it
// deep.
#pragma once

#include <memory>
#include <variant>
#include <vector>

#include "desk/filter/filter.h"

namespace desk::filter {

enum class Operator { equal, unequal, less, greater, at_most, at_least, like, phrase, start, null, not_null };

/// The value that a field is compared with.
struct Literal {
    automation::Value value;
    automation::Text spelling;               ///< as a text field sees it
    bool quoted = false;                     ///< a text; else a number or a boolean
    std::optional<automation::Date> date{};  ///< what it says as a date
    std::vector<automation::Text> parts{};   ///< pieces of `like`, words of `phrase` and `start`
};

/// One condition.
struct Test {
    automation::Text name;
    bool is_address = false;  ///< a schema address instead of a bracketed name
    Operator op = Operator::equal;
    Literal literal;
    Content content = Content::anything;
};

struct Filter::Node {
    /// All or any of the children.
    struct Group {
        bool all = true;
        std::vector<Node> children;
    };
    struct Negation {
        std::unique_ptr<Node> child;
    };

    std::variant<Test, Group, Negation> content;
};

}  // namespace desk::filter
