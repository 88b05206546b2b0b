// Measures the add-in with add-in and desk in one process.
#include <sys/resource.h>

#include <cstdlib>
#include <iostream>

#include "bench/native/measures.h"

namespace bench {

std::unique_ptr<native::NativeWorld> filing_world() {
    auto world = std::make_unique<native::NativeWorld>(acceptance::WorldSetup{});
    world->family(u"EmailAutoFile", u"1");
    acceptance::add_contact(*world);
    return world;
}

long peak_memory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

}  // namespace bench

int main() try {
    const bool calls_right = bench::calls_of_a_mail();
    const bool opened_right = bench::calls_of_opened_items();
    const bool selection_right = bench::calls_of_a_selection();
    const bool search_right = bench::calls_of_a_search();
    const bool walk_right = bench::calls_of_a_walk();
    const bool replica_right = bench::calls_of_a_replica();
    const bool times_right = bench::time_of_a_mail();
    const bool trace_right = bench::cost_of_the_trace();
    return calls_right && opened_right && selection_right && search_right && walk_right && replica_right &&
                   times_right && trace_right
               ? EXIT_SUCCESS
               : EXIT_FAILURE;
} catch (const automation::Failure& failure) {
    std::cout << "WRONG: a call failed: " << failure.what() << "\n";
    return EXIT_FAILURE;
}
