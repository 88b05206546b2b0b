// Reading mail files with the native mail reader, a program of the system that Wine runs on.
#pragma once

#include "desk/store/item_data.h"

namespace desk {

/// Has the reader read a mail file, whose path is one of Windows. `state` is a folder for its answer. Throws
/// `host::Failure` with one clear sentence: the reader's own, or why it gave none.
ItemData read_mail_with(const host::Text& reader, const host::Text& state, const host::Text& path);

}  // namespace desk
