#include "desk/windows/item_lines.h"

#include <algorithm>

#include "desk/outlook/item_kinds.h"

namespace desk {

using automation::Value;

namespace {

/// In larger folders what was read once is not read again at each change: an item that changes there keeps
/// its line until the folder is sorted anew.
constexpr std::size_t read_again = 2000;

}  // namespace

std::optional<Sorting> ItemLines::sorting(RowId folder) const {
    const FolderRow* const row = desk_.folder_row(folder);
    if (!row) return {};
    if (const auto wanted = wanted_.find(folder); wanted != wanted_.end()) return wanted->second;
    const std::span<const Column> columns = columns_of(*row);
    const auto found = std::ranges::find_if(columns, &Column::newest_first);
    if (found == columns.end()) return {};
    return Sorting{static_cast<int>(found - columns.begin()), true};
}

void ItemLines::sort_by(RowId folder, int column) {
    const FolderRow* const row = desk_.folder_row(folder);
    if (!row || column < 0 || static_cast<std::size_t>(column) >= columns_of(*row).size()) return;
    const std::optional<Sorting> now = sorting(folder);
    const bool again = now && now->column == column;
    const bool descending = columns_of(*row)[static_cast<std::size_t>(column)].newest_first;
    wanted_[folder] = {column, again ? !now->descending : descending};
    keys_.clear();
}

ItemLines::Key ItemLines::key_of(RowId item, const Column& column) {
    const std::optional<ItemRow> row = desk_.store().load(item);
    if (!row) return {};
    const std::optional<Value> value = field_value(row->data, column.field);
    using Type = Value::Type;
    if (value && value->is(Type::date))
        return {value->to_date() == no_date ? 0.0 : value->to_date().days, {}};
    if (value && (value->is(Type::integer) || value->is(Type::number) || value->is(Type::boolean))) {
        return {value->to_number(), {}};
    }
    return {0.0, cell_text(row->data, column)};
}

void ItemLines::note_keys(RowId folder, const Column& column, const std::vector<RowId>& items) {
    const bool may_change = !column.newest_first;  // a date of receipt stays
    if (folder != folder_ || column_ != &column || (may_change && items.size() <= read_again)) keys_.clear();
    folder_ = folder;
    column_ = &column;
    for (const RowId item : items) {
        if (!keys_.contains(item)) keys_.emplace(item, key_of(item, column));
    }
}

/// Whether the lines that were made last are still those of the folder: none has come or gone, and what they
/// were sorted by is not read again.
bool ItemLines::are_sorted(RowId folder, const std::vector<RowId>& arrived,
                           const std::optional<Sorting>& sorting) const {
    if (folder != folder_ || sorting != sorted_by_ || arrived != arrived_) return false;
    const bool stays = !sorting || column_->newest_first || arrived.size() > read_again;
    return stays && (!sorting || keys_.size() >= arrived.size());
}

const std::vector<RowId>& ItemLines::of(RowId folder) {
    const FolderRow* const row = desk_.folder_row(folder);
    if (!row) {
        lines_.clear();
        arrived_.clear();
        return lines_;
    }
    const std::vector<RowId>& arrived = desk_.contents(folder);
    const std::optional<Sorting> sorting = this->sorting(folder);
    if (are_sorted(folder, arrived, sorting)) return lines_;
    arrived_ = arrived;
    sorted_by_ = sorting;
    lines_.assign(arrived.rbegin(), arrived.rend());
    if (!sorting) {
        folder_ = folder;
        return lines_;
    }
    note_keys(folder, columns_of(*row)[static_cast<std::size_t>(sorting->column)], lines_);
    const auto before = [&](RowId left, RowId right) {
        const Key &one = keys_.at(left), &other = keys_.at(right);
        if (one.number != other.number) return one.number < other.number;
        return automation::compare_ignoring_case(one.text, other.text) < 0;
    };
    if (sorting->descending) {
        std::ranges::stable_sort(lines_, [&](RowId left, RowId right) { return before(right, left); });
    } else {
        std::ranges::stable_sort(lines_, before);
    }
    return lines_;
}

}  // namespace desk
