// Text out of a mail's bytes: character sets and line ends.
#pragma once

#include <string>
#include <string_view>

#include "automation/text.h"

namespace desk::mail {

/// Readies GMime; each way into it does so first. The second time it does nothing.
void start_library();

bool is_utf8(std::string_view bytes);

/// The text of bytes in a character set as a mail names it. Without a name, or with one that nobody knows:
/// UTF-8 if they are UTF-8, else Windows' western set. What the set does not know becomes U+FFFD.
automation::Text decode(std::string_view bytes, std::string_view charset);

/// A text whose lines all end in CR LF.
automation::Text with_crlf(automation::TextView text);

}  // namespace desk::mail
