// The same condition in both languages finds the same items, where both can say it.
#include <gtest/gtest.h>

#include <random>

#include "tests/unit/support/filter_support.h"

namespace {

using namespace filter_tests;
using automation::Text;
using automation::Value;
using desk::filter::Filter;
using desk::filter::Words;

/// One condition, as each of the languages writes it.
struct Said {
    Text brackets, sql;
};

/// Makes conditions at random, the same ones in each run.
class Conditions {
  public:
    Said condition(int depth) {
        if (depth == 0 || below(3) == 0) return test();
        const Said left = condition(depth - 1);
        if (below(4) == 0) return {u"Not (" + left.brackets + u")", u"Not (" + left.sql + u")"};
        const Said right = condition(depth - 1);
        const Text word = below(2) == 0 ? u" And " : u" Or ";
        return {u"(" + left.brackets + u")" + word + right.brackets,
                u"(" + left.sql + u")" + word + right.sql};
    }

    MapRecord record() {
        MapRecord made;
        for (const Field& field : fields) {
            const Value value = values_of(field)[below(3)];
            made.fields[field.name] = value;
            made.properties[field.name] = value;
        }
        return made;
    }

  private:
    enum class Holds { texts, numbers, dates, truths };
    struct Field {
        const char16_t* name;
        Holds holds;
    };
    static constexpr Field fields[] = {{u"FullName", Holds::texts},     {u"Topic", Holds::texts},
                                       {u"Size", Holds::numbers},       {u"Amount", Holds::numbers},
                                       {u"ReceivedTime", Holds::dates}, {u"UnRead", Holds::truths}};

    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
    }

    static std::vector<Value> values_of(const Field& field) {
        switch (field.holds) {
            case Holds::texts:
                return {u"It's", u"RE: offer", u"Zoo"};
            case Holds::numbers:
                return {-1, 0, 512};
            case Holds::dates:
                return {*automation::read_date(u"2026-03-03"), *automation::read_date(u"2026-03-03 09:15"),
                        *automation::read_date(u"2026-12-31 23:59")};
            default:
                return {true, false, true};
        }
    }

    Said test() {
        const Field& field = fields[below(std::size(fields))];
        const Value value = values_of(field)[below(3)];
        constexpr const char16_t* operators[] = {u" = ", u" <> ", u" < ", u" > ", u" <= ", u" >= "};
        const Text op = operators[below(field.holds == Holds::truths ? 2 : std::size(operators))];
        const Text quoted = u"'" + automation::replaced(value.to_text(), u"'", u"''") + u"'";
        Said said{u"[" + Text(field.name) + u"]" + op, u"\"" + Text(field.name) + u"\"" + op};
        switch (field.holds) {
            case Holds::truths:
                said.brackets += value.to_boolean() ? u"Yes" : u"No";
                said.sql += value.to_boolean() ? u"1" : u"0";
                break;
            case Holds::numbers:
                said.brackets += value.to_text();
                said.sql += quoted;
                break;
            default:
                said.brackets += quoted;
                said.sql += quoted;
                break;
        }
        return said;
    }

    std::mt19937 random_{20260304};
};

TEST(FilterLanguages, AgreeOnTheSameCondition) {
    Conditions conditions;
    int found = 0;
    constexpr int rounds = 3000;
    for (int round = 0; round < rounds; ++round) {
        const Said said = conditions.condition(3);
        const MapRecord record = conditions.record();
        const bool by_brackets = Filter::parse(said.brackets, KnownNames(), Words::refused).matches(record);
        const bool by_sql = Filter::parse(u"@SQL=" + said.sql, KnownNames(), Words::refused).matches(record);
        ASSERT_EQ(by_brackets, by_sql) << automation::to_utf8(said.brackets) << "\n"
                                       << automation::to_utf8(said.sql);
        found += by_brackets ? 1 : 0;
    }
    EXPECT_GT(found, rounds / 4);
    EXPECT_LT(found, rounds * 3 / 4);
}

}  // namespace
