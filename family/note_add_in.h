// The Create Note add-in as the rest of the family reaches it.
#pragma once

#include "automation/object.h"

namespace family {

class Context;

/// The object that the add-in publishes. Throws `Failure` with a sentence for a person if it isn't loaded.
automation::Object note_add_in(Context& context);

}  // namespace family
