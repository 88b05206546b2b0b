// What every folder holds at the end of the user's whole day.
#pragma once

#include <string>
#include <vector>

namespace acceptance {

/// Each item with its folder's path and its properties that are not empty.
extern const std::string whole_day;

/// The message boxes of the day, in order.
extern const std::vector<std::string> whole_day_boxes;

}  // namespace acceptance
