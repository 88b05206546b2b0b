// Members of the desk's objects that are kept as they are: a row of a table is all that they need.
#pragma once

#include <type_traits>

#include "desk/base/base.h"

namespace desk {

template <class T, class V>
std::type_identity<T> owner_of(V T::*);
template <auto member>
using OwnerOf = typename decltype(owner_of(member))::type;

/// A plain member, read.
template <auto member>
auto shown(const OwnerOf<member>& self) {
    return self.*member;
}

template <auto member, class T, class V>
void keep(T& self, V given) {
    auto& value = self.*member;
    if (given == value) return;
    value = std::move(given);
    self.kept_changed();
}

/// A plain member, read and written. Whoever shows it is told of a change by the object's `kept_changed`.
template <auto member, class T = OwnerOf<member>>
inline constexpr automation::Property kept{
    &shown<member>, &keep<member, T, std::remove_cvref_t<decltype(std::declval<T&>().*member)>>};

/// The steps through a collection that has a `place`, `step` to a place, and `ids`.
template <class T>
automation::Object first(T& self) {
    return self.step(1);
}
template <class T>
automation::Object last(T& self) {
    return self.step(static_cast<std::int32_t>(self.ids().size()));
}
template <class T>
automation::Object next(T& self) {
    return self.step(self.place + 1);
}
template <class T>
automation::Object previous(T& self) {
    return self.step(self.place - 1);
}

/// The element of a list that a number from 1 names. Throws `result::bad_index`.
template <class Elements>
const auto& numbered(const Elements& all, const automation::Value& index) {
    const std::int32_t place = index.to_integer();
    if (place < 1 || static_cast<std::size_t>(place) > all.size()) {
        throw automation::Failure(automation::result::bad_index, u"Array index out of bounds.");
    }
    return all[static_cast<std::size_t>(place - 1)];
}

/// The same, or the element of a name, without regard to case. Throws `result::invalid_argument` if none has
/// it.
template <class Elements, class Name>
const auto& named_or_numbered(const Elements& all, const automation::Value& index, Name name_of,
                              automation::TextView what) {
    if (!index.is(automation::Value::Type::text)) return numbered(all, index);
    const automation::Text wanted = index.to_text();
    for (const auto& one : all) {
        if (automation::same_ignoring_case(name_of(*one), wanted)) return one;
    }
    throw automation::Failure(automation::result::invalid_argument,
                              u"There is no " + automation::Text(what) + u" \"" + wanted + u"\".");
}

}  // namespace desk
