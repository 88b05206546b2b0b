#include "addin/records/stamp.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "addin/ground/keyed.h"
#include "addin/ground/settings.h"

namespace addin::records {

using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

constexpr std::int32_t attachment_position = 1;

constexpr TextView two_line_breaks = u"\r\n\r\n";

constexpr Mark filed_received{u"TW-Received eMail Auto Filed", true};
constexpr Mark filed_sent{u"TW-Sent Email Auto Filed", false};
constexpr Mark no_mark{};

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
constexpr Key from_made_contact[] = {{property::account_id, From::chosen_account},
                                     {property::contact_id, From::new_id},
                                     {property::account_manager, From::contact},
                                     {property::team, From::contact},
                                     {property::alignment, From::contact}};
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
    // path                          folder                          class                   keys                    account name          contact name      opportunity   type            subject       date              ends                     marks                           mark
    {Path::automatic_received,       NoteFolder::mail_folder,        message_class::note,    from_contact,           From::contact,        From::contact,    From::none,   From::received, From::mail,   Date::after_body, Ends::post,              Marks::the_mail,                filed_received},
    {Path::automatic_sent,           NoteFolder::mail_folder,        message_class::note,    from_contact,           From::contact,        From::contact,    From::none,   From::sent,     From::mail,   Date::after_body, Ends::post,              Marks::the_mail,                filed_sent},
    {Path::quick_view_new_contact,   NoteFolder::mail_folder,        message_class::note,    from_chosen_account,    From::chosen_account, From::sender,     From::none,   From::received, From::mail,   Date::never,      Ends::post,              Marks::nothing,                 no_mark},
    {Path::open_contact_new_contact, NoteFolder::mail_folder,        message_class::note,    from_chosen_account,    From::chosen_account, From::sender,     From::none,   From::received, From::mail,   Date::never,      Ends::post,              Marks::nothing,                 no_mark},
    {Path::create_contact_level,     NoteFolder::mail_folder_twice,  message_class::note,    from_contact,           From::contact,        From::contact,    From::none,   From::dialog,   From::dialog, Date::after_body, Ends::post,              Marks::inspector_and_selection, filed_by_user},
    {Path::create_account_level,     NoteFolder::mail_folder_twice,  message_class::note,    from_account,           From::account,        From::none,       From::none,   From::dialog,   From::dialog, Date::never,      Ends::post,              Marks::inspector_and_selection, filed_by_user},
    {Path::create_new_contact,       NoteFolder::chosen_before,      message_class::note,    from_made_contact,      From::contact,        From::contact,    From::none,   From::dialog,   From::dialog, Date::never,      Ends::post,              Marks::nothing,                 no_mark},
    {Path::create_from_record,       NoteFolder::mail_folder,        message_class::note,    from_record,            From::record_name,    From::record_name, From::record_name, From::dialog,   From::dialog, Date::after_keys, Ends::post,              Marks::inspector_and_selection, filed_by_user},
    {Path::quick_view_opportunity,   NoteFolder::notes_unless_named, message_class::note,    for_new_opportunity,    From::quick_view,     From::quick_view, From::none,   From::received, From::mail,   Date::never,      Ends::display_then_post, Marks::nothing,                 no_mark},
    {Path::quick_view_inquiry,       NoteFolder::actions,            message_class::action,  for_new_inquiry,        From::quick_view,     From::quick_view, From::none,   From::received, From::mail,   Date::never,      Ends::post,              Marks::nothing,                 no_mark},
    {Path::drop_on_opportunity,      NoteFolder::notes_unless_named, message_class::note,    dropped_on_opportunity, From::quick_view,     From::quick_view, From::none,   From::received, From::mail,   Date::never,      Ends::post,              Marks::nothing,                 no_mark},
    {Path::drop_on_inquiry,          NoteFolder::actions,            message_class::action,  dropped_on_inquiry,     From::quick_view,     From::quick_view, From::none,   From::received, From::mail,   Date::never,      Ends::post,              Marks::nothing,                 no_mark},
};
// clang-format on
static_assert(is_in_order(path_rows, &PathRow::path, Path::drop_on_inquiry));
static_assert(std::ranges::all_of(path_rows, [](const PathRow& row) {
    return row.marks == Marks::nothing ? row.mark.flag_request.empty() && !row.mark.billing_information
                                       : !row.mark.flag_request.empty();
}));

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

template <class Item>
void write_mark(const Session& session, const Mark& mark, const Item& mail) {
    const Steps steps(session);
    steps.run([&] { mail.FlagStatus(host::outlook::flag_complete); });
    steps.run([&] { mail.FlagRequest(mark.flag_request); });
    if (mark.billing_information) steps.run([&] { mail.BillingInformation(auto_filed); });
    steps.run([&] { mail.Save(); });
}

/// The mail in the inspector and the one in the selection: one of them is Nothing. A mail that is being
/// written isn't marked.
void mark_chosen(const Session& session, const Mark& mark, const MailToFile& mail) {
    const Steps steps(session);
    if (steps.certainly([&] { return !mail.inspector.CurrentItem().Sent(); })) return;
    host::outlook::Item in_inspector, selected;
    steps.set(in_inspector, [&] { return mail.inspector.CurrentItem(); });
    mark_mail(session, mark, in_inspector);
    steps.set(selected, [&] { return mail.selection.Item(1); });
    mark_mail(session, mark, selected);
}

