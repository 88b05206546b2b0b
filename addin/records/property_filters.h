// Filters by user properties: by their names, and by their addresses in the two forms that stores understand.
#pragma once

#include "host/text.h"

namespace addin::records {

/// `like` compares whole values; `phrase` asks the store's word index, and only an indexed store knows its
/// word.
enum class FilterForm { like, phrase };

/// The address of a user property, as a filter quotes it. Blanks stand in it as their code.
host::Text quoted_address(host::TextView property);

/// One term: the address, the form's word and the value in apostrophes. The value is taken as it stands.
host::Text address_term(FilterForm form, const host::Text& address, host::TextView value);

/// Items by a key. The `phrase` form also asks for the name of their account.
host::Text key_filter(FilterForm form, host::TextView key, host::TextView id, host::TextView company);

/// Between `@SQL=(` and its end: one term or several.
host::Text address_filter(const host::Text& terms);
inline constexpr host::TextView and_between_terms = u" AND ";

/// [property] = 'value', the value as it stands.
host::Text equality(host::TextView property, host::TextView value);

}  // namespace addin::records
