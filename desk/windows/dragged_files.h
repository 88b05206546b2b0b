// Files of the system that are dragged, into the desk's windows or out of them.
#pragma once

#include <vector>

#include "automation/com/com_object.h"
#include "automation/com/com_ptr.h"
#include "automation/text.h"

namespace desk {

/// Whether what is dragged are files of the system, and their paths.
bool are_files(IDataObject* data);
std::vector<automation::Text> dragged_files(IDataObject* data);

/// Files as something that is dragged.
windows::ComPtr<IDataObject> files_to_drag(windows::Module& module,
                                           const std::vector<automation::Text>& paths);

}  // namespace desk
