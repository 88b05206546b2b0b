#include "desk/windows/inspector_window.h"

#include <algorithm>

#include "automation/com/failure.h"
#include "desk/windows/shown_value.h"
#include "forms/windows/form_control.h"

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr int head_id = 1, first_field_id = 2;
// pixels
constexpr int head_height = 104, margin = 6, line_height = 22, title_width = 60, title_drop = 4;
constexpr int long_title_width = 110, least_text_height = 60;

struct HeadLine {
    TextView title, field;
};
constexpr HeadLine head_lines[] = {{u"From", u"SenderName"},
                                   {u"To", u"To"},
                                   {u"Cc", u"CC"},
                                   {u"Sent", u"SentOn"},
                                   {u"Account", u"Account Name"},
                                   {u"Contact", u"Contact Name"},
                                   {u"Type", u"Type"}};

/// A line for each field that the item has and that holds something.
Text head_of(Item& item) {
    Text head = u"Subject:  " + item.subject();
    for (const HeadLine& line : head_lines) {
        const std::optional<automation::Value> value = field_value(item.data(), line.field);
        if (!value || *value == automation::Value(no_date)) continue;
        const Text text = value->to_text();
        if (!text.empty()) head += u"\r\n" + Text(line.title) + u":  " + text;
    }
    Text attached;
    for (const AttachmentData& attachment : item.whole().attachments) {
        attached += (attached.empty() ? u"" : u"; ") + attachment.display_name;
    }
    if (!attached.empty()) head += u"\r\nAttached:  " + attached;
    return head;
}

/// The lines above the text of an item that can be written. The user properties of a record follow them.
constexpr HeadLine mail_lines[] = {{u"To:", u"To"}, {u"Subject:", u"Subject"}};
constexpr HeadLine contact_lines[] = {
    {u"Full name:", u"FullName"},     {u"Company:", u"CompanyName"},
    {u"E-mail:", u"Email1Address"},   {u"Telephone:", u"BusinessTelephoneNumber"},
    {u"Customer ID:", u"CustomerID"}, {u"File as:", u"FileAs"}};
constexpr HeadLine appointment_lines[] = {
    {u"Subject:", u"Subject"}, {u"Location:", u"Location"}, {u"Start:", u"Start"}, {u"End:", u"End"}};
constexpr HeadLine task_lines[] = {
    {u"Subject:", u"Subject"}, {u"Start:", u"StartDate"}, {u"Due:", u"DueDate"}, {u"Complete:", u"Complete"}};

struct WrittenKind {
    std::int32_t number;
    std::span<const HeadLine> lines;
    bool two_columns;
};
constexpr WrittenKind written_kinds[] = {{object_class::mail, mail_lines, false},
                                         {object_class::contact, contact_lines, true},
                                         {object_class::appointment, appointment_lines, true},
                                         {object_class::task, task_lines, true}};

/// How an item is written; null for one that is only read.
const WrittenKind* written_kind(const Item& item) {
    const std::int32_t number = item.kind().number;
    if (number == object_class::mail && item.field(u"Sent").to_boolean()) return nullptr;
    const auto* const found = std::ranges::find(written_kinds, number, &WrittenKind::number);
    return found == std::end(written_kinds) ? nullptr : found;
}

/// Takes what was typed. Throws `Failure` for what the field can't hold.
void write(Item& item, TextView member, const Text& typed) {
    if (const tables::FieldRow* const field = find_field(item.kind(), member)) {
        return item.set_field(*field, automation::Value(typed));
    }
    item.self()
        .get(u"UserProperties")
        .to_object()
        .call(u"Item", {automation::Value(member)})
        .to_object()
        .put(u"Value", automation::Value(typed));
}

}  // namespace

