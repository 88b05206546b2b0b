// The header of a message file: where it ends, and whether it is a mail's at all.
#pragma once

#include <string_view>

namespace desk::mail {

/// The message without what a mailbox or an editor puts in front of it ("From " line, byte order mark).
/// Throws `automation::Failure` with one clear sentence if the bytes do not begin with a mail's header that
/// is complete.
std::string_view checked_message(std::string_view bytes);

/// The header of a checked message, the last line's end included.
std::string_view header_of(std::string_view message);

}  // namespace desk::mail
