// Which days a rule gives, type by type.
#include <gtest/gtest.h>

#include <cstdio>

#include "desk/recurrence/rule.h"

namespace desk::recurrence {
namespace {

using std::chrono::year;

constexpr std::int32_t sunday = 1, monday = 2, tuesday = 4, wednesday = 8, friday = 32, saturday = 64;
constexpr std::int32_t workdays = 62, weekend = sunday | saturday, any_day = 127;
constexpr std::int32_t week_of_monday = 1;

constexpr Day on(int y, unsigned m, unsigned d) {
    return year{y} / std::chrono::month{m} / std::chrono::day{d};
}

std::string shown(Day day) {
    const std::chrono::year_month_day date(day);
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text;
}

/// The first days of a rule, at most so many.
std::vector<std::string> first_days(const Rule& rule, std::size_t most) {
    std::vector<std::string> days;
    Walk walk(rule);
    while (days.size() < most) {
        const std::optional<Day> day = walk.next();
        if (!day) break;
        days.push_back(shown(*day));
    }
    return days;
}

TEST(RecurrenceRules, GiveTheDaysOfTheirType) {
    struct Case {
        const char* name;
        Rule rule;
        std::vector<std::string> days;  ///< the first ones
    };
    const Case cases[] = {
        {"each day",
         {.type = Type::daily, .start = on(2024, 2, 28)},
         {"2024-02-28", "2024-02-29", "2024-03-01"}},
        {"each third day",
         {.type = Type::daily, .interval = 3, .start = on(2006, 7, 10)},
         {"2006-07-10", "2006-07-13", "2006-07-16"}},
        {"each Monday, Wednesday and Friday",
         {.type = Type::weekly, .weekdays = monday | wednesday | friday, .start = on(2006, 7, 10)},
         {"2006-07-10", "2006-07-12", "2006-07-14", "2006-07-17"}},
        {"of the first week what comes after the start",
         {.type = Type::weekly, .weekdays = monday | wednesday, .start = on(2006, 7, 11)},
         {"2006-07-12", "2006-07-17", "2006-07-19"}},
        {"each second Sunday and Monday, weeks that begin with Sunday",
         {.type = Type::weekly, .interval = 2, .weekdays = sunday | monday, .start = on(2006, 7, 10)},
         {"2006-07-10", "2006-07-23", "2006-07-24", "2006-08-06"}},
        {"the same, weeks that begin with Monday",
         {.type = Type::weekly,
          .interval = 2,
          .weekdays = sunday | monday,
          .start = on(2006, 7, 10),
          .first_weekday = week_of_monday},
         {"2006-07-10", "2006-07-16", "2006-07-24", "2006-07-30"}},
        {"the 15th of each month, begun after it",
         {.type = Type::monthly, .day_of_month = 15, .start = on(2006, 7, 20)},
         {"2006-08-15", "2006-09-15"}},
        {"the 31st, the last day where there is none",
         {.type = Type::monthly, .day_of_month = 31, .start = on(2023, 12, 31)},
         {"2023-12-31", "2024-01-31", "2024-02-29", "2024-03-31", "2024-04-30"}},
        {"each fifth month over the end of the year",
         {.type = Type::monthly, .interval = 5, .day_of_month = 1, .start = on(2006, 10, 1)},
         {"2006-10-01", "2007-03-01", "2007-08-01"}},
        {"the second Tuesday of the month",
         {.type = Type::month_nth, .weekdays = tuesday, .instance = 2, .start = on(2006, 7, 1)},
         {"2006-07-11", "2006-08-08", "2006-09-12"}},
        {"the last Friday of the month",
         {.type = Type::month_nth, .weekdays = friday, .instance = last_instance, .start = on(2006, 7, 1)},
         {"2006-07-28", "2006-08-25", "2006-09-29"}},
        {"the last workday of the month",
         {.type = Type::month_nth, .weekdays = workdays, .instance = last_instance, .start = on(2006, 9, 1)},
         {"2006-09-29", "2006-10-31", "2006-11-30", "2006-12-29"}},
        {"the first day of a weekend",
         {.type = Type::month_nth, .weekdays = weekend, .instance = 1, .start = on(2006, 7, 1)},
         {"2006-07-01", "2006-08-05", "2006-09-02", "2006-10-01"}},
        {"the last day of the month",
         {.type = Type::month_nth, .weekdays = any_day, .instance = last_instance, .start = on(2024, 1, 1)},
         {"2024-01-31", "2024-02-29", "2024-03-31"}},
        {"29 February",
         {.type = Type::yearly, .day_of_month = 29, .month = 2, .start = on(2024, 2, 29)},
         {"2024-02-29", "2025-02-28", "2026-02-28", "2027-02-28", "2028-02-29"}},
        {"a day of the year that is over in the first one",
         {.type = Type::yearly, .interval = 2, .day_of_month = 1, .month = 3, .start = on(2006, 7, 1)},
         {"2008-03-01", "2010-03-01"}},
        {"the fourth Monday of November",
         {.type = Type::year_nth, .weekdays = monday, .month = 11, .instance = 4, .start = on(2006, 1, 1)},
         {"2006-11-27", "2007-11-26", "2008-11-24"}},
        {"the last Sunday of March",
         {.type = Type::year_nth,
          .weekdays = sunday,
          .month = 3,
          .instance = last_instance,
          .start = on(2024, 1, 1)},
         {"2024-03-31", "2025-03-30", "2026-03-29"}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        EXPECT_EQ(fault(one.rule), u"");
        EXPECT_EQ(first_days(one.rule, one.days.size()), one.days);
    }
}

TEST(RecurrenceRules, EndAfterACountOrByADate) {
    Rule rule{.type = Type::weekly, .weekdays = monday | friday, .start = on(2006, 7, 10)};
    EXPECT_EQ(last_day(rule), last_of_all);
    rule.end = End::after_count;
    rule.count = 3;
    EXPECT_EQ(first_days(rule, 9), (std::vector<std::string>{"2006-07-10", "2006-07-14", "2006-07-17"}));
    EXPECT_EQ(last_day(rule), on(2006, 7, 17));
    rule.end = End::by_date;
    rule.last = on(2006, 7, 20);
    EXPECT_EQ(count_of_days(rule), 3);
    EXPECT_EQ(last_day(rule), on(2006, 7, 17)) << "the last that takes place";
    rule.last = on(2006, 7, 21);
    EXPECT_EQ(count_of_days(rule), 4) << "the day itself counts";
}

TEST(RecurrenceRules, EndWithTheCalendar) {
    const Rule rule{.type = Type::yearly, .day_of_month = 31, .month = 12, .start = on(4499, 1, 1)};
    const std::vector<std::string> days{"4499-12-31", "4500-12-31"};
    EXPECT_EQ(first_days(rule, 9), days);
    Rule beyond = rule;
    beyond.end = End::by_date;
    beyond.last = on(4600, 1, 1);
    EXPECT_EQ(first_days(beyond, 9), days);
}

TEST(RecurrenceRules, TellWhichDaysAreTheirs) {
    const Rule rule{.type = Type::weekly, .weekdays = monday, .start = on(2006, 7, 10)};
    EXPECT_TRUE(falls_on(rule, on(2006, 7, 24)));
    EXPECT_FALSE(falls_on(rule, on(2006, 7, 25)));
    EXPECT_FALSE(falls_on(rule, on(2006, 7, 3))) << "before the start";
    EXPECT_EQ(day_after(rule, on(2006, 7, 10)), on(2006, 7, 17));
    EXPECT_EQ(day_after(rule, on(2006, 1, 1)), on(2006, 7, 10));
}

TEST(RecurrenceRules, BeginWithTheDayOfTheirStart) {
    struct Case {
        const char* name;
        Rule rule;
    };
    constexpr Day start = on(2006, 7, 31);  // a Monday, the fifth of its month
    const Case cases[] = {
        {"daily", {.type = Type::daily, .start = start}},
        {"weekly", {.type = Type::weekly, .weekdays = monday, .start = start}},
        {"monthly", {.type = Type::monthly, .day_of_month = 31, .start = start}},
        {"monthly, nth", {.type = Type::month_nth, .weekdays = monday, .instance = 5, .start = start}},
        {"yearly", {.type = Type::yearly, .day_of_month = 31, .month = 7, .start = start}},
        {"yearly, nth",
         {.type = Type::year_nth, .weekdays = monday, .month = 7, .instance = 5, .start = start}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        EXPECT_EQ(usual(one.rule.type, start), one.rule);
        EXPECT_EQ(first_day(one.rule), start);
    }
}

TEST(RecurrenceRules, BeginWithTheInstanceThatTheirStartIs) {
    constexpr std::int32_t instances[] = {1, 2, 2, 3, 3, 4, 4, 5, 5};
    constexpr unsigned days[] = {7, 8, 14, 15, 21, 22, 28, 29, 31};
    for (std::size_t i = 0; i < std::size(days); ++i) {
        const Day start = on(2006, 7, days[i]);
        EXPECT_EQ(usual(Type::month_nth, start).instance, instances[i]) << days[i];
        EXPECT_EQ(first_day(usual(Type::month_nth, start)), start);
    }
}

TEST(RecurrenceRules, AreOfSixTypes) {
    for (const std::int32_t number : {0, 1, 2, 3, 5, 6}) EXPECT_TRUE(is_type(number)) << number;
    for (const std::int32_t number : {-1, 4, 7}) EXPECT_FALSE(is_type(number)) << number;
}

TEST(RecurrenceRules, HaveFaults) {
    const Rule daily{.type = Type::daily, .start = on(2006, 7, 10)};
    const Rule month_nth = usual(Type::month_nth, daily.start), yearly = usual(Type::yearly, daily.start);
    struct Case {
        const char* name;
        Rule rule;
        void (*spoil)(Rule&);
        bool faulty;
    };
    const Case cases[] = {
        {"the longest interval of days", daily, [](Rule& r) { r.interval = 999; }, false},
        {"a longer one", daily, [](Rule& r) { r.interval = 1000; }, true},
        {"no interval", daily, [](Rule& r) { r.interval = 0; }, true},
        {"an interval of months", yearly, [](Rule& r) { r.interval = 100; }, true},
        {"no weekday", month_nth, [](Rule& r) { r.weekdays = 0; }, true},
        {"more weekdays than there are", month_nth, [](Rule& r) { r.weekdays = 128; }, true},
        {"the sixth of its kind", month_nth, [](Rule& r) { r.instance = 6; }, true},
        {"day 32", yearly, [](Rule& r) { r.day_of_month = 32; }, true},
        {"month 13", yearly, [](Rule& r) { r.month = 13; }, true},
        {"no occurrences", daily, [](Rule& r) { r.end = End::after_count; }, true},
        {"the most occurrences", daily,
         [](Rule& r) {
             r.end = End::after_count;
             r.count = 999;
         },
         false},
        {"more of them", daily,
         [](Rule& r) {
             r.end = End::after_count;
             r.count = 1000;
         },
         true},
        {"an end before the start", daily,
         [](Rule& r) {
             r.end = End::by_date;
             r.last = r.start - std::chrono::days(1);
         },
         true},
        {"an end before the first day", yearly,
         [](Rule& r) {
             r.month = 8;
             r.end = End::by_date;
             r.last = r.start;
         },
         true},
        {"what its type has no use for", daily, [](Rule& r) { r.weekdays = 999; }, false},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        Rule rule = one.rule;
        EXPECT_EQ(fault(rule), u"");
        one.spoil(rule);
        EXPECT_EQ(!fault(rule).empty(), one.faulty);
    }
}

}  // namespace
}  // namespace desk::recurrence
