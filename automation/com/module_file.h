// The file that this code was loaded from.
#pragma once

#include "automation/com/com_ptr.h"

namespace windows {

/// The handle of the DLL or program that this code is a part of.
HMODULE own_module();

/// Its whole path.
automation::Text module_file();

}  // namespace windows
