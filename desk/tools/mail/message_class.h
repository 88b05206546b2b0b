// The class of the item that a mail becomes.
#pragma once

#include <gmime/gmime.h>

#include "automation/text.h"

namespace desk::mail {

/// `IPM.Note` for a mail, and the classes of what only comes as one: reports, signed and encrypted mails,
/// requests for a meeting.
automation::Text message_class_of(GMimeObject* root);

}  // namespace desk::mail
