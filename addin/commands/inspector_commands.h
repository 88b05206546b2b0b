// Each item window is fitted with the system's commands when it opens.
#pragma once

#include "addin/connect/connect.h"

namespace addin::commands {

/// An item window opens. A failure to read its item's class or id travels to the host, and the window stays
/// without commands; every later failure is skipped.
void goInspectors_NewInspector(Connect& connect, const host::outlook::Inspector& Inspector);

void goInspector_Activate(Connect& connect);

/// The last inspector that opened closes, or its mail is sent.
void goInspector_Close(Connect& connect);

}  // namespace addin::commands
