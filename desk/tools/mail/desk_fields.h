// The desk's own fields of a message file: what the Internet format does not know, so that it can be tried.
#pragma once

#include <string>
#include <vector>

#include "desk/store/item_data.h"

namespace desk::mail {

struct HeaderField {
    std::string name;
    automation::Text value;
};

/// Whether a field is one of the desk's own, known or not.
bool is_desk_field(std::string_view name);

/// Applies the desk's own fields to a mail whose sender and recipients are there already:
///
///   X-Desk-Sender: EX /o=Example/cn=ann              address type and native address; `-` leaves one empty
///   X-Desk-Recipient: bob@one.example EX /o=Example/cn=bob     the same of a recipient, any number of times
///   X-Desk-Sensitivity: 2                            0 to 3
///   X-Desk-Class: IPM.Note.Other                     the message class
///
/// Throws `automation::Failure` with one clear sentence for a field that is malformed, unknown, or there
/// twice.
void apply_desk_fields(const std::vector<HeaderField>& fields, ItemData& mail);

}  // namespace desk::mail
