// A new record for the contact that is shown, made from the mail with which the window was opened.
#include <algorithm>

#include "addin/ground/keyed.h"
#include "addin/quickview/quick_view.h"
#include "addin/records/database.h"
#include "addin/records/names.h"

namespace addin::quickview {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::family::SafeMailItem;
using host::outlook::Folder;
using host::outlook::Item;
using records::Path;
namespace default_folder = host::outlook::default_folder;
namespace property = records::property;

namespace {

constexpr std::size_t subject_length = 512;  // characters of the mail's body that become an inquiry's subject

constexpr TextView before_mail = u"\r";  // where a record holds the mail's text

enum class SubjectOf { mail, none, body, people };

/// The records that can be made, by the entry of `cmbFolders`.
struct NewRecord {
    TextView chosen;
    records::Name folder;         ///< below the anchor; empty for the mail folder and the user's own ones
    std::int32_t default_folder;  ///< of the user's own
    records::Name message_class;
    records::Name key;          ///< the property that takes the new id
    records::Name key_as_read;  ///< its spelling where it is read back
    SubjectOf subject;
    bool with_mail;  ///< in its body, and attached
};
// clang-format off
constexpr NewRecord new_records[] = {
    // chosen                          folder                            default folder            message class                        key                                   key as read               subject            with mail
    {records::folder::notes,            u"",                              0,                        records::message_class::note,        u"",                                  u"",                      SubjectOf::mail,   true},
    {records::folder::opportunities,    records::folder::opportunities,   0,                        records::message_class::opportunity, property::opportunity_id_as_written,  property::opportunity_id, SubjectOf::none,   false},
    {records::folder::customer_service, records::folder::customer_service, 0,                       records::message_class::inquiry,     property::inquiry_id,                 property::inquiry_id,     SubjectOf::body,   false},
    {my_calendar,                       u"",                              default_folder::calendar, records::message_class::appointment, property::appointment_id,             u"",                      SubjectOf::people, true},
    {my_tasks,                          u"",                              default_folder::tasks,    records::message_class::task,        u"",                                  u"",                      SubjectOf::people, true},
};
// clang-format on
static_assert(is_keyed(new_records, &NewRecord::chosen));

const NewRecord* find_record(const Text& chosen) {
    const auto found = std::ranges::find(new_records, chosen, &NewRecord::chosen);
    return found == std::end(new_records) ? nullptr : found;
}

}  // namespace

void QuickView::cmdAdd_Click() {
    const Steps steps(session_);
    const Text chosen = shown(u"cmbFolders");
    SafeMailItem mail;
    steps.set(mail, [&] { return records::make_safe_mail(session_.desktop); });
    steps.run([&] { mail.Item(name_space().GetItemFromID(shown(u"EmailID"))); });
    const records::Database database = records::open_database(session_);
    Text key;
    steps.set(key, [&] { return database.main_add_in.generateid(); });
    const Item record = make_record(chosen, key, database.account_profiles, mail);
    write_shown_values(record);
    steps.run([&] { record.Display(); });
    if (const NewRecord* const made = find_record(chosen); made && !made->key_as_read.empty()) {
        steps.set(key, [&] { return record.UserProperties().Item(made->key_as_read).value().to_text(); });
    }
    const records::Source new_id{records::From::new_id, [&](records::Name) { return Value(key); }};
    // without a new record, both tests fail, and the mail is filed both ways
    if (steps.possibly([&] { return record.MessageClass() == records::message_class::opportunity; })) {
        file_mail(Path::quick_view_opportunity, database.account_profiles, mail, new_id);
    }
    if (steps.possibly([&] { return record.MessageClass() == records::message_class::inquiry; })) {
        file_mail(Path::quick_view_inquiry, database.account_profiles, mail, new_id);
    }
    records::mark_mail(session_, records::filed_by_user, mail);
    session_.desktop.pointer(forms::Pointer::standard);
}

Item QuickView::make_record(const Text& chosen, const Text& key, const Folder& profiles,
                            const SafeMailItem& mail) {
    const Steps steps(session_);
    const NewRecord* const row = find_record(chosen);
    if (!row) return {};
    Folder folder;
    if (row->default_folder != 0) {
        steps.set(folder, [&] { return name_space().GetDefaultFolder(row->default_folder); });
    } else if (row->folder.empty()) {
        folder = records::choose_folder(session_, profiles, records::NoteFolder::mail_folder);
    } else {
        steps.set(folder, [&] { return profiles.Folders().Item(row->folder); });
    }
    Item record;
    steps.set(record, [&] { return folder.Items().Add(row->message_class); });
    if (!row->key.empty()) records::write_property(session_, record, row->key, [&] { return Value(key); });
    if (row->message_class == records::message_class::note) {
        records::write_property(session_, record, property::type,
                                [&] { return Value(records::note_type::received); });
    }
    if (row->message_class == records::message_class::inquiry) {
        records::write_property(session_, record, property::business_phone,
                                [&] { return Value(shown(u"Phone")); });
        records::write_property(session_, record, property::business_fax,
                                [&] { return Value(shown(u"Fax")); });
    }
    switch (row->subject) {
        case SubjectOf::mail:
            steps.run([&] { record.Subject(mail.Subject()); });
            break;
        case SubjectOf::body:
            steps.run([&] { record.Subject(mail.Body().substr(0, subject_length)); });
            break;
        case SubjectOf::people:
            steps.run([&] {
                record.Subject(shown(u"Contactname") + u", " + shown(u"CompanyName") + u" " +
                               shown(u"Phone") + u" " + mail.Subject());
            });
            break;
        case SubjectOf::none:
            break;
    }
    if (row->with_mail) {
        records::write_body(session_, record, before_mail, mail);
        records::attach(session_, record, mail);
    }
    return record;
}

void QuickView::file_mail(Path path, const Folder& profiles, const SafeMailItem& mail,
                          records::Source of_record) {
    const records::PathRow& row = records::path_row(path);
    records::file_note(session_, row,
                       {.folder = records::choose_folder(session_, profiles, row.folder),
                        .mail = {.safe = mail},
                        .sources = {{records::From::quick_view,
                                     [this](records::Name name) { return Value(shown_value(name)); }},
                                    std::move(of_record)}});
}

}  // namespace addin::quickview
