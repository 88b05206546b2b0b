// Watching the status window: each text that it shows is noted, without its owner's knowing.
#pragma once

#include <set>

#include "automation/com/platform.h"
#include "desk/base/desk.h"

namespace desk {

/// Meets the windows of its thread as they are made, as long as it lives, and looks at the messages of those
/// that may be the status window after they were handled. A hook of all messages would make each of them
/// several questions to the system.
class StatusWatch {
  public:
    explicit StatusWatch(Desk& desk);
    ~StatusWatch();
    StatusWatch(const StatusWatch&) = delete;
    StatusWatch& operator=(const StatusWatch&) = delete;

  private:
    static LRESULT CALLBACK hook_procedure(int code, WPARAM first, LPARAM second);
    static LRESULT CALLBACK watched_procedure(HWND window, UINT message, WPARAM first, LPARAM second,
                                              UINT_PTR id, DWORD_PTR watch);
    void meet(HWND window, const CREATESTRUCTW& made);
    void look(HWND window, UINT message, LPARAM second) const;

    Desk& desk_;
    HWND place_;  ///< a window that is never seen: where the hook's procedure finds the object
    HHOOK hook_;
    std::set<HWND> watched_;
};

}  // namespace desk
