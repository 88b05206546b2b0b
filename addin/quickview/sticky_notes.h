// The sticky notes that belong to an account.
#pragma once

#include "addin/ground/session.h"

namespace addin::quickview {

/// Closes the windows of an account's sticky notes, from the last one down; what was changed in them is
/// dropped.
void close_sticky_notes(Session& session, const automation::Text& account_id);

}  // namespace addin::quickview
