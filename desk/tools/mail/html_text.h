// The readable text of HTML.
#pragma once

#include <cstddef>

#include "automation/text.h"

namespace desk::mail {

// What no mailer writes. Beyond these the parser's time grows faster than the page.
inline constexpr std::size_t most_nested_elements = 2000;
inline constexpr std::size_t most_separators = 5000;  ///< blanks and quotation marks inside of one tag

/// What a reader sees of a page, as plain text with CR LF: blocks and line breaks as lines, list entries
/// marked with
/// "* ", table cells apart by tabs, a link's address in angle brackets behind its words. Takes any text for
/// HTML. A tag beyond these limits has no attributes, and a page nested beyond them is read without its
/// elements.
automation::Text html_to_text(automation::TextView html);

}  // namespace desk::mail
