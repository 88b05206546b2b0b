// The popups of a window's menu bars as real menus, behind the window's own.
#pragma once

#include <vector>

#include "automation/com/platform.h"
#include "desk/office/command_bars.h"

namespace desk {

/// Belongs to a window, and follows the bars of the model.
class BarMenus {
  public:
    explicit BarMenus(std::shared_ptr<CommandBars> bars) : bars_(std::move(bars)) {}

    /// Shows the popups as the model has them now, at the end of the window's menu; answers whether anything
    /// is different.
    bool follow(HMENU menu);

    /// The control that a command of the window means; null if it is none of a popup's.
    std::shared_ptr<CommandBarControl> control(int command) const;

  private:
    /// Enough to tell whether the menus must be made anew. What stands in a popup's menu follows the popup.
    struct ShownEntry {
        std::weak_ptr<CommandBarControl> control;
        automation::Text caption, shortcut;
        int depth;  ///< 0: in the window's menu
        bool enabled, begins_group;
        bool operator==(const ShownEntry& other) const;
    };
    using ShownEntries = std::vector<ShownEntry>;

    static void collect(const CommandBar& bar, int depth, ShownEntries& entries);
    /// Makes the entries of one menu, from a place on; answers the place behind them.
    std::size_t fill(HMENU menu, std::size_t place) const;

    std::shared_ptr<CommandBars> bars_;
    std::int64_t version_ = -1;
    ShownEntries shown_;
};

}  // namespace desk
