// What the picker lists: the records of a folder as rows of text.
#pragma once

#include <array>
#include <vector>

#include "addin/host/outlook.h"
#include "family/context.h"

namespace family {

/// The columns of the picker's rows, from 0.
namespace picker_column {
inline constexpr int name = 0, shown = 6;  ///< so many are shown, the name is the first
inline constexpr int record_id = 6;        ///< the record's own id
inline constexpr int entry_id = 7;
inline constexpr int count = 8;
}  // namespace picker_column

using PickerRow = std::array<automation::Text, picker_column::count>;

struct PickerRows {
    std::array<automation::TextView, picker_column::shown> headings;
    std::vector<PickerRow> rows;
};

/// The records of a folder, in its order. Which columns they have is told by the class of the folder's
/// records. What an item doesn't bear stays empty, and an item without an entry id is left out. Throws
/// `Failure` if the folder can't be read.
PickerRows read_picker_rows(const host::outlook::Folder& folder);

/// Whether one of the shown columns holds the text, in any case. The empty text is in every row.
bool holds(const PickerRow& row, automation::TextView text);

}  // namespace family
