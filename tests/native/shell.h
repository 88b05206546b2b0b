// Stands in for the system's shell object.
#pragma once

#include <vector>

#include "automation/automated.h"
#include "desk/base/surroundings.h"

namespace native {

/// The programs that can be started, those that were, and the files that were handed to the shell.
struct Programs {
    std::vector<automation::Text> there;  ///< file names
    std::vector<desk::StartedProgram> started;
    std::vector<automation::Text> opened;
};

/// Notes the programs that it starts. One that isn't there fails with `result::file_not_found`.
class Shell : public automation::Automated<Shell> {
  public:
    static const automation::Members<Shell>& members();

    Shell(Programs& programs, automation::Text folder) : programs_(programs), folder_(std::move(folder)) {}

    void run(const automation::Text& command_line);

  private:
    Programs& programs_;
    automation::Text folder_;  ///< the working folder of the next program
};

}  // namespace native
