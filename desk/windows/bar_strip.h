// The command bars of a window as real toolbars, one below the other.
#pragma once

#include <vector>

#include "desk/office/command_bars.h"
#include "desk/windows/faces.h"
#include "forms/windows/common_controls.h"

namespace desk {

/// Belongs to a window, ends before it, and follows the bars of the model.
class BarStrip {
  public:
    BarStrip(HWND parent, std::shared_ptr<CommandBars> bars, const Faces& faces);
    ~BarStrip();
    BarStrip(const BarStrip&) = delete;
    BarStrip& operator=(const BarStrip&) = delete;

    /// Shows the bars as the model has them now; answers whether anything is different.
    bool follow();

    /// Lays the toolbars out below the window's upper edge; answers their height. Pixels.
    int place(int width);

    /// The control that a command of the window means; null if it is none of a bar's.
    std::shared_ptr<CommandBarControl> control(int command) const;

    /// Answers a tool tip's question.
    void tell_tip(NMTTDISPINFOW& question) const;

  private:
    /// Enough to tell whether a button must be made anew.
    struct ShownButton {
        std::weak_ptr<CommandBarControl> control;
        automation::Text caption, tip;
        std::int32_t style, face_id, state;
        bool enabled, begins_group;
        bool operator==(const ShownButton& other) const;
    };
    struct ShownBar {
        automation::Text name;
        std::int32_t position, row;
        std::vector<ShownButton> buttons;
        bool operator==(const ShownBar&) const = default;
    };

    std::vector<ShownBar> wanted() const;
    HWND make_toolbar(const ShownBar& bar, int first_command) const;

    HWND parent_;
    std::shared_ptr<CommandBars> bars_;
    const Faces& faces_;
    std::int64_t version_ = -1;
    std::vector<ShownBar> shown_;
    std::vector<HWND> toolbars_;
};

}  // namespace desk
