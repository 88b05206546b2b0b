#include "desk/windows/shown_value.h"

namespace desk {

automation::Text shown_value(const automation::Value& value) {
    if (!value.is(automation::Value::Type::date)) return value.to_text();
    if (value.to_date() == no_date) return {};
    constexpr std::size_t without_seconds = 16;
    return value.to_text().substr(0, without_seconds);
}

automation::Text shown_value(const ItemData& item, automation::TextView field) {
    const std::optional<automation::Value> value = field_value(item, field);
    return value ? shown_value(*value) : automation::Text();
}

}  // namespace desk
