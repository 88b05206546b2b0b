// What happens at each single call of the add-in: it fails, or something comes between.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/native/native_world.h"

namespace native {

/// More calls than any routine makes that is tried with each of its calls.
inline constexpr int many_calls = 600;

/// The n-th call that a routine makes to the outside, counted from 1.
class NthCall {
  public:
    explicit NthCall(int number) : number_(number) {}

    int number() const { return number_; }
    bool came() const { return !member_.empty(); }  ///< whether the routine made so many
    const std::string& member() const { return member_; }

    /// Runs a routine; just before the call, something else is done. Those of windows don't count.
    template <class Deed, class Routine>
    void with(NativeWorld& world, Deed deed, Routine routine) {
        run(
            world, [](const std::string& member) { return !is_of_window(member); }, deed, routine);
    }

    /// Runs a routine whose call fails. It goes through all the same, and leaves no key of the registry open.
    /// Answers the call's member; nothing if the routine made fewer.
    template <class Routine>
    const std::string& failing(NativeWorld& world, Routine routine) {
        run(
            world, [](const std::string&) { return true; },
            [] { throw automation::Failure(automation::result::fail, u"made to fail"); }, routine);
        EXPECT_EQ(world.memory_registry().open_keys(), 0U);
        return member_;
    }

  private:
    /// `counts` tells by a call's name whether it is one of those that are counted.
    template <class Counts, class Deed, class Routine>
    void run(NativeWorld& world, Counts counts, Deed deed, Routine routine) {
        world.boundary().before_call = [&, left = number_](const std::string& member) mutable {
            if (!counts(member) || --left != 0) return;
            member_ = member;
            deed();
        };
        EXPECT_NO_THROW(routine()) << "call " << number_ << ", " << member_;
        world.boundary().before_call = nullptr;
        trace_.emplace(__FILE__, __LINE__, "call " + std::to_string(number_) + ", " + member_);
    }

    int number_;
    std::string member_;
    std::optional<testing::ScopedTrace> trace_;  ///< for what is expected afterwards
};

/// Runs a round for each call that a routine makes, and one in which it makes none so late: `round` takes the
/// call and runs the routine with it. Answers the number of the last. A round that fails is the last.
template <class Round>
int for_each_call(Round round, int step = 1) {
    for (int n = 1; n < many_calls; n += step) {
        NthCall call(n);
        round(call);
        if (!call.came() || testing::Test::HasFailure()) return n;
    }
    ADD_FAILURE() << "it goes on for ever";
    return many_calls;
}

}  // namespace native
