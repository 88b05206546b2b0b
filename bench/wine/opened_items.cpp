#include <algorithm>
#include <array>
#include <chrono>
#include <iostream>
#include <vector>

#include "bench/table.h"
#include "bench/wine/measures.h"
#include "tests/world/world.h"

namespace bench {
namespace {

using automation::Object;
using automation::Value;

constexpr int rounds = 60;

/// A host switches off an add-in that takes longer than the limit for an opened item.
constexpr double limit = 500, aim = 5;  // milliseconds

struct Opened {
    const char* name;
    std::int32_t type;  ///< OlItemType
    automation::TextView message_class;
};
constexpr Opened opened_items[] = {{"a saved mail", 0, u""},
                                   {"a personal appointment", 1, u""},
                                   {"an account contact", 2, u"IPM.Contact.Account Contact"},
                                   {"a plain task", 3, u""}};
constexpr std::size_t opened_kinds = std::size(opened_items);

/// The median time of `Display`, in milliseconds, of each kind of item.
std::array<double, opened_kinds> times_of_display(const acceptance::WorldSetup& setup) {
    using Clock = std::chrono::steady_clock;
    std::array<double, opened_kinds> medians{};
    const auto world = acceptance::make_world(setup);
    for (std::size_t k = 0; k < opened_kinds; ++k) {
        const Object item = world->application().call(u"CreateItem", {opened_items[k].type}).to_object();
        if (!opened_items[k].message_class.empty()) {
            item.put(u"MessageClass", Value(opened_items[k].message_class));
        }
        item.call(u"Save");
        std::vector<double> times;
        for (int i = 0; i < rounds; ++i) {
            const Object window = item.get(u"GetInspector").to_object();
            const Clock::time_point begin = Clock::now();
            window.call(u"Display");
            times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
            window.call(u"Close", {1});
        }
        std::ranges::sort(times);
        medians[k] = times[times.size() / 2];
    }
    return medians;
}

}  // namespace

bool opened_items_time() {
    const auto with = times_of_display({});
    const auto without = times_of_display({.add_in = false});
    bool right = true;
    Table table("Opening an item, in ms, over " + std::to_string(rounds) + " windows",
                {"item", "with the add-in", "without", "its handler", "aim", "limit"});
    for (std::size_t k = 0; k < opened_kinds; ++k) {
        const double own = with[k] - without[k];
        table.add_row({opened_items[k].name, decimal(with[k], 1), decimal(without[k], 1), decimal(own, 1),
                       decimal(aim, 0), decimal(limit, 0)});
        right = right && own <= limit;
    }
    table.print(std::cout);
    if (!right) std::cout << "WRONG: the limit is passed\n\n";
    return right;
}

}  // namespace bench
