// Bytes as text of 64 letters, the form in which JSON carries an attachment.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace desk::mail {

/// Base64 with padding, in one line.
std::string to_base64(std::string_view bytes);

/// The bytes of such text; nothing if it has a foreign character, a wrong length or wrong padding.
std::optional<std::string> from_base64(std::string_view text);

}  // namespace desk::mail
