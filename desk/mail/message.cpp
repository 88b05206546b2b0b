#include "desk/mail/message.h"

#include "desk/mail/item_json.h"

namespace desk::mail {
namespace {

constexpr const char* item_key = "item";
constexpr const char* error_key = "error";

/// One line of JSON. Bytes that are no UTF-8 become U+FFFD.
std::string line(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string to_json(const ItemData& item) { return line({{item_key, to_json_item(item)}}); }

std::string error_to_json(std::string_view sentence) { return line({{error_key, std::string(sentence)}}); }

ItemData from_json(std::string_view json) {
    const Json answer = Json::parse(json, nullptr, false);
    if (answer.is_discarded()) refuse("The mail reader's answer is not JSON.");
    if (!answer.is_object()) refuse("The mail reader's answer is not an object.");
    if (answer.contains(error_key)) {
        const Json& error = answer[error_key];
        refuse(error.is_string() ? error.get<std::string>()
                                 : "The mail reader's answer is an error without a sentence.");
    }
    if (!answer.contains(item_key)) refuse("The mail reader's answer holds neither an item nor an error.");
    try {
        return from_json_item(answer[item_key]);
    } catch (const automation::Failure& failure) {
        refuse("The mail reader's answer is wrong: " + std::string(failure.what()) + ".");
    }
}

}  // namespace desk::mail
