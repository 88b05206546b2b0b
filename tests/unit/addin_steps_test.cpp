// The failure mode of nearly every routine, and who is told of it.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <stdexcept>

#include "addin/filing/received_mail.h"
#include "addin/ground/steps.h"
#include "tests/native/native_world.h"

namespace addin_tests {
namespace {

using addin::Reason;
using addin::SourcePlace;
using addin::Steps;
using automation::Failure;
namespace result = automation::result;

[[noreturn]] int fails(std::int32_t number = result::fail) { throw Failure(number); }
[[noreturn]] bool is_unanswered() { throw Failure(result::not_found); }

/// Steps that nobody observes.
Steps unobserved() { return Steps(nullptr); }

TEST(Steps, SkipAStatementThatFailsAndTellIt) {
    const Steps steps = unobserved();
    int done = 0;
    EXPECT_TRUE(steps.run([&] { ++done; }));
    EXPECT_FALSE(steps.run([&] {
        fails();
        ++done;
    }));
    EXPECT_TRUE(steps.run([&] { ++done; })) << "each statement answers for itself";
    EXPECT_EQ(done, 2);
}

TEST(Steps, LeaveATargetAsItWasIfItsValueFails) {
    const Steps steps = unobserved();
    int target = 7;
    EXPECT_FALSE(steps.set(target, [] { return fails(); }));
    EXPECT_EQ(target, 7);
    EXPECT_TRUE(steps.set(target, [] { return 8; }));
    EXPECT_EQ(target, 8);
}

TEST(Steps, SayByATestsNameWhatItMeansUnanswered) {
    const Steps steps = unobserved();
    struct Case {
        const char* name;
        bool (*test)();
        bool possibly, certainly;
    };
    constexpr Case cases[] = {{"yes", [] { return true; }, true, true},
                              {"no", [] { return false; }, false, false},
                              {"unanswered", is_unanswered, true, false}};
    for (const Case& one : cases) {
        const bool possibly = steps.possibly(one.test), certainly = steps.certainly(one.test);
        EXPECT_EQ(possibly, one.possibly) << one.name;
        EXPECT_EQ(certainly, one.certainly) << one.name;
    }
}

template <class Type>
concept CanBeTurnedOver = requires(Type type) {
    !type;
};
static_assert(CanBeTurnedOver<bool> && !CanBeTurnedOver<addin::Answer>,
              "a test that is turned over would not say what it means unanswered");

TEST(Steps, LetPassWhatIsNoFailureOfACall) {
    const Steps steps = unobserved();
    EXPECT_THROW(steps.run([] { throw std::logic_error("our own mistake"); }), std::logic_error);
    EXPECT_THROW((void)steps.possibly([]() -> bool { throw std::logic_error("our own mistake"); }),
                 std::logic_error);
}

class WatchedSteps : public ::testing::Test {
  protected:
    /// Writes down what it is told.
    class Notes : public addin::StepObserver {
      public:
        void skipped(const SourcePlace& place, const Failure& failure) noexcept override {
            add(place, "skipped", &failure);
        }
        void decided(const SourcePlace& place, bool answer, const addin::Why& why,
                     const Failure* unanswered) noexcept override {
            add(place, answer ? "yes" : "no", unanswered);
            reasons.emplace_back(why.reason, automation::to_utf8(why.about));
        }
        std::vector<std::pair<Reason, std::string>> reasons;  ///< of the tests
        std::vector<std::string> texts;
        std::vector<SourcePlace> places;

      private:
        void add(const SourcePlace& place, std::string text, const Failure* failure) {
            if (failure) text += " " + std::string(failure->what());
            texts.push_back(std::move(text));
            places.push_back(place);
        }
    };

