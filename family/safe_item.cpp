#include "family/safe_item.h"

namespace family {

const host::Members<SafeContactItem>& SafeContactItem::members() {
    static const host::Members<SafeContactItem> table{
        item_row<SafeContactItem>(1), fields_row<SafeContactItem>(2), named_row<SafeContactItem>(3)};
    return table;
}

const host::Members<SafePostItem>& SafePostItem::members() {
    static const host::Members<SafePostItem> table{item_row<SafePostItem>(1), fields_row<SafePostItem>(2),
                                                   named_row<SafePostItem>(3)};
    return table;
}

}  // namespace family
