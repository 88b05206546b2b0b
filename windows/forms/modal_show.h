// A window that is shown modally: the thread's other windows wait meanwhile.
#pragma once

#include <functional>
#include <vector>

#include "windows/forms/common_controls.h"

namespace windows {

/// Disables the thread's other visible windows while it lives, those that were enabled. Then the one that was
/// active becomes active again.
class ModalShow {
  public:
    explicit ModalShow(HWND modal);
    ~ModalShow();
    ModalShow(const ModalShow&) = delete;
    ModalShow& operator=(const ModalShow&) = delete;

  private:
    std::vector<HWND> waiting_;
    HWND active_;
};

/// Runs a message loop as long as `goes_on`. A message to quit ends it, too, and is left in the queue.
void run_messages(const std::function<bool()>& goes_on);

/// Lets the thread's message loop look again at what it waits for.
void wake_messages();

}  // namespace windows
