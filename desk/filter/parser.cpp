#include <algorithm>
#include <charconv>

#include "desk/filter/date_macros.h"
#include "desk/filter/lexer.h"
#include "desk/filter/patterns.h"
#include "desk/filter/tree.h"

namespace desk::filter {
namespace {

enum class Language { bracketed, sql };

constexpr automation::TextView sql_head = u"@SQL=";  // in these letters alone

/// Levels of parentheses and `Not`: enough for any filter made by hand, few enough for any stack.
constexpr int most_levels = 200;

struct OperatorRow {
    automation::TextView spelling;
    Operator op;
    bool sql_only;
    bool searches_words;
};
constexpr OperatorRow operator_rows[] = {
    {u"=", Operator::equal, false, false},
    {u"<>", Operator::unequal, false, false},
    {u"<", Operator::less, false, false},
    {u">", Operator::greater, false, false},
    {u"<=", Operator::at_most, false, false},
    {u">=", Operator::at_least, false, false},
    {u"Like", Operator::like, true, false},
    {u"Is", Operator::null, true, false},
    {u"ci_phrasematch", Operator::phrase, true, true},
    {u"ci_startswith", Operator::start, true, true},
};

struct BooleanRow {
    automation::TextView word;
    bool value;
};
constexpr BooleanRow boolean_rows[] = {{u"True", true},   {u"Yes", true}, {u"On", true},
                                       {u"False", false}, {u"No", false}, {u"Off", false}};

automation::Text in_quotes(automation::TextView text) { return u"\"" + automation::Text(text) + u"\""; }

class Parser {
  public:
    Parser(automation::TextView text, const Host& host, Words words)
        : language_(text.starts_with(sql_head) ? Language::sql : Language::bracketed),
          host_(host),
          words_(words),
          lexer_(text, language_ == Language::sql ? sql_head.size() : 0) {
        advance();
    }

    Filter::Node whole() {
        if (token_.kind == Token::Kind::end) refuse(token_.position, u"The filter is empty.");
        Filter::Node node = any_of();
        if (token_.kind == Token::Kind::close)
            refuse(token_.position, u"A parenthesis is closed that is not open.");
        if (token_.kind != Token::Kind::end) {
            refuse(token_.position,
                   u"\"And\" or \"Or\" is expected instead of " + in_quotes(token_.text) + u".");
        }
        return node;
    }

  private:
    void advance() { token_ = lexer_.next(); }

    bool at_word(automation::TextView word) const {
        return token_.kind == Token::Kind::word && automation::same_ignoring_case(token_.text, word);
    }

    bool take_word(automation::TextView word) {
        if (!at_word(word)) return false;
        advance();
        return true;
    }

    Filter::Node any_of() {
        return chain(false, u"Or", [this] { return all_of(); });
    }

    Filter::Node all_of() {
        return chain(true, u"And", [this] { return negated(); });
    }

    template <typename Part>
    Filter::Node chain(bool all, automation::TextView word, Part part) {
        Filter::Node first = part();
        if (!at_word(word)) return first;
        Filter::Node::Group group{all, {}};
        group.children.push_back(std::move(first));
        while (take_word(word)) group.children.push_back(part());
        return {std::move(group)};
    }

    Filter::Node negated() {
        const std::size_t position = token_.position;
        if (take_word(u"Not")) {
            enter(position);
            Filter::Node node{Filter::Node::Negation{std::make_unique<Filter::Node>(negated())}};
            --level_;
            return node;
        }
        if (token_.kind == Token::Kind::percent) return date_macro();
        if (token_.kind != Token::Kind::open) return {test()};
        enter(position);
        advance();
        Filter::Node node = any_of();
        if (token_.kind != Token::Kind::close) refuse(position, u"A parenthesis is not closed.");
        advance();
        --level_;
        return node;
    }

    void enter(std::size_t position) {
        if (++level_ > most_levels) refuse(position, u"The filter is nested too deeply.");
    }

    Test test() {
        Test test = subject();
        const OperatorRow& row = operation();
        test.op = row.op;
        if (row.op == Operator::null) {
            if (take_word(u"Not")) test.op = Operator::not_null;
            if (!take_word(u"Null"))
                refuse(token_.position, u"\"Null\" or \"Not Null\" is expected after \"Is\".");
            return test;
        }
        const std::size_t position = token_.position;
        test.literal = literal();
        const bool searches_text = row.searches_words || row.op == Operator::like;
        if (searches_text && !test.literal.quoted) {
            refuse(position, in_quotes(row.spelling) + u" needs a text between apostrophes.");
        }
        if (row.op == Operator::like) test.literal.parts = pieces_of(test.literal.spelling);
        if (row.searches_words) test.literal.parts = words_of(test.literal.spelling);
        if (!searches_text) fit(test, position);
        return test;
    }

    /// Turns the value into what the field holds.
    void fit(Test& test, std::size_t position) const {
        Literal& literal = test.literal;
        const bool may_be_date = test.content == Content::date || test.content == Content::anything;
        if (literal.quoted && may_be_date) literal.date = host_.date_of(literal.spelling);
        switch (test.content) {
            case Content::date:
                if (!literal.date) refuse(position, in_quotes(literal.spelling) + u" is no date.");
                break;
            case Content::number:
                if (literal.quoted) literal.value = number_of(test, position);
                break;
            case Content::yes_no:
                if (literal.quoted) literal.value = truth_of(literal, position);
                break;
            case Content::keywords:
                if (language_ == Language::bracketed && literal.spelling.empty()) {
                    refuse(position, u"Only an @SQL filter finds what has no keywords.");
                }
                literal.parts = words_of(literal.spelling);
                break;
            default:
                break;
        }
    }

