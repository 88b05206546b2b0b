// The program as it is called.
#pragma once

#include <iosfwd>

#include "admin/machine.h"

namespace admin {

/// Runs a command. Answers with the program's exit code: 0 if all is well, 1 if not, 2 for a wrong call, 3 if
/// the command can't be done, each of the latter with one sentence to `errors`.
int run(std::vector<std::string> arguments, Machine& machine, std::ostream& output, std::ostream& errors);

}  // namespace admin
