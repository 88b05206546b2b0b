// What a bridged object is counted under.
#pragma once

#include "automation/named.h"

namespace windows {

/// Implemented by an `automation::Invocable` whose bridges are to be counted under a name.
using automation::Named;

}  // namespace windows
