// What the add-in relies on of a host, asked of the host itself.
#pragma once

#include "admin/machine.h"
#include "admin/report.h"

namespace admin {

/// What is to be said before a probe begins.
inline constexpr const char* probe_announcement =
    "This makes a folder \"Tarnwell probe\" below the Inbox, works in it, shows a command bar and a window "
    "for a moment, "
    "and removes all of it again.\n"
    "It sends nothing, and touches none of your items.";

/// Asks all questions; a line for each, well if the host answers as is believed. Throws `Refusal` if there is
/// no host, or no folder can be made in it.
Report probe(Machine& machine);

/// The questions as a page: what is asked, what is believed, and where from.
std::string question_page();

}  // namespace admin
