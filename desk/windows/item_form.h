// What can be written in the window of an item, class by class.
#pragma once

#include <span>

#include "desk/outlook/item.h"

namespace desk {

/// A field with what stands before it.
struct FormLine {
    automation::TextView title, field;
    std::int32_t people = 0;  ///< the kind of the recipients that it names; 0: none
};

/// The lines above the text of an item that can be written. The user properties of a record follow them.
struct ItemForm {
    std::int32_t number;  ///< of the item's class
    std::span<const FormLine> lines;
    bool two_columns;
};

/// How an item is written; null for one that is only read.
const ItemForm* form_for(const Item& item);

/// The lines above the text of an item that is only read.
std::span<const FormLine> read_lines();

}  // namespace desk
