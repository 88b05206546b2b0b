// What a bridged object is counted under.
#pragma once

#include "host/named.h"

namespace windows {

/// Implemented by an `host::Invocable` whose bridges are to be counted under a name.
using host::Named;

}  // namespace windows
