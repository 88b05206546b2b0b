// Runs a program of native tests. With sanitizers each test answers for its own leaks: at the end of the
// process nobody could tell any more whose they were.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifdef TARNWELL_SANITIZE
#include <sanitizer/lsan_interface.h>

namespace {

class LeakCheck : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        if (leaks_) return;  // what has leaked is found again after each later test
        leaks_ = __lsan_do_recoverable_leak_check() != 0;
        if (leaks_) ADD_FAILURE() << "The test leaks, as may later ones; the report is above.";
    }

    bool leaks_ = false;
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
