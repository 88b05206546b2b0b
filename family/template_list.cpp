#include "family/template_list.h"

#include <array>

#include "family/database_folders.h"
#include "forms/control_name.h"

namespace family {

using automation::Text;
using automation::TextView;
using automation::Value;
using forms::Column;
using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;
using forms::List;

namespace {

constexpr TextView templates = u"lstTemplates", open_button = u"cmdOpen", close_button = u"cmdClose",
                   mail_button = u"cmdMail";
constexpr int id_column = 1;

constexpr Column template_columns[] = {{u"Template", 5700}, {u"EntryID", 0}};
constexpr ControlRow template_controls[] = {
    {.kind = ControlKind::report_list,
     .name = templates,
     .place = {120, 120, 6000, 3450},
     .tool_tip = u"Double click a template to open it.",
     .columns = template_columns,
     .accessible_name = u"Templates"},
    {.kind = ControlKind::button, .name = open_button, .text = u"Open", .place = {6300, 120, 1395, 375}},
    {.kind = ControlKind::button, .name = close_button, .text = u"Close", .place = {6300, 615, 1395, 375}},
    {.kind = ControlKind::button,
     .name = mail_button,
     .text = u"New Mail",
     .place = {6300, 1290, 1395, 375},
     .tool_tip = u"Makes a mail with the template's subject and text.",
     .visible = false},
};
constexpr FormTable table{.name = u"TemplateList",
                          .width = 7830,
                          .height = 3700,
                          .default_button = open_button,
                          .cancel_button = close_button,
                          .first_focus = templates,
                          .controls = template_controls};
static_assert(forms::is_sound(table));

}  // namespace

TemplateList::TemplateList(forms::Engine& engine, Context& context, Text kind)
    : Form(engine, table), context_(context), kind_(std::move(kind)) {}

void TemplateList::show_with_title(TextView title) {
    view().caption(title);
    control(mail_button).visible(kind_ == mail_templates);
    fill();
    show();
}

void TemplateList::fill() {
    std::vector<host::outlook::Item> records;
    try {
        records = DatabaseFolders(context_).drop_down_records(kind_);
    } catch (const automation::Failure&) {
        // without a database there is nothing to list
    }
    List& list = control(templates).list();
    list.clear();
    for (const host::outlook::Item& record : records) {
        const std::array<automation::Text, 2> cells{record.Subject(), record.EntryID()};
        list.add(cells);
    }
    if (list.count() > 0) list.select(0);
}

host::outlook::Item TemplateList::selected() {
    List& list = control(templates).list();
    const int row = list.selected();
    if (row < 0) return {};
    const host::outlook::Application application(context_.application());
    return host::outlook::Item(application.GetNamespace(u"MAPI")
                                   .call(u"GetItemFromID", {Value(list.text(row, id_column))})
                                   .to_object());
}

void TemplateList::open_selected() {
    if (const host::outlook::Item record = selected()) record.call(u"Display");
}

void TemplateList::make_mail() {
    const host::outlook::Item record = selected();
    if (!record) return;
    constexpr std::int32_t mail_item = 0;
    const host::outlook::Item mail(
        context_.application().call(u"CreateItem", {Value(mail_item)}).to_object());
    mail.Subject(record.Subject());
    mail.put(u"Body", record.get(u"Body"));
    mail.call(u"Display");
}

void TemplateList::on_click(TextView name) {
    if (name == open_button) open_selected();
    if (name == mail_button) make_mail();
    if (name == close_button) unload();
}

void TemplateList::on_double_click(TextView) { open_selected(); }

void show_templates(Context& context, TextView title, TextView kind) {
    ShownTemplates& shown = context.shown_templates()[Text(kind)];
    if (!shown.window) {
        shown.engine = context.engine();
        shown.window = std::make_shared<TemplateList>(*shown.engine, context, Text(kind));
    }
    shown.window->show_with_title(title);
}

}  // namespace family
