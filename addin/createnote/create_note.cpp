// The note of a row that holds an address.
#include <functional>

#include "addin/createnote/new_contact.h"
#include "addin/createnote/record_names.h"
#include "addin/ground/product.h"
#include "addin/records/database.h"
#include "addin/records/filters.h"
#include "addin/records/names.h"

namespace addin::createnote {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;
namespace property = records::property;
namespace tag = host::family::tag;
namespace object_class = host::outlook::object_class;

namespace {

constexpr TextView creating = u"Please Wait - creating Note for ", done = u"Done - creating Note for ";
constexpr TextView invitation = u"Highlight an entry in the list below.  Then press Create.";
constexpr TextView no_recipient = u"Note not created. You must enter an email address in the To field.";
constexpr TextView not_found_start = u"Tarnwell Account/Contact ",
                   not_found_end = u" NOT FOUND! Please use the search feature. ";
constexpr TextView equality = u"Create";  // the mode of the filter
constexpr TextView full_name_term = u"[Fullname] = ", apostrophe = u"'", quotation_mark = u"\"";

/// The way to the record of an address.
class RecordSearch {
  public:
    RecordSearch(dlgSend& dialog, const records::MailToFile& mail, const Folder& profiles)
        : steps_(dialog.session()), dialog_(dialog), mail_(mail), profiles_(profiles) {}

    Item contact();
    Item account();

    /// The name that a contact which isn't there would get.
    const Text& name() const { return name_; }

  private:
    Item by_entry_id();  ///< in the row's third column; it is tried, though nothing puts one there
    /// Without a filter nothing is looked for.
    Item found(const Folder& folder, const std::function<Text()>& filter);
    Item found_by_row(const Folder& folder) {
        return found(folder, [this] { return note_filter(dialog_.row_text()); });
    }
    Text note_filter(Text value);
    Text filter_of_person();
    Text term_of_name(const Text& name) {
        return Text(records::or_between_terms) + Text(full_name_term) + Text(apostrophe) + name +
               Text(apostrophe);
    }

