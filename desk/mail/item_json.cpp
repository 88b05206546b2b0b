#include "desk/mail/item_json.h"

#include <limits>

#include "desk/mail/base64.h"

namespace desk::mail {
namespace {

using automation::Text;
using automation::Value;

constexpr const char* embedded_key = "item";

/// A member of an object, or null JSON if there is none. Throws if `json` is no object.
const Json& member(const Json& json, const char* name, std::string_view place) {
    static const Json none;
    if (!json.is_object()) refuse(std::string(place) + " is not an object");
    const auto found = json.find(name);
    return found == json.end() ? none : *found;
}

Text text_member(const Json& json, const char* name, std::string_view place) {
    const Json& text = member(json, name, place);
    if (text.is_null()) return {};
    if (!text.is_string())
        refuse("\"" + std::string(name) + "\" of " + std::string(place) + " is not a text");
    return automation::from_utf8(text.get_ref<const std::string&>());
}

std::int32_t to_int32(const Json& json, std::string_view place) {
    const auto refuse_number = [&] { refuse(std::string(place) + " is not a whole number of 32 bits"); };
    if (!json.is_number_integer()) refuse_number();
    if (json.is_number_unsigned() && json.get<std::uint64_t>() > std::numeric_limits<std::int32_t>::max()) {
        refuse_number();
    }
    const auto number = json.get<std::int64_t>();
    if (number < std::numeric_limits<std::int32_t>::min()) refuse_number();
    return static_cast<std::int32_t>(number);
}

std::int32_t integer_member(const Json& json, const char* name, std::int32_t otherwise,
                            std::string_view place) {
    const Json& number = member(json, name, place);
    if (number.is_null()) return otherwise;
    return to_int32(number, "\"" + std::string(name) + "\" of " + std::string(place));
}

/// Runs `read` for each element of an array that may be missing.
template <class Read>
void each(const Json& json, const char* name, std::string_view place, Read read) {
    const Json& list = member(json, name, place);
    if (list.is_null()) return;
    if (!list.is_array()) refuse("\"" + std::string(name) + "\" of " + std::string(place) + " is not a list");
    for (const Json& element : list) read(element);
}

Json to_json_person(const Person& person) {
    Json json = {{"name", automation::to_utf8(person.name)},
                 {"address", automation::to_utf8(person.address)},
                 {"type", automation::to_utf8(person.address_type)},
                 {"smtp", automation::to_utf8(person.smtp_address)},
                 {"kind", person.kind}};
    if (!person.resolved) json["resolved"] = false;
    return json;
}

Person from_json_person(const Json& json) {
    constexpr std::string_view place = "a recipient";
    Person person;
    person.name = text_member(json, "name", place);
    person.address = text_member(json, "address", place);
    person.address_type = text_member(json, "type", place);
    person.smtp_address = text_member(json, "smtp", place);
    person.kind = integer_member(json, "kind", 1, place);
    const Json& resolved = member(json, "resolved", place);
    if (!resolved.is_null() && !resolved.is_boolean())
        refuse("\"resolved\" of a recipient is not true or false");
    person.resolved = resolved.is_null() || resolved.get<bool>();
    return person;
}

Json to_json_attachment(const AttachmentData& attachment, int depth) {
    Json json = {{"display", automation::to_utf8(attachment.display_name)}};
    if (!attachment.file_name.empty()) json["file"] = automation::to_utf8(attachment.file_name);
    if (attachment.type != (attachment.item ? 5 : 1)) json["type"] = attachment.type;
    json["position"] = attachment.position;
    if (attachment.item) {
        json[embedded_key] = to_json_item(*attachment.item, depth + 1);
    } else {
        json["base64"] = to_base64(attachment.content);
    }
    return json;
}

AttachmentData from_json_attachment(const Json& json, int depth) {
    constexpr std::string_view place = "an attachment";
    AttachmentData attachment;
    attachment.display_name = text_member(json, "display", place);
    attachment.file_name = text_member(json, "file", place);
    attachment.position = integer_member(json, "position", 0, place);
    const Json& embedded = member(json, embedded_key, place);
    attachment.type = integer_member(json, "type", embedded.is_null() ? 1 : 5, place);
    if (!embedded.is_null()) {
        attachment.item = std::make_shared<const ItemData>(from_json_item(embedded, depth + 1));
        return attachment;
    }
    const Json& content = member(json, "base64", place);
    if (!content.is_string()) refuse("an attachment has no content");
    std::optional<std::string> bytes = from_base64(content.get_ref<const std::string&>());
    if (!bytes) refuse("the content of an attachment is not base64");
    attachment.content = std::move(*bytes);
    return attachment;
}

Json to_json_property(const UserPropertyData& property) {
    return {{"name", automation::to_utf8(property.name)},
            {"type", property.type},
            {"value", to_json_value(property.value)}};
}

UserPropertyData from_json_property(const Json& json) {
    constexpr std::string_view place = "a user property";
    UserPropertyData property;
    property.name = text_member(json, "name", place);
    property.type = integer_member(json, "type", 1, place);
    property.value = from_json_value(member(json, "value", place), place);
    return property;
}

}  // namespace

void refuse(std::string_view sentence) {
    throw automation::Failure(automation::result::fail, automation::from_utf8(sentence));
}

Json to_json_value(const Value& value) {
    switch (value.type()) {
        case Value::Type::empty:
            return nullptr;
        case Value::Type::boolean:
            return value.to_boolean();
        case Value::Type::integer:
            return value.to_integer();
        case Value::Type::number:
            return value.to_number();
        case Value::Type::date:
            return {{"date", value.to_date().days}};
        case Value::Type::text:
            return automation::to_utf8(value.to_text());
        default:
            refuse("An item has a value of a type that no item stores.");
    }
}

Value from_json_value(const Json& json, std::string_view place) {
    if (json.is_null()) return {};
    if (json.is_boolean()) return json.get<bool>();
    if (json.is_number_integer()) return to_int32(json, place);
    if (json.is_number()) return json.get<double>();
    if (json.is_string()) return automation::from_utf8(json.get_ref<const std::string&>());
    if (json.is_object() && json.size() == 1 && json.contains("date")) {
        const Json& date = json["date"];
        if (date.is_number()) return automation::Date{date.get<double>()};
        if (date.is_string()) {
            if (const auto read =
                    automation::read_date(automation::from_utf8(date.get_ref<const std::string&>())))
                return *read;
        }
    }
    refuse(std::string(place) + " has a value that is no text, number, date, true or false");
}

Json to_json_item(const ItemData& item, int depth) {
    if (depth > nesting_limit) refuse("Items are embedded in each other too deeply.");
    Json json = {{"class", automation::to_utf8(item.message_class)}};
    Json& fields = json["fields"] = Json::object();
    for (const auto& [name, value] : item.fields) fields[automation::to_utf8(name)] = to_json_value(value);
    for (const UserPropertyData& property : item.user_properties) {
        json["properties"].push_back(to_json_property(property));
    }
    for (const Person& person : item.recipients) json["recipients"].push_back(to_json_person(person));
    for (const AttachmentData& attachment : item.attachments) {
        json["attachments"].push_back(to_json_attachment(attachment, depth));
    }
    return json;
}

ItemData from_json_item(const Json& json, int depth) {
    constexpr std::string_view place = "an item";
    if (depth > nesting_limit) refuse("items are embedded in each other too deeply");
    ItemData item;
    item.message_class = text_member(json, "class", place);
    if (item.message_class.empty()) refuse("an item has no class");
    const Json& fields = member(json, "fields", place);
    if (!fields.is_null() && !fields.is_object()) refuse("the fields of an item are not an object");
    for (const auto& [name, value] : fields.items()) {
        item.fields[automation::from_utf8(name)] = from_json_value(value, "the field " + name);
    }
    each(json, "properties", place,
         [&](const Json& element) { item.user_properties.push_back(from_json_property(element)); });
    each(json, "recipients", place,
         [&](const Json& element) { item.recipients.push_back(from_json_person(element)); });
    each(json, "attachments", place,
         [&](const Json& element) { item.attachments.push_back(from_json_attachment(element, depth)); });
    return item;
}

}  // namespace desk::mail