/// Fills one note.
class NoteWriter {
  public:
    NoteWriter(const Session& session, const PathRow& row, const Filing& filing, host::outlook::Item note)
        : row_(row), filing_(filing), note_(std::move(note)), session_(session), steps_(session) {}

    void fill() const {
        for (const Key& key : row_.keys) write(key);
        if (row_.activity_date == Date::after_keys) write_date();
        if (filing_.further_key) write(*filing_.further_key);
        write({property::account_name, row_.account_name});
        write({property::contact_name, row_.contact_name});
        write({property::opportunity_name, row_.opportunity_name});
        write({property::type, row_.type});
        steps_.run([&] {
            if (const std::optional<Value> subject = value({field::subject, row_.subject}))
                note_.Subject(subject->to_text());
        });
        write_body(session_, note_, two_line_breaks, filing_.mail.safe);
        if (row_.activity_date == Date::after_body) write_date();
        attach(session_, note_, filing_.mail.safe);
    }

  private:
    void write(const Key& key) const {
        if (key.from == From::none) return;
        steps_.run([&] {
            const auto target = note_.UserProperties().Item(key.property);
            if (const std::optional<Value> found = value(key)) target.value(*found);
        });
    }

    void write_date() const {
        write_property(session_, note_, property::activity_date, [&] { return filing_.mail.safe.SentOn(); });
    }

    std::optional<Value> value(const Key& key) const {
        switch (key.from) {
            case From::none:
                return std::nullopt;
            case From::mail:
                return filing_.mail.safe.Subject();
            case From::sender:
                return filing_.mail.safe.SenderName();
            case From::received:
                return Value(note_type::received);
            case From::sent:
                return Value(note_type::sent);
            default:
                break;
        }
        const auto source = std::ranges::find(filing_.sources, key.from, &Source::from);
        if (source == filing_.sources.end()) {
            throw std::logic_error("the path has no source of " + automation::to_utf8(key.property));
        }
        return source->read(key.property);
    }

    const PathRow& row_;
    const Filing& filing_;
    host::outlook::Item note_;
    const Session& session_;
    Steps steps_;
};

}  // namespace

const PathRow& path_row(Path path) { return path_rows[static_cast<std::size_t>(path)]; }

host::outlook::Folder choose_folder(const Session& session, const host::outlook::Folder& account_profiles,
                                    NoteFolder which, const host::outlook::Folder& before) {
    const Steps steps(session);
    host::outlook::Folder chosen = before;
    const auto take = [&](TextView name) {
        steps.set(chosen, [&] { return account_profiles.Folders().Item(name); });
    };
    switch (which) {
        case NoteFolder::mail_folder:
        case NoteFolder::mail_folder_twice: {
            const Text name = named_folder(session, folder::email);
            take(name);
            if (!chosen) take(folder::notes);
            if (which == NoteFolder::mail_folder_twice) take(name);
            break;
        }
        case NoteFolder::chosen_before:
            break;
        case NoteFolder::notes_unless_named:
            take(named_folder(session, folder::notes));
            break;
        case NoteFolder::actions:
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

void write_property(const Session& session, const host::outlook::Item& note, Name name,
                    const std::function<automation::Value()>& value, const SourcePlace& place) {
    const Steps steps(session);
    steps.run([&] { note.UserProperties().Item(name).value(value()); }, place);
}

void write_body(const Session& session, const host::outlook::Item& note, TextView start,
                const host::family::SafeMailItem& mail) {
    const Steps steps(session);
    steps.run([&] { note.Body(Text(start) + mail.Body()); });
}

void attach(const Session& session, const host::outlook::Item& note, const host::family::SafeMailItem& mail) {
    const Steps steps(session);
    steps.run([&] { note.Attachments().Add(mail, attachment_position); });
}

Value copied(const host::outlook::Item& record, Name property) {
    return record.UserProperties().Item(property).value();
}

Source of_contact(const host::outlook::Item& contact) {
    return {From::contact, [contact](Name name) -> std::optional<Value> {
                if (name == property::account_name) return contact.CompanyName();
                if (name == property::contact_name) return contact.FullName();
                return copied(contact, name);
            }};
}

host::outlook::Item file_note(const Session& session, const PathRow& row, const Filing& filing) {
    const Steps steps(session);
    host::outlook::Item note = filing.before;
    steps.set(note, [&] { return filing.folder.Items().Add(row.message_class); });
    NoteWriter(session, row, filing, note).fill();
    if (row.ends == Ends::display_then_post) steps.run([&] { note.Display(); });
    steps.run([&] { note.Post(); });
    if (row.marks == Marks::the_mail) mark_mail(session, row.mark, filing.mail.item);
    if (row.marks == Marks::inspector_and_selection) mark_chosen(session, row.mark, filing.mail);
    return note;
}

void mark_mail(const Session& session, const Mark& mark, const host::outlook::Item& mail) {
    write_mark(session, mark, mail);
}

void mark_mail(const Session& session, const Mark& mark, const host::family::SafeMailItem& mail) {
    write_mark(session, mark, mail);
}

}  // namespace addin::records
