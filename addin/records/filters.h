// The texts of searches: how a value that a user or a mail supplies becomes a filter of the host, and how a
// found value is shown.
#pragma once

#include "addin/ground/step_observer.h"
#include "addin/host/desktop.h"
#include "automation/text.h"

namespace addin::records {

/// Between the terms of a filter.
inline constexpr automation::TextView or_between_terms = u" Or ";

/// One equality: [field] = "S". All builders rewrite S: one leading apostrophe and a closing one that is then
/// the only one go, and the others come back as "~", the sign under which they travelled.
automation::Text EqualTerm(automation::Text& S, automation::TextView field);

/// One prefix range: [field] >= "S" AND [field] < "U", U being the upper limit of S.
automation::Text RangeTerm(automation::Text& S, automation::TextView field);

/// The boxes of the Create Note dialog that its filter reads and writes.
struct NoteFilterBoxes {
    bool Option1 = false;    ///< account level
    automation::Text Text1;  ///< the end piece of the upper limit
    automation::Text Text2;  ///< the upper limit
};

/// The Create Note dialog's fixed filter. Mode "Create" gives equalities; every other mode prefix ranges,
/// which no caller asks for today.
automation::Text NoteFilter(automation::Text& S, automation::TextView mode, NoteFilterBoxes& boxes);

/// A list definition's template with its placeholders filled: "<<mString>>" by S and "<<UpperLimit>>" by U.
/// The template's padding stays, and so do the "~" that stand for apostrophes: the delimiters are the
/// template's own.
automation::Text TemplateFilter(automation::Text& S, automation::TextView filter_template);

/// A value as a list shows it: "Currency", "Date" and "Percent" by the regional settings, any other type as
/// it stands. A value that can't be read as a number or date comes back as it stands.
automation::Text FormatFieldValue(const automation::Text& value, automation::TextView field_type,
                                  host::Desktop& desktop, StepObserver* observer = nullptr);

/// A name as a list shows it.
automation::Text without_leading_blanks(automation::TextView text);

}  // namespace addin::records
