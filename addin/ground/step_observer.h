// Who is told how the steps of a load go, so that what was not done can be accounted for.
#pragma once

#include <source_location>
#include <string_view>

#include "addin/ground/reason.h"
#include "automation/failure.h"

namespace addin {

#ifdef __cpp_lib_source_location
/// Where in the code a step or a test stands.
using SourcePlace = std::source_location;
#else
/// A compiler that doesn't know the standard's class knows no places.
struct SourcePlace {
    static constexpr SourcePlace current() { return {}; }
    static constexpr const char* file_name() { return ""; }
    static constexpr const char* function_name() { return ""; }
    static constexpr unsigned line() { return 0; }
};
#endif

/// Hung on a `Session`. It is told in the order in which the load works, also from within steps that run
/// others.
class StepObserver {
  public:
    virtual ~StepObserver() = default;
    StepObserver() = default;
    StepObserver(const StepObserver&) = delete;
    StepObserver& operator=(const StepObserver&) = delete;

    /// A statement failed, and was skipped.
    virtual void skipped(const SourcePlace& place, const automation::Failure& failure) noexcept = 0;

    /// A test has decided. One that could not be answered comes with the failure; `answer` is what it was
    /// taken for. The reason is that of a test which leaves a mail alone if it says yes.
    virtual void decided(const SourcePlace& place, bool answer, const Why& why,
                         const automation::Failure* unanswered) noexcept = 0;

    /// The host, or another program, has called the add-in by one of its own operations, and gets the word
    /// back.
    virtual void entered(std::string_view /*operation*/) noexcept {}
    virtual void left() noexcept {}
};

/// The stay of a call within the add-in, for the observer.
class Entry {
  public:
    Entry(StepObserver* observer, std::string_view operation) : observer_(observer) {
        if (observer_) observer_->entered(operation);
    }
    ~Entry() {
        if (observer_) observer_->left();
    }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

  private:
    StepObserver* observer_;
};

}  // namespace addin
