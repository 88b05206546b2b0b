// The days that the date macros of @SQL filters stand for.
#pragma once

#include <optional>

#include "automation/value.h"

namespace desk::filter {

/// Whole days of the user's: from the beginning of the first one to the beginning of the one behind them.
struct Days {
    automation::Date first, end;
};

/// The days of "today", "last7days" and so on; nothing if there is no such macro. Weeks begin on Sunday, and
/// today is one of the last and of the next seven days.
std::optional<Days> days_of_macro(automation::TextView name, automation::Date now);

}  // namespace desk::filter
