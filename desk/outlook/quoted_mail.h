// How an answer to a mail, or one that passes it on, bears the original.
#pragma once

#include "desk/store/item_data.h"

namespace desk {

/// The subject with "RE: " or "FW: " before it, unless it begins with that already.
automation::Text marked_subject(automation::TextView mark, automation::TextView subject);

/// The original below a blank beginning: from whom, when, to whom, about what, and its text.
automation::Text quoted(const ItemData& original);

/// Whether two are one by their address, or by their name where there is none.
bool is_same_person(const Person& one, const Person& other);

/// Whether a person is the one with that address, by either of the person's own.
bool is_user(const Person& person, automation::TextView own_address);

/// Whom an answer to all goes to beside the sender: everybody of the original, each once, without the user.
std::vector<Person> others_of(const ItemData& original, const Person& sender,
                              automation::TextView own_address);

}  // namespace desk
