// Modal windows in one thread's tests: an action that shows one waits inside of it while the test goes on.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

namespace native {

/// A modal show that nothing could end: there is no strand that could wait in it.
class NotInAStrand : public std::logic_error {
  public:
    NotInAStrand()
        : std::logic_error("A modal window is shown outside of a strand: run the action in one.") {}
};

/// Runs actions, each on a thread of its own and with a strict hand-over: of the test's thread and all
/// strands exactly one runs at any time, the others wait for it. So what they share needs no locks.
///
/// An action that parks stands for a message loop of its own on the host's one stack. Therefore what parked
/// last goes on first, and an action below goes on only when those above have ended or parked.
class Strands {
  public:
    Strands();
    ~Strands();  ///< as `finish`; a failure that nobody asked for fails the running test
    Strands(const Strands&) = delete;
    Strands& operator=(const Strands&) = delete;

    /// Runs an action; comes back when it has ended or parked. An exception of an action that never parked
    /// travels to the caller. May be called from an action.
    void run(std::function<void()> action);

    /// Whether an action runs at the moment.
    bool running() const { return !running_.empty(); }

    /// Parks the running action until `over` is true when it is looked at again. `give_up` makes it so.
    /// Throws `NotInAStrand`.
    void park(std::function<bool()> over, std::function<void()> give_up);

    /// Lets those go on that need not wait any more; comes back when they have ended or parked again.
    void resume_parked();
    int parked() const { return static_cast<int>(parked_.size()); }

    /// Gives up whatever is parked and lets it run to its end, the last one first. Throws the first exception
    /// of an action that had parked.
    void finish();

  private:
    struct Strand;
    using Owned = std::unique_ptr<Strand>;

    /// Waits for a strand that was let go, and files it. Answers its exception if it ended with one.
    std::exception_ptr settle(Owned strand);
    void resume_last();
    bool may_resume_last() const;

    std::vector<Strand*> running_;  ///< the last one runs, each waits for the next
    std::vector<Owned> parked_;     ///< in the order in which they parked
    std::exception_ptr kept_;
    int made_ = 0;
    bool ending_ = false;
};

}  // namespace native
