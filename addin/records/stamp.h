// The steps by which a mail becomes a note in the shared folders, with all that differs between the paths as
// a table.
#pragma once

#include <cstdint>
#include <span>

#include "core/steps.h"
#include "host/desktop.h"
#include "host/family.h"
#include "host/outlook.h"
#include "records/names.h"

namespace addin::records {

/// The machine-readable mark on a mail that was handled.
inline constexpr host::TextView auto_filed = u"TW Auto Filed";

/// The paths on which a mail or record is tied to a note.
enum class Path {
    automatic_received,
    automatic_sent,
    quick_view_new_contact,
    open_contact_new_contact,
    create_contact_level,
    create_account_level,
    create_new_contact,
    create_from_record,
    quick_view_note,
    quick_view_opportunity,
    quick_view_inquiry,
    drop_on_opportunity,
    drop_on_inquiry,
};

/// Where a path's note lies.
enum class Place {
    mail_folder,         ///< the folder that the option names, default "Email"; "Notes" if it isn't there
    mail_folder_twice,   ///< the same, looked for once more after the fallback; a failed lookup changes
                         ///< nothing
    notes_unless_named,  ///< the option's folder, default "Notes", without a test whether it is there
    actions              ///< "Actions" below "Customer Service"; the option isn't read
};

/// What a path takes a value from.
enum class From {
    none,            ///< stays unset
    contact,         ///< the matched contact's own property or field
    account,         ///< the account record
    account_name,    ///< the account's subject
    chosen_account,  ///< the chosen account, or, for want of one, the domain of the sender
    new_id,          ///< an id made for the new record
    sender,          ///< the sender's name
    dialog,          ///< what the Create Note dialog holds
    record,          ///< the selected record, by its class
    quick_view,      ///< the hidden value fields of Quick View
    target,          ///< the record that the mail was dropped on
    mail,            ///< the mail, through its wrapper
    received,        ///< the text "Email (Received)"
    sent             ///< the text "Email (Sent)"
};

/// A key that a path copies by name.
struct Key {
    Name property;
    From from;
};

enum class Ends { post, display, display_then_post };

/// What the mail is marked with, and through what.
enum class Marks { nothing, the_mail, inspector_and_selection, the_wrapper };

struct PathRow {
    Path path;
    Place place;
    Name message_class;
    std::span<const Key> keys;
    From account_name, contact_name, type, subject;
    host::TextView body_start;
    bool activity_date;
    Ends ends;
    Marks marks;
    host::TextView flag_request;
    bool billing_information;
};

/// Every path, in the order of `Path`.
std::span<const PathRow> paths();
const PathRow& row(Path path);

/// The folder below the anchor for a path's note; Nothing if there is none.
host::outlook::Folder choose_folder(Steps& steps, host::Desktop& desktop,
                                    const host::outlook::Folder& account_profiles, Place place);

/// Makes, fills and posts the note of a mail that was matched with a contact. The mail is attached through
/// its wrapper, which stands for it.
void post_note(Steps& steps, const PathRow& row, const host::outlook::Folder& folder,
               const host::outlook::Item& contact, const host::family::SafeMailItem& mail);

/// Marks a mail as filed, on the item itself.
void mark_mail(Steps& steps, const PathRow& row, const host::outlook::Item& mail);

}  // namespace addin::records
