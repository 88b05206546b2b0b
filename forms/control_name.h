// Names of a window's controls that its table knows: any other is refused by the compiler.
#pragma once

#include <algorithm>
#include <cstddef>

#include "forms/form_table.h"

namespace forms {

constexpr bool is_list(ControlKind kind) { return kind == ControlKind::report_list; }
constexpr bool is_choice(ControlKind kind) {
    return kind == ControlKind::combo_box || kind == ControlKind::drop_down_list;
}
constexpr bool is_any(ControlKind) { return true; }

/// Where the row of a name stands, or the number of rows. A number, since a compiler that looks for undefined
/// behaviour takes no comparison of addresses for a constant.
constexpr std::size_t place_of(const FormTable& table, automation::TextView name) {
    const auto found = std::ranges::find(table.controls, name, &ControlRow::name);
    return static_cast<std::size_t>(found - table.controls.begin());
}

/// Whether a table has a control of a name and of the right kind.
constexpr bool knows(const FormTable& table, automation::TextView name, bool (*has_kind)(ControlKind)) {
    const std::size_t place = place_of(table, name);
    return place < table.controls.size() && has_kind(table.controls[place].kind);
}

/// The name of a control of one table that has the right kind, as a constant:
/// `ControlName<table>(u"Label1")`.
template <const FormTable& table, bool (*has_kind)(ControlKind) = is_any>
class ControlName {
  public:
    template <std::size_t size>
    consteval ControlName(const char16_t (&name)[size])
        : name_(name) {  // NOLINT: a name is written as it stands
        if (!knows(table, name_, has_kind)) throw "the table has no such control of that kind";
    }

    constexpr operator automation::TextView() const { return name_; }  // NOLINT: the same
    friend constexpr bool operator==(ControlName left, automation::TextView right) {
        return left.name_ == right;
    }

  private:
    automation::TextView name_;
};

/// Whether all that a table says of its own controls is there: it names them only once, a frame before what
/// stands in it.
constexpr bool is_sound(const FormTable& table) {
    const std::size_t count = table.controls.size();
    const auto is_there = [&](automation::TextView name) {
        return name.empty() || place_of(table, name) < count;
    };
    if (!is_there(table.default_button) || !is_there(table.cancel_button) || !is_there(table.first_focus)) {
        return false;
    }
    for (std::size_t place = 0; place < count; ++place) {
        const ControlRow& row = table.controls[place];
        const bool in_place = row.frame.empty() || place_of(table, row.frame) < place;
        if (place_of(table, row.name) != place || !in_place || !is_there(row.image_list)) return false;
    }
    return true;
}

}  // namespace forms
