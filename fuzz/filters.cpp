// Filters of any text: read or refused with the host's number. What is read can be evaluated, and the
// equalities that it offers to look up hold for every item that matches.
#include <algorithm>

#include "desk/filter/filter.h"
#include "fuzz/targets.h"

namespace {

using desk::filter::Equality;
using desk::filter::Filter;

struct AnyName : desk::filter::Host {
    bool knows(automation::TextView field) const override { return field != u"Unknown"; }
    bool knows_address(automation::TextView address) const override { return address != u"unknown"; }
    bool takes(automation::TextView field) const override { return field != u"Refused"; }
    desk::filter::Content content(automation::TextView name, bool) const override {
        // each name that is tried out holds something else
        return name.size() != 1 ? desk::filter::Content::anything
                                : static_cast<desk::filter::Content>(name.front() % 7);
    }
    std::optional<std::int32_t> named_number(automation::TextView, bool,
                                             automation::TextView text) const override {
        return text == u"High" ? std::optional(2) : std::nullopt;
    }
    std::optional<automation::Date> date_of(automation::TextView text) const override {
        return automation::read_date(text);
    }
    automation::Date now() const override { return {46084.4}; }
    automation::Date to_utc(automation::Date local) const override { return {local.days - 2.0 / 24}; }
};

/// An item whose fields all hold the same value.
struct Same : desk::filter::Record {
    explicit Same(automation::Value all) : value(std::move(all)) {}
    automation::Value value;
    std::optional<automation::Value> field(automation::TextView) const override { return value; }
    std::optional<automation::Value> property(automation::TextView) const override { return value; }
};

void try_record(const Filter& filter, const automation::Value& value) {
    const bool matches = filter.matches(Same(value));
    const auto candidates = filter.candidates();
    if (!matches || !candidates || !value.is(automation::Value::Type::text)) return;
    const automation::Text text = value.to_text();
    auto holds = [&](const Equality& equality) {
        return automation::same_ignoring_case(equality.value, text);
    };
    fuzz::require(std::ranges::any_of(*candidates, holds), "an item matches that is no candidate");
}

bool try_filter(const automation::Text& text) {
    try {
        const Filter filter = Filter::parse(text, AnyName(), desk::filter::Words::indexed);
        for (const automation::Value& value :
             {automation::Value(), automation::Value(u"x"), automation::Value(u"Ann"),
              automation::Value(true), automation::Value(5), automation::Value(1.5),
              automation::Value(automation::Date{46084.4})}) {
            try_record(filter, value);
        }
        return true;
    } catch (const automation::Failure& failure) {
        fuzz::require(failure.number() == automation::result::invalid_argument,
                      "a filter is refused with another number");
        return false;
    }
}

}  // namespace

fuzz::Seeds fuzz::bracket_seeds() {
    return {
        R"([Subject] = "Ann" Or [Fullname] = "Ann" Or [EmailSearchString]= "Ann")",
        R"([Subject] >= "O'Brien" AND [Subject] < "O'Brieo")",
        R"(Not ([Subject] = 'It''s' And [UnRead] = True) Or [Size] > 1.5e3 And [Received] < '2026-03-03 09:15')",
        R"([A]='x' And ([B]='x' Or [C]='x') And Not [D]<>'x')",
    };
}

fuzz::Seeds fuzz::schema_seeds() {
    return {
        R"("http://schemas.microsoft.com/mapi/proptag/0x001a001e" = 'x' AND "urn:schemas:httpmail:subject" = 'x')",
        R"(("p" ci_phrasematch 'two words' And "q" ci_startswith 'wo' Or "r" Like '%a%b_c%'))",
        R"(%last7days("p")% Or Not %thismonth("q")% And "r" = '3')",
        R"(Not "p" Is Null And "q" Is Not Null And "r" Like 'x' And "s" <= -5)",
    };
}

bool fuzz::try_brackets(std::string_view input) { return try_filter(automation::from_utf8(input)); }

bool fuzz::try_schema(std::string_view input) { return try_filter(u"@SQL=" + automation::from_utf8(input)); }
