// The parts of a mail: what is read as its body, and what is attached.
#pragma once

#include <gmime/gmime.h>

#include <functional>
#include <string>
#include <vector>

#include "desk/store/item_data.h"

namespace desk::mail {

struct Content {
    automation::Text text;  ///< the body as plain text, lines ending in CR LF
    automation::Text html;  ///< the body as HTML; empty if the mail has none
    std::vector<AttachmentData> attachments;
};

/// Makes an item of a message inside a mail.
using ReadEmbedded = std::function<ItemData(GMimeMessage*)>;

/// The decoded bytes of a single part; of one that is cut off, what is there.
std::string content_of(GMimeObject* part);

/// The content of a MIME part with everything below it; of one that is cut off, what is there.
Content read_parts(GMimeObject* root, const ReadEmbedded& read_embedded);

/// The character set of the first part of text, or an empty text.
std::string first_charset(GMimeObject* root);

}  // namespace desk::mail
