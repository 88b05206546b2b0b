// The items of a folder in which words are found.
#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "desk/base/desk.h"
#include "desk/windows/folder_columns.h"

namespace desk {

/// Looks at few items at a time, so that a large folder keeps nobody waiting, and at each but once.
class FolderSearch {
  public:
    explicit FolderSearch(Desk& desk) : desk_(desk) {}

    /// What an item must hold: each of the words, in what its line shows or in its text. Nothing is sought if
    /// there are none.
    void want(automation::TextView words);
    bool is_on() const { return !words_.empty(); }

    /// Has all items looked at again.
    void forget() { known_.clear(); }

    /// Looks at so many items that weren't looked at yet; false when all of them have been.
    bool look_further(std::span<const RowId> items, std::span<const Column> columns, std::size_t count);

    /// Those of the items that are known to hold the words, in their order.
    std::vector<RowId> found(std::span<const RowId> items) const;

  private:
    bool holds_words(RowId item, std::span<const Column> columns) const;

    Desk& desk_;
    std::vector<automation::Text> words_;  ///< in lower case
    std::unordered_map<RowId, bool> known_;
};

}  // namespace desk
