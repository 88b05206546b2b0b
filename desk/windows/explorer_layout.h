// How a person has arranged the main windows.
#pragma once

#include <map>
#include <vector>

#include "automation/text.h"

namespace desk {

struct ExplorerLayout {
    int left = 0, top = 0, width = 0, height = 0;  ///< of the last window that was closed; no width: none was
    bool maximized = false;
    int tree_width = 240;        ///< pixels
    int pane_height = 220;       ///< pixels
    bool pane = true;            ///< the reading pane is shown
    bool leaving_reads = false;  ///< a mail that was shown in the pane has been read when another is selected
    std::map<automation::Text, std::vector<int>> columns;  ///< widths, by the columns' fields
};

/// A layout as one line of text, and back again. What is missing or can't be read is as usual.
automation::Text layout_text(const ExplorerLayout& layout);
ExplorerLayout layout_of_text(automation::TextView text);

}  // namespace desk
