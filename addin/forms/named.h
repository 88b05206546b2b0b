// Names of a window's controls that its table knows: any other is refused by the compiler.
#pragma once

#include <algorithm>

#include "forms/form_table.h"

namespace addin::forms {

constexpr bool is_list(ControlKind kind) { return kind == ControlKind::report_list; }
constexpr bool is_choice(ControlKind kind) {
    return kind == ControlKind::combo_box || kind == ControlKind::drop_down_list;
}
constexpr bool is_any(ControlKind) { return true; }

/// The row of a name, or null.
constexpr const ControlRow* find_row(const FormTable& table, host::TextView name) {
    const auto found = std::ranges::find(table.controls, name, &ControlRow::name);
    return found == table.controls.end() ? nullptr : &*found;
}

/// The name of a control of one table that has the right kind, as a constant: `Named<table>(u"Label1")`.
template <const FormTable& table, bool (*has_kind)(ControlKind) = is_any>
class Named {
  public:
    template <std::size_t size>
    consteval Named(const char16_t (&name)[size]) : name_(name) {  // NOLINT: a name is written as it stands
        const ControlRow* const row = find_row(table, name_);
        if (!row || !has_kind(row->kind)) throw "the table has no such control of that kind";
    }

    constexpr operator host::TextView() const { return name_; }  // NOLINT: the same
    friend constexpr bool operator==(Named left, host::TextView right) { return left.name_ == right; }

  private:
    host::TextView name_;
};

/// Whether all that a table says of its own controls is there: it names them only once, a frame before what
/// stands in it.
constexpr bool is_sound(const FormTable& table) {
    const auto is_there = [&](host::TextView name) { return name.empty() || find_row(table, name); };
    if (!is_there(table.default_button) || !is_there(table.cancel_button) || !is_there(table.first_focus)) {
        return false;
    }
    for (const ControlRow& row : table.controls) {
        const ControlRow* const frame = row.frame.empty() ? nullptr : find_row(table, row.frame);
        const bool in_place = row.frame.empty() || (frame && frame < &row);
        if (find_row(table, row.name) != &row || !in_place || !is_there(row.image_list)) return false;
    }
    return true;
}

}  // namespace addin::forms
