// A personal contact becomes a shared record.
#pragma once

#include "addin/ground/session.h"

namespace addin::conversions {

/// Copy the contact in the active window to the database, after a question: as an account's contact, with the
/// account that it belongs to, or as a lead, which belongs to none.
void convert_to_contact(Session& session);
void convert_to_lead(Session& session);

}  // namespace addin::conversions
