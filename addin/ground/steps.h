// The failure mode of nearly every routine: a failing statement is skipped, and a test says by its name what
// it means when it can't be answered.
#pragma once

#include <type_traits>
#include <utility>

#include "addin/ground/session.h"
#include "addin/ground/step_observer.h"

namespace addin {

/// What a test has said. It can't be turned over by a "not", which would hide what an unanswered test means:
/// the other name and the opposite test say it.
class Answer {
  public:
    Answer(bool yes) : yes_(yes) {}         // NOLINT: an answer is a yes or a no, nothing else
    operator bool() const { return yes_; }  // NOLINT: the same
    bool operator!() const = delete;

  private:
    bool yes_;
};

/// Runs the statements of a routine, one at a time: a whole routine in one `run` would skip its rest where
/// only one statement failed. They remember nothing, so each routine makes its own.
class Steps {
  public:
    explicit Steps(const Session& session) : Steps(session.step_observer) {}
    /// For what works without a session. The observer may be null.
    explicit Steps(StepObserver* observer) : observer_(observer) {}
    /// For a routine whose order depends on whether a step before has failed: `failed` becomes True with the
    /// first one, and nothing here makes it False again.
    Steps(const Session& session, bool& failed) : observer_(session.step_observer), failed_(&failed) {}

    /// Runs a statement; whether it went well. A failure ends only this statement.
    template <class Statement>
    bool run(Statement&& statement, const SourcePlace& place = SourcePlace::current()) const {
        try {
            std::forward<Statement>(statement)();
            return true;
        } catch (const automation::Failure& failure) {
            if (failed_) *failed_ = true;
            if (observer_) observer_->skipped(place, failure);
            return false;
        }
    }

    /// Assigns what an expression yields; whether it could be had. On failure the target keeps its value.
    template <class Target, class Expression>
    bool set(Target& target, Expression&& expression,
             const SourcePlace& place = SourcePlace::current()) const {
        return run([&] { target = std::forward<Expression>(expression)(); }, place);
    }

    /// Whether a test holds. One that can't be answered is taken for passed, so the step after it runs: this
    /// is the rule.
    template <class Test>
    [[nodiscard]] Answer possibly(Test&& test, const SourcePlace& place = SourcePlace::current()) const {
        return decide({}, std::forward<Test>(test), true, place);
    }

    /// Whether a test is known to hold. One that can't be answered is taken for not passed.
    template <class Test>
    [[nodiscard]] Answer certainly(Test&& test, const SourcePlace& place = SourcePlace::current()) const {
        return decide({}, std::forward<Test>(test), false, place);
    }

    /// The same of a test that leaves a mail alone if it holds, for the reason given. One that may hold for
    /// several reasons answers with the reason instead of a yes.
    template <class Test>
    [[nodiscard]] Answer possibly(const Why& why, Test&& test,
                                  const SourcePlace& place = SourcePlace::current()) const {
        return decide(why, std::forward<Test>(test), true, place);
    }
    template <class Test>
    [[nodiscard]] Answer certainly(const Why& why, Test&& test,
                                   const SourcePlace& place = SourcePlace::current()) const {
        return decide(why, std::forward<Test>(test), false, place);
    }

  private:
    template <class Test>
    bool decide(const Why& why, Test&& test, bool otherwise, const SourcePlace& place) const {
        try {
            const auto found = std::forward<Test>(test)();
            if constexpr (std::is_same_v<decltype(found), const Reason>) {
                const bool answer = found != Reason::none;
                if (observer_) observer_->decided(place, answer, Why(found, why.about), nullptr);
                return answer;
            } else {
                const bool answer = found;
                if (observer_) observer_->decided(place, answer, why, nullptr);
                return answer;
            }
        } catch (const automation::Failure& failure) {
            if (failed_) *failed_ = true;
            if (observer_) observer_->decided(place, otherwise, why, &failure);
            return otherwise;
        }
    }

    StepObserver* observer_;
    bool* failed_ = nullptr;
};

}  // namespace addin
