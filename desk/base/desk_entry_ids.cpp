// The ids by which items and folders are known outside.
#include "desk/base/desk.h"

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr char16_t digits[] = u"0123456789ABCDEF";
constexpr TextView id_start = u"00000000";
constexpr TextView folder_kind = u"0100", item_kind = u"0700";
constexpr std::size_t uid_digits = Desk::store_uid_digits, row_digits = 16;
constexpr std::size_t id_digits = 8 + uid_digits + 4 + row_digits;

Text hexadecimal(RowId row) {
    Text text(row_digits, u'0');
    auto value = static_cast<std::uint64_t>(row);
    for (std::size_t i = row_digits; i-- > 0; value >>= 4) text[i] = digits[value & 0xF];
    return text;
}

/// The row of an id of a kind; nothing for any other text.
std::optional<RowId> row_of(TextView id, TextView kind) {
    if (id.size() != id_digits || !id.starts_with(id_start)) return std::nullopt;
    if (id.substr(id_start.size() + uid_digits, kind.size()) != kind) return std::nullopt;
    std::uint64_t value = 0;
    for (const char16_t c : id.substr(id_digits - row_digits)) {
        const std::size_t digit = TextView(digits, 16).find(automation::upper(c));
        if (digit == TextView::npos) return std::nullopt;
        value = value << 4 | digit;
    }
    return static_cast<RowId>(value);
}

}  // namespace

Text Desk::item_entry_id(RowId item, RowId folder) const {
    return Text(id_start) + store_uid(folder) + Text(item_kind) + hexadecimal(item);
}

Text Desk::folder_entry_id(RowId folder) const {
    return Text(id_start) + store_uid(folder) + Text(folder_kind) + hexadecimal(folder);
}

std::optional<RowId> Desk::item_of_entry_id(TextView id) { return row_of(id, item_kind); }

std::optional<RowId> Desk::folder_of_entry_id(TextView id) const {
    const std::optional<RowId> row = row_of(id, folder_kind);
    if (!row || !folder_row(*row) || !automation::same_ignoring_case(folder_entry_id(*row), id))
        return std::nullopt;
    return row;
}

}  // namespace desk
