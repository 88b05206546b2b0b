// Watching the message boxes of this process: they are noted, and answered where an answer waits.
#pragma once

#include <set>

#include "automation/com/platform.h"
#include "desk/base/desk.h"

namespace desk {

/// Looks for message boxes of its thread at each `look`, which a timer calls: a box has its own message loop,
/// in which timers go on. Nothing else is needed of the box's owner.
class MessageWatch {
  public:
    explicit MessageWatch(Desk& desk) : desk_(desk) {}

    /// Notes new boxes. One with a waiting answer has its button pressed. In an unattended run an unexpected
    /// one is closed with the answer 0.
    void look();

  private:
    void meet(HWND box);

    Desk& desk_;
    std::set<HWND> seen_;
};

}  // namespace desk