    automation::Value number_of(const Test& test, std::size_t position) const {
        const automation::Text& text = test.literal.spelling;
        if (const auto named = host_.named_number(test.name, test.is_address, text)) return *named;
        try {
            return test.literal.value.to_number();
        } catch (const automation::Failure&) {
            refuse(position, in_quotes(text) + u" is no number.");
        }
    }

    /// The bracketed language takes each text that is there for yes, "No" too; @SQL knows numbers alone.
    automation::Value truth_of(const Literal& literal, std::size_t position) const {
        if (language_ == Language::bracketed) return !literal.spelling.empty();
        if (literal.spelling == u"0") return false;
        if (literal.spelling == u"1") return true;
        refuse(position, u"0 or 1 is expected.");
    }

    /// `%today("property")%` and its family: the property's time is in a span of the user's days.
    Filter::Node date_macro() {
        const std::size_t position = token_.position;
        if (language_ != Language::sql) refuse(position, u"A date macro belongs to @SQL filters.");
        advance();
        const std::optional<Days> days = days_of_macro(token_.text, host_.now());
        if (token_.kind != Token::Kind::word || !days) refuse(token_.position, u"A date macro is unknown.");
        advance();
        take(Token::Kind::open, u"The property of a date macro stands between parentheses.");
        Test from = subject();
        take(Token::Kind::close, u"The property of a date macro stands between parentheses.");
        take(Token::Kind::percent, u"A date macro ends with a percent sign.");
        Test until = from;
        from.op = Operator::at_least;
        from.literal.value = host_.to_utc(days->first);
        until.op = Operator::less;
        until.literal.value = host_.to_utc(days->end);
        Filter::Node::Group span{true, {}};
        span.children.push_back({std::move(from)});
        span.children.push_back({std::move(until)});
        return {std::move(span)};
    }

    void take(Token::Kind kind, automation::TextView otherwise) {
        if (token_.kind != kind) refuse(token_.position, otherwise);
        advance();
    }

    /// The field or property that a condition is about.
    Test subject() {
        const bool is_address = token_.kind == Token::Kind::quoted && token_.delimiter == u'"';
        if (language_ == Language::sql) {
            if (token_.kind == Token::Kind::field) {
                refuse(token_.position, u"A field in brackets can't stand in an @SQL filter.");
            }
            if (!is_address) refuse(token_.position, u"A property name in double quotes is expected.");
            if (token_.text.empty()) refuse(token_.position, u"A property name is empty.");
            if (!host_.knows_address(token_.text)) {
                refuse(token_.position, u"The property " + in_quotes(token_.text) + u" is unknown.");
            }
        } else {
            if (is_address) {
                refuse(token_.position,
                       u"A field in brackets is expected; a property name in quotes needs @SQL=.");
            }
            if (token_.kind != Token::Kind::field)
                refuse(token_.position, u"A field in brackets is expected.");
            if (!host_.knows(token_.text)) {
                refuse(token_.position, u"The field " + in_quotes(token_.text) + u" is unknown.");
            }
            if (!host_.takes(token_.text)) {
                refuse(token_.position,
                       u"The field " + in_quotes(token_.text) + u" can't stand in a filter.");
            }
        }
        const Content content = host_.content(token_.text, is_address);
        Test test{std::move(token_.text), is_address, Operator::equal, {}, content};
        advance();
        return test;
    }

    const OperatorRow& operation() {
        const bool possible = token_.kind == Token::Kind::sign || token_.kind == Token::Kind::word;
        const auto* row = std::ranges::find_if(operator_rows, [&](const OperatorRow& candidate) {
            return possible && automation::same_ignoring_case(token_.text, candidate.spelling);
        });
        if (row == std::end(operator_rows)) refuse(token_.position, u"An operator is expected.");
        if (row->sql_only && language_ != Language::sql) {
            refuse(token_.position, in_quotes(row->spelling) + u" belongs to @SQL filters.");
        }
        if (row->searches_words && words_ == Words::refused) {
            refuse(token_.position, in_quotes(row->spelling) + u" is not supported here.");
        }
        advance();
        return *row;
    }

    Literal literal() {
        Literal literal;
        switch (token_.kind) {
            case Token::Kind::quoted:
                if (language_ == Language::sql && token_.delimiter == u'"') {
                    refuse(token_.position, u"A value stands between apostrophes in an @SQL filter.");
                }
                literal = {automation::Value(token_.text), token_.text, true};
                break;
            case Token::Kind::number:
                literal = {number(), token_.text, false};
                break;
            case Token::Kind::word:
                literal = boolean();
                break;
            default:
                refuse(token_.position, u"A value is missing.");
        }
        advance();
        return literal;
    }

    automation::Value number() const {
        std::string bytes = automation::to_utf8(token_.text);
        const std::string_view digits = std::string_view(bytes).substr(bytes.front() == '+' ? 1 : 0);
        double number = 0;
        const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (error != std::errc{} || stop != digits.data() + digits.size()) {
            refuse(token_.position, u"A number is out of range.");
        }
        return number;
    }

    Literal boolean() const {
        if (language_ == Language::sql) refuse(token_.position, u"In an @SQL filter yes and no are 1 and 0.");
        for (const BooleanRow& row : boolean_rows) {
            if (automation::same_ignoring_case(row.word, token_.text)) return {row.value, token_.text, false};
        }
        refuse(token_.position, u"A value is expected; a text stands between quotes.");
    }

    Language language_;
    const Host& host_;
    Words words_;
    Lexer lexer_;
    Token token_;
    int level_ = 0;
};

}  // namespace

Filter Filter::parse(automation::TextView text, const Host& host, Words words) {
    return Filter(std::make_unique<Node>(Parser(text, host, words).whole()));
}

}  // namespace desk::filter
