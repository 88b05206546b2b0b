// How @SQL filters look into a text: `Like` with its wildcard, and the search for words.
#pragma once

#include <vector>

#include "automation/text.h"

namespace desk::filter {

/// The pieces of a `Like` pattern between its `%`, without regard to case; one piece if it has no `%`.
std::vector<automation::Text> pieces_of(automation::TextView pattern);

/// Whether a text consists of the pieces with anything between them.
bool is_like(automation::TextView text, const std::vector<automation::Text>& pieces);

/// The words of a text without regard to case: its runs of letters and digits.
std::vector<automation::Text> words_of(automation::TextView text);

/// Whether a text holds the words as a phrase: whole words, one behind the other. No words are in no text.
bool has_phrase(automation::TextView text, const std::vector<automation::Text>& words);

/// Whether each of the words is the start of some word of the text, in whatever order. No words start none.
bool has_starts(automation::TextView text, const std::vector<automation::Text>& words);

}  // namespace desk::filter
