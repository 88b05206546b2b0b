// What a table that is searched by a key has to be, for the compiler to see: no key stands twice, and a key
// that is a number stands where it counts to.
#pragma once

#include <cstddef>
#include <functional>
#include <iterator>

namespace addin {

/// Whether no two rows bear the same key. `key` is a member, or what makes a key of a row.
template <class Rows, class Key>
constexpr bool is_keyed(const Rows& rows, Key key) {
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        for (std::size_t other = 0; other < i; ++other) {
            if (std::invoke(key, rows[i]) == std::invoke(key, rows[other])) return false;
        }
    }
    return true;
}

/// Whether the rows' keys are the values of an enumeration in their order, from the first to the last.
template <class Rows, class Key, class Value>
constexpr bool is_in_order(const Rows& rows, Key key, Value last) {
    if (std::size(rows) != static_cast<std::size_t>(last) + 1) return false;
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        if (std::invoke(key, rows[i]) != static_cast<Value>(i)) return false;
    }
    return true;
}

}  // namespace addin
