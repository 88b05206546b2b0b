// Items as JSON, in the shape that message.h shows.
#pragma once

#include <nlohmann/json.hpp>

#include "desk/store/item_data.h"

namespace desk::mail {

/// JSON whose members stay in the order in which they were written.
using Json = nlohmann::ordered_json;

/// A value of a field: texts, booleans, whole numbers and numbers as themselves, an empty value as null, a
/// date as
/// {"date": days}. Throws `automation::Failure` for a value that no item stores (objects, arrays).
Json to_json_value(const automation::Value& value);

/// The value of such JSON. A date may also be written as {"date": "2026-03-03 09:15:00"}. `place` is named in
/// the failure.
automation::Value from_json_value(const Json& json, std::string_view place);

/// An item, whole. Empty parts are left out. An item may be embedded in another one `nesting_limit` deep.
inline constexpr int nesting_limit = 32;
Json to_json_item(const ItemData& item, int depth = 0);
ItemData from_json_item(const Json& json, int depth = 0);

[[noreturn]] void refuse(std::string_view sentence);  ///< throws a `automation::Failure` with this text

}  // namespace desk::mail
