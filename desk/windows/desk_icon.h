// The desk's own icon, drawn by us.
#pragma once

#include "automation/com/platform.h"

namespace desk {

/// As large as the system wants it: SM_CXICON or SM_CXSMICON. It belongs to the program and is never given
/// back.
HICON desk_icon(int measure);

}  // namespace desk
