// A value as Automation passes it, and the conversions between the kinds of value.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "automation/failure.h"
#include "automation/text.h"

namespace automation {

class Array;
class Invocable;
class Object;

/// The null of databases; not the same as an empty value and not an object that is Nothing.
struct Null {
    friend bool operator==(Null, Null) = default;
};

/// An optional argument that was left out.
struct Missing {
    friend bool operator==(Missing, Missing) = default;
};

/// A point in time: days since 1899-12-30, the fraction is the time of day.
struct Date {
    double days = 0;
    friend bool operator==(Date, Date) = default;
};

/// The parts of a date on the clock.
struct ClockTime {
    int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;
};
Date to_date(const ClockTime& clock);
ClockTime to_clock(Date date);  ///< rounded to whole seconds

/// A date as "2026-03-03 09:15:00".
Text to_text(Date date);

/// Reads "2026-03-03", "2026-03-03 09:15", "2026-03-03 09:15:00", "3/3/2026 9:15 AM" and "3/3/2026"; nothing
/// for any other text.
std::optional<Date> read_date(TextView text);

/// A value of one of Automation's types. Conversions follow Automation's rules and throw
/// `Failure(result::type_mismatch)` where there is none.
class Value {
  public:
    enum class Type { empty, null, missing, boolean, integer, number, date, text, object, array };

    Value() = default;
    Value(Null null) : data_(null) {}
    Value(Missing missing) : data_(missing) {}
    Value(bool boolean) : data_(boolean) {}
    Value(std::int32_t integer) : data_(integer) {}
    Value(double number) : data_(number) {}
    Value(Date date) : data_(date) {}
    Value(Text text) : data_(std::move(text)) {}
    Value(TextView text) : data_(Text(text)) {}
    Value(const char16_t* text) : data_(Text(text)) {}
    Value(const Object& object);
    Value(std::shared_ptr<Invocable> object) : data_(std::move(object)) {}
    Value(Array array);
    Value(const void*) = delete;  // a pointer is not a boolean

    Type type() const { return static_cast<Type>(data_.index()); }
    bool is(Type type) const { return this->type() == type; }
    bool is_missing() const { return is(Type::missing); }

    bool to_boolean() const;  ///< a 16-bit boolean; numbers but 0 are true, "True" and "-1" read as true
    std::int32_t to_integer() const;  ///< 32 bits, rounded half to even; `result::overflow` beyond
    double to_number() const;
    Date to_date() const;
    Text to_text() const;      ///< booleans as "True" and "False", dates as `to_text(Date)`, empty as ""
    Object to_object() const;  ///< an empty object for Nothing, an empty value and null
    const Array& to_array() const;

    /// Equal in type and content; objects by identity.
    friend bool operator==(const Value& left, const Value& right);

  private:
    std::variant<std::monostate, Null, Missing, bool, std::int32_t, double, Date, Text,
                 std::shared_ptr<Invocable>, std::shared_ptr<const Array>>
        data_;
};

/// An array of values of one or two dimensions with bounds of their own.
class Array {
  public:
    struct Bounds {
        std::int32_t lower = 0;
        std::int32_t count = 0;
    };

    Array() : Array(Bounds{}) {}
    explicit Array(Bounds only) : dimensions_{only}, values_(size(only)) {}
    Array(Bounds first, Bounds second) : dimensions_{first, second}, values_(size(first) * size(second)) {}

    /// One dimension, counted from 0.
    static Array of(std::vector<Value> values);

    const std::vector<Bounds>& dimensions() const { return dimensions_; }

    /// An element by its indices; `result::bad_index` outside of the bounds or for a wrong number of indices.
    const Value& at(std::int32_t index) const { return values_[place(index)]; }
    Value& at(std::int32_t index) { return values_[place(index)]; }
    const Value& at(std::int32_t first, std::int32_t second) const { return values_[place(first, second)]; }
    Value& at(std::int32_t first, std::int32_t second) { return values_[place(first, second)]; }

    friend bool operator==(const Array& left, const Array& right);

  private:
    static std::size_t size(Bounds bounds) {
        return static_cast<std::size_t>(bounds.count > 0 ? bounds.count : 0);
    }
    std::size_t place(std::int32_t index) const;
    std::size_t place(std::int32_t first, std::int32_t second) const;

    std::vector<Bounds> dimensions_;
    std::vector<Value> values_;
};

}  // namespace automation
