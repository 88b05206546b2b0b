// Whether host, add-in, family and database are as they have to be: a line for each question, in the order in
// which one stands on the other.
#pragma once

#include "admin/machine.h"
#include "admin/report.h"

namespace admin {

Report check(Machine& machine);

}  // namespace admin
