// Filters by user properties: by their names, and by their addresses in the two forms that stores understand.
#pragma once

#include "automation/text.h"

namespace addin::records {

/// `like` compares whole values; `phrase` asks the store's word index, and only an indexed store knows its
/// word.
enum class FilterForm { like, phrase };

/// The address of a user property, as a filter quotes it. Blanks stand in it as their code.
automation::Text quoted_address(automation::TextView property);

/// One term: the address, the form's word and the value in apostrophes. The value is taken as it stands.
automation::Text address_term(FilterForm form, const automation::Text& address, automation::TextView value);

/// Items by a key. The `phrase` form also asks for the name of their account.
automation::Text key_filter(FilterForm form, automation::TextView key, automation::TextView id,
                            automation::TextView company);

/// Between `@SQL=(` and its end: one term or several.
automation::Text address_filter(const automation::Text& terms);
inline constexpr automation::TextView and_between_terms = u" AND ";

/// [property] = 'value', the value as it stands.
automation::Text equality(automation::TextView property, automation::TextView value);

}  // namespace addin::records
