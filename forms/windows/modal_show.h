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

/// A window that is shown modally. Meanwhile it belongs to the one that the user works in, so that it can't
/// come to lie behind it; it outlives that one, though. In the end the window that was active before becomes
/// active again.
class ModalShow {
  public:
    explicit ModalShow(HWND modal);
    ~ModalShow();
    ModalShow(const ModalShow&) = delete;
    ModalShow& operator=(const ModalShow&) = delete;

  private:
    HWND modal_, active_;
    HHOOK hook_ = nullptr;
    std::optional<WaitingWindows> others_;
};

/// Runs a message loop as long as `goes_on`. A message to quit ends it, too, and is left in the queue.
void run_messages(const std::function<bool()>& goes_on);

/// Lets the thread's message loop look again at what it waits for.
void wake_messages();

}  // namespace windows
