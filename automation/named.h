// A class that tells its name, so that its objects can be counted under it.
#pragma once

#include <string_view>

namespace automation {

class Named {
  public:
    virtual ~Named() = default;
    [[nodiscard]] virtual std::string_view class_name() const = 0;
};

}  // namespace automation
