#include "desk/windows/inspector_window.h"

#include "windows/forms/form_control.h"

namespace desk {

using host::Text;
using host::TextView;

namespace {

constexpr int head_id = 1, first_field_id = 2;
constexpr int head_height = 104, margin = 6, line_height = 22, title_width = 60, title_drop = 4;  // pixels

struct HeadLine {
    TextView title, field;
};
constexpr HeadLine head_lines[] = {{u"From", u"SenderName"},
                                   {u"To", u"To"},
                                   {u"Cc", u"CC"},
                                   {u"Sent", u"SentOn"},
                                   {u"Name", u"FullName"},
                                   {u"Company", u"CompanyName"},
                                   {u"E-mail", u"Email1Address"},
                                   {u"Start", u"Start"},
                                   {u"Due", u"DueDate"},
                                   {u"Account", u"Account Name"},
                                   {u"Contact", u"Contact Name"},
                                   {u"Type", u"Type"}};

/// A line for each field that the item has and that holds something.
Text head_of(Item& item) {
    Text head = u"Subject:  " + item.subject();
    for (const HeadLine& line : head_lines) {
        const std::optional<host::Value> value = field_value(item.data(), line.field);
        if (!value || *value == host::Value(no_date)) continue;
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

bool can_be_written(const Item& item) {
    return item.kind().number == object_class::mail && !item.field(u"Sent").to_boolean();
}

/// The lines of a mail that is written, above its text.
constexpr HeadLine written_lines[] = {{u"To:", u"To"}, {u"Subject:", u"Subject"}};

}  // namespace

InspectorWindow::InspectorWindow(FrameContext& context, std::shared_ptr<Inspector> inspector)
    : HostFrame(context, L"TarnwellDeskInspector", *inspector), inspector_(std::move(inspector)) {
    constexpr DWORD several_lines = WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL;
    const bool written = can_be_written(*inspector_->item());
    int id = first_field_id;
    if (written) {
        for (const HeadLine& line : written_lines) {
            const Text title(line.title);
            const HWND label = add_control(WC_STATICW, SS_RIGHT, 0, 0, windows::wide(title));
            fields_.push_back({label,
                               add_control(WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, id++),
                               line.field,
                               {}});
        }
    } else {
        head_ = add_control(WC_EDITW, several_lines | ES_READONLY, WS_EX_CLIENTEDGE, head_id);
    }
    fields_.push_back(
        {nullptr,
         add_control(WC_EDITW, several_lines | (written ? 0 : ES_READONLY), WS_EX_CLIENTEDGE, id),
         u"Body",
         {}});
    open();
}

void InspectorWindow::show_field(Field& field) {
    const Text now = inspector_->item()->field(field.member).to_text();
    if (now == field.known) return;
    field.known = now;
    SetWindowTextW(field.edit, windows::wide(now));
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

void InspectorWindow::lay_out(int top, int width, int height) {
    const int inner = width - 2 * margin;
    top += margin;
    if (head_) {
        MoveWindow(head_, margin, top, inner, head_height, TRUE);
        top += head_height + margin;
    }
    for (const Field& field : fields_) {
        if (!field.title) {
            MoveWindow(field.edit, margin, top, inner, height - top - margin, TRUE);
            continue;
        }
        MoveWindow(field.title, margin, top + title_drop, title_width, line_height - title_drop, TRUE);
        MoveWindow(field.edit, margin + title_width + margin, top, inner - title_width - margin, line_height,
                   TRUE);
        top += line_height + margin;
    }
}

void InspectorWindow::on_own_command(int command, int code) {
    if (code != EN_CHANGE || showing_ || !can_be_written(*inspector_->item())) return;
    const int place = command - first_field_id;
    if (place < 0 || place >= static_cast<int>(fields_.size())) return;
    Field& field = fields_[static_cast<std::size_t>(place)];
    Item& item = *inspector_->item();
    item.set_field(*find_field(item.kind(), field.member), windows::window_text(field.edit));
    field.known = item.field(field.member).to_text();  // what is being typed stays as it is typed
}

}  // namespace desk