    Steps steps_;
    dlgSend& dialog_;
    const records::MailToFile& mail_;
    const Folder& profiles_;
    Text name_;
};

Text third_column(dlgSend& dialog) { return dialog.list().text(dialog.list().selected(), column::third); }

Text RecordSearch::note_filter(Text value) {
    records::NoteFilterBoxes boxes{.Option1 = !dialog_.contact_level()};
    const Text filter = records::NoteFilter(value, equality, boxes);
    dialog_.control(u"Text1").text(boxes.Text1);
    dialog_.control(u"Text2").text(boxes.Text2);
    return filter;
}

Item RecordSearch::found(const Folder& folder, const std::function<Text()>& filter) {
    Item item;
    steps_.set(item, [&] { return folder.Items().Find(filter()); });
    return item;
}

Item RecordSearch::by_entry_id() {
    Item item;
    steps_.set(item, [&] {
        return host::outlook::Application(dialog_.session().desktop.application())
            .GetNamespace(u"MAPI")
            .GetItemFromID(third_column(dialog_), profiles_.StoreID());
    });
    return item;
}

Text RecordSearch::filter_of_person() {
    Text filter;
    if (steps_.possibly([&] {
            return automation::trimmed(mail_.safe.sender().Fields(tag::smtp_address)) == dialog_.row_text();
        })) {
        steps_.set(filter, [&] { return note_filter(automation::trimmed(mail_.safe.sender().Address())); });
        if (!filter.empty()) filter += records::or_between_terms;
        steps_.run([&] { filter += note_filter(dialog_.row_text()); });
        if (steps_.possibly([&] { return !mail_.safe.SenderName().empty(); })) {
            steps_.run([&] { filter += term_of_name(mail_.safe.SenderName()); });
        }
        filter = automation::replaced(filter, apostrophe, quotation_mark);
        steps_.set(name_, [&] { return mail_.safe.SenderName(); });
        return filter;
    }
    std::int32_t people = 0;
    steps_.set(people, [&] { return mail_.safe.Recipients().Count(); });
    host::family::SafeAddressEntry entry;  // one that can't be read leaves that of the person before
    for (std::int32_t i = 1; i <= people; ++i) {
        const auto person = [&] { return mail_.safe.Recipients().Item(i); };
        steps_.set(entry, [&] { return person().AddressEntry(); });
        if (steps_.certainly(
                [&] { return automation::trimmed(entry.Fields(tag::smtp_address)) != dialog_.row_text(); })) {
            continue;
        }
        steps_.set(filter, [&] {
            return note_filter(person().Address()) + Text(records::or_between_terms) +
                   note_filter(dialog_.row_text()) + term_of_name(person().name());
        });
        filter = automation::replaced(filter, apostrophe, quotation_mark);
        steps_.set(name_, [&] { return person().name(); });
        break;
    }
    return filter;
}

Item RecordSearch::contact() {
    Folder contacts;
    steps_.set(contacts, [&] { return profiles_.Folders().Item(records::folder::account_contacts); });
    if (steps_.possibly([&] { return !third_column(dialog_).empty(); })) {
        if (Item item = by_entry_id()) return item;
        return found_by_row(contacts);
    }
    steps_.set(name_, [&] { return dialog_.row_text(); });
    const Text filter = filter_of_person();
    if (filter.empty()) return found_by_row(contacts);
    if (Item item = found(contacts, [&] { return filter; })) return item;
    Text by_name;
    for (const TextView field :
         {records::field::full_name, records::field::files_as, records::property::email_search_string}) {
        if (!by_name.empty()) by_name += records::or_between_terms;
        by_name += records::RangeTerm(name_, field);
    }
    return found(contacts, [&] { return by_name; });
}

Item RecordSearch::account() {
    if (steps_.possibly([&] { return !third_column(dialog_).empty(); })) {
        if (Item item = by_entry_id()) return item;
    }
    return found_by_row(profiles_);
}

/// What a note takes from the dialog.
struct DialogTexts {
    Text type, subject;
};

DialogTexts read_texts(dlgSend& dialog) {
    const Steps steps(dialog.session());
    DialogTexts texts;
    steps.set(texts.type, [&] { return dialog.control(u"Combo1").text(); });
    steps.set(texts.subject, [&] { return dialog.control(u"txtNote").text(); });
    return texts;
}

/// The texts for the note's type and subject.
std::optional<Value> text_for(records::Name name, const DialogTexts& texts) {
    return name == property::type ? texts.type : texts.subject;
}

}  // namespace

void dlgSend::CreateNote() {
    host::Desktop& desktop = session_.desktop;
    const Steps steps(session_);
    // the row may go at any time: the user clears the list while this gives way
    steps.run([&] { header(Text(creating) + row_text()); });
    const Presence here(session_, *this);
    if (!here.give_way()) return;
    records::MailToFile mail = choose_mail();
    steps.run([&] { mail.safe.Item(mail.item); });
    if (steps.possibly([&] { return mail.safe.To().empty(); })) {
        desktop.message_box(no_recipient, product_title, host::box::information);
        return;
    }
    if (steps.possibly([&] { return mail.item.EntryID().empty(); })) {
        steps.run([&] { mail.item.Save(); });
        steps.run([&] { mail.safe.Item(mail.item); });
    }
    const records::Database database = records::open_database(session_);
    const Folder& profiles = database.account_profiles;
    const bool at_contact = steps.possibly([&] { return contact_level(); });
    const records::PathRow& path = records::path_row(at_contact ? records::Path::create_contact_level
                                                                : records::Path::create_account_level);
    const Folder folder = records::choose_folder(session_, profiles, path.folder);
    RecordSearch search(*this, mail, profiles);
    const Item record = at_contact ? search.contact() : search.account();
    if (!record) {
        create_for_new_contact(here, mail, database.main_add_in, profiles, folder, search.name());
        return;
    }
    if (steps.possibly(
            [&] { return record.Class() != (at_contact ? object_class::contact : object_class::post); })) {
        steps.run([&] {
            desktop.message_box(Text(not_found_start) + row_text() + Text(not_found_end), product_title,
                                host::box::information);
        });
        return;
    }
    std::optional<DialogTexts> texts;
    const auto of_dialog = [&](records::Name name) {
        if (!texts) texts = read_texts(*this);
        return text_for(name, *texts);
    };
    const auto of_account = [&](records::Name name) -> std::optional<Value> {
        if (name == property::account_name) return record.Subject();
        return records::copied(record, name);
    };
    records::file_note(session_, path,
                       {.folder = folder,
                        .mail = mail,
                        .sources = {records::of_contact(record),
                                    {records::From::account, of_account},
                                    {records::From::dialog, of_dialog}}});
    report_creation(here);
}

void dlgSend::report_creation(const Presence& here) {
    const Steps steps(session_);
    steps.run([&] {
        session_.desktop.message_box(Text(done) + row_text(), product_title, host::box::information);
    });
    if (here.lasts()) header(Text(invitation));
    gbCreated = true;
}

void dlgSend::create_for_new_contact(const Presence& here, const records::MailToFile& mail,
                                     const host::family::MainAddIn& main_add_in, const Folder& profiles,
                                     const Folder& folder, const Text& name) {
    const Steps steps(session_);
    // the dialog goes away before the contact is made: what it holds is kept
    const DialogTexts texts = read_texts(*this);
    Text address;
    steps.set(address, [&] { return row_text(); });
    const std::optional<NewContact> made =
        offer_new_contact(session_, {.row = new_contact_row(records::Path::create_new_contact),
                                     .address = address,
                                     .name = name,
                                     .main_add_in = main_add_in,
                                     .account_profiles = profiles,
                                     .before_choice = [&] {
                                         if (here.lasts()) unload();
                                     }});
    if (!made) return;
    const records::PathRow& path = records::path_row(records::Path::create_new_contact);
    records::file_note(
        session_, path,
        {.folder = records::choose_folder(session_, profiles, path.folder, folder),
         .mail = mail,
         .sources = {records::of_contact(made->item),
                     {records::From::chosen_account, [&](records::Name) { return Value(made->account_id); }},
                     {records::From::new_id, [&](records::Name) { return Value(made->contact_id); }},
                     {records::From::dialog, [&](records::Name asked) { return text_for(asked, texts); }}}});
}

void dlgSend::CreateNoteEx() {
    const Steps steps(session_);
    steps.run([&] { header(Text(creating) + row_text()); });
    const Presence here(session_, *this);
    if (!here.give_way()) return;
    records::MailToFile mail = choose_mail();
    steps.run([&] { mail.safe.Item(mail.item); });
    if (steps.possibly([&] { return mail.item.EntryID().empty(); })) {
        steps.run([&] { mail.item.Save(); });
        steps.run([&] { mail.safe.Item(mail.item); });
    }
    const Folder profiles = records::open_database(session_).account_profiles;
    const records::PathRow& path = records::path_row(records::Path::create_from_record);
    const Folder folder = records::choose_folder(session_, profiles, path.folder);
    if (steps.certainly([&] { return !control(u"Combo2").text().empty(); })) {
        create_from_record(path, folder, profiles, mail);
    }
    report_creation(here);
}

void dlgSend::create_from_record(const records::PathRow& path, const Folder& folder, const Folder& profiles,
                                 const records::MailToFile& mail) {
    const Steps steps(session_);
    Item record;
    steps.set(record, [&] {
        return host::outlook::Application(session_.desktop.application())
            .GetNamespace(u"MAPI")
            .GetItemFromID(list().text(list().selected(), column::entry_id), profiles.StoreID());
    });
    Text key_column;
    steps.set(key_column, [&] { return list().heading(column::key); });
    RecordNames names(session_, record);
    const auto of_record = [&](records::Name name) { return records::copied(record, name); };
    const auto of_dialog = [&](records::Name name) {
        return Value(
            control(name == property::type ? ControlName(u"Combo1") : ControlName(u"txtNote")).text());
    };
    records::file_note(
        session_, path,
        {.folder = folder,
         .mail = mail,
         .sources = {{records::From::record, of_record},
                     {records::From::record_name, [&](records::Name name) { return names.read(name); }},
                     {records::From::dialog, of_dialog}},
         .further_key = records::Key{key_column, records::From::record}});
}

}  // namespace addin::createnote
