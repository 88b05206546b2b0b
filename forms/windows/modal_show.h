// What is shown modally: the thread's other windows wait meanwhile.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "automation/com/platform.h"

namespace windows {

/// Disables the thread's other visible windows while it lives, those that were enabled.
class WaitingWindows {
  public:
    explicit WaitingWindows(HWND shown);
    ~WaitingWindows();
    WaitingWindows(const WaitingWindows&) = delete;
    WaitingWindows& operator=(const WaitingWindows&) = delete;

  private:
    std::vector<HWND> waiting_;
};

/// A window that is shown modally. In the end the one that was active before becomes active again.
class ModalShow {
  public:
    explicit ModalShow(HWND modal) : active_(GetActiveWindow()) { others_.emplace(modal); }
    ~ModalShow();
    ModalShow(const ModalShow&) = delete;
    ModalShow& operator=(const ModalShow&) = delete;

  private:
    HWND active_;
    std::optional<WaitingWindows> others_;
};

/// Runs a message loop as long as `goes_on`. A message to quit ends it, too, and is left in the queue.
void run_messages(const std::function<bool()>& goes_on);

/// Lets the thread's message loop look again at what it waits for.
void wake_messages();

}  // namespace windows
