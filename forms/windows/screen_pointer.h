// The mouse pointer that the add-in wants to be seen.
#pragma once

#include "automation/com/platform.h"
#include "forms/pointer.h"

namespace windows {

/// Shared by the desktop, which sets it, and the add-in's windows: the system asks a window for its pointer
/// at every move of the mouse, so that one that was only set once would be gone with the next.
class ScreenPointer {
  public:
    void show(forms::Pointer pointer) {
        pointer_ = pointer;
        SetCursor(LoadCursorW(nullptr, busy() ? IDC_WAIT : IDC_ARROW));
    }
    bool busy() const { return pointer_ == forms::Pointer::hourglass; }

  private:
    forms::Pointer pointer_ = forms::Pointer::standard;
};

}  // namespace windows
