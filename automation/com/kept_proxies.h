// What carries calls between processes, kept at hand.
#pragma once

#include <array>

#include "automation/com/com_ptr.h"

namespace windows {

/// Keeps the class objects that marshal `IDispatch` and COM's own calls while it lives, in the apartment that
/// made it. Without it, Wine's COM looks them up in the registry for each object that crosses to another
/// process, by some thirty questions to Wine's server. Where they can't be had, all goes on as without it.
class KeptProxies {
  public:
    KeptProxies();
    ~KeptProxies();
    KeptProxies(const KeptProxies&) = delete;
    KeptProxies& operator=(const KeptProxies&) = delete;

  private:
    static constexpr std::size_t class_count = 2;
    std::array<DWORD, class_count> cookies_{};
};

}  // namespace windows
