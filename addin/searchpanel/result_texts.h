// What the panel says, and how it shows what it has found.
#pragma once

#include <algorithm>

#include "host/desktop.h"
#include "host/family.h"

namespace addin::searchpanel {

/// The start of the status window's texts.
inline constexpr host::TextView searching = u"Searching... ";

inline host::family::SafeMailItem make_wrapper(host::Desktop& desktop) {
    return host::family::SafeMailItem(desktop.create(host::family::prog_id::safe_mail_item));
}

inline host::Text without_leading_blanks(host::TextView text) {
    return host::Text(text.substr(std::min(text.find_first_not_of(u' '), text.size())));
}

/// A value as a cell shows it: a date and time by the regional settings, anything else as it stands. Throws
/// `Failure` for what is no text.
inline host::Text shown_text(host::Desktop& desktop, const host::Value& value) {
    if (!value.is(host::Value::Type::date)) return value.to_text();
    return desktop.format(value.to_text(), u"General Date");
}

}  // namespace addin::searchpanel
