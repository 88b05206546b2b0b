// Every way into the add-in, with each single call to the outside failing, and with all from each on.
#include <gmock/gmock.h>

#include <iostream>
#include <set>

#include "tests/unit/support/trial.h"

namespace addin_tests {
namespace {

/// What fails of the calls that an entry makes.
struct FailingCalls {
    int first = 0;       ///< counted from 1
    std::string member;  ///< its name
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

/// What can fail beside the calls of objects: the system's own.
const std::set<std::string> of_the_system{"application",
                                          "find_file",
                                          "delete_file",
                                          "shell_execute",
                                          "section_names",
                                          "profile_text",
                                          "text_of",
                                          "date_of",
                                          "format",
                                          "message_box",
                                          "make_window",
                                          "list_add",
                                          "takes_drops",
                                          "choice_add",
                                          "registry.open_key",
                                          "registry.create_key",
                                          "registry.query_value",
                                          "registry.set_value",
                                          "registry.close_key"};

/// The points to try: some, and of those left out one for each member that no point has failed yet.
std::vector<FailingCalls> drawn(const std::vector<FailingCalls>& points, std::set<std::string>& failed,
                                std::mt19937& random) {
    constexpr std::size_t most = 6;
    std::vector<FailingCalls> chosen = points;
    draw(chosen, most, random);
    for (const FailingCalls& point : chosen) failed.insert(point.member);
    for (const FailingCalls& point : points) {
        if (failed.insert(point.member).second) chosen.push_back(point);
    }
    return chosen;
}

TEST(EveryCall, ThatFailsHurtsNothingOfTheUsers) {
    constexpr unsigned seed = 17;
    std::mt19937 random(seed);
    std::size_t all = 0, tried = 0;
    std::set<std::string> failed;
    for (const Entry& entry : all_entries()) {
        const Outcome usual = run_trial(entry, {});
        EXPECT_TRUE(usual.faults.empty()) << told(entry, "nothing fails", usual);
        EXPECT_EQ(usual.calls.empty(), entry.quiet) << told(entry, "it makes calls, or none", usual);
        std::vector<FailingCalls> points;
        for (int n = 1; n <= static_cast<int>(usual.calls.size()); ++n) {
            const std::string& member = usual.calls[static_cast<std::size_t>(n) - 1];
            points.push_back({n, member, false});
            points.push_back({n, member, true});
        }
        all += points.size();
        const std::vector<FailingCalls> chosen = drawn(points, failed, random);
        tried += chosen.size();
        for (const FailingCalls& point : chosen) {
            const Outcome outcome = run_with(entry, point);
            EXPECT_TRUE(outcome.faults.empty())
                << told(entry,
                        "call " + std::to_string(point.first) + ", " + point.member +
                            (point.and_all_after ? ", and all after it fail" : " fails"),
                        outcome);
        }
    }
    EXPECT_GT(all, 10000U);
    EXPECT_THAT(failed, testing::IsSupersetOf(of_the_system));
    std::cout << tried << " points of " << all << ", " << failed.size() << " members\n";
}

}  // namespace
}  // namespace addin_tests
