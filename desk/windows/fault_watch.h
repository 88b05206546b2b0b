// Counts the program's faults, for a log: the system passes over one that comes below a window procedure.
#pragma once

#include "host/text.h"
#include "windows/com/platform.h"

namespace desk {

class FaultWatch {
  public:
    FaultWatch();
    ~FaultWatch();
    FaultWatch(const FaultWatch&) = delete;
    FaultWatch& operator=(const FaultWatch&) = delete;

    /// How many there were, and where the last one was: "0", or "2, the last one at 0x7b013d7e".
    static host::Text told();

  private:
    void* handler_;
};

}  // namespace desk
