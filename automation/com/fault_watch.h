// Counts the faults of the program it runs in, for a log and for tests: crashes, which the system passes over
// below a window procedure, and mistakes that ended at a border (see faults.h), in any module of the process.
#pragma once

#include <cstdint>

#include "automation/com/platform.h"
#include "automation/text.h"

namespace windows {

class FaultWatch {
  public:
    FaultWatch();
    ~FaultWatch();
    FaultWatch(const FaultWatch&) = delete;
    FaultWatch& operator=(const FaultWatch&) = delete;

    static std::uint32_t count();

    /// How many there were and which: "0", or "2: at 0x7b013d7e; in ..., line 7: vector::_M_range_check".
    static automation::Text told();

  private:
    void* handler_;
};

}  // namespace windows
