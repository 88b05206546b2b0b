// The items of a folder as the lines of a list, in the order that a person wants.
#pragma once

#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

#include "desk/base/desk.h"
#include "desk/windows/folder_columns.h"

namespace desk {

/// The column, counted from 0, by which lines are sorted.
struct Sorting {
    int column;
    bool descending;
    friend bool operator==(const Sorting&, const Sorting&) = default;
};

/// What is equal, and everything where nothing is sorted by, stands by its arrival, the newest first. Each
/// folder keeps its sorting as long as the window lives.
class ItemLines {
  public:
    explicit ItemLines(Desk& desk) : desk_(desk) {}

    /// The lines of a folder as they are now. Where nothing has changed nothing is sorted or read.
    const std::vector<RowId>& of(RowId folder);

    std::optional<Sorting> sorting(RowId folder) const;

    /// What a click on a column's heading does: sorts by it, and a second one the other way round.
    void sort_by(RowId folder, int column);

    /// Has all items read again.
    void forget() { keys_.clear(); }

  private:
    struct Key {
        double number;  ///< of dates, numbers and booleans
        automation::Text text;
    };

    Key key_of(RowId item, const Column& column);
    bool are_sorted(RowId folder, const std::vector<RowId>& arrived,
                    const std::optional<Sorting>& sorting) const;
    void note_keys(RowId folder, const Column& column, const std::vector<RowId>& items);

    Desk& desk_;
    std::map<RowId, Sorting> wanted_;  ///< by folder, what a person has clicked
    RowId folder_ = 0;                 ///< whose keys are kept
    const Column* column_ = nullptr;
    std::unordered_map<RowId, Key> keys_;
    std::vector<RowId> arrived_, lines_;  ///< what was sorted last, and what came of it
    std::optional<Sorting> sorted_by_;
};

}  // namespace desk
