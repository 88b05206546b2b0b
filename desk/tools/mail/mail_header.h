// The header of a message file: where it ends, and whether there is one at all.
#pragma once

#include <string>
#include <string_view>

namespace desk::mail {

/// The message without what mailboxes and editors put in front of it ("From " line, byte order mark, blanks
/// and empty lines), and with a header that ends: lines in it that are no field are left out where the header
/// goes on behind them, and begin the body where it doesn't. Throws `automation::Failure` with one clear
/// sentence if the bytes do not begin with a header at all.
std::string mended_message(std::string_view bytes);

/// The header of a mended message, the last line's end included.
std::string_view header_of(std::string_view message);

}  // namespace desk::mail
