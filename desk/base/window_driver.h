// The add-in's windows as a person meets them: what can be seen and done, control by control. The desk's
// model offers it to automation; under Wine it acts on the real windows, natively on those in memory.
#pragma once

#include <cstdint>
#include <memory>

#include "automation/text.h"

namespace desk {

/// A list's column as it stands on the screen.
struct ShownColumn {
    automation::Text text;
    std::int32_t width = 0;   ///< pixels
    std::int32_t image = -1;  ///< the number of its mark
};

/// Entries, rows and columns count from 0 here. What a control can't do throws `automation::Failure` with a
/// clear sentence, and so does everything on a window that has gone. Actions come back at once: what they
/// lead to runs at the next turn of the message loop.
class ControlDriver {
  public:
    enum class Kind {
        plain,   ///< label, button, text box and so on
        toggle,  ///< check box or option button
        combo,
        list
    };

    virtual ~ControlDriver() = default;

    virtual Kind kind() const = 0;
    virtual automation::Text text() const = 0;
    virtual void type(automation::TextView text) = 0;  ///< in place of the text that is there
    virtual bool visible() const = 0;
    virtual bool enabled() const = 0;
    virtual automation::Text tool_tip() const = 0;
    virtual void click() = 0;
    virtual void double_click() = 0;      ///< in a list: on the selected row
    virtual void key(int code) = 0;       ///< a virtual-key code
    virtual bool is_checked() const = 0;  ///< of a toggle

    // of a combo box or list
    virtual int count() const = 0;
    virtual automation::Text item(int row, int column) const = 0;
    virtual int selected() const = 0;  ///< -1: none
    virtual void select(int row) = 0;

    // of a list
    virtual int columns() const = 0;
    virtual ShownColumn column(int index) const = 0;
    virtual void column_click(int index) = 0;
    /// Drags something onto a row's cell and lets it go there; below the rows if the row is -1.
    virtual void drop(int row, int column) = 0;
};

struct WindowPlace {
    std::int32_t left = 0, top = 0, width = 0, height = 0;  // pixels, with the frame
};

class WindowDriver {
  public:
    virtual ~WindowDriver() = default;

    virtual automation::Text caption() const = 0;
    virtual bool visible() const = 0;
    virtual bool topmost() const = 0;
    virtual WindowPlace place() const = 0;
    virtual bool busy() const = 0;  ///< the mouse pointer over it is the hourglass
    virtual void close() = 0;
    virtual void resize(int width, int height) = 0;
    virtual void key(int code) = 0;  ///< to the control that has the focus
    /// By the control's own name, without regard to case; null if the window has none such.
    virtual std::unique_ptr<ControlDriver> control(automation::TextView name) = 0;
};

}  // namespace desk
