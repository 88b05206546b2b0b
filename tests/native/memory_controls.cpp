#include "tests/native/memory_controls.h"

#include <algorithm>
#include <stdexcept>

#include "automation/failure.h"
#include "tests/native/memory_forms.h"

namespace native {

using automation::Failure;
using automation::Text;
using automation::TextView;
using forms::ControlKind;
using forms::ControlRow;
using forms::Events;
namespace result = automation::result;

bool goes_through(const BeforeCall& before_call, const char* call) {
    try {
        before_call(call);
    } catch (const Failure&) {
        return false;
    }
    return true;
}

// A choice

MemoryChoice::MemoryChoice(const ControlRow& row, BeforeCall before_call)
    : before_call_(std::move(before_call)),
      entries_only_(row.kind == ControlKind::drop_down_list),
      entries_(row.entries.begin(), row.entries.end()) {
    text(row.text);
}

void MemoryChoice::clear() {
    entries_.clear();
    text_.clear();
    chosen_ = -1;
}

void MemoryChoice::add(TextView entry) {
    if (goes_through(before_call_, "choice_add")) entries_.emplace_back(entry);
}

Text MemoryChoice::entry(int index) const {
    if (index < 0 || index >= count()) throw Failure(result::bad_index, u"There is no such entry.");
    return entries_[static_cast<std::size_t>(index)];
}

int MemoryChoice::chosen() const { return chosen_ != -1 && entry(chosen_) == text_ ? chosen_ : -1; }

void MemoryChoice::choose(int index) {
    text_ = index == -1 ? Text() : entry(index);
    chosen_ = index;
}

void MemoryChoice::text(TextView text) {
    const auto found = std::ranges::find_if(
        entries_, [&](const Text& entry) { return automation::same_ignoring_case(entry, text); });
    if (entries_only_ && found == entries_.end()) return;
    text_ = entries_only_ ? *found : Text(text);
    chosen_ = found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
}

// What the logic sees of a control

MemoryControl::MemoryControl(MemoryWindow& window, const ControlRow& row)
    : window_(window),
      row_(row),
      text_(row.text),
      visible_(row.visible),
      enabled_(row.enabled),
      selected_(row.selected),
      place_(row.place) {
    if (row.kind == ControlKind::report_list) list_.emplace(row, window.dots_per_inch(), window.before_call_);
    if (row.kind == ControlKind::combo_box || row.kind == ControlKind::drop_down_list)
        choice_.emplace(row, window.before_call_);
}

Text MemoryControl::text() const { return choice_ ? choice_->text() : text_; }

void MemoryControl::text(TextView text) {
    if (choice_) {
        choice_->text(text);
    } else {
        text_ = text;
    }
    window_.engine_.on_text(window_, *this);
}

void MemoryControl::visible(bool visible) {
    visible_ = visible;
    window_.check_focus();
}

void MemoryControl::enabled(bool enabled) {
    enabled_ = enabled;
    window_.check_focus();
}

void MemoryControl::selected(bool selected) {
    if (selected && row_.kind == ControlKind::option_button) window_.select_option(*this);
    selected_ = selected;
}

void MemoryControl::focus() {
    if (takes_focus() && visible_ && enabled_) window_.focus(*this);
}

MemoryList& MemoryControl::memory_list() {
    if (!list_) throw std::logic_error(automation::to_utf8(row_.name) + " is no list.");
    return *list_;
}

MemoryChoice& MemoryControl::memory_choice() {
    if (!choice_) throw std::logic_error(automation::to_utf8(row_.name) + " has no entries.");
    return *choice_;
}

// What a person sees

bool MemoryControl::shown() const {
    if (!visible_ || !window_.visible() || row_.kind == ControlKind::image_list) return false;
    const MemoryControl* const frame = row_.frame.empty() ? nullptr : window_.find(row_.frame);
    return !frame || frame->visible();
}

bool MemoryControl::usable() const { return shown() && enabled_ && window_.reachable(); }

bool MemoryControl::has_focus() const { return window_.focused() == this; }

bool MemoryControl::is_toggle() const {
    return row_.kind == ControlKind::check_box || row_.kind == ControlKind::option_button;
}

bool MemoryControl::is_button() const {
    return row_.kind == ControlKind::button || row_.kind == ControlKind::picture_button ||
           row_.kind == ControlKind::link;
}

bool MemoryControl::is_pressed_by(int code) const {
    constexpr int enter = 13, space = 32;
    return (code == space && (is_button() || is_toggle())) || (code == enter && is_button());
}

bool MemoryControl::takes_focus() const {
    return is_button() || is_toggle() || is_text_box() || choice_ || list_;
}

// What a person does

void MemoryControl::press() {
    if (row_.kind == ControlKind::option_button) {
        if (selected_) return;  // it stays the selected one
        selected(true);
    } else if (row_.kind == ControlKind::check_box) {
        selected_ = !selected_;
    }
    window_.raise([name = row_.name](Events& events) { events.on_click(name); });
}

bool MemoryControl::click() {
    if (!usable() || !(is_button() || is_toggle())) return false;
    return window_.act([this] {
        window_.focus(*this);
        press();
    });
}

bool MemoryControl::type(TextView text) {
    if (!usable() || !(is_text_box() || row_.kind == ControlKind::combo_box)) return false;
    return window_.act([this, typed = Text(text)] {
        window_.focus(*this);
        this->text(typed);
        if (is_text_box()) {
            window_.raise([name = row_.name](Events& events) { events.on_change(name); });
        }
    });
}

bool MemoryControl::put_character(char16_t character) {
    constexpr char16_t backspace = 8, first_printed = u' ';
    if (character == backspace && !text_.empty()) {
        text_.pop_back();
        return true;
    }
    if (character < first_printed) return false;
    text_ += character;
    return true;
}

bool MemoryControl::key(int code) {
    if (!usable() || !takes_focus()) return false;
    return window_.act([this, code] {
        window_.focus(*this);
        window_.press_key(code);
    });
}

bool MemoryControl::choose(int index) {
    if (!usable() || !choice_ || index < 0 || index >= choice_->count()) return false;
    return window_.act([this, index] {
        window_.focus(*this);
        choice_->choose(index);
        window_.raise([name = row_.name](Events& events) { events.on_click(name); });
    });
}

bool MemoryControl::select(int row) {
    if (!usable() || !list_ || row < -1 || row >= list_->count()) return false;
    return window_.act([this, row] {
        window_.focus(*this);
        list_->select(row);
    });
}

bool MemoryControl::double_click(int row) {
    if (!usable() || !list_ || row < -1 || row >= list_->count()) return false;
    return window_.act([this, row] {
        window_.focus(*this);
        list_->select(row);
        window_.raise([name = row_.name](Events& events) { events.on_double_click(name); });
    });
}

bool MemoryControl::column_click(int column) {
    if (!usable() || !list_ || column < 0 || column >= list_->columns()) return false;
    if (list_->pixel_width(column) == 0) return false;  // nothing to click on
    return window_.act([this, column] {
        window_.raise([name = row_.name, column](Events& events) { events.on_column_click(name, column); });
    });
}

bool MemoryControl::drop(int row, int column) {
    if (!usable() || !list_ || !list_->takes_drops() || row < -1 || row >= list_->count()) return false;
    return window_.act([this, point = list_->middle(row, column)] {
        window_.raise([name = row_.name, point](Events& events) { events.on_drop(name, point.x, point.y); });
    });
}

}  // namespace native
