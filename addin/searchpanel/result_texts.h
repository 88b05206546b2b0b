// What the panel says, and how it shows what it has found.
#pragma once

#include "addin/host/desktop.h"

namespace addin::searchpanel {

/// The start of the status window's texts.
inline constexpr automation::TextView searching = u"Searching... ";

/// A value as a cell shows it: a date and time by the regional settings, anything else as it stands. Throws
/// `Failure` for what is no text.
inline automation::Text shown_text(host::Desktop& desktop, const automation::Value& value) {
    if (!value.is(automation::Value::Type::date)) return value.to_text();
    return desktop.format(value.to_text(), u"General Date");
}

}  // namespace addin::searchpanel
