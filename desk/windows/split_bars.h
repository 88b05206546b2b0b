// The bars between the parts of a window, which a person drags.
#pragma once

#include <optional>
#include <vector>

#include "automation/com/platform.h"

namespace desk {

class SplitBars {
  public:
    static constexpr int thickness = 5;  ///< pixels

    struct Bar {
        RECT box;      ///< in the window
        bool upright;  ///< it is dragged to the left and right
    };
    struct Moved {
        std::size_t bar;
        int to;  ///< where its left or upper edge is to be
    };

    explicit SplitBars(HWND window) : window_(window) {}
    void place(std::vector<Bar> bars) { bars_ = std::move(bars); }

    /// Takes a message of the mouse; answers what bar is dragged and to where.
    std::optional<Moved> follow(UINT message, POINT point);

    /// Shows above a bar that it can be dragged; false elsewhere.
    bool show_cursor() const;

  private:
    std::optional<std::size_t> bar_at(POINT point) const;

    HWND window_;
    std::vector<Bar> bars_;
    std::optional<std::size_t> dragged_;
    int grip_ = 0;  ///< where in the bar it was taken
};

}  // namespace desk
