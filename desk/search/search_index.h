// What the desktop search knows: the items of all stores of the profile, and a folder of files.
#pragma once

#include <vector>

#include "automation/value.h"

namespace desk {

class Desk;

struct FoundRows {
    std::vector<automation::Text> columns;  ///< as the command names them
    std::vector<std::vector<automation::Value>>
        rows;  ///< a value for each column; null for what a thing lacks
};

/// Answers a SELECT: the items that have the phrase in one of their texts, folder by folder, then the files
/// that have it in their name or content. Throws `automation::Failure` with `errors_in_command` for a command
/// that can't be read or a column that is unknown.
FoundRows search_index(Desk& desk, automation::TextView command);

}  // namespace desk
