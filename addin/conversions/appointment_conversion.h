// A personal appointment becomes a linked one.
#pragma once

#include "addin/ground/session.h"

namespace addin::conversions {

/// Gives the appointment in the active window its new class, closes it and opens it again.
void convert_appointment(Session& session);

}  // namespace addin::conversions
