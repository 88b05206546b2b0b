// The order of words as a machine with United States settings has it.
#pragma once

#include "automation/text.h"

namespace native {

/// Less than, equal to or greater than 0, without regard to case. Marks come before digits and digits before
/// letters; accents, apostrophes and hyphens count only between texts that are equal without them.
int compare_words(automation::TextView left, automation::TextView right);

}  // namespace native
