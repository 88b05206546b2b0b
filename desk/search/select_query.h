// The one kind of SELECT that the desktop-search provider is asked: columns of SYSTEMINDEX where a phrase
// occurs.
#pragma once

#include <vector>

#include "automation/text.h"

namespace desk {

/// What the provider answers to a command that it can't read (DB_E_ERRORSINCOMMAND).
inline constexpr std::int32_t errors_in_command = static_cast<std::int32_t>(0x80040E14);

struct SelectQuery {
    std::vector<automation::Text> columns;  ///< as they are written, in their order
    std::vector<automation::Text> words;    ///< of the phrase; one behind the other
};

/// Reads `SELECT column, ... FROM SYSTEMINDEX WHERE Contains('"phrase"')`, its words in any case, an
/// apostrophe of the phrase doubled. Throws `automation::Failure` with `errors_in_command` for anything else.
SelectQuery read_select(automation::TextView command);

}  // namespace desk
