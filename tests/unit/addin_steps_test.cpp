// The failure mode of nearly every routine.
#include <gtest/gtest.h>

#include <stdexcept>

#include "addin/ground/steps.h"

namespace addin_tests {
namespace {

using addin::Steps;
using automation::Failure;

[[noreturn]] int fails(std::int32_t number = automation::result::fail) { throw Failure(number); }

TEST(Steps, SkipAStatementThatFailsAndRemember) {
    Steps steps;
    int done = 0;
    steps.run([&] { ++done; });
    EXPECT_FALSE(steps.failed());
    steps.run([&] {
        fails();
        ++done;
    });
    steps.run([&] { ++done; });
    EXPECT_EQ(done, 2);
    EXPECT_TRUE(steps.failed()) << "a later success does not clear it";
}

TEST(Steps, LeaveATargetAsItWasIfItsValueFails) {
    Steps steps;
    int target = 7;
    steps.set(target, [] { return fails(); });
    EXPECT_EQ(target, 7);
    EXPECT_TRUE(steps.failed());
    steps.set(target, [] { return 8; });
    EXPECT_EQ(target, 8);
}

TEST(Steps, TakeATestThatFailsAsPassed) {
    Steps steps;
    EXPECT_TRUE(steps.holds([] { return true; }));
    EXPECT_FALSE(steps.holds([] { return false; }));
    EXPECT_FALSE(steps.failed());
    EXPECT_TRUE(steps.holds([]() -> bool { fails(); }));
    EXPECT_TRUE(steps.failed());
}

TEST(Steps, ForgetWhenTheyAreTold) {
    Steps steps;
    steps.run([] { fails(automation::result::file_not_found); });
    ASSERT_TRUE(steps.failed());
    steps.clear();
    EXPECT_FALSE(steps.failed());
}

TEST(Steps, LetPassWhatIsNoFailureOfACall) {
    Steps steps;
    EXPECT_THROW(steps.run([] { throw std::logic_error("our own mistake"); }), std::logic_error);
}

TEST(Steps, AreEachRoutinesOwn) {
    Steps outer;
    outer.run([] {
        Steps inner;
        inner.run([] { fails(); });
        EXPECT_TRUE(inner.failed());
    });
    EXPECT_FALSE(outer.failed());
}

}  // namespace
}  // namespace addin_tests
