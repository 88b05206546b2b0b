#include "addin/templates/template_commands.h"

#include "addin/ground/presence.h"
#include "addin/ground/question.h"
#include "addin/records/database.h"
#include "addin/records/names.h"
#include "addin/records/property_filters.h"
#include "addin/records/stamp.h"

namespace addin::templates {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::family::MainAddIn;
using host::outlook::Folder;
using host::outlook::Item;

namespace {

constexpr TextView template_question = u"Are you sure you want to create an email template from this email?";
constexpr TextView created_start = u"Email Template '", created_end = u"' Created.";

Item shown_item(host::Desktop& desktop) {
    return host::outlook::Application(desktop.application()).ActiveInspector().CurrentItem();
}

bool may_be_template(const Item& record) {
    const Text type = record.UserProperties().Item(records::property::record_type).value().to_text();
    return type.empty() || type == records::record_type::email_template;
}

/// A list of templates, which the main add-in shows.
struct TemplateList {
    bool for_item;  ///< the list is told the item in the active window
    TextView kind;  ///< of the list; the one of mails has none
};
constexpr TemplateList email_templates{true, {}};
constexpr TemplateList document_templates{true, u"Document"};
constexpr TemplateList excel_templates{false, u"Spreadsheet"};

void show_list(Session& session, const TemplateList& list) {
    host::Desktop& desktop = session.desktop;
    const Steps steps(session);
    MainAddIn main_add_in;
    steps.set(main_add_in, [&] { return records::make_main_add_in(desktop); });
    if (list.for_item) steps.run([&] { main_add_in.messageid(shown_item(desktop).EntryID()); });
    steps.run([&] {
        if (list.kind.empty()) {
            main_add_in.ShowMailer();
        } else {
            main_add_in.Showlist(list.kind);
        }
    });
}

}  // namespace

void show_email_templates(Session& session) { show_list(session, email_templates); }
void show_document_templates(Session& session) { show_list(session, document_templates); }
void show_excel_templates(Session& session) { show_list(session, excel_templates); }

void save_as_template(Session& session) {
    host::Desktop& desktop = session.desktop;
    const Presence here(session);
    if (!asks(desktop, template_question)) return;
    const Steps steps(session);
    const Folder profiles = records::open_database(session).account_profiles;
    const auto drop_downs = [&] { return profiles.Folders().Item(records::folder::drop_downs); };
    Item item, copy;
    Text subject;
    steps.set(item, [&] { return shown_item(desktop); });
    steps.set(subject, [&] { return item.Subject(); });
    steps.set(copy, [&] { return item.Copy(); });
    steps.run([&] { copy.MessageClass(records::message_class::drop_down); });
    steps.run([&] { copy.Save(); });
    steps.run([&] { copy.Move(drop_downs()); });
    here.give_way();

    // the record is looked for: it is another object than the copy that was moved
    item.reset();
    steps.set(item, [&] {
        const host::outlook::Items items = drop_downs().Items();
        return items.Find(records::equality(u"Subject", subject));
    });
    // the subject is foreign text: as a part of a filter it may find a record of another one; and a record of
    // the same may be an entry of some other list
    if (steps.certainly([&] { return item.Subject() == subject && may_be_template(item); })) {
        records::write_property(session, item, records::property::record_type,
                                [] { return Value(records::record_type::email_template); });
        steps.run([&] { item.Save(); });
    }
    desktop.message_box(Text(created_start) + subject + Text(created_end), product_title, host::box::ok);
}

}  // namespace addin::templates
