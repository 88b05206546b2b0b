// What can be written in the window of an item, class by class.
#pragma once

#include <span>

#include "desk/outlook/item.h"

namespace desk {

/// The control that a field is written in.
enum class FieldLook {
    line,    ///< of text
    day,     ///< the system's control for dates
    moment,  ///< the same with a time of day
    flag,    ///< a box to be checked
    choice   ///< one of several words, for a number from 0
};

/// A field with what stands before it.
struct FormLine {
    automation::TextView title, field;
    FieldLook look = FieldLook::line;
    bool is_wide = false;                              ///< over both columns
    std::int32_t people = 0;                           ///< the kind of the recipients that it names; 0: none
    std::span<const automation::TextView> words = {};  ///< of a choice
};

/// The lines above the text of an item that can be written.
struct ItemForm {
    std::int32_t number;  ///< of the item's class
    std::span<const FormLine> lines;
    bool two_columns;
};

/// How an item is written; null for one that is only read.
const ItemForm* form_for(const Item& item);

/// The lines above the text of an item that is only read.
std::span<const FormLine> read_lines();

/// The user properties that stand on the first page of a record's window, too: what it belongs to.
std::span<const automation::TextView> record_keys();

/// Has a field of the host's or a user property hold what a person has entered. They throw
/// `automation::Failure` for what it can't hold.
void enter_field(Item& item, automation::TextView field, const automation::Value& entered);
void enter_property(Item& item, automation::TextView property, const automation::Value& entered);

}  // namespace desk
