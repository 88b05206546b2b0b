#include "tests/native/formats.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "automation/failure.h"
#include "automation/value.h"

namespace native {

using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

/// Two decimals, and commas between the thousands if they are wanted.
std::string decimal(double number, bool grouped) {
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.2f", number);
    std::string digits = buffer.data();
    if (!grouped) return digits;
    constexpr std::size_t group = 3, decimals = 3;  // the point is one of the decimals' places
    for (std::size_t end = digits.size() - decimals; end > group; end -= group)
        digits.insert(end - group, 1, ',');
    return digits;
}

Text currency(TextView value) {
    const double number = Value(value).to_number();
    const std::string amount = "$" + decimal(std::fabs(number), true);
    return automation::from_utf8(number < 0 ? "(" + amount + ")" : amount);
}

Text percent(TextView value) {
    return automation::from_utf8(decimal(Value(value).to_number() * 100, false) + "%");
}

Text short_date(TextView value) {
    const automation::ClockTime clock = automation::to_clock(date_or_time(value));
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%d/%d/%04d", clock.month, clock.day, clock.year);
    return automation::from_utf8(buffer.data());
}

/// Without the time at midnight, and without the date on the day 0.
Text general_date(TextView value) {
    const automation::ClockTime clock = automation::to_clock(date_or_time(value));
    const bool midnight = clock.hour == 0 && clock.minute == 0 && clock.second == 0;
    const bool day_0 = clock.year == 1899 && clock.month == 12 && clock.day == 30;
    if (midnight && !day_0) return short_date(value);
    constexpr int noon = 12;
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%d:%02d:%02d %s",
                  clock.hour % noon == 0 ? noon : clock.hour % noon, clock.minute, clock.second,
                  clock.hour < noon ? "AM" : "PM");
    const Text time = automation::from_utf8(buffer.data());
    return day_0 ? time : short_date(value) + u" " + time;
}

}  // namespace

automation::Date date_or_time(TextView text) {
    if (text.find(u':') != TextView::npos && text.find_first_of(u"/-") == TextView::npos) {
        if (const auto date = automation::read_date(u"1899-12-30 " + automation::trimmed(text))) return *date;
    }
    return Value(text).to_date();
}

Text written(const Value& value) {
    if (!value.is(Value::Type::date)) return value.to_text();
    const automation::ClockTime clock = automation::to_clock(value.to_date());
    constexpr int noon = 12;
    std::array<char, 80> buffer{};
    int length =
        std::snprintf(buffer.data(), buffer.size(), "%d/%d/%04d", clock.month, clock.day, clock.year);
    if (clock.hour != 0 || clock.minute != 0 || clock.second != 0) {
        length += std::snprintf(buffer.data() + length, buffer.size() - static_cast<std::size_t>(length),
                                " %d:%02d:%02d %s", (clock.hour + noon - 1) % noon + 1, clock.minute,
                                clock.second, clock.hour < noon ? "AM" : "PM");
    }
    return automation::from_utf8({buffer.data(), static_cast<std::size_t>(length)});
}

Text formatted(TextView value, TextView named_format) {
    if (named_format == u"Currency") return currency(value);
    if (named_format == u"Percent") return percent(value);
    if (named_format == u"Short Date") return short_date(value);
    if (named_format == u"General Date") return general_date(value);
    throw automation::Failure(automation::result::invalid_argument, Text(named_format));
}

}  // namespace native
