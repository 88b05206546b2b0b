#include "addin/records/stamp.h"

#include <algorithm>

#include "addin/ground/keyed.h"
#include "addin/ground/settings.h"

namespace addin::records {

using automation::Text;
using automation::TextView;

namespace {

constexpr std::int32_t attachment_position = 1;

constexpr TextView two_line_breaks = u"\r\n\r\n";
constexpr TextView carriage_return = u"\r";

constexpr TextView flag_received = u"TW-Received eMail Auto Filed";
constexpr TextView flag_sent = u"TW-Sent Email Auto Filed";
constexpr TextView flag_user = u"TW User Filed";

constexpr Key from_contact[] = {{property::account_id, From::contact},
                                {property::contact_id, From::contact},
                                {property::account_manager, From::contact},
                                {property::team, From::contact},
                                {property::alignment, From::contact}};
constexpr Key from_chosen_account[] = {{property::account_id, From::chosen_account},
                                       {property::contact_id, From::new_id},
                                       {property::account_manager, From::chosen_account},
                                       {property::team, From::chosen_account},
                                       {property::alignment, From::chosen_account}};
constexpr Key from_account[] = {{property::account_id, From::account},
                                {property::account_manager, From::account},
                                {property::team, From::account},
                                {property::alignment, From::account}};
constexpr Key from_record[] = {
    {property::account_id, From::record},      {property::contact_id, From::record},
    {property::opportunity_id, From::record},  {property::inquiry_id, From::record},
    {property::account_manager, From::record}, {property::team, From::record},
    {property::alignment, From::record},       {property::note_id, From::record},
    {property::appointment_id, From::record},  {property::task_id, From::record}};
constexpr Key from_quick_view[] = {{property::account_id, From::quick_view},
                                   {property::contact_id, From::quick_view},
                                   {property::account_manager, From::quick_view},
                                   {property::team, From::quick_view},
                                   {property::alignment, From::quick_view}};
constexpr Key for_new_opportunity[] = {
    {property::account_id, From::quick_view}, {property::contact_id, From::quick_view},
    {property::opportunity_id, From::new_id}, {property::account_manager, From::quick_view},
    {property::team, From::quick_view},       {property::alignment, From::quick_view}};
constexpr Key for_new_inquiry[] = {{property::account_id, From::quick_view},
                                   {property::contact_id, From::quick_view},
                                   {property::inquiry_id, From::new_id},
                                   {property::account_manager, From::quick_view},
                                   {property::team, From::quick_view}};  // the alignment stays unset here
constexpr Key dropped_on_opportunity[] = {
    {property::account_id, From::quick_view}, {property::contact_id, From::quick_view},
    {property::opportunity_id, From::target}, {property::account_manager, From::target},
    {property::team, From::target},           {property::alignment, From::target}};
constexpr Key dropped_on_inquiry[] = {
    {property::account_id, From::quick_view}, {property::contact_id, From::quick_view},
    {property::inquiry_id, From::target},     {property::account_manager, From::target},
    {property::team, From::target},           {property::alignment, From::target}};

// clang-format off
constexpr PathRow path_rows[] = {
    // path                          place                      class                   keys                    account name          contact name      type            subject       body starts with  date   ends                      marks                           flag           billing
    {Path::automatic_received,       Place::mail_folder,        message_class::note,    from_contact,           From::contact,        From::contact,    From::received, From::mail,   two_line_breaks, true,  Ends::post,               Marks::the_mail,                flag_received, true},
    {Path::automatic_sent,           Place::mail_folder,        message_class::note,    from_contact,           From::contact,        From::contact,    From::sent,     From::mail,   two_line_breaks, true,  Ends::post,               Marks::the_mail,                flag_sent,     false},
    {Path::quick_view_new_contact,   Place::mail_folder,        message_class::note,    from_chosen_account,    From::chosen_account, From::sender,     From::received, From::mail,   two_line_breaks, false, Ends::post,               Marks::nothing,                 u"",           false},
    {Path::open_contact_new_contact, Place::mail_folder,        message_class::note,    from_chosen_account,    From::chosen_account, From::sender,     From::received, From::mail,   two_line_breaks, false, Ends::post,               Marks::nothing,                 u"",           false},
    {Path::create_contact_level,     Place::mail_folder_twice,  message_class::note,    from_contact,           From::contact,        From::contact,    From::dialog,   From::dialog, two_line_breaks, true,  Ends::post,               Marks::inspector_and_selection, flag_user,     true},
    {Path::create_account_level,     Place::mail_folder_twice,  message_class::note,    from_account,           From::account_name,   From::none,       From::dialog,   From::dialog, two_line_breaks, false, Ends::post,               Marks::inspector_and_selection, flag_user,     true},
    {Path::create_new_contact,       Place::mail_folder_twice,  message_class::note,    from_contact,           From::contact,        From::contact,    From::dialog,   From::dialog, two_line_breaks, false, Ends::post,               Marks::nothing,                 u"",           false},
    {Path::create_from_record,       Place::mail_folder,        message_class::note,    from_record,            From::record,         From::record,     From::dialog,   From::dialog, two_line_breaks, true,  Ends::post,               Marks::inspector_and_selection, flag_user,     true},
    {Path::quick_view_note,          Place::mail_folder,        message_class::note,    from_quick_view,        From::quick_view,     From::quick_view, From::received, From::mail,   carriage_return, false, Ends::display,            Marks::the_wrapper,             flag_user,     true},
    {Path::quick_view_opportunity,   Place::notes_unless_named, message_class::note,    for_new_opportunity,    From::quick_view,     From::quick_view, From::received, From::mail,   two_line_breaks, false, Ends::display_then_post,  Marks::the_wrapper,             flag_user,     true},
    {Path::quick_view_inquiry,       Place::actions,            message_class::action,  for_new_inquiry,        From::quick_view,     From::quick_view, From::received, From::mail,   two_line_breaks, false, Ends::post,               Marks::the_wrapper,             flag_user,     true},
    {Path::drop_on_opportunity,      Place::notes_unless_named, message_class::note,    dropped_on_opportunity, From::quick_view,     From::quick_view, From::received, From::mail,   two_line_breaks, false, Ends::post,               Marks::the_wrapper,             flag_user,     true},
    {Path::drop_on_inquiry,          Place::actions,            message_class::action,  dropped_on_inquiry,     From::quick_view,     From::quick_view, From::received, From::mail,   two_line_breaks, false, Ends::post,               Marks::the_wrapper,             flag_user,     true},
};
// clang-format on
static_assert(is_in_order(path_rows, &PathRow::path, Path::drop_on_inquiry));

constexpr bool keys_stand_once() {
    return std::ranges::all_of(path_rows,
                               [](const PathRow& row) { return is_keyed(row.keys, &Key::property); });
}
static_assert(keys_stand_once());

/// The folder's name by the option, or the default.
Text named_folder(const Session& session, TextView otherwise) {
    const Text named = Settings(session).option(setting::saved_email_folder);
    return named.empty() ? Text(otherwise) : named;
}

template <class Mail>
void mark(const Session& session, const PathRow& row, const Mail& mail) {
    const Steps steps(session);
    steps.run([&] { mail.FlagStatus(host::outlook::flag_complete); });
    steps.run([&] { mail.FlagRequest(row.flag_request); });
    if (row.billing_information) steps.run([&] { mail.BillingInformation(auto_filed); });
    steps.run([&] { mail.Save(); });
}

}  // namespace

std::span<const PathRow> paths() { return path_rows; }

const PathRow& row(Path path) { return path_rows[static_cast<std::size_t>(path)]; }

host::outlook::Folder choose_folder(const Session& session, const host::outlook::Folder& account_profiles,
                                    Place place, const host::outlook::Folder& before) {
    const Steps steps(session);
    host::outlook::Folder chosen = before;
    const auto take = [&](TextView name) {
        steps.set(chosen, [&] { return account_profiles.Folders().Item(name); });
    };
    switch (place) {
        case Place::mail_folder:
        case Place::mail_folder_twice: {
            const Text name = named_folder(session, folder::email);
            take(name);
            if (!chosen) take(folder::notes);
            if (place == Place::mail_folder_twice) take(name);
            break;
        }
        case Place::notes_unless_named:
            take(named_folder(session, folder::notes));
            break;
        case Place::actions:
            steps.set(chosen, [&] {
                return account_profiles.Folders()
                    .Item(folder::customer_service)
                    .Folders()
                    .Item(folder::actions);
            });
            break;
    }
    return chosen;
}

KeySource copied_from(const host::outlook::Item& record) {
    return [&record](const Key& key) { return record.UserProperties().Item(key.property).value(); };
}

host::outlook::Item make_note(const Session& session, const PathRow& row, const host::outlook::Folder& folder,
                              const host::outlook::Item& before) {
    const Steps steps(session);
    host::outlook::Item note = before;
    steps.set(note, [&] { return folder.Items().Add(row.message_class); });
    return note;
}

void write_keys(const Session& session, const PathRow& row, const host::outlook::Item& note,
                const KeySource& source) {
    for (const Key& key : row.keys) write_property(session, note, key.property, [&] { return source(key); });
}

void write_property(const Session& session, const host::outlook::Item& note, Name name,
                    const std::function<automation::Value()>& value, const SourcePlace& place) {
    const Steps steps(session);
    steps.run([&] { note.UserProperties().Item(name).value(value()); }, place);
}

void write_activity_date(const Session& session, const host::outlook::Item& note,
                         const host::family::SafeMailItem& mail) {
    write_property(session, note, property::activity_date, [&] { return mail.SentOn(); });
}

void write_body(const Session& session, const PathRow& row, const host::outlook::Item& note,
                const host::family::SafeMailItem& mail) {
    const Steps steps(session);
    steps.run([&] { note.Body(Text(row.body_start) + mail.Body()); });
}

void attach(const Session& session, const host::outlook::Item& note, const host::family::SafeMailItem& mail) {
    const Steps steps(session);
    steps.run([&] { note.Attachments().Add(mail, attachment_position); });
}

void attach_and_post(const Session& session, const host::outlook::Item& note,
                     const host::family::SafeMailItem& mail) {
    const Steps steps(session);
    attach(session, note, mail);
    steps.run([&] { note.Post(); });
}

host::outlook::Item post_note(const Session& session, const PathRow& row, const host::outlook::Folder& folder,
                              const host::outlook::Item& contact, const host::family::SafeMailItem& mail,
                              const host::outlook::Item& before) {
    const Steps steps(session);
    host::outlook::Item note = make_note(session, row, folder, before);
    write_keys(session, row, note, copied_from(contact));
    write_property(session, note, property::account_name, [&] { return contact.CompanyName(); });
    write_property(session, note, property::contact_name, [&] { return contact.FullName(); });
    write_property(session, note, property::type, [&] {
        return automation::Value(row.type == From::sent ? note_type::sent : note_type::received);
    });
    steps.run([&] { note.Subject(mail.Subject()); });
    write_body(session, row, note, mail);
    if (row.activity_date) write_activity_date(session, note, mail);
    attach_and_post(session, note, mail);
    return note;
}

void mark_chosen_mail(const Session& session, const PathRow& row, const host::outlook::Inspector& inspector,
                      const host::outlook::Selection& selection) {
    const Steps steps(session);
    if (steps.certainly([&] { return !inspector.CurrentItem().Sent(); })) return;
    host::outlook::Item in_inspector, selected;
    steps.set(in_inspector, [&] { return inspector.CurrentItem(); });
    mark_mail(session, row, in_inspector);
    steps.set(selected, [&] { return selection.Item(1); });
    mark_mail(session, row, selected);
}

void mark_mail(const Session& session, const PathRow& row, const host::outlook::Item& mail) {
    mark(session, row, mail);
}

void mark_mail(const Session& session, const PathRow& row, const host::family::SafeMailItem& mail) {
    mark(session, row, mail);
}

}  // namespace addin::records
