#include "automation/value.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>

#include "automation/object.h"

namespace automation {
namespace {

constexpr int seconds_per_day = 86400;

/// The day 0 of Automation's dates.
constexpr std::chrono::sys_days epoch{std::chrono::year{1899} / std::chrono::December / 30};

[[noreturn]] void mismatch() { throw Failure(result::type_mismatch, u"Type mismatch"); }

std::optional<double> read_number(TextView text) {
    const Text bare = trimmed(text);
    std::string bytes = to_utf8(bare);
    const char* begin = bytes.data();
    const char* const end = begin + bytes.size();
    if (begin != end && *begin == '+') ++begin;
    double number = 0;
    const auto [stop, error] = std::from_chars(begin, end, number);
    if (begin == end || error != std::errc{} || stop != end) return std::nullopt;
    return number;
}

/// A number as Automation writes it: at most 15 significant digits, no trailing zeros.
Text number_text(double number) {
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.15g", number);
    return from_utf8(buffer.data());
}

}  // namespace

Date to_date(const ClockTime& clock) {
    using namespace std::chrono;
    const sys_days day{year{clock.year} / month{static_cast<unsigned>(clock.month)} /
                       std::chrono::day{static_cast<unsigned>(clock.day)}};
    const double whole = static_cast<double>((day - epoch).count());
    const double part = (clock.hour * 3600.0 + clock.minute * 60.0 + clock.second) / seconds_per_day;
    return Date{whole < 0 ? whole - part
                          : whole + part};  // before the epoch the fraction counts away from it
}

ClockTime to_clock(Date date) {
    using namespace std::chrono;
    double whole = std::trunc(date.days);
    auto seconds = static_cast<int>(std::lround(std::fabs(date.days - whole) * seconds_per_day));
    if (seconds == seconds_per_day) {
        seconds = 0;
        whole += 1;
    }
    const year_month_day day{epoch + days{static_cast<int>(whole)}};
    return {static_cast<int>(day.year()),
            static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day())),
            seconds / 3600,
            seconds / 60 % 60,
            seconds % 60};
}

Text to_text(Date date) {
    const ClockTime clock = to_clock(date);
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%04d-%02d-%02d %02d:%02d:%02d", clock.year, clock.month,
                  clock.day, clock.hour, clock.minute, clock.second);
    return from_utf8(buffer.data());
}

std::optional<Date> read_date(TextView text) {
    const std::string bytes = to_utf8(trimmed(text));
    ClockTime clock;
    int used = 0;
    if (std::sscanf(bytes.c_str(), "%4d-%2d-%2d%n", &clock.year, &clock.month, &clock.day, &used) != 3 &&
        std::sscanf(bytes.c_str(), "%2d/%2d/%4d%n", &clock.month, &clock.day, &clock.year, &used) != 3) {
        return std::nullopt;
    }
    std::string_view rest = std::string_view(bytes).substr(static_cast<std::size_t>(used));
    if (!rest.empty()) {
        int time_used = 0;
        const std::string time(rest.front() == 'T' ? rest.substr(1) : rest);
        if (std::sscanf(time.c_str(), "%2d:%2d:%2d%n", &clock.hour, &clock.minute, &clock.second,
                        &time_used) != 3) {
            time_used = 0;
            clock.second = 0;
            if (std::sscanf(time.c_str(), " %2d:%2d%n", &clock.hour, &clock.minute, &time_used) != 2)
                return std::nullopt;
        }
        const std::string half = time.substr(static_cast<std::size_t>(time_used));
        const bool morning = half == " AM", evening = half == " PM";
        if (!half.empty() && !morning && !evening) return std::nullopt;
        if ((morning || evening) && (clock.hour < 1 || clock.hour > 12)) return std::nullopt;
        if (morning && clock.hour == 12) clock.hour = 0;
        if (evening && clock.hour < 12) clock.hour += 12;
    }
    const std::chrono::year_month_day day{std::chrono::year{clock.year},
                                          std::chrono::month{static_cast<unsigned>(clock.month)},
                                          std::chrono::day{static_cast<unsigned>(clock.day)}};
    const bool good = day.ok() && clock.year >= 100 && clock.hour >= 0 && clock.hour < 24 &&
                      clock.minute >= 0 && clock.minute < 60 && clock.second >= 0 && clock.second < 60;
    if (!good) return std::nullopt;
    return to_date(clock);
}

