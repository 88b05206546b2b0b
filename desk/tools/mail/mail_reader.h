// Reads a mail from its Internet form into the item that the desk delivers.
#pragma once

#include <filesystem>
#include <string_view>

#include "desk/store/item_data.h"

namespace desk::mail {

/// The largest file that is taken for a mail, in bytes.
inline constexpr std::uintmax_t largest_mail = 50U * 1024 * 1024;

/// The item of an RFC 5322 message; message.h lists its fields. Dates are in the machine's local time. Throws
/// `automation::Failure`, whose text is one clear sentence, for bytes that are no mail, and for a
/// malformed field of the desk's own. Of a damaged mail the item has what can be read.
ItemData read_message(std::string_view bytes);

/// The same of a file. Throws also if there is no such file, if it can't be read or is larger than
/// `largest_mail`.
ItemData read_message_file(const std::filesystem::path& file);

}  // namespace desk::mail
