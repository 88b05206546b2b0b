// Items, attachments and folder fields as bytes.
#pragma once

#include "desk/store/item_data.h"
#include "desk/store/store.h"

namespace desk {

/// An item without its attachments; `read_item` reads it.
std::string write_bare_item(const ItemData& item);

/// One attachment, with the item that is embedded in it. They throw as `write_item` and `read_item` do.
std::string write_attachment(const AttachmentData& attachment);
AttachmentData read_attachment(std::string_view bytes);

/// A text in a column of its own: equal texts have equal bytes.
std::string write_text(automation::TextView text);
automation::Text read_text(std::string_view bytes);

std::string write_fields(const std::vector<FolderField>& fields);
std::vector<FolderField> read_fields(std::string_view bytes);

}  // namespace desk
