// One call of the add-in that is made to fail.
#pragma once

#include <string>

#include "tests/native/native_world.h"

namespace native {

/// More calls than any routine makes that is tried with each of its calls failing.
inline constexpr int many_calls = 600;

/// Makes the n-th call of the add-in fail, counted from 1, and tells whether it came so far.
class NthCall {
  public:
    NthCall(NativeWorld& world, int n) : world_(world) {
        world_.boundary().before_call = [this, left = n](const std::string& member) mutable {
            if (--left != 0) return;
            failed_ = member;
            throw automation::Failure(automation::result::fail, u"made to fail");
        };
    }
    ~NthCall() { world_.boundary().before_call = nullptr; }
    NthCall(const NthCall&) = delete;
    NthCall& operator=(const NthCall&) = delete;

    [[nodiscard]] bool came() const { return !failed_.empty(); }
    [[nodiscard]] const std::string& member() const { return failed_; }

  private:
    NativeWorld& world_;
    std::string failed_;
};

}  // namespace native
