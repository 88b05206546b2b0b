// Every way into the add-in, with each single call to the outside failing, and with all from each on.
#include <iostream>

#include "tests/unit/support/trial.h"

namespace addin_tests {
namespace {

/// What fails of the calls that an entry makes.
struct FailingCalls {
    int first = 0;  ///< counted from 1
    bool and_all_after = false;
};

Outcome run_with(const Entry& entry, const FailingCalls& failing) {
    Trial trial;
    trial.at_call = [&](int number) {
        const bool fails = number == failing.first || (failing.and_all_after && number > failing.first);
        if (fails) throw automation::Failure(automation::result::fail, u"made to fail");
    };
    trial.restores = !failing.and_all_after;  // or nothing can be written any more
    return run_trial(entry, trial);
}

TEST(EveryCall, ThatFailsHurtsNothingOfTheUsers) {
    constexpr std::size_t most = 6;
    constexpr unsigned seed = 17;
    std::mt19937 random(seed);
    std::size_t all = 0, tried = 0;
    for (const Entry& entry : all_entries()) {
        const Outcome usual = run_trial(entry, {});
        EXPECT_TRUE(usual.faults.empty()) << told(entry, "nothing fails", usual);
        EXPECT_EQ(usual.calls.empty(), entry.quiet) << told(entry, "it makes calls, or none", usual);
        std::vector<FailingCalls> points;
        for (int n = 1; n <= static_cast<int>(usual.calls.size()); ++n) {
            points.push_back({n, false});
            points.push_back({n, true});
        }
        all += points.size();
        draw(points, most, random);
        tried += points.size();
        for (const FailingCalls& point : points) {
            const Outcome outcome = run_with(entry, point);
            EXPECT_TRUE(outcome.faults.empty())
                << told(entry,
                        "call " + std::to_string(point.first) + ", " +
                            usual.calls[static_cast<std::size_t>(point.first) - 1] +
                            (point.and_all_after ? ", and all after it fail" : " fails"),
                        outcome);
        }
    }
    EXPECT_GT(all, 10000U);
    std::cout << tried << " points of " << all << "\n";
}

}  // namespace
}  // namespace addin_tests
