// When a series of appointments or tasks takes place: which days a rule gives, apart from what happens on
// them.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "automation/text.h"

namespace desk::recurrence {

/// A day of the user's calendar, without a zone.
using Day = std::chrono::sys_days;

/// The host's numbers of the kinds of rules (OlRecurrenceType).
enum class Type : std::int32_t {
    daily = 0,
    weekly = 1,
    monthly = 2,
    month_nth = 3,
    yearly = 5,
    year_nth = 6
};

enum class End : std::int32_t { never = 0, after_count = 1, by_date = 2 };

/// The last day that a series without an end can reach.
inline constexpr Day last_of_all = std::chrono::year{4500} / 12 / 31;

inline constexpr std::int32_t last_instance = 5;  ///< "the last ... of the month"

/// A rule of which days are taken. What its type does not use is 0.
struct Rule {
    Type type = Type::weekly;
    std::int32_t interval = 1;      ///< in days, weeks, months or years, by the type
    std::int32_t weekdays = 0;      ///< OlDaysOfWeek: 1 is Sunday, 2 Monday ... 64 Saturday
    std::int32_t day_of_month = 0;  ///< from 1; in a shorter month its last day
    std::int32_t month = 0;         ///< from 1
    std::int32_t instance = 0;      ///< the first to fourth of the weekdays in the month, or `last_instance`
    Day start{};                    ///< nothing takes place before
    End end = End::never;
    std::int32_t count = 0;          ///< how many days there are, if the end is after a count
    Day last{};                      ///< nothing takes place after, if the end is by a date
    std::int32_t first_weekday = 0;  ///< what a week begins with: 0 is Sunday, 1 Monday ...
    friend bool operator==(const Rule&, const Rule&) = default;
};

/// Whether rules of a type have a part of that name.
enum class Part { weekdays, day_of_month, month, instance };
bool has(Type type, Part part);
bool is_type(std::int32_t number);

/// A rule of a type as the host begins it: once in each day, week, month or year, on the day of its start.
Rule usual(Type type, Day start);

/// What is wrong with a rule, as a sentence; empty if nothing is.
automation::TextView fault(const Rule& rule);

/// The days of a rule without a fault, one after the other.
class Walk {
  public:
    explicit Walk(const Rule& rule) : rule_(rule) {}
    std::optional<Day> next();  ///< nothing after the last

  private:
    const Rule rule_;
    std::int32_t period_ = 0;  ///< how many days, weeks, months or years of the rule have been looked at
    std::vector<Day> days_;    ///< of the last of them, those to come at the end
    std::int32_t given_ = 0;
};

std::optional<Day> first_day(const Rule& rule);           ///< nothing if the rule gives no day at all
std::optional<Day> last_day(const Rule& rule);            ///< the same; `last_of_all` for one without end
std::optional<Day> day_after(const Rule& rule, Day day);  ///< the next one after a day
bool falls_on(const Rule& rule, Day day);
std::int32_t count_of_days(const Rule& rule);  ///< of a rule that has an end

/// The bit of a day's weekday (OlDaysOfWeek).
std::int32_t weekday_bit(Day day);

}  // namespace desk::recurrence
