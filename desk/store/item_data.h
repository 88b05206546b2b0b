// What an item is made of, apart from any object that shows it: the form in which it is stored and copied.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/text.h"
#include "automation/value.h"

namespace desk {

/// Compares names without regard to case.
struct IgnoringCase {
    using is_transparent = void;
    bool operator()(automation::TextView left, automation::TextView right) const {
        return automation::compare_ignoring_case(left, right) < 0;
    }
};

/// A user property: its type is one of the host's user-property types (1 text, 3 number, 5 date, 6 yes/no
/// ...). An empty value is one that was never set.
struct UserPropertyData {
    automation::Text name;
    std::int32_t type = 1;
    automation::Value value;
    friend bool operator==(const UserPropertyData&, const UserPropertyData&) = default;
};

/// A recipient, or a sender. `address` is what the host shows as the address: the Internet address, or the
/// native one of a directory entry.
struct Person {
    automation::Text name;
    automation::Text address;       ///< native address
    automation::Text address_type;  ///< "SMTP" or "EX"; anything else a mail may bring
    automation::Text smtp_address;  ///< empty if not known
    std::int32_t kind = 1;          ///< 1 To, 2 Cc, 3 Bcc
    bool resolved = true;
    friend bool operator==(const Person&, const Person&) = default;
};

struct ItemData;

/// An attachment: a file by its content, or another item, whole.
struct AttachmentData {
    automation::Text display_name;
    automation::Text file_name;
    std::int32_t type = 1;  ///< 1 by value, 5 embedded item
    std::int32_t position = 0;
    std::string content;                   ///< the bytes, if by value
    std::shared_ptr<const ItemData> item;  ///< the item, if embedded
    friend bool operator==(const AttachmentData& left, const AttachmentData& right);
};

struct ItemData {
    automation::Text message_class;
    std::map<automation::Text, automation::Value, IgnoringCase>
        fields;  ///< built-in fields that were set, by their English names
    std::vector<UserPropertyData> user_properties;
    std::vector<Person> recipients;
    std::vector<AttachmentData> attachments;
    friend bool operator==(const ItemData&, const ItemData&) = default;
};

inline bool operator==(const AttachmentData& left, const AttachmentData& right) {
    const bool same_item = left.item == right.item || (left.item && right.item && *left.item == *right.item);
    return same_item && left.display_name == right.display_name && left.file_name == right.file_name &&
           left.type == right.type && left.position == right.position && left.content == right.content;
}

/// Bytes of an item, its attachments and what is embedded in them included, and the item of such bytes.
/// `write_item` throws `automation::Failure` for values that are objects and for embedding deeper than 50
/// levels, `read_item` for bytes that are no such item, however they are broken.
std::string write_item(const ItemData& item);
ItemData read_item(std::string_view bytes);

}  // namespace desk
