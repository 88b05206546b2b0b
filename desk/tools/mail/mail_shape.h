// What is looked at before a mail is parsed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace desk::mail {

// What no mailer writes. Beyond these the parser's time grows faster than the mail, or its stack ends.
inline constexpr std::size_t most_header_bytes = 2U * 1024 * 1024;  ///< of all headers of the mail together
inline constexpr std::size_t most_parts = 10000;                    ///< and messages inside of it
inline constexpr std::size_t most_nested_parts = 100;
inline constexpr std::size_t most_addresses = 20000;
inline constexpr std::size_t most_colons = 1000;  ///< in a field of addresses, where each may open a group
inline constexpr std::size_t most_parameters = 1000;  ///< of a field that describes a part

/// Goes once through the lines of a message and refuses, with one clear sentence, what is beyond these
/// limits. A boundary that is written in the ways of RFC 2231 is not seen. Returns the message as the parser
/// reads it right: with one type for each part, and with lines between the parts that end as the lines before
/// them do, since it takes the end of the one off a part by that of the other.
std::string checked_shape(std::string_view message);

}  // namespace desk::mail
