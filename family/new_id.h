// Ids of new records.
#pragma once

#include "family/context.h"

namespace family {

/// A new id: 16 hexadecimal digits of the time and 32 of random bits, so that no two are the same, whichever
/// process or machine made them.
automation::Text new_id(Context& context);

}  // namespace family
