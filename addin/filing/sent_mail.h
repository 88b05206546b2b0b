// Automatic filing of sent mail: one note for each recipient who is a known contact.
#pragma once

#include "addin/ground/session.h"

namespace addin::filing {

/// Files a mail that is about to be sent, and shows its progress in the status window, which is gone
/// afterwards. Failures are skipped: nothing here stops a mail from going out.
void AutomaticCreateNoteSend(Session& session, const host::outlook::Item& item);

}  // namespace addin::filing
