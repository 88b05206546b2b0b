// The mouse pointer that the add-in wants to be seen.
#pragma once

#include "host/desktop.h"
#include "windows/com/platform.h"

namespace windows {

/// Shared by the desktop, which sets it, and the add-in's windows: the system asks a window for its pointer
/// at every move of the mouse, so that one that was only set once would be gone with the next.
class ScreenPointer {
  public:
    void show(host::Pointer pointer) {
        pointer_ = pointer;
        SetCursor(LoadCursorW(nullptr, busy() ? IDC_WAIT : IDC_ARROW));
    }
    bool busy() const { return pointer_ == host::Pointer::hourglass; }

  private:
    host::Pointer pointer_ = host::Pointer::standard;
};

}  // namespace windows
