#include <algorithm>
#include <iostream>

#include "bench/table.h"
#include "bench/wine/desk_process.h"
#include "bench/wine/measures.h"
#include "tests/world/world.h"

namespace bench {
namespace {

constexpr int session_count = 5;

/// A host names an add-in as slow, and may switch it off, that takes longer.
struct Limit {
    const char* operation;
    double milliseconds;
};
constexpr Limit limits[] = {{"OnConnection", 1000}, {"OnDisconnection", 500}};

/// The time in the desk's log, in milliseconds. Throws `std::runtime_error` if it isn't there or the
/// operation has failed.
double logged_time(const std::string& operation) {
    const std::optional<std::string> line = log_line(operation + " ");
    if (!line || !line->ends_with(", result 0")) {
        throw std::runtime_error("the desk's log tells no success of " + operation);
    }
    return std::stod(*line) / 1000;
}

}  // namespace

bool start_and_end() {
    std::vector<double> times[std::size(limits)];
    const auto world = acceptance::make_world({.database = "sample", .started = false});
    for (int i = 0; i < session_count; ++i) {
        world->start();
        world->quit();
        for (std::size_t k = 0; k < std::size(limits); ++k)
            times[k].push_back(logged_time(limits[k].operation));
    }

    bool right = true;
    Table table("Start and end of the add-in, in ms, over " + std::to_string(session_count) + " sessions",
                {"operation", "first", "shortest", "longest", "limit"});
    for (std::size_t k = 0; k < std::size(limits); ++k) {
        const auto [shortest, longest] = std::ranges::minmax(times[k]);
        table.add_row({limits[k].operation, decimal(times[k].front(), 1), decimal(shortest, 1),
                       decimal(longest, 1), decimal(limits[k].milliseconds, 0)});
        right = right && longest <= limits[k].milliseconds;
    }
    table.print(std::cout);
    if (!right) std::cout << "WRONG: a limit is passed\n\n";
    return right;
}

}  // namespace bench
