// The steps by which a mail becomes a note in the shared folders, with all that differs between the paths as
// a table.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "addin/ground/steps.h"
#include "addin/host/desktop.h"
#include "addin/host/family.h"
#include "addin/host/outlook.h"
#include "addin/records/names.h"

namespace addin::records {

/// The machine-readable mark on a mail that was handled.
inline constexpr automation::TextView auto_filed = u"TW Auto Filed";

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
    automation::TextView body_start;
    bool activity_date;
    Ends ends;
    Marks marks;
    automation::TextView flag_request;
    bool billing_information;
};

/// Every path, in the order of `Path`.
std::span<const PathRow> paths();
const PathRow& row(Path path);

/// The folder below the anchor for a path's note. If none can be had it is the one of before, which is
/// Nothing unless a loop has chosen one.
host::outlook::Folder choose_folder(const Session& session, const host::outlook::Folder& account_profiles,
                                    Place place, const host::outlook::Folder& before = {});

// The moves that a note is made of. Each fills what it fills, skips what fails, and changes nothing else.

/// What a key of a note is filled with. Throws `Failure` for what can't be read: the key stays unset.
using KeySource = std::function<automation::Value(const Key& key)>;

/// Each key is copied from a record's property of its own name.
KeySource copied_from(const host::outlook::Item& record);

host::outlook::Item make_note(const Session& session, const PathRow& row, const host::outlook::Folder& folder,
                              const host::outlook::Item& before = {});
void write_keys(const Session& session, const PathRow& row, const host::outlook::Item& note,
                const KeySource& source);
void write_property(const Session& session, const host::outlook::Item& note, Name name,
                    const std::function<automation::Value()>& value,
                    const SourcePlace& place = SourcePlace::current());
void write_activity_date(const Session& session, const host::outlook::Item& note,
                         const host::family::SafeMailItem& mail);
void write_body(const Session& session, const PathRow& row, const host::outlook::Item& note,
                const host::family::SafeMailItem& mail);
/// The mail is attached through its wrapper, which stands for it.
void attach(const Session& session, const host::outlook::Item& note, const host::family::SafeMailItem& mail);
void attach_and_post(const Session& session, const host::outlook::Item& note,
                     const host::family::SafeMailItem& mail);

/// Makes, fills and posts the note of a mail that was matched with a contact. The mail is attached through
/// its wrapper, which stands for it. Answers the note; if none can be made, the one of before is filled,
/// which is Nothing unless a loop has made one.
host::outlook::Item post_note(const Session& session, const PathRow& row, const host::outlook::Folder& folder,
                              const host::outlook::Item& contact, const host::family::SafeMailItem& mail,
                              const host::outlook::Item& before = {});

/// Marks the mail of the Create Note dialog, in the inspector and in the selection: one of them is Nothing. A
/// mail that is being written isn't marked.
void mark_chosen_mail(const Session& session, const PathRow& row, const host::outlook::Inspector& inspector,
                      const host::outlook::Selection& selection);

/// Marks a mail as filed, on the item itself or through its wrapper.
void mark_mail(const Session& session, const PathRow& row, const host::outlook::Item& mail);
void mark_mail(const Session& session, const PathRow& row, const host::family::SafeMailItem& mail);

}  // namespace addin::records
