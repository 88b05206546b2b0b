// The targets of searches, as the small local file names them.
#pragma once

#include <functional>
#include <vector>

#include "addin/ground/steps.h"
#include "addin/host/desktop.h"

namespace addin::createnote {

/// One section of the file.
struct SearchTarget {
    automation::Text name;             ///< what the user sees
    automation::Text find_definition;  ///< the subject of its list definition
    automation::Text folder_name;      ///< its folder's path
};

/// Where targets are offered: the word in a section's "Display in".
inline constexpr automation::TextView in_create_note = u"FIND", in_search_panel = u"SEARCH PANEL";

/// Sorted upwards, by the characters' codes.
std::vector<automation::Text> SortSectionNames(std::vector<automation::Text> names);

/// The targets that are offered in a place, in the sorted order of their names. `found` is told each name
/// between the reads of its two values, with its place from 0.
std::vector<SearchTarget> read_targets(
    host::Desktop& desktop, automation::TextView folder, automation::TextView place,
    const std::function<void(std::size_t, const automation::Text&)>& found = {});

}  // namespace addin::createnote
