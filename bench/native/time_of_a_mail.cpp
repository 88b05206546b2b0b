#include <algorithm>
#include <chrono>
#include <iostream>

#include "bench/native/measures.h"
#include "bench/table.h"
#include "desk/tools/database/sample_data.h"

namespace bench {
namespace {

using host::outlook::Item;

constexpr int contact_counts[] = {100, 10'000, 200'000};
constexpr std::size_t mail_count = 50;

/// A search that scans takes as many times longer as there are more contacts; one by the index stays far
/// below this, on a busy machine, too.
constexpr double largest_ratio = 10;

/// Puts contacts into the database of a world whose desk starts anew with them.
void add_contacts(native::NativeWorld& world, int count) {
    static const desk::sample::Data forms =
        desk::sample::read_data(std::filesystem::path(TARNWELL_DATA_FOLDER) / "empty");
    desk::sample::add_contacts(forms, world.model().store(), count);
    world.quit();
    world.start();
}

/// Milliseconds that the reading of each mail takes, with all that comes of it; an empty list if one was not
/// filed.
std::vector<double> reading_times(native::NativeWorld& world) {
    using Clock = std::chrono::steady_clock;
    std::vector<Item> mails;
    for (std::size_t i = 0; i < mail_count; ++i) mails.push_back(world.deliver(acceptance::message()));
    world.settle();
    std::vector<double> times;
    for (const Item& mail : mails) {
        const Clock::time_point begin = Clock::now();
        acceptance::World::read(mail);
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
        if (!acceptance::is_marked(mail)) return {};
        world.boundary().forget_calls();
    }
    return times;
}

double median(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::ranges::nth_element(times, middle);
    return *middle;
}

}  // namespace

bool time_of_a_mail() {
    Table table("Time of a filed mail, median of " + std::to_string(mail_count) + " mails",
                {"contacts", "ms per mail", "to the first"});
    double first = 0, ratio = 0;
    bool right = true;
    for (const int count : contact_counts) {
        const auto world = filing_world();
        add_contacts(*world, count);
        const std::vector<double> times = reading_times(*world);
        if (times.empty()) {
            std::cout << "WRONG: with " << count << " contacts a mail was not filed\n";
            return false;
        }
        const double time = median(times);
        if (first == 0) first = time;
        ratio = time / first;
        right = right && ratio < largest_ratio;
        table.add_row({std::to_string(count), decimal(time, 2), decimal(ratio, 2)});
    }
    table.print(std::cout);
    if (!right) std::cout << "WRONG: the time grows with the contacts: filing scans them\n\n";
    return right;
}

}  // namespace bench
