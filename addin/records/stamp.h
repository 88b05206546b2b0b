// The steps by which a mail becomes a note in the shared folders, with all that differs between the paths as
// a table.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

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
    quick_view_opportunity,
    quick_view_inquiry,
    drop_on_opportunity,
    drop_on_inquiry,
};

/// Where a path's note lies.
enum class NoteFolder {
    mail_folder,         ///< the folder that the option names, default "Email"; "Notes" if it isn't there
    mail_folder_twice,   ///< the same, looked for once more after the fallback; a failed lookup changes
                         ///< nothing
    chosen_before,       ///< the one that was chosen before the contact was made
    notes_unless_named,  ///< the option's folder, default "Notes", without a test whether it is there
    actions              ///< "Actions" below "Customer Service"; the option isn't read
};

/// What a path takes a value from. What a row names and the writer doesn't know itself, the path has to hand
/// over as a `Source`.
enum class From {
    none,            ///< stays unset
    contact,         ///< the matched contact, or the one that was made
    account,         ///< the account record
    chosen_account,  ///< the chosen account, or, for want of one, the domain of the sender
    new_id,          ///< an id made for the new record
    dialog,          ///< what the Create Note dialog holds
    record,          ///< the selected record's own property
    record_name,     ///< a name of the selected record, by its class
    quick_view,      ///< the hidden value fields of Quick View
    target,          ///< the record that the mail was dropped on
    mail,            ///< the mail, through its safe one
    sender,          ///< the sender's name, through the safe mail
    received,        ///< the text "Email (Received)"
    sent             ///< the text "Email (Sent)"
};

/// A property of the note, and what it is taken from.
struct Key {
    Name property;
    From from;
};

/// When the note's date is written.
enum class Date { never, after_keys, after_body };

enum class Ends { post, display_then_post };

/// What a note's path marks, when it is posted. Quick View marks the mail itself, once for all that it makes.
enum class Marks { nothing, the_mail, inspector_and_selection };

/// How a mail tells that it was filed.
struct Mark {
    automation::TextView flag_request;
    bool billing_information;
};
inline constexpr Mark filed_by_user{u"TW User Filed", true};

struct PathRow {
    Path path;
    NoteFolder folder;
    Name message_class;
    std::span<const Key> keys;
    From account_name, contact_name, opportunity_name, type, subject;
    Date activity_date;
    Ends ends;
    Marks marks;
    Mark mark;
};

const PathRow& path_row(Path path);

/// The folder below the anchor for a path's note. If none can be had it is the one of before, which is
/// Nothing unless a loop has chosen one.
host::outlook::Folder choose_folder(const Session& session, const host::outlook::Folder& account_profiles,
                                    NoteFolder which, const host::outlook::Folder& before = {});

/// The mail that a note is made of: the safe one, and what is marked. Of inspector and selection one stands.
struct MailToFile {
    host::family::SafeMailItem safe;
    host::outlook::Item item{};
    host::outlook::Inspector inspector{};
    host::outlook::Selection selection{};
};

/// What a path hands over: the values from one of the places that its row names. They are asked for by the
/// note's property; the account's name is `property::account_name`, a subject `field::subject`. Nothing, or a
/// `Failure`: it stays unset.
struct Source {
    From from;
    std::function<std::optional<automation::Value>(Name property)> read;
};

/// A contact's own properties, and its names.
Source of_contact(const host::outlook::Item& contact);
/// Each key is copied from a record's property of its own name.
automation::Value copied(const host::outlook::Item& record, Name property);

/// What one filing adds to its path's row.
struct Filing {
    host::outlook::Folder folder;
    MailToFile mail;
    std::vector<Source> sources{};
    std::optional<Key> further_key{};  ///< written after the row's own
    host::outlook::Item before{};  ///< is filled if no note can be made: Nothing, unless a loop has made one
};

/// Makes, fills and posts the note of a mail, and marks the mail, as the row says; answers the note. The mail
/// is attached as the safe one, which stands for it. What fails is skipped.
host::outlook::Item file_note(const Session& session, const PathRow& row, const Filing& filing);

// The moves that are made outside of a filing, too.

void write_property(const Session& session, const host::outlook::Item& note, Name name,
                    const std::function<automation::Value()>& value,
                    const SourcePlace& place = SourcePlace::current());
void write_body(const Session& session, const host::outlook::Item& note, automation::TextView start,
                const host::family::SafeMailItem& mail);
void attach(const Session& session, const host::outlook::Item& note, const host::family::SafeMailItem& mail);

/// Marks a mail as filed, on the item itself or through the safe one.
void mark_mail(const Session& session, const Mark& mark, const host::outlook::Item& mail);
void mark_mail(const Session& session, const Mark& mark, const host::family::SafeMailItem& mail);

}  // namespace addin::records
