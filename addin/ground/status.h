// The status window, as long operations drive it, and the test for a file.
#pragma once

#include "addin/ground/session.h"

namespace addin {

/// Shows the status window, not modal, with a text. A failure travels to the caller.
void show_status(Session& session, automation::TextView text);

/// Shows a text for one second. A failure travels to the caller.
void ShowMessage(Session& session, automation::TextView MyText);

/// Shows a text that stays, with the hourglass, and waits; the empty text closes the window and restores the
/// pointer.
void ShowImportMessage(Session& session, automation::TextView MyText, std::int32_t SleepTime);

/// Whether a file of that name is there; False without a look for an empty name and one that ends in a
/// backslash.
bool FileExists(host::Desktop& desktop, automation::TextView Fname);

}  // namespace addin
