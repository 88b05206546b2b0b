#include "desk/windows/inspector_window.h"

namespace desk {

using host::Text;
using host::TextView;

namespace {

constexpr int head_id = 1, body_id = 2;
constexpr int head_height = 110, margin = 6;  // pixels

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

}  // namespace

InspectorWindow::InspectorWindow(Desk&, std::shared_ptr<Inspector> inspector)
    : DeskWindow(L"TarnwellDeskInspector", inspector->caption(),
                 {inspector->left, inspector->top, inspector->left + inspector->width,
                  inspector->top + inspector->height}),
      inspector_(std::move(inspector)) {
    constexpr DWORD reading = WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL;
    head_ = add_control(WC_EDITW, reading, WS_EX_CLIENTEDGE, head_id);
    body_ = add_control(WC_EDITW, reading, WS_EX_CLIENTEDGE, body_id);
    RECT client{};
    GetClientRect(handle(), &client);
    on_size(client.right, client.bottom);
    show();
}

void InspectorWindow::refresh() {
    caption(inspector_->caption());
    const Text head = head_of(*inspector_->item());
    const Text body = inspector_->item()->field(u"Body").to_text();
    if (head + body == shown_) return;
    shown_ = head + body;
    SetWindowTextW(head_, windows::wide(head));
    SetWindowTextW(body_, windows::wide(body));
}

void InspectorWindow::on_size(int width, int height) {
    MoveWindow(head_, margin, margin, width - 2 * margin, head_height - margin, TRUE);
    MoveWindow(body_, margin, head_height + margin, width - 2 * margin, height - head_height - 2 * margin,
               TRUE);
}

void InspectorWindow::on_close() { inspector_->close_window(); }

}  // namespace desk
