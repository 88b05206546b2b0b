// The classes of the stand-ins, and how one is made.
#pragma once

#include <span>

#include "automation/guid.h"
#include "family/context.h"

namespace family {

/// A class that can be made from outside.
struct ClassEntry {
    automation::TextView prog_id;
    automation::Guid id;
    automation::Object (*make)(std::shared_ptr<Context>);
};

std::span<const ClassEntry> classes();

/// A stand-in by its program id, in any case; an empty object if the name is not one of the family's.
automation::Object create(automation::TextView prog_id, std::shared_ptr<Context> context);

}  // namespace family
