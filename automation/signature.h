// What the signature of a member's code tells: how many parameters there are, what each takes, which may be
// left out. The code gets its arguments as the types that it names.
#pragma once

#include <array>
#include <concepts>
#include <optional>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "automation/object.h"

namespace automation {

/// What a parameter takes. A value of another type is converted, and `result::type_mismatch` says that it
/// can't be.
enum class Takes { value, text, integer, boolean, number, date, object };

struct Parameter {
    TextView name;
    Takes takes = Takes::value;
    bool optional = false;
};

/// The type of a code's last parameter that takes up to `most` values: those before the first that was left
/// out.
template <std::size_t most>
struct UpTo {
    std::span<const Value> values;
};

/// The type of a parameter that may be left out and that the code has no use for.
struct Ignored {};

/// Code of any signature. Only what knows the signature can run it.
using AnyCode = void (*)();

namespace signature {

/// What the type of a parameter tells.
struct Told {
    Takes takes = Takes::value;
    bool optional = false;
    std::size_t places = 1;  ///< parameters that it stands for
};

/// The types that a code's parameters may have: what each tells, and how it is made of the arguments from its
/// place on. `Value&` is the caller's own argument, so a change of it is seen there.
template <class T>
struct Type;

template <>
struct Type<Value> {
    static constexpr Told told{Takes::value};
    static Value& of(std::span<Value> given) { return given.front(); }
};
template <>
struct Type<Text> {
    static constexpr Told told{Takes::text};
    static Text of(std::span<Value> given) { return given.front().to_text(); }
};
template <>
struct Type<TextView> : Type<Text> {};
template <>
struct Type<std::int32_t> {
    static constexpr Told told{Takes::integer};
    static std::int32_t of(std::span<Value> given) { return given.front().to_integer(); }
};
template <>
struct Type<bool> {
    static constexpr Told told{Takes::boolean};
    static bool of(std::span<Value> given) { return given.front().to_boolean(); }
};
template <>
struct Type<double> {
    static constexpr Told told{Takes::number};
    static double of(std::span<Value> given) { return given.front().to_number(); }
};
template <>
struct Type<Date> {
    static constexpr Told told{Takes::date};
    static Date of(std::span<Value> given) { return given.front().to_date(); }
};
template <std::derived_from<Object> T>
struct Type<T> {
    static constexpr Told told{Takes::object};
    static T of(std::span<Value> given) { return T(given.front().to_object()); }
};
template <class T>
requires(!std::same_as<T, TextView>)  // nobody would hold the text
    struct Type<std::optional<T>> {
    static constexpr Told told{Type<T>::told.takes, true};
    static std::optional<T> of(std::span<Value> given) {
        if (given.front().is_missing()) return std::nullopt;
        return Type<T>::of(given);
    }
};

template <>
struct Type<Ignored> {
    static constexpr Told told{Takes::value, true};
    static Ignored of(std::span<Value>) { return {}; }
};

/// The values before the first that was left out.
std::span<const Value> given_ones(std::span<const Value> values);

template <std::size_t most>
struct Type<UpTo<most>> {
    static constexpr Told told{Takes::value, true, most};
    static UpTo<most> of(std::span<Value> given) { return {given_ones(given.first(most))}; }
};

/// The parameters of names and of what their types tell.
std::vector<Parameter> parameters(std::span<const TextView> names, std::span<const Told> told);

/// An answer as a value; numbers of elements are integers.
template <class Answer>
Value as_value(Answer&& answer) {
    if constexpr (std::same_as<std::remove_cvref_t<Answer>, std::size_t>) {
        return static_cast<std::int32_t>(answer);
    } else {
        return std::forward<Answer>(answer);
    }
}

/// A pointer to code, taken apart. The first parameter is the object whose member it is.
template <class Code>
struct Signature;

template <class Answer, class Self, class... Taken>
struct Signature<Answer (*)(Self&, Taken...)> {
    static constexpr std::size_t count = sizeof...(Taken);
    static constexpr std::array<Told, count> told{Type<std::remove_cvref_t<Taken>>::told...};

    template <class T>
    static Value run(T& self, std::span<Value> arguments, AnyCode code) {
        return run(static_cast<Self&>(self), arguments, code, std::index_sequence_for<Taken...>());
    }

  private:
    template <std::size_t... place>
    static Value run(Self& self, [[maybe_unused]] std::span<Value> arguments, AnyCode any,
                     std::index_sequence<place...>) {
        const auto code = reinterpret_cast<Answer (*)(Self&, Taken...)>(any);
        if constexpr (std::is_void_v<Answer>) {
            code(self, Type<std::remove_cvref_t<Taken>>::of(arguments.subspan(place))...);
            return {};
        } else {
            return as_value(code(self, Type<std::remove_cvref_t<Taken>>::of(arguments.subspan(place))...));
        }
    }
};

/// The signature of a function or of a lambda that captures nothing.
template <class Code>
using Of = Signature<decltype(+std::declval<Code>())>;

template <auto method>
struct Method;
template <class Answer, class Self, class... Taken, Answer (Self::*method)(Taken...)>
struct Method<method> {
    static Answer run(Self& self, Taken... taken) { return (self.*method)(std::forward<Taken>(taken)...); }
};
template <class Answer, class Self, class... Taken, Answer (Self::*method)(Taken...) const>
struct Method<method> {
    static Answer run(const Self& self, Taken... taken) {
        return (self.*method)(std::forward<Taken>(taken)...);
    }
};

}  // namespace signature

/// The code of a member that is a member function.
template <auto method>
inline constexpr auto calls = &signature::Method<method>::run;

/// The codes of a property that is read and written.
template <class Get, class Put>
struct Property {
    Get get;
    Put put;  ///< as the other, and the value at the end
};
template <class Get, class Put>
Property(Get, Put) -> Property<Get, Put>;  // a compiler may know no such guides for aggregates by itself

}  // namespace automation
