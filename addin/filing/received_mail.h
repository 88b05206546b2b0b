// Automatic filing of received mail: a mail from a known contact becomes a note when it is first read.
#pragma once

#include "addin/ground/session.h"
#include "addin/host/outlook.h"

namespace addin::filing {

/// A mail came into the Inbox: nothing is done, filing waits until it is read.
void goInbox_ItemAdd(Session& session, const host::outlook::Item& item);

/// A mail of the Inbox changed: one that is read, not marked and not private is filed.
void goInbox_ItemChange(Session& session, const host::outlook::Item& item);

/// Files a mail as a note under its sender's contact, and marks it; does nothing for a sender whom no contact
/// bears. Shows nothing.
void AutomaticCreateNote(Session& session, const host::outlook::Item& item);

}  // namespace addin::filing