InspectorWindow::InspectorWindow(FrameContext& context, std::shared_ptr<Inspector> inspector)
    : HostFrame(context, L"TarnwellDeskInspector", *inspector), inspector_(std::move(inspector)) {
    constexpr DWORD several_lines = WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL;
    const Item& item = *inspector_->item();
    const WrittenKind* const written = written_kind(item);
    if (written) {
        two_columns_ = written->two_columns;
        for (const HeadLine& line : written->lines) add_field(Text(line.title), Text(line.field));
        if (two_columns_) {
            for (const UserPropertyData& property : item.data().user_properties) {
                add_field(property.name + u":", property.name);
            }
        }
    } else {
        head_ = add_control(WC_EDITW, several_lines | ES_READONLY, WS_EX_CLIENTEDGE, head_id);
    }
    fields_.push_back({nullptr,
                       add_control(WC_EDITW, several_lines | (written ? 0 : ES_READONLY), WS_EX_CLIENTEDGE,
                                   first_field_id + static_cast<int>(fields_.size())),
                       u"Body",
                       {}});
    open();
}

void InspectorWindow::add_field(const Text& title, const Text& member) {
    const HWND label = add_control(WC_STATICW, SS_RIGHT, 0, 0, windows::wide(title));
    const int id = first_field_id + static_cast<int>(fields_.size());
    const HWND edit = add_control(WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, id);
    fields_.push_back({label, edit, member, {}});
}

Text InspectorWindow::value_of(const Field& field) const {
    return shown_value(inspector_->item()->data(), field.member);
}

void InspectorWindow::show_field(Field& field) {
    Text now = value_of(field);
    if (now == field.known) return;
    field.known = std::move(now);
    SetWindowTextW(field.edit, windows::wide(field.known));
}

void InspectorWindow::show_contents() {
    Item& item = *inspector_->item();
    if (item.version() == version_) return;
    version_ = item.version();
    showing_ = true;
    if (head_) SetWindowTextW(head_, windows::wide(head_of(item)));
    for (Field& field : fields_) show_field(field);
    showing_ = false;
}

RowId InspectorWindow::shown_folder() const { return inspector_->item()->folder(); }

void InspectorWindow::lay_out(int top, int width, int height) {
    const int inner = width - 2 * margin;
    top += margin;
    if (head_) {
        MoveWindow(head_, margin, top, inner, head_height, TRUE);
        top += head_height + margin;
    }
    const int columns = two_columns_ ? 2 : 1;
    const int title = two_columns_ ? long_title_width : title_width;
    const int column_width = inner / columns;
    int column = 0;
    for (const Field& field : fields_) {
        if (!field.title) {
            if (column != 0) top += line_height + margin;
            const int text_height = std::max(height - top - margin, least_text_height);
            MoveWindow(field.edit, margin, top, inner, text_height, TRUE);
            continue;
        }
        const int left = margin + column * column_width;
        MoveWindow(field.title, left, top + title_drop, title, line_height - title_drop, TRUE);
        MoveWindow(field.edit, left + title + margin, top, column_width - title - margin, line_height, TRUE);
        column = (column + 1) % columns;
        if (column == 0) top += line_height + margin;
    }
}

void InspectorWindow::on_own_command(int command, int code) {
    const int place = command - first_field_id;
    if (showing_ || place < 0 || place >= static_cast<int>(fields_.size())) return;
    Item& item = *inspector_->item();
    if (!written_kind(item) || item.is_gone()) return;
    Field& field = fields_[static_cast<std::size_t>(place)];
    if (code == EN_CHANGE) {
        try {
            write(item, field.member, windows::window_text(field.edit));
        } catch (const automation::Failure&) {
            return;  // a date, say, that isn't whole yet
        }
        field.known = value_of(field);  // what is being typed stays as it is typed
    } else if (code == EN_KILLFOCUS && windows::window_text(field.edit) != value_of(field)) {
        field.known = value_of(field);
        showing_ = true;
        SetWindowTextW(field.edit, windows::wide(field.known));
        showing_ = false;
    }
}

}  // namespace desk
