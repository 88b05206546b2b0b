#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>

#include "bench/native/measures.h"
#include "bench/table.h"

namespace bench {
namespace {

using host::outlook::Item;

constexpr std::size_t traced_mails = 100;

struct Cost {
    std::size_t calls = 0;        ///< of all mails together
    std::uintmax_t written = 0;   ///< bytes of the file
    std::uintmax_t at_start = 0;  ///< bytes of it after the load
    double milliseconds = 0;      ///< of one mail, median
    bool filed = false;           ///< each of them
};

/// What it costs to file mails in a load with a trace, or in one without.
Cost cost_of_mails(bool traced) {
    native::NativeWorld world({.started = false});
    const automation::Text file = world.write_file("trace.txt", "");
    if (traced) world.own_option(u"TraceFile", file);
    world.start();
    world.family(u"EmailAutoFile", u"1");
    acceptance::add_contact(world);
    Cost cost;
    cost.at_start = std::filesystem::file_size(file);
    std::vector<Item> mails;
    for (std::size_t i = 0; i < traced_mails; ++i) mails.push_back(world.deliver(acceptance::message()));
    world.settle();
    world.boundary().forget_calls();
    using Clock = std::chrono::steady_clock;
    std::vector<double> times;
    for (const Item& mail : mails) {
        const Clock::time_point begin = Clock::now();
        acceptance::World::read(mail);
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
    }
    world.settle();
    cost.calls = world.boundary().calls().size();
    cost.filed = std::ranges::all_of(mails, acceptance::is_marked);
    cost.written = std::filesystem::file_size(file);
    std::ranges::nth_element(times, times.begin() + traced_mails / 2);
    cost.milliseconds = times[traced_mails / 2];
    return cost;
}

}  // namespace

bool cost_of_the_trace() {
    const Cost without = cost_of_mails(false), with = cost_of_mails(true);
    Table table("What the trace costs: " + std::to_string(traced_mails) + " filed mails",
                {"trace", "calls of the outside", "bytes written", "ms per mail"});
    table.add_row({"off", std::to_string(without.calls), std::to_string(without.written),
                   decimal(without.milliseconds, 2)});
    table.add_row(
        {"on", std::to_string(with.calls), std::to_string(with.written), decimal(with.milliseconds, 2)});
    table.print(std::cout);
    const bool right = without.filed && with.filed && without.written == 0 && with.written > with.at_start &&
                       with.calls == without.calls;
    if (!right)
        std::cout << "WRONG: a trace that is off writes, or one that is on makes calls of its own\n\n";
    return right;
}

}  // namespace bench
