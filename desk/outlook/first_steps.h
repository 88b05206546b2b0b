// Ten things that a newcomer may try with the sample company, and how each is known to be done.
#pragma once

#include <array>
#include <span>

#include "automation/text.h"
#include "desk/base/desk.h"

namespace desk {

/// A step is done when its folder has an item that its filter finds. A folder is named with the one it lies
/// in.
struct FirstStep {
    automation::TextView title;
    automation::TextView what;  ///< what to do, with which item, and what happens
    automation::TextView parent, folder;
    automation::TextView filter;
    automation::TextView property{};  ///< of such an item, is to hold something; empty: none
    bool is_new = false;              ///< only an item that has come since the desk started counts
};

inline constexpr std::size_t first_step_count = 10;
std::span<const FirstStep, first_step_count> first_steps();

/// Which of them have been done. What was done once stays so.
class FirstStepsDone {
  public:
    /// `before` is what `as_text` told at another time; anything else counts as nothing.
    FirstStepsDone(Desk& desk, automation::TextView before);

    /// Looks for steps that have been done since; answers whether there are any.
    bool look();
    bool done(std::size_t step) const { return done_.at(step); }
    automation::Text as_text() const;  ///< "1" or "0" for each

  private:
    bool is_done_now(const FirstStep& step, RowId newest) const;

    Desk& desk_;
    std::array<bool, first_step_count> done_{};
    std::array<RowId, first_step_count> newest_{};  ///< in each step's folder at the start
};

}  // namespace desk
