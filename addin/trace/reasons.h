// What people are told of why a mail was left alone.
#pragma once

#include <string_view>

#include "addin/ground/reason.h"

namespace addin::trace {

/// What follows after "not filed: ". True also where the reading of something has failed.
std::string_view sentence(Reason reason);

}  // namespace addin::trace
