// Dates as a person writes them, by the settings of the system.
#pragma once

#include <array>
#include <optional>

#include "automation/value.h"

namespace desk {

/// The user's manner of writing dates; what stands here is the manner of the United States.
struct DateManners {
    enum class Order { month_day_year, day_month_year, year_month_day };
    Order order = Order::month_day_year;
    automation::Text morning = u"AM", evening = u"PM";
    std::array<automation::Text, 12> months{u"January",   u"February", u"March",    u"April",
                                            u"May",       u"June",     u"July",     u"August",
                                            u"September", u"October",  u"November", u"December"};
    std::array<automation::Text, 12> short_months{u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                                  u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
    std::array<automation::Text, 7> weekdays{u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                             u"Thursday", u"Friday", u"Saturday"};
    std::array<automation::Text, 7> short_weekdays{u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"};
};

/// Reads a date, a time or both, in the forms that the system's own reader takes: in the user's order and
/// with the year first, with two or four digits of the year or none (then it is this year), with names of
/// months and weekdays, with twelve hours or twenty-four. A date alone is its midnight; a time alone is one
/// of day 0. Nothing for any other text.
std::optional<automation::Date> read_date(automation::TextView text, const DateManners& manners,
                                          automation::Date now);

}  // namespace desk
