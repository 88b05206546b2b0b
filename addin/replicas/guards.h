// The guards that tell the user's changes from others.
#pragma once

namespace addin::replicas {

/// Set while an item of the kind is open in a window: what changes then is the user's doing.
struct Guards {
    bool GlobalCalendar = false;
    bool GlobalTask = false;
};

}  // namespace addin::replicas
