#include "desk/windows/item_fields.h"

#include <algorithm>

#include "desk/outlook/written_people.h"
#include "desk/windows/shown_value.h"
#include "forms/windows/drawing.h"
#include "forms/windows/form_control.h"

namespace desk {

using automation::Text;
using automation::Value;

namespace {

constexpr int first_id = 100;  // menus begin at 800
// pixels
constexpr int gap = 6, row_height = 22, title_drop = 4, open_list_height = 160, least_title_width = 60;

constexpr std::int32_t date_type = 5, yes_no_type = 6;  // OlUserPropertyType
constexpr std::int32_t number_types[] = {3, 7, 12, 14, 20};

bool is_number(std::int32_t property_type) {
    return std::ranges::find(number_types, property_type) != std::end(number_types);
}

int width_of(const Text& text) {
    const windows::ScreenContext screen;
    const windows::Selected font(screen.get(), GetStockObject(DEFAULT_GUI_FONT));
    SIZE size{};
    GetTextExtentPoint32W(screen.get(), windows::wide(text), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

}  // namespace

void ItemFields::add(const FormLine& line, std::int32_t property_type, int page) {
    const bool has_title = line.look != FieldLook::flag;  // which bears its own
    const Text title = Text(line.title) + (has_title ? u":" : u"");
    const HWND label = has_title ? make_({WC_STATICW, SS_RIGHT | SS_NOPREFIX, 0}, 0, title) : nullptr;
    const int id = first_id + static_cast<int>(fields_.size());
    Field field{label, nullptr, Text(line.field), property_type, line.look, line.is_wide, line.people,
                page,  0};
    if (has_title) field.title_width = width_of(title);
    const bool can_be_none = line.look == FieldLook::day || value_of(field) == Value(no_date);
    field.control = make_(control_class(line.look, can_be_none), id, has_title ? Text() : title);
    prepare_control(field.control, line);
    fields_.push_back(std::move(field));
}

void ItemFields::add(const FormLine& line) { add(line, 0, first_page); }

void ItemFields::add_property(const UserPropertyData& property, int page) {
    const FieldLook look = property.type == yes_no_type ? FieldLook::flag : FieldLook::line;
    add({.title = property.name, .field = property.name, .look = look}, property.type, page);
}

void ItemFields::add_text(bool is_written) {
    constexpr DWORD several_lines =
        WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | ES_NOHIDESEL;
    const int id = first_id + static_cast<int>(fields_.size());
    text_ = make_({WC_EDITW, several_lines | (is_written ? 0 : ES_READONLY), WS_EX_CLIENTEDGE}, id, {});
    fields_.push_back({nullptr, text_, u"Body", 0, FieldLook::line, true, 0, first_page, 0});
}

HWND ItemFields::first(int page) const { return std::ranges::find(fields_, page, &Field::page)->control; }

Value ItemFields::value_of(const Field& field) const {
    const ItemData& item = item_->data();
    if (field.property_type == 0) return built_in_value(item, field.name).value_or(Value());
    const auto found = std::ranges::find_if(item.user_properties, [&](const UserPropertyData& property) {
        return automation::same_ignoring_case(property.name, field.name);
    });
    return found == item.user_properties.end() ? Value() : found->value;
}

/// A line shows a text, everything else its value.
Value ItemFields::shown_of(const Field& field) const {
    if (field.people != 0) return written_line(item_->data(), field.people);
    const Value value = value_of(field);
    return field.look == FieldLook::line ? Value(shown_value(value)) : value;
}

void ItemFields::show(Field& field) {
    Value now = shown_of(field);
    if (now == field.known) return;
    field.refusal.clear();
    if (field.look == FieldLook::line) {
        SetWindowTextW(field.control, windows::wide(now.to_text()));
    } else {
        show_in(field.control, field.look, now);
    }
    field.known = std::move(now);
}

void ItemFields::show() {
    showing_ = true;
    for (Field& field : fields_) show(field);
    showing_ = false;
}

void ItemFields::show_again(Field& field) {
    field.known = Value();
    showing_ = true;
    show(field);
    showing_ = false;
}

int ItemFields::title_width(int page) const {
    int width = least_title_width;
    for (const Field& field : fields_) {
        if (field.page == page) width = std::max(width, field.title_width);
    }
    return width;
}

int ItemFields::place(int page, int top, int width, int columns) const {
    const int title = title_width(page), column_width = (width - gap * (columns - 1)) / columns;
    int column = 0;
    const auto end_row = [&] {
        if (column != 0) top += row_height + gap;
        column = 0;
    };
    for (const Field& field : fields_) {
        const bool is_here = field.page == page;
        for (const HWND part : {field.title, field.control}) {
            if (part) ShowWindow(part, is_here ? SW_SHOWNA : SW_HIDE);
        }
        if (!is_here || field.control == text_) continue;
        if (field.is_wide) end_row();
        const int left = gap + column * (column_width + gap), control_left = left + title + gap;
        const int control_width = (field.is_wide ? width : column_width) - title - gap;
        const int height = field.look == FieldLook::choice ? open_list_height : row_height;
        if (field.title)
            MoveWindow(field.title, left, top + title_drop, title, row_height - title_drop, TRUE);
        MoveWindow(field.control, control_left, top, control_width, height, TRUE);
        column = field.is_wide ? columns : column + 1;
        if (column == columns) end_row();
    }
    end_row();
    return top;
}

void ItemFields::enter(const Field& field, const Value& entered) const {
    if (field.property_type == 0) return enter_field(*item_, field.name, entered);
    if (entered != Value(u"")) return enter_property(*item_, field.name, entered);
    if (field.property_type == date_type) return enter_property(*item_, field.name, no_date);
    enter_property(*item_, field.name, is_number(field.property_type) ? Value(0) : entered);
}

Text ItemFields::refusal_of(const Field& field, const automation::Failure& failure) {
    const Text said = u"\"" + windows::window_text(field.control) + u"\" can't be read as a ";
    if (field.property_type == date_type) return said + u"date: write it as 2026-03-05 10:30.";
    return is_number(field.property_type) ? said + u"number." : failure.description();
}

void ItemFields::take(Field& field) {
    const bool is_line = field.look == FieldLook::line;
    const Value entered =
        is_line ? Value(windows::window_text(field.control)) : entered_in(field.control, field.look);
    try {
        enter(field, entered);
    } catch (const automation::Failure& failure) {
        field.refusal = refusal_of(field, failure);  // a date, say, that isn't whole yet
        field.is_told = !is_line;
        return;
    }
    field.refusal.clear();
    field.is_told = false;
    if (is_line) {
        field.known = shown_of(field);  // what is being typed stays as it is typed
    } else if (value_of(field) != entered) {
        show_again(field);
    } else {
        field.known = entered;
    }
}

bool ItemFields::on_command(int id, int code) {
    const int place = id - first_id;
    if (place < 0 || place >= static_cast<int>(fields_.size())) return false;
    if (showing_ || item_->is_gone() || !form_for(*item_)) return true;
    Field& field = fields_[static_cast<std::size_t>(place)];
    if (is_change(field.look, code)) {
        take(field);
    } else if (field.look == FieldLook::line && code == EN_KILLFOCUS) {
        if (!field.refusal.empty()) {
            field.is_told = true;
        } else if (Value(windows::window_text(field.control)) != shown_of(field)) {
            show_again(field);
        }
    }
    return true;
}

bool ItemFields::on_date(HWND control) {
    const auto field = std::ranges::find(fields_, control, &Field::control);
    if (field == fields_.end()) return false;
    if (!showing_ && !item_->is_gone()) take(*field);
    return true;
}

Text ItemFields::refusal() const {
    const auto told = std::ranges::find_if(
        fields_, [](const Field& field) { return field.is_told && !field.refusal.empty(); });
    return told == fields_.end() ? Text() : told->refusal;
}

std::optional<ItemFields::Refused> ItemFields::refused() {
    const auto found =
        std::ranges::find_if(fields_, [](const Field& field) { return !field.refusal.empty(); });
    if (found == fields_.end()) return std::nullopt;
    found->is_told = true;
    return Refused{found->control, found->page};
}

}  // namespace desk
