#include "desk/store/field_index.h"

#include <algorithm>

#include "desk/store/item_codec.h"

namespace desk {
namespace {

constexpr std::size_t longest_key = 255;

/// The numbers are stored: a new field gets a new one.
struct IndexedField {
    automation::TextView name;
    std::int64_t number;
};
constexpr IndexedField indexed_fields[] = {
    {u"Email1Address", 1}, {u"Email2Address", 2},     {u"Email3Address", 3}, {u"FullName", 4},
    {u"Subject", 5},       {u"EmailSearchString", 6}, {u"AccountID", 7},     {u"ContactID", 8},
    {u"OppID", 9},         {u"Inquiry ID", 10},       {u"ApptID", 11},       {u"TaskID", 12},
    {u"NoteID", 13},       {u"CustomerID", 14},       {u"Account Name", 15}, {u"CompanyName", 16},
    {u"FileAs", 17},       {u"RecordType", 18},
};

bool has_text(const automation::Value& value) {
    const auto type = value.type();
    return type != automation::Value::Type::null && type != automation::Value::Type::missing &&
           type != automation::Value::Type::object && type != automation::Value::Type::array;
}

}  // namespace

bool is_indexed(automation::TextView field) { return index_number(field).has_value(); }

std::optional<std::int64_t> index_number(automation::TextView field) {
    const auto* found = std::ranges::find_if(indexed_fields, [&](const IndexedField& candidate) {
        return automation::same_ignoring_case(candidate.name, field);
    });
    return found == std::end(indexed_fields) ? std::nullopt : std::optional(found->number);
}

std::string index_key(automation::TextView value) {
    return write_text(automation::folded(value.substr(0, longest_key)));
}

std::set<IndexEntry> index_entries(const ItemData& item) {
    std::set<IndexEntry> entries;
    auto add = [&](automation::TextView name, const automation::Value& value) {
        const std::optional<std::int64_t> number = index_number(name);
        if (number)
            entries.emplace(*number, index_key(has_text(value) ? value.to_text() : automation::Text()));
    };
    for (const auto& [name, value] : item.fields) add(name, value);
    for (const UserPropertyData& property : item.user_properties) add(property.name, property.value);

    const std::string empty_key = index_key({});
    std::erase_if(entries, [&](const IndexEntry& entry) {
        auto same_field = [&](const IndexEntry& other) { return other.first == entry.first; };
        return entry.second == empty_key && std::ranges::count_if(entries, same_field) == 1;
    });
    return entries;
}

}  // namespace desk
