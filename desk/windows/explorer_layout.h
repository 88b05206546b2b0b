// How a person has arranged the main windows.
#pragma once

namespace desk {

struct ExplorerLayout {
    int tree_width = 240;        ///< pixels
    int pane_height = 220;       ///< pixels
    bool pane = true;            ///< the reading pane is shown
    bool leaving_reads = false;  ///< a mail that was shown in the pane has been read when another is selected
};

}  // namespace desk
