#include "desk/windows/inspector_window.h"

#include <algorithm>

#include "automation/com/failure.h"
#include "desk/base/desk.h"
#include "desk/driver/named_window.h"
#include "desk/outlook/written_people.h"
#include "desk/windows/item_commands.h"
#include "desk/windows/item_form.h"
#include "desk/windows/shown_value.h"
#include "forms/windows/form_control.h"

namespace desk {

using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

constexpr int attach_id = 97, attachments_id = 98, head_id = 99, first_field_id = 100;  // menus begin at 800
// pixels
constexpr int head_height = 104, margin = 6, line_height = 22, title_width = 60, title_drop = 4;
constexpr int long_title_width = 110, least_text_height = 60;

/// A line for each field that the item has and that holds something.
Text head_of(Item& item) {
    Text head = u"Subject:  " + item.subject();
    for (const FormLine& line : read_lines()) {
        const std::optional<automation::Value> value = field_value(item.data(), line.field);
        if (!value || *value == automation::Value(no_date)) continue;
        const Text text = value->to_text();
        if (!text.empty()) head += u"\r\n" + Text(line.title) + u":  " + text;
    }
    return head;
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
    constexpr DWORD several_lines =
        WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | ES_NOHIDESEL;
    const Item& item = *inspector_->item();
    const ItemForm* const form = form_for(item);
    if (form) {
        two_columns_ = form->two_columns;
        for (const FormLine& line : form->lines) add_field(Text(line.title), Text(line.field), line.people);
        if (two_columns_) {
            for (const UserPropertyData& property : item.data().user_properties) {
                add_field(property.name + u":", property.name);
            }
        }
    } else {
        head_ = add_control(WC_EDITW, several_lines | ES_READONLY, WS_EX_CLIENTEDGE, head_id);
    }
    fields_.push_back({nullptr,
                       add_control(WC_EDITW, several_lines | (form ? 0 : ES_READONLY), WS_EX_CLIENTEDGE,
                                   first_field_id + static_cast<int>(fields_.size())),
                       u"Body",
                       {},
                       0});
    if (!item.kind().is_note) add_attachments();  // the keyboard goes from the subject into the text
    open();
}

bool InspectorWindow::is_written() const { return form_for(*inspector_->item()) != nullptr; }

void InspectorWindow::add_attachments() {
    const HWND title = is_written() ? add_control(WC_BUTTONW, WS_TABSTOP, 0, attach_id, L"A&ttach...")
                                    : add_control(WC_STATICW, SS_RIGHT | SS_CENTERIMAGE, 0, 0, L"Attached:");
    attachments_.emplace(
        title, add_control(WC_LISTVIEWW, AttachmentRow::list_style(), WS_EX_CLIENTEDGE, attachments_id),
        context().faces);
}

void InspectorWindow::add_menus(HMENU menu) {
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(make_item_menu(*inspector_->bars())), L"&Actions");
}

/// Where writing begins: a new mail with whom it is for, an answer with its text.
HWND InspectorWindow::first_focus() const {
    const Item& item = *inspector_->item();
    const HWND text = fields_.back().edit;
    if (!form_for(item)) return text;
    const bool is_addressed = item.kind().number == object_class::mail && !item.data().recipients.empty();
    return is_addressed ? text : fields_.front().edit;
}

void InspectorWindow::add_field(const Text& title, const Text& member, std::int32_t people) {
    const HWND label = add_control(WC_STATICW, SS_RIGHT, 0, 0, windows::wide(title));
    const int id = first_field_id + static_cast<int>(fields_.size());
    const HWND edit = add_control(WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, id);
    fields_.push_back({label, edit, member, {}, people});
}

Text InspectorWindow::value_of(const Field& field) const {
    const ItemData& item = inspector_->item()->data();
    return field.people == 0 ? shown_value(item, field.member) : written_line(item, field.people);
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
    if (attachments_ && attachments_->show(item.whole().attachments)) lay_out_again();
}

RowId InspectorWindow::shown_folder() const { return inspector_->item()->folder(); }

/// Answers how much it takes.
int InspectorWindow::place_attachments(int top, int title, int width) const {
    if (!attachments_) return 0;
    if (!is_written() && attachments_->is_empty()) {
        attachments_->hide();
        return 0;
    }
    const int list_width = width - title - margin;
    attachments_->place(margin, top, title, margin + title + margin, list_width);
    return attachments_->height(list_width) + margin;
}

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
            top += place_attachments(top, title, inner);
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

