// The readable text of HTML.
#pragma once

#include "automation/text.h"

namespace desk::mail {

/// What a reader sees of a page, as plain text with CR LF: blocks and line breaks as lines, list entries
/// marked with
/// "* ", table cells apart by tabs, a link's address in angle brackets behind its words. Takes any text for
/// HTML.
automation::Text html_to_text(automation::TextView html);

}  // namespace desk::mail
