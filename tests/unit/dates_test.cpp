// Dates as the user's regional settings have them.
#include <gtest/gtest.h>

#include "desk/base/dates.h"

namespace {

using automation::Text;
using desk::DateManners;

const automation::Date now = automation::to_date({2026, 3, 4, 9, 15, 0});

/// A text that is read as "2026-03-03 15:30:00"; "-" if it is none.
std::string read_date(const Text& text, const DateManners& manners) {
    const auto date = desk::read_date(text, manners, now);
    return date ? automation::to_utf8(automation::to_text(*date)) : "-";
}

DateManners german() {
    DateManners manners;
    manners.order = DateManners::Order::day_month_year;
    manners.morning = manners.evening = u"";
    manners.months = {u"Januar", u"Februar", u"März",      u"April",   u"Mai",      u"Juni",
                      u"Juli",   u"August",  u"September", u"Oktober", u"November", u"Dezember"};
    manners.short_months = {u"Jan", u"Feb", u"Mrz", u"Apr", u"Mai", u"Jun",
                            u"Jul", u"Aug", u"Sep", u"Okt", u"Nov", u"Dez"};
    manners.weekdays = {u"Sonntag",    u"Montag",  u"Dienstag", u"Mittwoch",
                        u"Donnerstag", u"Freitag", u"Samstag"};
    manners.short_weekdays = {u"So", u"Mo", u"Di", u"Mi", u"Do", u"Fr", u"Sa"};
    return manners;
}

DateManners year_first() {
    DateManners manners;
    manners.order = DateManners::Order::year_month_day;
    return manners;
}

struct DateCase {
    const char16_t* text;
    const char* date;
};

const DateCase american[] = {
    {u"1/15/99 3:30pm", "1999-01-15 15:30:00"},
    {u"6/12/2005 3:30PM", "2005-06-12 15:30:00"},
    {u"6/12/2005 3:30:05 PM", "2005-06-12 15:30:05"},
    {u"06/12/2005 15:30", "2005-06-12 15:30:00"},
    {u"6/12/2005 12:00 AM", "2005-06-12 00:00:00"},
    {u"6/12/2005 12:30 pm", "2005-06-12 12:30:00"},
    {u"6/12/2005 3 PM", "2005-06-12 15:00:00"},
    {u"3:30 PM 6/12/2005", "2005-06-12 15:30:00"},
    {u"01/1/2003", "2003-01-01 00:00:00"},
    {u"6-12-05", "2005-06-12 00:00:00"},
    {u"6.12.2005", "2005-06-12 00:00:00"},
    {u"6/12/29", "2029-06-12 00:00:00"},
    {u"6/12/30", "1930-06-12 00:00:00"},
    {u"25/12/2005", "2005-12-25 00:00:00"},
    {u"2005-06-12", "2005-06-12 00:00:00"},
    {u"2005-06-12T15:30:00", "2005-06-12 15:30:00"},
    {u"2005/6/12 15:30", "2005-06-12 15:30:00"},
    {u"June 12, 2005", "2005-06-12 00:00:00"},
    {u"Sunday, June 12, 2005", "2005-06-12 00:00:00"},
    {u"Sunday, June 12, 2005 3:30 PM", "2005-06-12 15:30:00"},
    {u"12 june 2005", "2005-06-12 00:00:00"},
    {u"12-Jun-05", "2005-06-12 00:00:00"},
    {u"Jun. 12, 05", "2005-06-12 00:00:00"},
    {u"2005 June 12", "2005-06-12 00:00:00"},
    {u"June 12", "2026-06-12 00:00:00"},
    {u"June 2005", "2005-06-01 00:00:00"},
    {u"6/12", "2026-06-12 00:00:00"},
    {u"6/2005", "2005-06-01 00:00:00"},
    {u"3:30 PM", "1899-12-30 15:30:00"},
    {u"15:30", "1899-12-30 15:30:00"},
    {u" 2/29/2004 ", "2004-02-29 00:00:00"},
    {u"2/29/2005", "-"},
    {u"13/13/2005", "-"},
    {u"0/12/2005", "-"},
    {u"5/257/2005", "-"},
    {u"2005-257-5", "-"},
    {u"6/12/2005 24:00", "-"},
    {u"6/12/2005 3:60 PM", "-"},
    {u"6/12/2005 13:00 PM", "-"},
    {u"6/12/2005 0:30 AM", "-"},
    {u"6/12/2005 15:", "-"},
    {u"6/12/2005 :30", "-"},
    {u"6/12/2005 3:30 3:30", "-"},
    {u"6/12/2005/1", "-"},
    {u"6/12/20051", "-"},
    {u"June July 2005", "-"},
    {u"June", "-"},
    {u"12 Juni 2005", "-"},
    {u"Sunday", "-"},
    {u"some day", "-"},
    {u"5", "-"},
    {u"", "-"},
    {u"PM", "-"},
    {u"T", "-"},
};

const DateCase in_german[] = {
    {u"12.06.2005 15:30", "2005-06-12 15:30:00"},
    {u"12.6.05", "2005-06-12 00:00:00"},
    {u"12. Juni 2005", "2005-06-12 00:00:00"},
    {u"Sonntag, 12. Juni 2005 15:30", "2005-06-12 15:30:00"},
    {u"So 12 mrz 2005", "2005-03-12 00:00:00"},
    {u"4. MÄRZ 2005", "2005-03-04 00:00:00"},
    {u"6.25.2005", "2005-06-25 00:00:00"},
    {u"12.6.", "2026-06-12 00:00:00"},
    {u"2005-06-12", "2005-06-12 00:00:00"},
    {u"12.06.2005 3:30 PM", "-"},
    {u"12 May 2005", "-"},
};

const DateCase with_the_year_first[] = {
    {u"05-06-12", "2005-06-12 00:00:00"},
    {u"2005/06/12", "2005-06-12 00:00:00"},
    {u"6/12/2005", "2005-06-12 00:00:00"},
    {u"05-13-12", "2012-05-13 00:00:00"},  // no month 13, so it is meant otherwise
    {u"13-13-12", "-"},
};

TEST(Dates, AreReadInTheUsersManner) {
    for (const DateCase& one : american) {
        EXPECT_EQ(read_date(one.text, DateManners()), one.date) << automation::to_utf8(one.text);
    }
    for (const DateCase& one : in_german) {
        EXPECT_EQ(read_date(one.text, german()), one.date) << automation::to_utf8(one.text);
    }
    for (const DateCase& one : with_the_year_first) {
        EXPECT_EQ(read_date(one.text, year_first()), one.date) << automation::to_utf8(one.text);
    }
}

}  // namespace
