#include "desk/filter/date_macros.h"

#include <algorithm>
#include <cmath>

namespace desk::filter {
namespace {

enum class Unit { day, week, month };

/// The macro's days: from the unit that is `first` units away from today's to the one that is `end` away.
struct MacroRow {
    automation::TextView name;
    Unit unit;
    int first, end;
};
constexpr MacroRow macros[] = {
    {u"today", Unit::day, 0, 1},       {u"tomorrow", Unit::day, 1, 2},     {u"yesterday", Unit::day, -1, 0},
    {u"next7days", Unit::day, 0, 7},   {u"last7days", Unit::day, -6, 1},   {u"nextweek", Unit::week, 1, 2},
    {u"thisweek", Unit::week, 0, 1},   {u"lastweek", Unit::week, -1, 0},   {u"nextmonth", Unit::month, 1, 2},
    {u"thismonth", Unit::month, 0, 1}, {u"lastmonth", Unit::month, -1, 0},
};

constexpr int days_of_week = 7, months_of_year = 12;

/// The first day of the unit that is so many units away from that of a day.
automation::Date beginning(Unit unit, int away, double today) {
    if (unit == Unit::day) return {today + away};
    if (unit == Unit::week) {
        const double weekday = std::fmod(today - 1, days_of_week);  // day 1 was a Sunday
        return {today - weekday + away * days_of_week};
    }
    automation::ClockTime clock = automation::to_clock({today});
    const int months = clock.year * months_of_year + clock.month - 1 + away;
    return automation::to_date({months / months_of_year, months % months_of_year + 1, 1, 0, 0, 0});
}

}  // namespace

std::optional<Days> days_of_macro(automation::TextView name, automation::Date now) {
    const auto* const macro = std::ranges::find_if(
        macros, [&](const MacroRow& row) { return automation::same_ignoring_case(row.name, name); });
    if (macro == std::end(macros)) return std::nullopt;
    const double today = std::floor(now.days);
    return Days{beginning(macro->unit, macro->first, today), beginning(macro->unit, macro->end, today)};
}

}  // namespace desk::filter
