// Items and other bytes in files.
#pragma once

#include "desk/store/item_data.h"

namespace desk {

inline constexpr std::int32_t item_file_text = 0, item_file_message = 3;  // OlSaveAsType

/// A file's bytes. Throws `automation::Failure` that names the file.
std::string read_file(const automation::Text& path);
void write_file(const automation::Text& path, std::string_view bytes);

/// An item as a message file, and the item of one. The form is the desk's own.
std::string message_file(const ItemData& item);
ItemData read_message_file(const automation::Text& path);

/// Saves an item as a message file or as plain text. Throws `result::invalid_argument` for another type.
void save_item_file(const ItemData& item, const automation::Text& path, std::int32_t type);

}  // namespace desk
