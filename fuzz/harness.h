// What a fuzzer needs of a piece that reads what it did not write.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// Good inputs from which the others are made.
std::vector<std::string> seeds();

/// Gives an input to the piece. Throws `Wrong` if the piece does what it never may; ends badly if it is
/// broken worse. Answers whether the piece took the input for good.
bool try_input(std::string_view input);

struct Wrong : std::logic_error {
    using std::logic_error::logic_error;
};

inline void require(bool holds, const char* what) {
    if (!holds) throw Wrong(what);
}

}  // namespace fuzz
