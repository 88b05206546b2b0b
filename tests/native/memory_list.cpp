#include <algorithm>
#include <utility>

#include "automation/failure.h"
#include "tests/native/memory_controls.h"
#include "tests/native/word_order.h"

namespace native {

using automation::Failure;
using automation::Text;
using automation::TextView;
using forms::HeaderItem;
using forms::Hit;
namespace result = automation::result;

namespace {

constexpr int heading_height = 24, row_height = 17;  // pixels at 96 dots per inch
constexpr int no_mark = -1;

/// The order of the system's list sort: halves are sorted and merged, and what compares as greater than 0
/// comes second. A comparison that never answers less than 0 sorts as well.
template <class Value, class Compare>
void merge_sort(std::vector<Value>& values, const Compare& compare) {
    if (values.size() < 2) return;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>((values.size() + 1) / 2);
    std::vector<Value> left(std::make_move_iterator(values.begin()), std::make_move_iterator(middle));
    std::vector<Value> right(std::make_move_iterator(middle), std::make_move_iterator(values.end()));
    merge_sort(left, compare);
    merge_sort(right, compare);
    values.clear();
    auto first = left.begin(), second = right.begin();
    while (first != left.end() || second != right.end()) {
        const bool take_second =
            first == left.end() || (second != right.end() && compare(*first, *second) > 0);
        values.push_back(std::move(take_second ? *second++ : *first++));
    }
}

}  // namespace

MemoryList::MemoryList(const forms::ControlRow& row, int dots_per_inch, BeforeCall before_call)
    : before_call_(std::move(before_call)), dots_per_inch_(dots_per_inch) {
    for (const forms::Column& column : row.columns) {
        columns_.push_back({Text(column.heading), forms::to_pixels(column.width, dots_per_inch_), {}});
    }
}

const MemoryList::Row& MemoryList::at(int row) const {
    if (row < 0 || row >= count()) throw Failure(result::bad_index, u"The list has no such row.");
    return rows_[static_cast<std::size_t>(row)];
}

const MemoryList::Column& MemoryList::column_at(int column) const {
    if (column < 0 || column >= columns()) throw Failure(result::bad_index, u"The list has no such column.");
    return columns_[static_cast<std::size_t>(column)];
}

MemoryList::Column& MemoryList::column_at(int column) {
    return const_cast<Column&>(std::as_const(*this).column_at(column));
}

void MemoryList::clear() {
    rows_.clear();
    selected_ = 0;
}

int MemoryList::compare(const Row& left, const Row& right) const {
    const auto key = static_cast<std::size_t>(key_);
    const int rising = compare_words(left.texts[key], right.texts[key]);
    return order_ == 0 ? rising : -rising;
}

void MemoryList::sort() {
    if (!sorted_) return;
    merge_sort(rows_, [this](const Row& left, const Row& right) { return compare(left, right); });
}

int MemoryList::add(std::span<const Text> cells) {
    if (!cells.empty()) column_at(static_cast<int>(cells.size()) - 1);
    before_call_("list_add");
    Row row{++made_, {cells.begin(), cells.end()}};
    row.texts.resize(columns_.size());
    auto place = rows_.end();
    if (sorted_) {
        place = std::ranges::upper_bound(
            rows_, row, [this](const Row& left, const Row& right) { return compare(left, right) < 0; });
    }
    const auto added = rows_.insert(place, std::move(row));
    return static_cast<int>(added - rows_.begin());
}

Text MemoryList::text(int row, int column) const {
    column_at(column);
    return at(row).texts[static_cast<std::size_t>(column)];
}

int MemoryList::text(int row, int column, TextView text) {
    const std::intptr_t changed = at(row).parameter;
    column_at(column);
    if (!goes_through(before_call_, "list_text")) return row;
    rows_[static_cast<std::size_t>(row)].texts[static_cast<std::size_t>(column)] = text;
    if (column == key_) sort();
    return find(changed);
}

void MemoryList::takes_drops(bool takes) {
    if (takes != takes_drops_) before_call_("takes_drops");
    takes_drops_ = takes;
}

int MemoryList::selected() const { return selected_ == 0 ? -1 : find(selected_); }

void MemoryList::select(int row) { selected_ = row == -1 ? 0 : at(row).parameter; }

Text MemoryList::heading(int column) const { return column_at(column).heading; }
void MemoryList::heading(int column, TextView text) { column_at(column).heading = text; }
int MemoryList::width(int column) const { return forms::to_twips(column_at(column).pixels, dots_per_inch_); }
void MemoryList::width(int column, int twips) {
    column_at(column).pixels = forms::to_pixels(twips, dots_per_inch_);
}
int MemoryList::pixel_width(int column) const { return column_at(column).pixels; }

void MemoryList::header_item(int column, const HeaderItem& item) {
    HeaderItem& stored = column_at(column).item;
    stored.mask = item.mask;
    if (item.mask & forms::header::format) stored.format = item.format;
    if (item.mask & forms::header::image) stored.image = item.image;
    if (item.mask & forms::header::text) column_at(column).heading = item.text;
    stored.text = column_at(column).heading;
}

const HeaderItem& MemoryList::header_item(int column) const { return column_at(column).item; }

int MemoryList::mark(int column) const {
    const HeaderItem& item = column_at(column).item;
    return item.format & forms::header::with_image ? item.image : no_mark;
}

void MemoryList::sort_order(int order) {
    order_ = order;
    sort();
}

void MemoryList::sort_key(int column) {
    column_at(column);
    key_ = column;
    sort();
}

void MemoryList::sorted(bool sorted) {
    sorted_ = sorted;
    sort();
}

void MemoryList::sort_rows(const std::function<int(std::intptr_t, std::intptr_t)>& compare) {
    std::vector<Row> rows = rows_;  // the comparison looks at the list meanwhile
    merge_sort(rows,
               [&](const Row& left, const Row& right) { return compare(left.parameter, right.parameter); });
    rows_ = std::move(rows);
}

int MemoryList::find(std::intptr_t parameter) const {
    const auto found = std::ranges::find(rows_, parameter, &Row::parameter);
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

void MemoryList::extended_style(std::uint32_t mask, std::uint32_t value) {
    extended_style_ = (extended_style_ & ~mask) | (value & mask);
}

int MemoryList::scaled(int pixels_at_96) const {
    constexpr int plain = 96;
    return pixels_at_96 * dots_per_inch_ / plain;
}

Hit MemoryList::hit(int x, int y) const {
    const int below_heading = y - scaled(heading_height);
    if (below_heading < 0 || x < 0) return {};
    const int row = below_heading / scaled(row_height);
    if (row >= count()) return {};
    int right = 0;
    for (int column = 0; column < columns(); ++column) {
        right += columns_[static_cast<std::size_t>(column)].pixels;
        if (x < right) return {row, column};
    }
    return {};
}

MemoryList::Point MemoryList::middle(int row, int column) const {
    const int shown = row == -1 ? count() : row;
    int left = 0;
    for (int before = 0; before < column; ++before) left += pixel_width(before);
    return {left + pixel_width(column) / 2,
            scaled(heading_height) + scaled(row_height) * shown + scaled(row_height) / 2};
}

}  // namespace native
