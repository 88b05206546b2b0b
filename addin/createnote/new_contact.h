// A mail's person who is no contact yet: the user is asked, a contact is made, and the mail is filed for it.
#pragma once

#include "createnote/dlg_send.h"
#include "records/stamp.h"

namespace addin::createnote {

/// What differs between those who make a contact.
struct NewContactPlan {
    host::Text address;
    host::Text name;  ///< the contact's `FullName` and `Subject`
    host::family::MainAddIn main_add_in;
    host::outlook::Folder account_profiles;
    bool keeps_account_values = false;    ///< all of the account's values are kept, or its id alone
    std::function<void()> before_choice;  ///< runs when the ids are made: the dialog goes away
};

/// The contact that was made, and what its note needs.
struct NewContact {
    host::outlook::Item item;
    host::Text account_id, contact_id, company;
    host::Text account_manager, team, alignment;  ///< the account's, if they are kept
};

/// Asks whether a contact is to be made, and of which account; makes, saves and shows it. Nothing if the user
/// doesn't want it.
std::optional<NewContact> offer_new_contact(Steps& steps, Session& session, const NewContactPlan& plan);

}  // namespace addin::createnote
