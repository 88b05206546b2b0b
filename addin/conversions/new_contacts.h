// A plain contact that is brought into the shared folder becomes a record.
#pragma once

#include "addin/ground/session.h"

namespace addin::conversions {

/// Stamps a contact that has just come to "Account Contacts" and isn't a record yet, and ties the selected
/// contact that it was copied from to it.
void goContacts_ItemAdd(Session& session, const host::outlook::Item& Item);

}  // namespace addin::conversions
