#include "family/list_picker_form.h"

#include <algorithm>
#include <span>
#include <utility>

#include "forms/control_name.h"
#include "forms/pictures.h"
#include "forms/sort_marks.h"

namespace family {

using automation::TextView;
using forms::Column;
using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;
using forms::List;

namespace {

constexpr TextView search_text = u"txtSearch", items_list = u"lstItems", chosen_list = u"lstChosen",
                   marks = u"ImageList1", ok = u"cmdOK", cancel = u"cmdCancel", add_one = u"cmdAdd",
                   remove_one = u"cmdRemove";

/// The ids have a column each, which is not shown. The others fit in beside a scroll bar.
constexpr Column columns[] = {{u"Name", 2400}, {u"City", 1200}, {u"Phone", 1500}, {u"Address", 1650},
                              {u"State", 800}, {u"Zip", 700},   {u"ID", 0},       {u"EntryID", 0}};
static_assert(std::size(columns) == picker_column::count);

constexpr ControlRow controls[] = {
    {.kind = ControlKind::label, .name = u"Label1", .text = u"Search for:", .place = {120, 180, 1080, 255}},
    {.kind = ControlKind::text_box,
     .name = search_text,
     .place = {1260, 120, 7400, 315},
     .tool_tip = u"Type a part of a name, city, phone or address to shorten the list.",
     .accessible_name = u"Search for"},
    {.kind = ControlKind::report_list,
     .name = items_list,
     .place = {120, 600, 8540, 3450},
     .tool_tip = u"Double click an entry to take it.",
     .columns = columns,
     .image_list = marks,
     .accessible_name = u"Entries"},
    {.kind = ControlKind::button, .name = ok, .text = u"OK", .place = {8880, 600, 1395, 375}},
    {.kind = ControlKind::button, .name = cancel, .text = u"Cancel", .place = {8880, 1095, 1395, 375}},
    {.kind = ControlKind::image_list, .name = marks, .pictures = forms::sort_marks},
    // the window that takes one ends here
    {.kind = ControlKind::button,
     .name = add_one,
     .text = u"Add",
     .place = {8880, 3675, 1395, 375},
     .tool_tip = u"Puts the highlighted entry among those that are taken."},
    {.kind = ControlKind::report_list,
     .name = chosen_list,
     .place = {120, 4200, 8540, 1800},
     .tool_tip = u"The entries that are taken.",
     .columns = columns,
     .image_list = marks,
     .accessible_name = u"Chosen entries"},
    {.kind = ControlKind::button,
     .name = remove_one,
     .text = u"Remove",
     .place = {8880, 4200, 1395, 375},
     .tool_tip = u"Takes the highlighted entry out again."},
};
constexpr std::size_t controls_for_several = 3;
constexpr int width = 10400;

constexpr FormTable table_of(std::span<const ControlRow> shown, int height) {
    return {.name = u"ListPicker",
            .width = width,
            .height = height,
            .default_button = ok,
            .cancel_button = cancel,
            .first_focus = search_text,
            .controls = shown};
}
constexpr FormTable for_one =
    table_of(std::span(controls).first<std::size(controls) - controls_for_several>(), 4200);
constexpr FormTable for_several = table_of(controls, 6150);
static_assert(forms::is_sound(for_one) && forms::is_sound(for_several));

void set_headings(List& list, const PickerRows& rows) {
    for (int column = 0; column < picker_column::shown; ++column) {
        list.heading(column, rows.headings[static_cast<std::size_t>(column)]);
    }
}

}  // namespace

const FormTable& list_picker_table(Choice choice) { return choice == Choice::one ? for_one : for_several; }

ListPickerForm::ListPickerForm(forms::Engine& engine, Choice choice)
    : Form(engine, list_picker_table(choice)), choice_(choice) {}

List& ListPickerForm::list() { return control(items_list).list(); }

void ListPickerForm::fill(PickerRows rows) {
    rows_ = std::move(rows);
    added_.clear();
    set_headings(list(), rows_);
    show_matches();
    if (choice_ == Choice::one) return;
    set_headings(control(chosen_list).list(), rows_);
    show_added();
}

std::optional<std::vector<PickerRow>> ListPickerForm::choose() {
    taken_.reset();
    show_modal();
    unload();
    return std::move(taken_);
}

void ListPickerForm::show_matches() {
    List& shown = list();
    const automation::Text text = control(search_text).text();
    shown.clear();
    for (const PickerRow& row : rows_.rows) {
        if (holds(row, text)) shown.add(row);
    }
    if (shown.count() > 0) shown.select(0);
}

void ListPickerForm::show_added() {
    List& shown = control(chosen_list).list();
    shown.clear();
    for (const PickerRow& row : added_) shown.add(row);
    if (shown.count() > 0) shown.select(shown.count() - 1);
}

const PickerRow* ListPickerForm::highlighted(List& list) const {
    if (list.selected() < 0) return nullptr;
    const automation::Text id = list.text(list.selected(), picker_column::entry_id);
    const auto found = std::ranges::find_if(
        rows_.rows, [&](const PickerRow& row) { return row[picker_column::entry_id] == id; });
    return found == rows_.rows.end() ? nullptr : &*found;
}

void ListPickerForm::add() {
    const PickerRow* const row = highlighted(list());
    if (!row || std::ranges::find(added_, *row) != added_.end()) return;
    added_.push_back(*row);
    show_added();
}

void ListPickerForm::remove() {
    const PickerRow* const row = highlighted(control(chosen_list).list());
    if (!row) return;
    std::erase(added_, *row);
    show_added();
}

void ListPickerForm::take() {
    if (added_.empty()) {
        if (const PickerRow* const row = highlighted(list())) added_.push_back(*row);
    }
    taken_ = std::exchange(added_, {});
    hide();
}

void ListPickerForm::on_click(TextView name) {
    if (name == ok) take();
    if (name == cancel) hide();
    if (name == add_one) add();
    if (name == remove_one) remove();
}

void ListPickerForm::on_double_click(TextView name) {
    if (name == chosen_list) {
        remove();
    } else if (list().selected() >= 0) {
        if (choice_ == Choice::several) add();
        take();
    }
}

void ListPickerForm::on_change(TextView name) {
    if (name == search_text) show_matches();
}

void ListPickerForm::on_column_click(TextView name, int column) {
    if (name == items_list) forms::sort_by_column(list(), column, last_sort_column_);
}

}  // namespace family
