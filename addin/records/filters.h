// The texts of searches: how a value that a user or a mail supplies becomes a filter of the host, and how a
// found value is shown.
#pragma once

#include "host/desktop.h"
#include "host/text.h"

namespace addin::records {

/// Between the terms of a filter.
inline constexpr host::TextView or_between_terms = u" Or ";

/// One equality: [field] = "S". All builders rewrite S: one leading apostrophe and a closing one that is then
/// the only one go, and the others come back as "~", the sign under which they travelled.
host::Text EqualTerm(host::Text& S, host::TextView field);

/// One prefix range: [field] >= "S" AND [field] < "U", U being the upper limit of S.
host::Text RangeTerm(host::Text& S, host::TextView field);

/// The boxes of the Create Note dialog that its filter reads and writes.
struct NoteFilterBoxes {
    bool Option1 = false;  ///< account level
    host::Text Text1;      ///< the end piece of the upper limit
    host::Text Text2;      ///< the upper limit
};

/// The Create Note dialog's fixed filter. Mode "Create" gives equalities; every other mode prefix ranges,
/// which no caller asks for today.
host::Text NoteFilter(host::Text& S, host::TextView mode, NoteFilterBoxes& boxes);

/// A list definition's template with its placeholders filled: "<<mString>>" by S and "<<UpperLimit>>" by U.
/// The template's padding stays, and so do the "~" that stand for apostrophes: the delimiters are the
/// template's own.
host::Text TemplateFilter(host::Text& S, host::TextView filter_template);

/// A value as a list shows it: "Currency", "Date" and "Percent" by the regional settings, any other type as
/// it stands. A value that can't be read as a number or date comes back as it stands.
host::Text FormatFieldValue(const host::Text& value, host::TextView field_type, host::Desktop& desktop);

/// A name as a list shows it.
host::Text without_leading_blanks(host::TextView text);

}  // namespace addin::records
