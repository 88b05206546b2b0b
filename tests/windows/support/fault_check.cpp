#include "tests/windows/support/fault_check.h"

#include <gtest/gtest.h>

#include "automation/com/fault_watch.h"

namespace windows::testing {
namespace {

class FaultCheck : public ::testing::EmptyTestEventListener {
  public:
    std::uint32_t expected = 0;

  private:
    void OnTestStart(const ::testing::TestInfo&) override {
        expected = 0;
        before_ = FaultWatch::count();
    }
    void OnTestEnd(const ::testing::TestInfo&) override {
        EXPECT_EQ(FaultWatch::count() - before_, expected) << automation::to_utf8(FaultWatch::told());
    }

    FaultWatch watch_;
    std::uint32_t before_ = 0;
};

/// Every test program has one; it belongs to the framework.
FaultCheck* const check = [] {
    auto* made = new FaultCheck;
    ::testing::UnitTest::GetInstance()->listeners().Append(made);
    return made;
}();

}  // namespace

void expect_faults(std::uint32_t faults) { check->expected = faults; }

}  // namespace windows::testing
