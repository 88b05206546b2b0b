#include "addin/createnote/dlg_send.h"

#include <algorithm>

#include "addin/createnote/split.h"
#include "addin/filing/address_resolution.h"
#include "addin/ground/product_version.h"
#include "addin/records/database.h"
#include "addin/records/names.h"
#include "forms/sort_marks.h"

namespace addin::createnote {

using automation::Text;
using automation::TextView;
namespace tag = host::family::tag;

namespace {

constexpr TextView no_row_chosen =
    u"You must select a valid Account/Contact name. Please use the search feature.";
constexpr TextView note_types = u"Note Type";
constexpr TextView version_start = u"Product Version: ";
constexpr char16_t enter_key = 13;

/// Headings of columns after the load.
constexpr TextView headings[] = {u"Contact Name", u"Company Name", u"Business Phone",
                                 u"Address",      u"City",         u"State"};
/// The headings of the first two columns at account level.
constexpr TextView account_headings[] = {u"Company Name", u"Company City"};

void set_headings(forms::List& list, std::span<const TextView> texts) {
    int place = 0;
    for (const TextView text : texts) list.heading(place++, text);
}

}  // namespace

void dlgSend::on_load() {
    try {
        load();
    } catch (const automation::Failure&) {
        return;  // the load ends where it failed; the window comes up all the same
    }
}

void dlgSend::load() {
    gbSend = false;
    Text version(version_start);
    for (const int number : product_version) {
        if (version.size() > version_start.size()) version += u'.';
        version += automation::to_text(static_cast<long long>(number));
    }
    control(u"Label3").text(version);
    set_headings(list(), headings);
    list().width(column::key, 0);
    LoadFindDefinitions();
    PopulateList();
}

void dlgSend::on_activate() { view().topmost(); }

void dlgSend::on_focus() { control(u"SearchString").focus(); }

records::MailToFile dlgSend::choose_mail() {
    const Steps steps(session_);
    records::MailToFile mail;
    const auto application = [&] { return host::outlook::Application(session_.desktop.application()); };
    steps.set(mail.safe, [&] { return records::make_safe_mail(session_.desktop); });
    if (!state_.gNoteFromExplorer) {
        steps.set(mail.inspector, [&] { return application().ActiveInspector(); });
        steps.set(mail.item, [&] { return mail.inspector.CurrentItem(); });
    } else {
        steps.set(mail.selection, [&] { return application().ActiveExplorer().Selection(); });
        steps.set(mail.item, [&] { return mail.selection.Item(1); });
    }
    return mail;
}

void dlgSend::PopulateList() {
    const Steps steps(session_);
    records::MailToFile mail = choose_mail();
    Text type(records::note_type::received);
    // a mail that is still being written counts as sent
    if (steps.possibly([&] {
            const bool never_saved = mail.item.EntryID().empty();
            const bool changed = !mail.item.Saved();
            return never_saved || changed;
        })) {
        steps.run([&] { mail.item.Save(); });
        type = records::note_type::sent;
    }
    steps.run([&] { mail.safe.Item(mail.item); });

    automation::Array types;
    steps.set(types,
              [&] { return records::make_main_add_in(session_.desktop).GetDropDownsCache(note_types); });
    forms::Choice& type_box = choice(u"Combo1");
    type_box.clear();
    control(u"Combo1").text(type);
    const std::int32_t type_count = types.dimensions().front().count;
    for (std::int32_t i = 0; i < type_count; ++i) {
        steps.run([&] { type_box.add(types.at(i).to_text()); });
    }

    Text addresses;
    if (steps.possibly([&] {
            return automation::upper(mail.safe.Fields(tag::sender_address_type)) == filing::type_smtp;
        })) {
        steps.set(addresses, [&] { return mail.safe.Fields(tag::sender_address); });
    } else {
        steps.set(addresses, [&] { return mail.safe.sender().Fields(tag::smtp_address); });
    }
    std::int32_t people = 0;
    steps.set(people, [&] { return mail.safe.Recipients().Count(); });
    for (std::int32_t i = 1; i <= people; ++i) {
        const auto person = [&] { return mail.safe.Recipients().Item(i); };
        if (steps.possibly([&] { return person().AddressEntry().Type() != filing::type_smtp; })) {
            steps.run([&] { addresses += u";" + person().AddressEntry().Fields(tag::smtp_address); });
        } else {
            steps.run([&] { addresses += u";" + person().Address(); });
        }
    }
    for (const Text& address : split(addresses, u';')) {
        if (!address.empty()) steps.run([&] { list().add(automation::trimmed(address)); });
    }
    steps.run([&] { control(u"txtNote").text(mail.item.Subject()); });
    if (list().count() > 0) list().select(0);
    control(u"lstRecipients").focus();
}

void dlgSend::on_click(TextView name) {
    struct Row {
        ControlName control;
        void (dlgSend::*run)();
    };
    static constexpr Row rows[] = {
        {u"cmdSend", &dlgSend::cmdSend_Click},     {u"cmdCancel", &dlgSend::cmdCancel_Click},
        {u"cmdSearch", &dlgSend::cmdSearch_Click}, {u"Option1", &dlgSend::Option1_Click},
        {u"Option2", &dlgSend::Option2_Click},     {u"Combo2", &dlgSend::Combo2_Click}};
    const auto row = std::ranges::find_if(rows, [&](const Row& one) { return one.control == name; });
    if (row != std::end(rows)) (this->*row->run)();
}

void dlgSend::on_double_click(TextView name) {
    if (ControlName(u"lstRecipients") == name) lstRecipients_DblClick();
}

void dlgSend::on_key_press(TextView name, char16_t key) {
    constexpr ControlName search_text(u"SearchString");
    if (search_text != name || key != enter_key) return;
    if (!control(search_text).text().empty()) cmdSearch_Click();
}

void dlgSend::on_column_click(TextView, int column) {
    forms::sort_by_column(list(), column, state_.LastSortColumn);
}

void dlgSend::Option1_Click() {
    list().clear();
    set_headings(list(), account_headings);
}

void dlgSend::Option2_Click() {
    list().clear();
    set_headings(list(), std::span(headings).first<std::size(account_headings)>());
    PopulateList();
}

void dlgSend::Combo2_Click() {
    const Text chosen = control(u"Combo2").text();
    const Presence here(session_, *this);
    if (chosen == search_by_email) {
        list().clear();
        PopulateList();
    } else {
        GetListDef();
    }
    if (!here.lasts() || control(u"Combo2").text().empty()) return;
    control(u"SearchString").enabled(true);
    control(u"SearchString").text(u"");
}

bool dlgSend::is_row_empty() {
    const Steps steps(session_);
    return steps.possibly([&] { return list().count() == 0 || row_text().empty(); });
}

Text dlgSend::key_of_row() {
    const Steps steps(session_);
    Text key;
    steps.set(key, [&] { return list().text(list().selected(), column::key); });
    return key;
}

void dlgSend::cmdSend_Click() {
    if (is_row_empty() && key_of_row().empty()) {
        header(Text(no_row_chosen));
        return;
    }
    session_.desktop.pointer(forms::Pointer::hourglass);
    gbCreated = false;
    create();
}

void dlgSend::lstRecipients_DblClick() {
    session_.desktop.pointer(forms::Pointer::hourglass);
    gbCreated = false;
    if (is_row_empty()) {
        session_.desktop.pointer(forms::Pointer::standard);
        session_.desktop.beep();
        header(Text(no_row_chosen));
        return;
    }
    create();
}

void dlgSend::create() {
    const Presence here(session_, *this);
    if (!key_of_row().empty()) {
        CreateNoteEx();
    } else {
        CreateNote();
    }
    session_.desktop.pointer(forms::Pointer::standard);
    // the path that makes a contact has unloaded the window
    if (gbCreated && here.lasts() && !control(u"Check1").selected()) hide();
}

void dlgSend::cmdCancel_Click() {
    gbSend = false;
    hide();
}

}  // namespace addin::createnote
