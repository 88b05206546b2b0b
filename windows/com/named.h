// A class that tells its name. Portable: the classes that are offered over COM need no Windows header for it.
#pragma once

#include <string_view>

namespace windows {

/// Implemented by an `host::Invocable` whose bridges are to be counted under a name.
class Named {
  public:
    virtual ~Named() = default;
    [[nodiscard]] virtual std::string_view class_name() const = 0;
};

}  // namespace windows
