#include "desk/outlook/first_steps.h"

#include <algorithm>

#include "desk/outlook/folder.h"

namespace desk {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

constexpr TextView mailbox_name = u"Mailbox - Tarnwell", profiles_name = u"Account Profiles",
                   database_name = u"Tarnwell";

constexpr std::array<FirstStep, first_step_count> first_step_rows{{
    {u"A known contact's mail becomes a note",
     u"Double-click \"Loaves per hour, line 3\" of Siobhán O'Brien in the Inbox. It is marked, and a note "
     u"with the mail in it stands in Account Profiles, Email.",
     mailbox_name, u"Inbox",
     u"[Subject] = 'Loaves per hour, line 3' And [FlagRequest] = 'TW-Received eMail Auto Filed'"},
    {u"A stranger's mail: you are asked",
     u"Select \"Second-hand sealer\" of Dora Oldham. Answer Yes, then No: she becomes a contact, whose "
     u"window opens, and the mail is filed.",
     profiles_name, u"Account Contacts", u"[Email1Address] = 'dora.oldham@oldmill.example'"},
    {u"A lead's mail is not filed by itself",
     u"Select \"Honiggläser: Mengen\" of Katrin Schäfer: the lead's window opens. Then double-click the "
     u"mail: it is read and gets no mark.",
     mailbox_name, u"Inbox",
     u"[Subject] = 'Honiggläser: Mengen' And [UnRead] = False And [FlagRequest] = ''"},
    {u"A private mail is left alone",
     u"Double-click \"Una pregunta personal\" of Lucía Núñez. She is a known contact, but the mail is "
     u"private: no mark, no note.",
     mailbox_name, u"Inbox",
     u"[Subject] = 'Una pregunta personal' And [UnRead] = False And [FlagRequest] = ''"},
    {u"A mail that you send becomes a note, too",
     u"Write a mail (File, New, Mail) to hannah.weatherby@bellweather.example and send it. A small window "
     u"tells what is done; the mail in Sent Items is marked.",
     mailbox_name, u"Sent Items", u"[FlagRequest] = 'TW-Sent Email Auto Filed'"},
    {u"Create Note files a mail for an opportunity",
     u"Open \"Etikety na ležák\" of Jiří Dvořák and press Create Tarnwell Note. Under \"Create note for\" "
     u"choose Opportunities, search for b, take a row and press Create.",
     profiles_name, u"Email", u"[Subject] = 'Etikety na ležák – změna'", u"OppID"},
    {u"A mail is dropped on Quick View",
     u"Select \"Purchase order HV-20317\" of Rachel Tannenbaum: Quick View comes up. List her Opportunities "
     u"there and drag the mail onto \"Multihead weigher\".",
     profiles_name, u"Notes", u"[Subject] = 'Purchase order HV-20317'", u"OppID"},
    {u"A linked appointment, and the team's copy",
     u"Select \"Checkweigher handover\" of Hannah Weatherby. In Quick View choose My Calendar, press the "
     u"button for a new one and save it: Global Calendar has a copy.",
     database_name, u"Global Calendar", u"[Subject] <> ''", u"", true},
    {u"A contact of your own becomes a record",
     u"Drag Bridget O'Keeffe from your Contacts onto Account Contacts. She becomes a record there, with an "
     u"id of her own, yours as account manager, and her company's name.",
     profiles_name, u"Account Contacts",
     u"[FullName] = \"Bridget O'Keeffe\" And [MessageClass] = 'IPM.Contact.Account Contact'", u"ContactID"},
    {u"A mail becomes a template",
     u"Open \"Langoustine boxes\" and press Save as Email Template. Answer Yes: it stands in Drop Downs, "
     u"among the templates.",
     profiles_name, u"Drop Downs", u"[Subject] = 'Langoustine boxes'"},
}};

/// 0 if there is none.
RowId folder_of_step(Desk& desk, const FirstStep& step) {
    for (const FolderRow& row : desk.folder_rows()) {
        const FolderRow* const parent = row.name == step.folder ? desk.folder_row(row.parent) : nullptr;
        if (parent && parent->name == step.parent) return row.id;
    }
    return 0;
}

RowId newest_in(Desk& desk, RowId folder) {
    if (folder == 0) return 0;
    const std::vector<RowId>& all = desk.contents(folder);
    return all.empty() ? 0 : *std::ranges::max_element(all);
}

bool has_property(const Object& item, TextView name) {
    const Value found = item.get(u"UserProperties").to_object().call(u"Find", {Value(name)});
    const Object property = found.to_object();
    return property && !property.get(u"Value").to_text().empty();
}

}  // namespace

std::span<const FirstStep, first_step_count> first_steps() { return first_step_rows; }

FirstStepsDone::FirstStepsDone(Desk& desk, TextView before) : desk_(desk) {
    for (std::size_t i = 0; i < first_step_rows.size(); ++i) {
        done_.at(i) = before.size() == first_step_rows.size() && before.at(i) == u'1';
        newest_.at(i) = newest_in(desk, folder_of_step(desk, first_step_rows.at(i)));
    }
}

bool FirstStepsDone::look() {
    bool any = false;
    for (std::size_t i = 0; i < first_step_rows.size(); ++i) {
        if (done_.at(i)) continue;
        try {
            done_.at(i) = is_done_now(first_step_rows.at(i), newest_.at(i));
        } catch (const automation::Failure&) {
            // a folder or an item that goes at this moment: looked for again next time
        }
        any = any || done_.at(i);
    }
    return any;
}

bool FirstStepsDone::is_done_now(const FirstStep& step, RowId newest) const {
    const RowId folder = folder_of_step(desk_, step);
    if (folder == 0) return false;
    if (step.is_new && newest_in(desk_, folder) <= newest) return false;
    const Object items = std::make_shared<Folder>(desk_, folder)->self().get(u"Items").to_object();
    for (Object item = items.call(u"Find", {Value(step.filter)}).to_object(); item;
         item = items.call(u"FindNext").to_object()) {
        if (step.property.empty() || has_property(item, step.property)) return true;
    }
    return false;
}

Text FirstStepsDone::as_text() const {
    Text text;
    for (const bool each : done_) text += each ? u'1' : u'0';
    return text;
}

}  // namespace desk
