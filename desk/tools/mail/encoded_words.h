// Encoded words of headers, made fit for GMime.
#pragma once

#include <string>
#include <string_view>

namespace desk::mail {

/// A message in whose fields neighbouring base64 words of one character set are one word. GMime decodes such
/// words as one text and stops at the padding of the first, so that the rest of a long subject would be lost.
std::string with_joined_words(std::string_view message);

}  // namespace desk::mail
