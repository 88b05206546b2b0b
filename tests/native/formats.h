// The system's named formats as a machine with United States settings shows them.
#pragma once

#include "automation/value.h"

namespace native {

/// A value as text, a date as "12/31/2009 10:30:00 AM", without the time at midnight.
automation::Text written(const automation::Value& value);

/// The date in a text as it is written above, or as ISO writes it; a time alone is one of the day 0. Throws
/// `automation::Failure` with `result::type_mismatch` for another text.
automation::Date date_or_time(automation::TextView text);

/// A value's text in "Currency", "Short Date" or "Percent". Throws `automation::Failure` with
/// `result::type_mismatch` for a text that can't be read as a number or date, and with
/// `result::invalid_argument` for another format.
automation::Text formatted(automation::TextView value, automation::TextView named_format);

}  // namespace native