void InspectorWindow::press_button(std::int32_t id) {
    const auto button = inspector_->bars()->named(CommandBars::standard)->find({.id = Value(id)});
    if (!button) return;
    context().desk.surroundings().post([button] {
        if (button->is_there()) button->press();
    });
}

bool InspectorWindow::on_key(int key) {
    if (const std::optional<std::int32_t> button = button_of_key(key)) {
        press_button(*button);
        return true;
    }
    const HWND focus = GetFocus();
    if (attachments_ && on_attachment_key(key)) return true;
    if (key == VK_ESCAPE) {
        PostMessageW(handle(), WM_CLOSE, 0, 0);
    } else if (key == VK_TAB && !is_held(VK_CONTROL) && !is_held(VK_MENU)) {
        move_focus(focus, is_held(VK_SHIFT));
    } else if (key == 'A' && is_held(VK_CONTROL) && !is_held(VK_MENU)) {
        SendMessageW(focus, EM_SETSEL, 0, -1);
    } else {
        return false;
    }
    return true;
}

/// Out of the text, too, where the system's own dialogs would stay; and what is written there isn't selected,
/// so that the next letter does not take its place.
void InspectorWindow::move_focus(HWND from, bool back) {
    const HWND next = GetNextDlgTabItem(handle(), from, back ? TRUE : FALSE);
    if (!next) return;
    SetFocus(next);
    const bool is_line = class_name(next) == u"Edit" && !(GetWindowLongPtrW(next, GWL_STYLE) & ES_MULTILINE);
    if (is_line) SendMessageW(next, EM_SETSEL, 0, -1);
}

void InspectorWindow::on_own_command(int command, int code) {
    if (const std::optional<std::int32_t> button = button_of_command(command)) return press_button(*button);
    if (command == attach_id) return code == BN_CLICKED ? ask_for_files() : void();
    on_field(command - first_field_id, code);
}

void InspectorWindow::ask_for_files() {
    context().desk.surroundings().post([item = inspector_->item(), owner = handle()] {
        if (IsWindow(owner)) attach_chosen_files(item, owner);
    });
}

void InspectorWindow::with_attachment(std::function<void(const AttachmentPlace&)> deed) {
    const int selected = attachments_->selected();
    if (selected < 0) return;
    const AttachmentPlace attachment{inspector_->item(), static_cast<std::size_t>(selected)};
    context().desk.surroundings().post([attachment, owner = handle(), deed = std::move(deed)] {
        if (IsWindow(owner)) deed(attachment);
    });
}

void InspectorWindow::open_selected() {
    with_attachment(
        [&files = context().opened](const AttachmentPlace& chosen) { open_attachment(chosen, files); });
}

bool InspectorWindow::on_attachment_key(int key) {
    const HWND focus = GetFocus();
    if (focus == attachments_->title() && key == VK_RETURN) {
        ask_for_files();
    } else if (focus == attachments_->list() && key == VK_RETURN) {
        open_selected();
    } else if (focus == attachments_->list() && key == VK_DELETE && is_written()) {
        with_attachment(remove_attachment);
    } else {
        return false;
    }
    return true;
}

LRESULT InspectorWindow::on_notify(NMHDR& notice) {
    if (attachments_ && notice.hwndFrom == attachments_->list()) {
        if (notice.code == NM_SETFOCUS) attachments_->select_any();
        if (notice.code == NM_DBLCLK) open_selected();
        if (notice.code == LVN_BEGINDRAG) {
            with_attachment([&shared = context()](const AttachmentPlace& chosen) {
                drag_attachment(chosen, shared.opened, shared.module);
            });
        }
    }
    return HostFrame::on_notify(notice);
}

void InspectorWindow::on_context_menu(HWND control, POINT place) {
    if (!attachments_ || control != attachments_->list()) return;
    if (place.x == -1 && place.y == -1) place = attachments_->below_selected();  // the keyboard's menu
    with_attachment([owner = handle(), place, can_change = is_written(),
                     &files = context().opened](const AttachmentPlace& chosen) {
        choose_for_attachment(chosen, owner, place, can_change, files);
    });
}

void InspectorWindow::on_field(int place, int code) {
    if (showing_ || place < 0 || place >= static_cast<int>(fields_.size())) return;
    Item& item = *inspector_->item();
    if (!form_for(item) || item.is_gone()) return;
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
