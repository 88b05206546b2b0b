// What the registry says of the add-in: the class for COM, and the entry by which the host finds it.
#pragma once

#include "automation/com/com_ptr.h"

namespace windows {

/// Registers the class for a server file and enters the add-in, both for the user alone. SELFREG_E_CLASS if
/// either can't be done; what was written is taken back then.
HRESULT register_server(const automation::Text& file);

/// Takes back all that `register_server` writes. Nothing to take back is no failure.
HRESULT unregister_server();

}  // namespace windows