Value::Value(const Object& object) : data_(object.target()) {}
Value::Value(Array array) : data_(std::make_shared<const Array>(std::move(array))) {}

bool Value::to_boolean() const {
    if (const auto* boolean = std::get_if<bool>(&data_)) return *boolean;
    if (const auto* text = std::get_if<Text>(&data_)) {
        if (same_ignoring_case(*text, u"True")) return true;
        if (same_ignoring_case(*text, u"False")) return false;
    }
    return to_number() != 0;
}

std::int32_t Value::to_integer() const {
    if (const auto* integer = std::get_if<std::int32_t>(&data_)) return *integer;
    const double rounded = std::nearbyint(to_number());
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        throw Failure(result::overflow, u"Overflow");
    }
    return static_cast<std::int32_t>(rounded);
}

double Value::to_number() const {
    switch (type()) {
        case Type::empty:
            return 0;
        case Type::boolean:
            return std::get<bool>(data_) ? -1 : 0;
        case Type::integer:
            return std::get<std::int32_t>(data_);
        case Type::number:
            return std::get<double>(data_);
        case Type::date:
            return std::get<Date>(data_).days;
        case Type::text:
            if (const std::optional<double> number = read_number(std::get<Text>(data_))) return *number;
            mismatch();
        default:
            mismatch();
    }
}

Date Value::to_date() const {
    if (const auto* date = std::get_if<Date>(&data_)) return *date;
    if (const auto* text = std::get_if<Text>(&data_)) {
        if (const std::optional<Date> date = read_date(*text)) return *date;
    }
    return Date{to_number()};
}

Text Value::to_text() const {
    switch (type()) {
        case Type::empty:
            return {};
        case Type::boolean:
            return std::get<bool>(data_) ? u"True" : u"False";
        case Type::integer:
            return automation::to_text(static_cast<long long>(std::get<std::int32_t>(data_)));
        case Type::number:
            return number_text(std::get<double>(data_));
        case Type::date:
            return automation::to_text(std::get<Date>(data_));
        case Type::text:
            return std::get<Text>(data_);
        default:
            mismatch();
    }
}

Object Value::to_object() const {
    if (const auto* object = std::get_if<std::shared_ptr<Invocable>>(&data_)) return Object(*object);
    if (is(Type::empty) || is(Type::null)) return {};  // script engines write Nothing so
    mismatch();
}

const Array& Value::to_array() const {
    if (const auto* array = std::get_if<std::shared_ptr<const Array>>(&data_)) return **array;
    mismatch();
}

bool operator==(const Value& left, const Value& right) {
    if (left.is(Value::Type::array) && right.is(Value::Type::array))
        return left.to_array() == right.to_array();
    return left.data_ == right.data_;
}

Array Array::of(std::vector<Value> values) {
    Array array(Bounds{0, static_cast<std::int32_t>(values.size())});
    array.values_ = std::move(values);
    return array;
}

std::size_t Array::place(std::int32_t index) const {
    const Bounds& bounds = dimensions_.front();
    if (dimensions_.size() != 1 || index < bounds.lower || index - bounds.lower >= bounds.count) {
        throw Failure(result::bad_index, u"Subscript out of range");
    }
    return static_cast<std::size_t>(index - bounds.lower);
}

std::size_t Array::place(std::int32_t first, std::int32_t second) const {
    if (dimensions_.size() != 2) throw Failure(result::bad_index, u"Subscript out of range");
    const Bounds &rows = dimensions_[0], &columns = dimensions_[1];
    if (first < rows.lower || first - rows.lower >= rows.count || second < columns.lower ||
        second - columns.lower >= columns.count) {
        throw Failure(result::bad_index, u"Subscript out of range");
    }
    return static_cast<std::size_t>(first - rows.lower) * static_cast<std::size_t>(columns.count) +
           static_cast<std::size_t>(second - columns.lower);
}

bool operator==(const Array& left, const Array& right) {
    if (left.dimensions_.size() != right.dimensions_.size() || left.values_ != right.values_) return false;
    for (std::size_t i = 0; i < left.dimensions_.size(); ++i) {
        if (left.dimensions_[i].lower != right.dimensions_[i].lower) return false;
        if (left.dimensions_[i].count != right.dimensions_[i].count) return false;
    }
    return true;
}

}  // namespace automation
