// What a fuzzer needs of a piece that reads what it did not write.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// Good inputs from which the others are made.
using Seeds = std::vector<std::string>;

struct Wrong : std::logic_error {
    using std::logic_error::logic_error;
};

inline void require(bool holds, const std::string& what) {
    if (!holds) throw Wrong(what);
}

}  // namespace fuzz
