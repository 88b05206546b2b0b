// Actions that wait in the middle, and who runs when.
#include "tests/native/strand.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

using native::Strands;

struct StrandsTest : testing::Test {
    std::string told;
    bool open = true;  // of a modal show that is told by a letter, while it lasts
    Strands strands;

    void wait_while(bool& shown) {
        strands.park([&shown] { return !shown; }, [&shown] { shown = false; });
    }
};

TEST_F(StrandsTest, ActionThatDoesNotParkHasEndedWhenRunComesBack) {
    strands.run([&] { told += "a"; });
    told += "t";
    EXPECT_EQ(told, "at");
    EXPECT_FALSE(strands.running());
}

TEST_F(StrandsTest, ParkedActionGoesOnWhenItsWaitIsOver) {
    strands.run([&] {
        told += "a";
        wait_while(open);
        told += "b";
    });
    told += "t";
    strands.resume_parked();
    EXPECT_EQ(told, "at");
    EXPECT_EQ(strands.parked(), 1);
    open = false;
    strands.resume_parked();
    EXPECT_EQ(told, "atb");
    EXPECT_EQ(strands.parked(), 0);
}

TEST_F(StrandsTest, WaitThatIsOverAtOnceDoesNotPark) {
    open = false;
    strands.run([&] {
        wait_while(open);
        told += "a";
    });
    EXPECT_EQ(told, "a");
}

TEST_F(StrandsTest, ActionMayParkAgainAndAgain) {
    strands.run([&] {
        for (int round = 0; round < 3; ++round) {
            open = true;
            wait_while(open);
            told += std::to_string(round);
        }
    });
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(told.size(), round);
        open = false;
        strands.resume_parked();
    }
    EXPECT_EQ(told, "012");
}

TEST_F(StrandsTest, LowerActionWaitsUntilTheUpperOneHasEnded) {
    bool lower = true, upper = true;
    strands.run([&] {
        wait_while(lower);
        told += "lower";
    });
    strands.run([&] {
        wait_while(upper);
        told += "upper ";
    });
    lower = false;
    strands.resume_parked();
    EXPECT_EQ(told, "") << "the upper one stands on the same stack";
    upper = false;
    strands.resume_parked();
    EXPECT_EQ(told, "upper lower");
}

TEST_F(StrandsTest, ActionRunsAnotherOneInside) {
    bool inner = true;
    strands.run([&] {
        told += "a";
        strands.run([&] {
            told += "b";
            wait_while(inner);
            told += "d";
        });
        told += "c";
        inner = false;
        strands.resume_parked();
        told += "e";
    });
    EXPECT_EQ(told, "abcde");
}

TEST_F(StrandsTest, RunningActionDoesNotWakeTheOneThatItStandsOn) {
    strands.run([&] {
        wait_while(open);
        told += "lower";
    });
    strands.run([&] {
        open = false;
        strands.resume_parked();
        told += "upper ";
    });
    EXPECT_EQ(told, "upper ");
    strands.resume_parked();
    EXPECT_EQ(told, "upper lower");
}

TEST_F(StrandsTest, ExceptionTravelsToTheCallerOfRun) {
    EXPECT_THROW(strands.run([] { throw std::runtime_error("early"); }), std::runtime_error);
    strands.run([&] { told += "a"; });
    EXPECT_EQ(told, "a");
}

TEST_F(StrandsTest, ExceptionAfterAWaitIsKeptToTheEnd) {
    strands.run([&] {
        wait_while(open);
        throw std::runtime_error("late");
    });
    open = false;
    EXPECT_NO_THROW(strands.resume_parked());
    EXPECT_THROW(strands.finish(), std::runtime_error);
    EXPECT_NO_THROW(strands.finish());
}

TEST_F(StrandsTest, WaitOutsideOfAStrandIsRefused) {
    EXPECT_THROW(wait_while(open), native::NotInAStrand);
    EXPECT_THROW(wait_while(open), std::logic_error);
}

TEST_F(StrandsTest, EndGivesUpTheWaitsFromTheLastToTheFirst) {
    bool windows[] = {true, true, true};
    for (int number = 0; number < 3; ++number) {
        strands.run([&, number] {
            wait_while(windows[number]);
            EXPECT_FALSE(windows[number]);
            told += std::to_string(number);
            wait_while(open);  // nor does it wait again
        });
    }
    strands.finish();
    EXPECT_EQ(told, "210");
}

TEST(StrandsEnd, FailureThatNobodyAskedForIsReported) {
    EXPECT_NONFATAL_FAILURE(
        {
            bool open = true;
            Strands strands;
            strands.run([&] {
                strands.park([&] { return !open; }, [&] { open = false; });
                throw std::runtime_error("forgotten");
            });
        },
        "forgotten");
}

}  // namespace
