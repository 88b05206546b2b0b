// The failure mode of nearly every routine: a failing statement is skipped, a failing test counts as passed.
#pragma once

#include <utility>

#include "automation/failure.h"

namespace addin {

/// One routine's error state. One statement of the routine is one step: a whole routine in one `run` would
/// skip its rest where only one statement failed.
class Steps {
  public:
    /// Runs a statement. A failure is remembered and ends only this statement.
    template <class Statement>
    void run(Statement&& statement) {
        try {
            std::forward<Statement>(statement)();
        } catch (const automation::Failure& failure) {
            error_ = failure.number();
        }
    }

    /// Assigns what an expression yields. On failure the target keeps its value.
    template <class Target, class Expression>
    void set(Target& target, Expression&& expression) {
        run([&] { target = std::forward<Expression>(expression)(); });
    }

    /// Whether a test holds. A test that can't be evaluated counts as passed.
    template <class Test>
    [[nodiscard]] bool holds(Test&& test) {
        bool passed = true;
        set(passed, std::forward<Test>(test));
        return passed;
    }

    /// Whether anything failed since the start or the last `clear`.
    [[nodiscard]] bool failed() const { return error_ != 0; }
    void clear() { error_ = 0; }

  private:
    std::int32_t error_ = 0;
};

}  // namespace addin
