// The conversions of the user's own items into records, by the buttons of item windows.
#pragma once

#include "addin/ground/session.h"

namespace addin::conversions {

/// Has the session's commands convert contacts and appointments.
void furnish(Session& session);

}  // namespace addin::conversions
