// A mail's person who is no contact yet: the user is asked, a contact is made, and the mail is filed for it.
#pragma once

#include <optional>

#include "addin/createnote/dlg_send.h"
#include "addin/records/stamp.h"

namespace addin::createnote {

/// How the picker of accounts shows itself.
enum class PickerForm { dialog, search };

/// What differs between the ways that make a contact.
struct NewContactRow {
    records::Path path;  ///< of the note that is filed for the contact
    PickerForm picker;
    bool keeps_account_values;      ///< all of the account's values are kept, or its id alone
    bool kept_alignment_is_copied;  ///< to the contact; or else it is read from the account again
    bool address_is_domain;         ///< an address without the sign names the company; or else nothing does
};
const NewContactRow& new_contact_row(records::Path path);

/// What an address tells of its owner's company.
struct Domain {
    automation::Text company, web_page;
};
Domain domain_of(const automation::Text& address, bool address_is_domain);

/// What a way knows when it makes a contact.
struct NewContactPlan {
    const NewContactRow& row;
    automation::Text address;
    automation::Text name;  ///< the contact's `FullName` and `Subject`
    host::family::MainAddIn main_add_in;
    host::outlook::Folder account_profiles;
    std::function<void()> before_choice{};  ///< runs when the ids are made: the dialog goes away
};

/// The contact that was made, and what its note needs.
struct NewContact {
    host::outlook::Item item;
    automation::Text account_id, contact_id, company;
    automation::Text account_manager, team, alignment;  ///< the account's, if they are kept
};

/// Asks whether a contact is to be made, and of which account; makes, saves and shows it. Nothing if the user
/// doesn't want it.
std::optional<NewContact> offer_new_contact(Session& session, const NewContactPlan& plan);

/// Files the mail for the contact that was made of its sender.
void post_note_for_new_contact(Session& session, const NewContactPlan& plan, const NewContact& made,
                               const host::family::SafeMailItem& mail);

}  // namespace addin::createnote
