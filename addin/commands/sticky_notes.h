// The sticky notes that belong to an account.
#pragma once

#include "core/session.h"

namespace addin::commands {

/// Closes the windows of an account's sticky notes, from the last one down; what was changed in them is
/// dropped.
void close_sticky_notes(Session& session, const host::Text& account_id);

}  // namespace addin::commands
