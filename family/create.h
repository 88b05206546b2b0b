// The classes of the stand-ins, and how one is made.
#pragma once

#include <span>

#include "family/surroundings.h"
#include "host/guid.h"

namespace family {

/// A class that can be made from outside.
struct ClassEntry {
    host::TextView prog_id;
    host::Guid id;
    host::Object (*make)(std::shared_ptr<Surroundings>);
};

std::span<const ClassEntry> classes();

/// A stand-in by its program id, in any case; an empty object if the name is not one of the family's.
host::Object create(host::TextView prog_id, std::shared_ptr<Surroundings> surroundings);

}  // namespace family
