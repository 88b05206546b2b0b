#include "desk/recurrence/rule.h"

#include <algorithm>

namespace desk::recurrence {

using automation::TextView;
using std::chrono::days;
using std::chrono::months;
using std::chrono::weekday;
using std::chrono::year_month;
using std::chrono::year_month_day;
using std::chrono::years;

namespace {

constexpr std::int32_t days_of_week = 7, all_weekdays = 127;

/// What the rules of a type have, and how far apart their days may be.
struct TypeRow {
    Type type;
    bool weekdays, day_of_month, month, instance;
    std::int32_t longest_interval;
};
// clang-format off
constexpr TypeRow type_rows[] = {
    {Type::daily,     false, false, false, false, 999},
    {Type::weekly,    true,  false, false, false, 99},
    {Type::monthly,   false, true,  false, false, 99},
    {Type::month_nth, true,  false, false, true,  99},
    {Type::yearly,    false, true,  true,  false, 99},
    {Type::year_nth,  true,  false, true,  true,  99},
};
// clang-format on

const TypeRow& row_of(Type type) { return *std::ranges::find(type_rows, type, &TypeRow::type); }

year_month month_of(Day day) {
    const year_month_day date(day);
    return date.year() / date.month();
}

Day last_of(year_month month) { return month / std::chrono::last; }

/// A day of a month by its number, or the month's last where it is shorter.
Day numbered_day(year_month month, std::int32_t number) {
    return std::min(Day(month / 1) + days(number - 1), last_of(month));
}

/// The first, second ... of the days of a month that are such weekdays, or the last of them.
Day instance_day(year_month month, std::int32_t weekdays, std::int32_t instance) {
    std::vector<Day> fitting;
    for (Day day = month / 1; day <= last_of(month); day += days(1)) {
        if (weekday_bit(day) & weekdays) fitting.push_back(day);
    }
    const auto place = std::min(static_cast<std::size_t>(instance), fitting.size());
    return instance == last_instance ? fitting.back() : fitting[place - 1];
}

std::vector<Day> days_of_the_week(const Rule& rule, std::int32_t weeks_on) {
    const auto begun = weekday(rule.start) - weekday(static_cast<unsigned>(rule.first_weekday));
    const Day first = rule.start - begun + days(days_of_week) * weeks_on;
    std::vector<Day> taken;
    for (std::int32_t i = 0; i < days_of_week; ++i) {
        if (weekday_bit(first + days(i)) & rule.weekdays) taken.push_back(first + days(i));
    }
    return taken;
}

/// The days of one of the periods that a rule counts in, whatever its start and end.
std::vector<Day> days_of_period(const Rule& rule, std::int32_t period) {
    const std::int32_t on = period * rule.interval;
    const year_month this_month = month_of(rule.start) + months(on);
    const auto year = year_month_day(rule.start).year() + years(on);
    const year_month this_year = year / std::chrono::month(static_cast<unsigned>(rule.month));
    switch (rule.type) {
        case Type::daily:
            return {rule.start + days(on)};
        case Type::weekly:
            return days_of_the_week(rule, on);
        case Type::monthly:
            return {numbered_day(this_month, rule.day_of_month)};
        case Type::month_nth:
            return {instance_day(this_month, rule.weekdays, rule.instance)};
        case Type::yearly:
            return {numbered_day(this_year, rule.day_of_month)};
        case Type::year_nth:
            break;
    }
    return {instance_day(this_year, rule.weekdays, rule.instance)};
}

bool is_within(std::int32_t value, std::int32_t least, std::int32_t most) {
    return value >= least && value <= most;
}

}  // namespace

bool has(Type type, Part part) {
    const TypeRow& row = row_of(type);
    switch (part) {
        case Part::weekdays:
            return row.weekdays;
        case Part::day_of_month:
            return row.day_of_month;
        case Part::month:
            return row.month;
        case Part::instance:
            break;
    }
    return row.instance;
}

bool is_type(std::int32_t number) {
    return std::ranges::any_of(
        type_rows, [&](const TypeRow& row) { return static_cast<std::int32_t>(row.type) == number; });
}

std::int32_t weekday_bit(Day day) { return 1 << weekday(day).c_encoding(); }

Rule usual(Type type, Day start) {
    const year_month_day date(start);
    const auto number = static_cast<std::int32_t>(static_cast<unsigned>(date.day()));
    Rule rule{.type = type, .start = start};
    if (has(type, Part::weekdays)) rule.weekdays = weekday_bit(start);
    if (has(type, Part::day_of_month)) rule.day_of_month = number;
    if (has(type, Part::month)) rule.month = static_cast<std::int32_t>(static_cast<unsigned>(date.month()));
    if (has(type, Part::instance)) rule.instance = (number - 1) / days_of_week + 1;
    return rule;
}

TextView fault(const Rule& rule) {
    constexpr std::int32_t longest_month = 31, months_of_year = 12, most = 999;
    if (!is_within(rule.interval, 1, row_of(rule.type).longest_interval))
        return u"The interval is out of range.";
    if (has(rule.type, Part::weekdays) && !is_within(rule.weekdays, 1, all_weekdays))
        return u"There is no such set of weekdays.";
    if (has(rule.type, Part::day_of_month) && !is_within(rule.day_of_month, 1, longest_month))
        return u"No month has such a day.";
    if (has(rule.type, Part::month) && !is_within(rule.month, 1, months_of_year))
        return u"The year has no such month.";
    if (has(rule.type, Part::instance) && !is_within(rule.instance, 1, last_instance))
        return u"The instance is one of 1 to 5.";
    if (rule.end == End::after_count && !is_within(rule.count, 1, most))
        return u"The number of occurrences is out of range.";
    if (rule.end == End::by_date && rule.last < rule.start) return u"The series ends before it starts.";
    if (!first_day(rule)) return u"The series has no occurrence.";
    return {};
}

std::optional<Day> Walk::next() {
    if (rule_.end == End::after_count && given_ == rule_.count) return std::nullopt;
    const Day last = rule_.end == End::by_date ? std::min(rule_.last, last_of_all) : last_of_all;
    for (;;) {
        while (days_.empty()) {
            days_ = days_of_period(rule_, period_++);
            std::ranges::reverse(days_);
        }
        const Day day = days_.back();
        if (day > last) return std::nullopt;
        days_.pop_back();
        if (day < rule_.start) continue;
        ++given_;
        return day;
    }
}

std::optional<Day> first_day(const Rule& rule) { return Walk(rule).next(); }

std::optional<Day> last_day(const Rule& rule) {
    if (rule.end == End::never) return last_of_all;
    std::optional<Day> last;
    Walk walk(rule);
    while (const std::optional<Day> day = walk.next()) last = day;
    return last;
}

std::optional<Day> day_after(const Rule& rule, Day day) {
    Walk walk(rule);
    std::optional<Day> next = walk.next();
    while (next && *next <= day) next = walk.next();
    return next;
}

bool falls_on(const Rule& rule, Day day) { return day_after(rule, day - days(1)) == day; }

std::int32_t count_of_days(const Rule& rule) {
    std::int32_t count = 0;
    Walk walk(rule);
    while (walk.next()) ++count;
    return count;
}

}  // namespace desk::recurrence