    Notes notes_;  ///< goes after the load, which tells of its end
    native::NativeWorld world_{acceptance::WorldSetup{}};
    addin::Session& session_ = world_.add_in()->session();
};

TEST_F(WatchedSteps, TellTheObserverOfWhatWasSkippedAndOfEachTest) {
    session_.step_observer = &notes_;
    const Steps steps(session_);
    int target = 0;
    const auto no_folder = [] { throw Failure(result::not_found, u"no folder"); };
    steps.run([] {});
    steps.run(no_folder);
    steps.set(target, [] { return 1; });
    steps.set(target, []() -> int { throw Failure(result::not_found, u"no number"); });
    (void)steps.possibly([] { return true; });
    (void)steps.certainly([] { return false; });
    (void)steps.possibly([]() -> bool { throw Failure(result::fail, u"no word"); });
    (void)steps.certainly([]() -> bool { throw Failure(result::fail, u"no sign"); });
    EXPECT_EQ(notes_.texts, (std::vector<std::string>{"skipped no folder", "skipped no number", "yes", "no",
                                                      "yes no word", "no no sign"}));
    session_.step_observer = nullptr;
    Steps(session_).run(no_folder);
    EXPECT_EQ(notes_.texts.size(), 6U) << "nobody observes any more";
}

TEST_F(WatchedSteps, NameThePlaceOfEachStepInTheRoutine) {
    session_.step_observer = &notes_;
    const Steps steps(session_);
    const SourcePlace here = SourcePlace::current();
    steps.run([] { fails(); });
    (void)steps.possibly([] { return true; });
    ASSERT_EQ(notes_.places.size(), 2U);
    EXPECT_STREQ(notes_.places[0].file_name(), here.file_name());
    EXPECT_STREQ(notes_.places[0].function_name(), here.function_name());
    EXPECT_EQ(notes_.places[0].line(), here.line() + 1);
    EXPECT_EQ(notes_.places[1].line(), here.line() + 2);
}

TEST_F(WatchedSteps, TellTheReasonThatATestBearsOrFinds) {
    session_.step_observer = &notes_;
    const Steps steps(session_);
    const auto found = [&](Reason reason) { return steps.certainly([&] { return reason; }); };
    EXPECT_TRUE(steps.certainly({Reason::no_contact, u"ann@one.example"}, [] { return true; }));
    EXPECT_TRUE(found(Reason::unread));
    EXPECT_TRUE(steps.certainly({Reason::none, u"about"}, [] { return Reason::other_class; }));
    EXPECT_TRUE(steps.possibly(Reason::no_to_line, is_unanswered));
    const bool none = found(Reason::none), unknown = steps.certainly(Reason::no_contact, is_unanswered);
    EXPECT_FALSE(none);
    EXPECT_FALSE(unknown);
    EXPECT_EQ(notes_.reasons,
              (std::vector<std::pair<Reason, std::string>>{{Reason::no_contact, "ann@one.example"},
                                                           {Reason::unread, ""},
                                                           {Reason::other_class, "about"},
                                                           {Reason::no_to_line, ""},
                                                           {Reason::none, ""},
                                                           {Reason::no_contact, ""}}));
}

TEST_F(WatchedSteps, AreThoseOfARoom) {
    session_.step_observer = &notes_;
    addin::filing::goInbox_ItemChange(session_, host::outlook::Item());  // of nothing, nothing can be read
    std::set<std::string> files;
    for (const SourcePlace& place : notes_.places) {
        files.insert(std::filesystem::path(place.file_name()).filename().string());
    }
    EXPECT_EQ(files, (std::set<std::string>{"received_mail.cpp"}));
}

TEST_F(WatchedSteps, RememberAFailureForARoutineThatWantsToKnow) {
    bool failed = false;
    const Steps counted(session_, failed);
    counted.run([] {});
    EXPECT_FALSE(failed);
    Steps(session_).run([] { fails(); });
    EXPECT_FALSE(failed) << "those of another routine";
    counted.run([] { fails(); });
    counted.run([] {});
    EXPECT_TRUE(failed) << "a later success changes nothing";
    for (const bool certainly : {false, true}) {
        failed = false;
        (void)(certainly ? counted.certainly(is_unanswered) : counted.possibly(is_unanswered));
        EXPECT_TRUE(failed) << "a test is a step";
    }
}

}  // namespace
}  // namespace addin_tests
