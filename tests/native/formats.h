// The system's named formats as a machine with United States settings shows them.
#pragma once

#include "host/value.h"

namespace native {

/// A value as text, a date as "12/31/2009 10:30:00 AM", without the time at midnight.
host::Text written(const host::Value& value);

/// The date in a text as it is written above, or as ISO writes it; a time alone is one of the day 0. Throws
/// `host::Failure` with `result::type_mismatch` for another text.
host::Date date_or_time(host::TextView text);

/// A value's text in "Currency", "Short Date" or "Percent". Throws `host::Failure` with
/// `result::type_mismatch` for a text that can't be read as a number or date, and with
/// `result::invalid_argument` for another format.
host::Text formatted(host::TextView value, host::TextView named_format);

}  // namespace native
