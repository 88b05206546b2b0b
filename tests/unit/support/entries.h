// All ways into the add-in: an event of the host, a button, a published operation, a control of a window.
// Each has a scenario in which it does its work, and tells what it may change of the things that were there.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "tests/unit/support/scene.h"

namespace addin_tests {

using Deed = std::function<void(Scene&)>;

struct Entry {
    std::string name;     ///< of the way in, as the code has it: "goInbox.ItemChange", "dlgSend.cmdSend"
    std::string variant;  ///< what it does, where there are several entries of a name
    Deed prepare;         ///< while nothing fails
    Deed act;
    std::vector<std::string> changes{};  ///< fields that may be others on items that were there
    std::vector<std::string> gone{};     ///< folders from which items may go
    bool drops_text = false;             ///< what was written and not saved may go with its window
    bool quiet = false;                  ///< makes no call
};

/// An entry that makes no call to the outside.
Entry quiet_entry(std::string name, Deed prepare, Deed act);

/// Those of the add-in's windows, and all others.
const std::vector<Entry>& entries_of_windows();
const std::vector<Entry>& entries_of_host();
std::vector<Entry> all_entries();

}  // namespace addin_tests
