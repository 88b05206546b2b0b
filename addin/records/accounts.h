// Accounts as contacts meet them: how one is chosen, and how a contact takes over what it tells.
#pragma once

#include <functional>

#include "addin/ground/steps.h"
#include "addin/host/desktop.h"
#include "addin/host/family.h"
#include "addin/host/outlook.h"
#include "addin/records/names.h"

namespace addin::records {

/// What the picker is asked for when it searches at once, and the title that it bears.
inline constexpr automation::TextView account_definition = u"Account", account_list_title = u"Account List";

/// The picker, made by the host and set on the accounts of the database. What fails is skipped.
host::family::ListPicker make_account_picker(const Session& session,
                                             const host::outlook::Folder& account_profiles);

/// Writes one of the fields that come from an account: a user property of the contact, or a field of its own.
void write_contact_field(const Session& session, const host::outlook::Item& contact,
                         const AccountToContact& row, const std::function<automation::Value()>& value,
                         const SourcePlace& place = SourcePlace::current());

}  // namespace addin::records
