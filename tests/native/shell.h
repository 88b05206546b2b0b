// Stands in for the system's shell object.
#pragma once

#include <vector>

#include "desk/model/surroundings.h"
#include "host/automated.h"

namespace native {

/// The programs that can be started, those that were, and the files that were handed to the shell.
struct Programs {
    std::vector<host::Text> there;  ///< file names
    std::vector<desk::StartedProgram> started;
    std::vector<host::Text> opened;
};

/// Notes the programs that it starts. One that isn't there fails with `result::file_not_found`.
class Shell : public host::Automated<Shell> {
  public:
    static const host::Members<Shell>& members();

    Shell(Programs& programs, host::Text folder) : programs_(programs), folder_(std::move(folder)) {}

    void run(const host::Text& command_line);

  private:
    Programs& programs_;
    host::Text folder_;  ///< the working folder of the next program
};

}  // namespace native
