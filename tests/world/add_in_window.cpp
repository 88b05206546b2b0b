#include "tests/world/add_in_window.h"

namespace acceptance {

using automation::Object;
using automation::TextView;
using automation::Value;

Object AddInWindow::window() const { return window_of(world_, caption_); }

bool AddInWindow::is_open() const { return is_shown(window()); }

bool AddInWindow::closes() const {
    return world_.wait_until([&] { return !is_open(); });
}

Object AddInWindow::control(TextView name) const {
    return window().call(u"Control", {Value(name)}).to_object();
}

std::string AddInWindow::text(TextView name) const { return shown(control(name).get(u"Text").to_text()); }

bool AddInWindow::is_chosen(TextView toggle) const {
    return control(toggle).get(u"Selected").to_integer() == 1;
}

bool AddInWindow::is_enabled(TextView name) const { return control(name).get(u"Enabled").to_boolean(); }

void AddInWindow::click(TextView name) const {
    control(name).call(u"Click");
    world_.settle();
}

void AddInWindow::type(TextView name, TextView text) const { control(name).put(u"Text", text); }

void AddInWindow::choose(TextView list_name, TextView entry) const {
    const Lines all = entries(list_name);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i] != shown(entry)) continue;
        control(list_name).call(u"Select", {static_cast<std::int32_t>(i) + 1});
        world_.settle();
        return;
    }
    ADD_FAILURE() << "there is no entry " << shown(entry);
}

Lines AddInWindow::entries(TextView list_name) const {
    const Object box = control(list_name);
    const std::int32_t entry_count = box.get(u"Count").to_integer();
    Lines all;
    for (std::int32_t i = 1; i <= entry_count; ++i) all.push_back(shown(box.call(u"Item", {i}).to_text()));
    return all;
}

std::int32_t AddInWindow::count() const { return control(list_).get(u"Count").to_integer(); }

std::string AddInWindow::cell(std::int32_t row, int column) const {
    const Object there = control(list_).call(u"Item", {row}).to_object();
    return shown(column == 1 ? there.get(u"Text").to_text() : there.get(u"SubItems", {column - 1}).to_text());
}

Lines AddInWindow::column(int number) const {
    Lines cells;
    const std::int32_t row_count = count();
    for (std::int32_t row = 1; row <= row_count; ++row) cells.push_back(cell(row, number));
    return cells;
}

Lines AddInWindow::rows() const {
    Lines told;
    const std::int32_t row_count = count();
    for (std::int32_t row = 1; row <= row_count; ++row) {
        std::string line = cell(row, 1);
        for (int column = 2; column < columns_; ++column) line += "|" + cell(row, column);
        while (line.ends_with('|')) line.pop_back();
        told.push_back(line);
    }
    return told;
}

Lines AddInWindow::headings() const {
    Lines texts;
    for (int i = 1; i < columns_; ++i) {
        texts.push_back(shown(control(list_).get(u"Columns", {i}).to_object().get(u"Text").to_text()));
    }
    return texts;
}

std::vector<std::int32_t> AddInWindow::marks() const {
    std::vector<std::int32_t> images;
    for (int i = 1; i <= columns_; ++i) {
        images.push_back(control(list_).get(u"Columns", {i}).to_object().get(u"Image").to_integer());
    }
    return images;
}

std::int32_t AddInWindow::width(int column) const {
    return control(list_).get(u"Columns", {column}).to_object().get(u"Width").to_integer();
}

std::int32_t AddInWindow::selected() const { return control(list_).get(u"Selected").to_integer(); }

void AddInWindow::select(std::int32_t row) const {
    control(list_).call(u"Select", {row});
    world_.settle();
}

void AddInWindow::click_column(int number) const {
    control(list_).call(u"ColumnClick", {number});
    world_.settle();
}

void AddInWindow::double_click() const {
    control(list_).call(u"DoubleClick");
    world_.settle();
}

}  // namespace acceptance
