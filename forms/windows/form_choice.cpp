#include "forms/windows/form_choice.h"

#include <utility>

#include "automation/failure.h"
#include "forms/windows/form_window.h"

namespace windows {

using automation::Failure;
using automation::Text;
using automation::TextView;
using forms::ControlKind;

FormChoice::FormChoice(FormWindow& form, const forms::ControlRow& row, int id) : FormControl(form, row, id) {
    for (const TextView entry : row.entries) FormChoice::add(entry);
    FormChoice::text(row.text);
}

Text FormChoice::text() const {
    if (table_row().kind == ControlKind::combo_box) return window_text(handle());
    return current() == -1 ? Text() : entry(current());
}

void FormChoice::text(TextView text) {
    const Text wanted(text);
    const auto found = static_cast<int>(SendMessageW(handle(), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                                     reinterpret_cast<LPARAM>(wide(wanted))));
    if (table_row().kind == ControlKind::drop_down_list) {
        if (found >= 0) choose(found);
        return;
    }
    SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(found), 0);
    SetWindowTextW(handle(), wide(wanted));
}

void FormChoice::clear() { SendMessageW(handle(), CB_RESETCONTENT, 0, 0); }

void FormChoice::add(TextView entry) {
    const Text text(entry);
    SendMessageW(handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(text)));
}

int FormChoice::count() const { return static_cast<int>(SendMessageW(handle(), CB_GETCOUNT, 0, 0)); }

Text FormChoice::entry(int index) const {
    const LRESULT length = SendMessageW(handle(), CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
    if (index < 0 || length < 0) throw Failure(automation::result::bad_index, u"There is no such entry.");
    Text text(static_cast<std::size_t>(length), u'\0');
    SendMessageW(handle(), CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    return text;
}

int FormChoice::current() const { return static_cast<int>(SendMessageW(handle(), CB_GETCURSEL, 0, 0)); }

int FormChoice::chosen() const { return current() != -1 && entry(current()) == text() ? current() : -1; }

void FormChoice::choose(int index) {
    if (index != -1) entry(index);  // is it there?
    SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void FormChoice::take_back() {
    const std::optional<Chosen> before = std::exchange(before_, std::nullopt);
    const int index = current();
    if (!before || index == -1 || index == before->index || text() != entry(index)) return;
    SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(before->index), 0);
    if (table_row().kind == ControlKind::combo_box) SetWindowTextW(handle(), wide(before->text));
}

void FormChoice::on_command(WORD code) {
    if (code == CBN_DROPDOWN) before_ = Chosen{current(), text()};
    if (code == CBN_SELENDOK) before_.reset();
    if (code == CBN_SELENDCANCEL) take_back();  // where the arrows have led to in the open list is no choice
    // An entry that is chosen again is told by CBN_SELENDOK alone, a change made by the arrow keys in a
    // closed list by CBN_SELCHANGE alone, and one made with the mouse by both. With the list open, the arrows
    // only lead to an entry.
    const bool is_choice = code == CBN_SELENDOK || (code == CBN_SELCHANGE && !dropped());
    if (!is_choice || click_posted_) return;
    // The click comes when the system has told all of it and has closed the list: a handler may run a message
    // loop of its own.
    click_posted_ = PostMessageW(handle(), posted_message, 0, 0) != FALSE;
}

void FormChoice::on_posted() {
    click_posted_ = false;
    const int index = current();
    if (index == -1) return;
    if (table_row().kind == ControlKind::combo_box) SetWindowTextW(handle(), wide(entry(index)));
    form().click(*this);
}

}  // namespace windows
