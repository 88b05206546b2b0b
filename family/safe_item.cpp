#include "family/safe_item.h"

namespace family {

const automation::Members<SafeContactItem>& SafeContactItem::members() {
    static const automation::Members<SafeContactItem> table{
        item_row<SafeContactItem>(1), fields_row<SafeContactItem>(2), named_row<SafeContactItem>(3)};
    return table;
}

const automation::Members<SafePostItem>& SafePostItem::members() {
    static const automation::Members<SafePostItem> table{
        item_row<SafePostItem>(1), fields_row<SafePostItem>(2), named_row<SafePostItem>(3)};
    return table;
}

}  // namespace family
