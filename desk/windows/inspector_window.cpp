#include "desk/windows/inspector_window.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/driver/named_window.h"
#include "desk/windows/item_commands.h"
#include "desk/windows/item_form.h"
#include "forms/windows/form_control.h"

namespace desk {

using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

constexpr int pages_id = 96, attach_id = 97, attachments_id = 98, head_id = 99;  // fields begin at 100
// pixels
constexpr int head_height = 84, margin = 6, least_text_height = 60;
constexpr int tabs_height = 24, told_height = 18;

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

}  // namespace

InspectorWindow::InspectorWindow(FrameContext& context, std::shared_ptr<Inspector> inspector)
    : HostFrame(context, L"TarnwellDeskInspector", *inspector),
      inspector_(std::move(inspector)),
      fields_(inspector_->item(), [this](const ControlClass& made, int id, const Text& text) {
          return add_control(made.name, made.style, made.extended_style, id, windows::wide(text));
      }) {
    add_fields();
    open();
}

void InspectorWindow::add_fields() {
    const Item& item = *inspector_->item();
    const ItemForm* const form = form_for(item);
    const auto& properties = item.data().user_properties;
    const bool has_pages = form && form->two_columns && !properties.empty();
    two_columns_ = form && form->two_columns;
    if (has_pages) {
        pages_ = add_control(WC_TABCONTROLW, WS_TABSTOP | WS_CLIPSIBLINGS, 0, pages_id);
        for (int page = 0; const wchar_t* const name : {L"General", L"Properties"}) {
            TCITEMW tab{};
            tab.mask = TCIF_TEXT;
            tab.pszText = const_cast<wchar_t*>(name);
            SendMessageW(pages_, TCM_INSERTITEMW, static_cast<WPARAM>(page++),
                         reinterpret_cast<LPARAM>(&tab));
        }
    }
    if (form) {
        for (const FormLine& line : form->lines) fields_.add(line);
    } else {
        constexpr DWORD several_lines = WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY;
        head_ = add_control(WC_EDITW, several_lines, WS_EX_CLIENTEDGE, head_id);
    }
    if (has_pages) {
        for (const TextView key : record_keys()) {
            const auto found = std::ranges::find_if(properties, [&](const UserPropertyData& property) {
                return automation::same_ignoring_case(property.name, key);
            });
            if (found != properties.end()) fields_.add_property(*found, ItemFields::first_page);
        }
    }
    fields_.add_text(form != nullptr);
    if (!item.kind().is_note) add_attachments();  // the keyboard goes from the subject into the text
    if (has_pages) {
        for (const UserPropertyData& property : properties)
            fields_.add_property(property, ItemFields::second_page);
    }
    told_ = add_control(WC_STATICW, SS_LEFTNOWORDWRAP | SS_NOPREFIX | SS_ENDELLIPSIS, 0, 0);
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
    const HWND text = fields_.text();
    if (!form_for(item)) return text;
    const bool is_addressed = item.kind().number == object_class::mail && !item.data().recipients.empty();
    return is_addressed ? text : fields_.first(page_);
}

void InspectorWindow::show_contents() {
    Item& item = *inspector_->item();
    if (item.version() == version_) return;
    version_ = item.version();
    if (head_) SetWindowTextW(head_, windows::wide(head_of(item)));
    fields_.show();
    tell_refusal();
    if (attachments_ && attachments_->show(item.whole().attachments)) lay_out_again();
}

RowId InspectorWindow::shown_folder() const { return inspector_->item()->folder(); }

/// Answers how much it takes.
int InspectorWindow::place_attachments(int top, int title, int width) const {
    if (!attachments_) return 0;
    const bool is_needed = is_written() || !attachments_->is_empty();
    if (page_ != ItemFields::first_page || !is_needed) {
        attachments_->hide();
        return 0;
    }
    const int list_width = width - title - margin;
    attachments_->place(margin, top, title, margin + title + margin, list_width);
    return attachments_->height(list_width) + margin;
}

void InspectorWindow::lay_out(int top, int width, int height) {
    const int inner = width - 2 * margin;
    const int title = fields_.title_width(page_);
    const bool is_told = !fields_.refusal().empty();
    ShowWindow(told_, is_told ? SW_SHOWNA : SW_HIDE);
    if (is_told) {
        height -= told_height;
        MoveWindow(told_, margin, height, inner, told_height, TRUE);
    }
    if (pages_) {
        MoveWindow(pages_, 0, top, width, tabs_height, TRUE);
        top += tabs_height;
    }
    top += margin;
    if (head_) {
        MoveWindow(head_, margin, top, inner, head_height, TRUE);
        top += head_height + margin;
    }
    top = fields_.place(page_, top, inner, two_columns_ ? 2 : 1);
    top += place_attachments(top, title, inner);
    MoveWindow(fields_.text(), margin, top, inner, std::max(height - top - margin, least_text_height), TRUE);
}

/// What can't be taken is told below everything.
void InspectorWindow::tell_refusal() {
    if (windows::window_text(told_) == fields_.refusal()) return;
    SetWindowTextW(told_, windows::wide(fields_.refusal()));
    lay_out_again();
}

void InspectorWindow::turn_to(int page) {
    page_ = page;
    SendMessageW(pages_, TCM_SETCURSEL, static_cast<WPARAM>(page), 0);
    lay_out_again();
    InvalidateRect(handle(), nullptr, TRUE);
    if (!IsWindowVisible(GetFocus())) SetFocus(fields_.first(page));
}

Text InspectorWindow::refused_entry() {
    fields_.refused();
    tell_refusal();
    return fields_.refusal();
}

/// What stores the item waits until all that was entered can be stored.
bool InspectorWindow::may_press(const CommandBarControl& control) {
    constexpr std::int32_t storing[] = {own_button::send, own_button::save, own_button::save_and_close};
    if (std::ranges::find(storing, control.id) == std::end(storing)) return true;
    const std::optional<ItemFields::Refused> refused = fields_.refused();
    if (!refused) return true;
    tell_refusal();
    if (refused->page != page_) turn_to(refused->page);
    SetFocus(refused->control);
    MessageBeep(MB_ICONWARNING);
    return false;
}

void InspectorWindow::press_button(std::int32_t id) {
    const auto button = inspector_->bars()->named(CommandBars::standard)->find({.id = Value(id)});
    if (!button || !may_press(*button)) return;
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
    if (is_dropped(focus)) return false;  // its keys are its own
    if (key == VK_ESCAPE) {
        PostMessageW(handle(), WM_CLOSE, 0, 0);
    } else if (key == VK_TAB && !is_held(VK_CONTROL) && !is_held(VK_MENU)) {
        move_focus(focus, is_held(VK_SHIFT));
    } else if (key == VK_TAB && pages_ && !is_held(VK_MENU)) {
        turn_to(page_ == ItemFields::first_page ? ItemFields::second_page : ItemFields::first_page);
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
    if (fields_.on_command(command, code)) tell_refusal();
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
    if (notice.code == DTN_DATETIMECHANGE && fields_.on_date(notice.hwndFrom)) tell_refusal();
    if (pages_ && notice.hwndFrom == pages_ && notice.code == TCN_SELCHANGE) {
        turn_to(static_cast<int>(SendMessageW(pages_, TCM_GETCURSEL, 0, 0)));
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

}  // namespace desk
