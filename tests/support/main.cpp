// Runs a program of native tests. With sanitizers each test answers for its own leaks: at the end of the
// process, when the sanitizer looks once more, nobody could tell any more whose they were.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifdef TARNWELL_SANITIZE
#include <sanitizer/lsan_interface.h>

#include <chrono>

namespace {

/// Looks for leaks after each test; once that takes long, as it does from the first test on that has used a
/// lot of memory, after several at a time, so that it stays a tenth of what the tests take.
class LeakCheck : public testing::EmptyTestEventListener {
    using Clock = std::chrono::steady_clock;

    void OnTestEnd(const testing::TestInfo&) override {
        if (leaks_) return;  // what has leaked is found again after each later test
        ++unchecked_;
        const Clock::time_point begin = Clock::now();
        if (begin < next_) return;
        leaks_ = __lsan_do_recoverable_leak_check() != 0;
        if (leaks_) ADD_FAILURE() << "One of the last " << unchecked_ << " tests leaks; the report is above.";
        unchecked_ = 0;
        const Clock::time_point end = Clock::now();
        next_ = end + 10 * (end - begin);
    }

    bool leaks_ = false;
    int unchecked_ = 0;
    Clock::time_point next_;
};

}  // namespace
#endif

int main(int count, char** arguments) {
    testing::InitGoogleMock(&count, arguments);
#ifdef TARNWELL_SANITIZE
    testing::UnitTest::GetInstance()->listeners().Append(new LeakCheck);  // which becomes the owner
#endif
    return RUN_ALL_TESTS();
}
