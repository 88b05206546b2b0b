#include "family/settings_form.h"

#include <algorithm>
#include <utility>

#include "addin/host/desktop.h"
#include "family/note_add_in.h"

namespace family {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using forms::ControlKind;

namespace {

constexpr TextView ok_button = u"cmdOK", cancel_button = u"cmdCancel",
                   settings_caption = u"Settings of Create Note";
constexpr TextView on = u"1", off = u"0";
constexpr TextView at_next_start = u" From the next start on.";
constexpr forms::Color sentence_color{90, 90, 90};

// twips
constexpr int margin = 180, column_width = 5700, second_column = 2 * margin + column_width,
              window_width = second_column + column_width + margin;
constexpr int label_height = 225, box_height = 315, check_height = 285, sentence_height = 420, gap = 90;
constexpr int button_width = 1395, button_height = 375;

/// A value as the add-in has it, empty if it isn't there.
Text stored_value(const Object& add_in, const SettingRow& row) {
    return add_in.call(u"GetKeyValueEx", {host::current_user, Value(row.key), Value(row.name)}).to_text();
}

/// What the control shows of a stored value.
Text shown_value(const SettingRow& row, const Text& stored) {
    if (!row.is_switch) return stored;
    if (row.on_without_value) return Text(stored == off ? off : on);
    return Text(stored == on ? on : off);
}

/// Stores a value. The add-in doesn't tell of every failure, so it is asked for what is there then.
bool is_kept(const Object& add_in, const SettingRow& row, const Text& value) {
    constexpr std::int32_t text_type = host::registry_type::text;
    try {
        add_in.call(u"SetKeyValue",
                    {host::current_user, Value(row.key), Value(row.name), Value(value), text_type});
        return stored_value(add_in, row) == value;
    } catch (const automation::Failure&) {
        return false;
    }
}

}  // namespace

SettingsLayout::SettingsLayout() {
    int left = margin, right = margin;
    for (const SettingRow& row : setting_rows()) {
        if (row.is_switch) {
            left = add_switch(row, left);
        } else {
            right = add_text(row, right);
        }
    }
    const int bottom = std::max(left, right) + gap;
    constexpr int cancel_left = window_width - margin - button_width;
    add({.kind = ControlKind::button,
         .name = ok_button,
         .text = u"OK",
         .place = {cancel_left - gap - button_width, bottom, button_width, button_height}});
    add({.kind = ControlKind::button,
         .name = cancel_button,
         .text = u"Cancel",
         .place = {cancel_left, bottom, button_width, button_height}});
    table_ = {.name = u"Settings",
              .caption = settings_caption,
              .width = window_width,
              .height = bottom + button_height + margin,
              .default_button = ok_button,
              .cancel_button = cancel_button,
              .controls = rows_};
}

Text SettingsLayout::control_name(const SettingRow& row) {
    return (row.is_switch ? u"chk" : u"txt") + Text(row.name);
}

int SettingsLayout::add_switch(const SettingRow& row, int top) {
    add({.kind = ControlKind::check_box,
         .name = kept(control_name(row)),
         .text = row.title,
         .place = {margin, top, column_width, check_height}});
    return add_sentence(row, margin, top + check_height);
}

int SettingsLayout::add_text(const SettingRow& row, int top) {
    add({.kind = ControlKind::label,
         .name = kept(u"lbl" + Text(row.name)),
         .text = row.title,
         .place = {second_column, top, column_width, label_height}});
    add({.kind = ControlKind::text_box,
         .name = kept(control_name(row)),
         .place = {second_column, top + label_height, column_width, box_height},
         .enabled = !row.of_the_database,
         .accessible_name = row.title});
    return add_sentence(row, second_column, top + label_height + box_height);
}

int SettingsLayout::add_sentence(const SettingRow& row, int left, int top) {
    constexpr int indent = 30;
    add({.kind = ControlKind::label,
         .name = kept(u"about" + Text(row.name)),
         .text = row.read_at_start ? kept(Text(row.about) + Text(at_next_start)) : row.about,
         .place = {left + indent, top + indent, column_width - indent, sentence_height},
         .color = sentence_color});
    return top + indent + sentence_height + gap;
}

void SettingsForm::show_settings() {
    if (!loaded()) {
        const Object add_in = note_add_in(context_);  // without it no window comes up
        try {
            fill(add_in);
        } catch (...) {
            unload();
            throw;
        }
    }
    show();
}

void SettingsForm::fill(const Object& add_in) {
    before_.clear();
    for (const SettingRow& row : setting_rows()) {
        const Text value = shown_value(row, stored_value(add_in, row));
        forms::Control& control = this->control(SettingsLayout::control_name(row));
        if (row.is_switch) {
            control.selected(value == on);
        } else {
            control.text(value);
        }
        before_.push_back(value);
    }
}

Text SettingsForm::shown(const SettingRow& row) {
    const forms::Control& control = this->control(SettingsLayout::control_name(row));
    if (row.is_switch) return Text(control.selected() ? on : off);
    return automation::trimmed(control.text());
}

/// What was not touched stays as it is stored, whatever that is.
void SettingsForm::store() {
    const Object add_in = note_add_in(context_);
    Text refused;
    for (std::size_t i = 0; i < before_.size(); ++i) {
        const SettingRow& row = setting_rows()[i];
        const Text value = shown(row);
        if (value == automation::trimmed(before_[i])) continue;
        if (is_kept(add_in, row, value)) {
            before_[i] = value;
        } else {
            refused += (refused.empty() ? u"\"" : u", \"") + Text(row.title) + u"\"";
        }
    }
    if (refused.empty()) return unload();
    context_.tell(u"Windows did not store this as it stands here: " + refused + u".");
}

void SettingsForm::on_click(TextView name) {
    if (name == cancel_button) unload();
    if (name != ok_button) return;
    try {
        store();
    } catch (const automation::Failure& failure) {
        context_.tell(failure.description());
    }
}

void show_settings(Context& context) {
    ShownSettings& shown = context.shown_settings();
    if (!shown.window) {
        shown.engine = context.engine();
        shown.layout = std::make_shared<const SettingsLayout>();
        shown.window = std::make_shared<SettingsForm>(*shown.engine, *shown.layout, context);
    }
    shown.window->show_settings();
}

}  // namespace family
