// What the host's public documentation says of filters: expressions, the items that they find, and the page.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "desk/store/item_data.h"

namespace filter_tests {

/// A folder with items, of which the expressions are asked.
struct Shelf {
    std::string name;
    std::vector<desk::ItemData> items;
};

/// The clock of the desk that is asked: 4 March 2026, a Wednesday, 9:15, two hours east of Greenwich.
std::vector<Shelf> shelves();

struct Documented {
    const char* shelf;
    const char16_t* expression;
    const char* found;  ///< what the documentation says is found, "; " between subjects; or "an error"
    const char* page;
    const char* desk = nullptr;  ///< the desk's answer where it is another one
};
std::span<const Documented> documented();

}  // namespace filter_tests
