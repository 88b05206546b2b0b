// The files of a folder, as the desktop search reads them.
#pragma once

#include <vector>

#include "desk/base/surroundings.h"

namespace desk {

/// The files below a folder, each folder's in the order of their names. A folder that isn't there has none; a
/// file that can't be read has no content.
std::vector<IndexedFile> files_below(const automation::Text& folder);

}  // namespace desk
