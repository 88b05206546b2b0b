// What the list of a main window shows of the items of each folder.
#pragma once

#include <span>

#include "desk/store/store.h"

namespace desk {

struct Column {
    automation::TextView title, field;
    int width;                  ///< pixels
    bool newest_first = false;  ///< holds dates, of which the latest comes first
};

/// The columns of a folder, by what it holds; those of records end with their key. Where one of them is
/// marked `newest_first`, the folder's items are sorted by it until a person wants something else.
std::span<const Column> columns_of(const FolderRow& folder);

/// The fields of columns in one text, which tells them from others.
automation::Text fields_of(std::span<const Column> columns);

/// What stands in a column for an item: "Yes" or nothing for what can only be one of two things.
automation::Text cell_text(const ItemData& item, const Column& column);

}  // namespace desk
