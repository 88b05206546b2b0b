// Watching the status window: each text that it shows is noted, without its owner's knowing.
#pragma once

#include "desk/model/desk.h"
#include "windows/com/platform.h"

namespace desk {

/// Looks at the messages of its thread's windows after they were handled, as long as it lives.
class StatusWatch {
  public:
    explicit StatusWatch(Desk& desk);
    ~StatusWatch();
    StatusWatch(const StatusWatch&) = delete;
    StatusWatch& operator=(const StatusWatch&) = delete;

  private:
    static LRESULT CALLBACK hook_procedure(int code, WPARAM from_here, LPARAM data);
    void look(const CWPRETSTRUCT& message) const;

    Desk& desk_;
    HWND place_;  ///< a window that is never seen: where the hook's procedure finds the object
    HHOOK hook_;
};

}  // namespace desk
