#include "desk/outlook/items.h"

#include <algorithm>
#include <map>
#include <set>

#include "desk/base/desk.h"
#include "desk/base/host_event_tables.h"
#include "desk/base/kept.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/tables/enumeration_names.h"
#include "desk/outlook/tables/schema_names.h"
#include "desk/outlook/tables/unfiltered_fields.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

/// MAPI's types of properties. No condition is about a binary one.
constexpr std::uint32_t date_type = 0x40, binary_type = 0x102;

filter::Content content_of(TextView built_in) {
    if (automation::same_ignoring_case(built_in, u"Subject")) return filter::Content::subject;
    if (automation::same_ignoring_case(built_in, u"Categories")) return filter::Content::keywords;
    if (built_in == tables::has_attachments) return filter::Content::yes_no;
    if (automation::same_ignoring_case(built_in, tables::size_in_bytes)) return filter::Content::number;
    switch (type_of_built_in(built_in).value_or(tables::FieldType::text)) {
        case tables::FieldType::integer:
        case tables::FieldType::number:
            return filter::Content::number;
        case tables::FieldType::boolean:
            return filter::Content::yes_no;
        case tables::FieldType::date:
            return filter::Content::date;
        case tables::FieldType::text:
            break;
    }
    return filter::Content::text;
}

/// What fields of the host's user-property types hold; the rest is left to each value.
struct TypeRow {
    std::int32_t type;
    filter::Content content;
};
constexpr TypeRow user_types[] = {
    {1, filter::Content::text},      {3, filter::Content::number},  {5, filter::Content::date},
    {6, filter::Content::yes_no},    {7, filter::Content::number},  {8, filter::Content::number},
    {11, filter::Content::keywords}, {14, filter::Content::number}, {20, filter::Content::number}};

class FolderHost : public filter::Host {
  public:
    FolderHost(const FolderRow& row, Surroundings& surroundings) : row_(row), surroundings_(surroundings) {}
    bool knows(TextView field) const override {
        return is_built_in_field(field) || is_own(field) || !built_in_field_of_words(field).empty();
    }
    bool knows_address(TextView address) const override {
        const std::optional<SchemaName> name = schema_name(address);
        return name && name->type != binary_type;
    }
    bool takes(TextView field) const override {
        return is_own(field) || !tables::is_unfiltered(built_in_name(field));
    }
    filter::Content content(TextView name, bool is_address) const override {
        if (!is_address) return is_own(name) ? own_content(name) : content_of(built_in_name(name));
        const SchemaName schema = schema_name(name).value_or(SchemaName());
        if (schema.type == date_type) return filter::Content::date;
        if (schema.is_user_property) return own_content(schema.field);
        return schema.field.empty() ? filter::Content::anything : content_of(schema.field);
    }
    std::optional<std::int32_t> named_number(TextView name, bool is_address, TextView text) const override {
        return tables::number_of_name(is_address ? field_of_address(name) : built_in_name(name), text);
    }
    std::optional<automation::Date> date_of(TextView text) const override {
        return read_date(text, surroundings_.date_manners(), now());
    }
    automation::Date now() const override { return surroundings_.now(); }
    automation::Date to_utc(automation::Date local) const override { return surroundings_.to_utc(local); }
    bool is_own(TextView field) const {
        return std::ranges::any_of(
            row_.fields, [&](const FolderField& f) { return automation::same_ignoring_case(f.name, field); });
    }

    /// What an own field of the folder holds.
    filter::Content own_content(TextView name) const {
        for (const FolderField& field : row_.fields) {
            if (!automation::same_ignoring_case(field.name, name)) continue;
            const auto* const row = std::ranges::find(user_types, field.type, &TypeRow::type);
            if (row != std::end(user_types)) return row->content;
        }
        return filter::Content::anything;
    }

  private:
    static Text built_in_name(TextView field) {
        const TextView of_words = built_in_field_of_words(field);
        return Text(of_words.empty() ? field : of_words);
    }

    const FolderRow& row_;
    Surroundings& surroundings_;
};

/// An item as a filter sees it. A field of the folder that the item doesn't bear is an empty one.
class ItemRecord : public filter::Record {
  public:
    ItemRecord(const ItemRow& row, const FolderHost& host, Store& store)
        : row_(row), host_(host), store_(store) {}
    std::optional<Value> field(TextView name) const override {
        const std::optional<Value> value = stored(name);
        const bool is_date = host_.own_content(name) == filter::Content::date;
        const bool unset = value && (value->is(Value::Type::empty) || *value == Value(u""));
        return is_date && unset ? Value() : value;
    }
    /// A field by its bracketed name; an unset one of the folder's is an empty text, also where it holds
    /// dates.
    std::optional<Value> stored(TextView name) const {
        if (automation::same_ignoring_case(name, tables::size_in_bytes)) return size();
        if (std::optional<Value> value = field_value(row_.data, name)) return value;
        if (is_built_in_field(name)) return std::nullopt;
        if (host_.is_own(name)) return Value(u"");
        return built_in_value(row_.data, built_in_field_of_words(name));
    }
    std::optional<Value> property(TextView address) const override {
        const std::optional<SchemaName> name = schema_name(address, &kind_of(row_.data.message_class));
        if (!name) return std::nullopt;
        if (name->field == tables::size_in_bytes) return size();
        if (name->field == tables::has_attachments) return !store_.attachments(row_.id).empty();
        std::optional<Value> value = schema_property(row_.data, address);
        if (value && value->is(Value::Type::date)) value = host_.to_utc(value->to_date());
        return value;
    }

  private:
    Value size() const { return static_cast<std::int32_t>(row_.size); }

    const ItemRow& row_;
    const FolderHost& host_;
    Store& store_;
};

/// Orders values of one field: by type where they agree, else as text.
bool comes_before(const Value& left, const Value& right) {
    const bool numbers = !left.is(Value::Type::text) && !right.is(Value::Type::text);
    if (numbers) return left.to_number() < right.to_number();
    return automation::compare_ignoring_case(left.to_text(), right.to_text()) < 0;
}

/// A field's name out of "[Subject]" or "Subject".
Text bare_name(const Text& property) {
    if (property.size() > 2 && property.front() == u'[' && property.back() == u']') {
        return property.substr(1, property.size() - 2);
    }
    return property;
}

}  // namespace

Object Items::parent() const { return std::make_shared<Folder>(desk(), folder_)->self(); }

EventInterfaces Items::event_interfaces() const { return events::items; }

std::int32_t Items::subscribe(const automation::Guid& interface_id, const Object& sink) {
    const std::int32_t cookie = ModelObject::subscribe(interface_id, sink);
    desk().watch(folder_, shared_from_this());
    return cookie;
}

const std::vector<RowId>& Items::ids() {
    desk().existing_folder(folder_);
    if (!own_order_) return desk().contents(folder_);
    if (const std::int64_t left = desk().departures(folder_); departures_ != left) {
        departures_ = left;
        std::vector<RowId> there = desk().contents(folder_);
        std::ranges::sort(there);
        std::erase_if(*own_order_, [&](RowId id) { return !std::ranges::binary_search(there, id); });
    }
    return *own_order_;
}

Object Items::at(const Value& index) {
    const std::vector<RowId>& all = ids();
    if (index.is(Value::Type::text)) {
        const Text wanted = index.to_text();
        for (const RowId id : all) {
            const std::shared_ptr<Item> item = desk().open_item(id);
            if (item && automation::same_ignoring_case(item->subject(), wanted)) return item->self();
        }
        throw Failure(result::not_found, u"There is no item \"" + wanted + u"\".");
    }
    const std::int32_t wanted = index.to_integer();
    if (wanted < 1 || static_cast<std::size_t>(wanted) > all.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return desk().existing_item(all[static_cast<std::size_t>(wanted - 1)])->self();
}

Object Items::add(const std::optional<Value>& type) {
    const FolderRow& row = desk().existing_folder(folder_);
    ItemData data;
    if (!type) {
        data.message_class = row.default_class;
    } else if (type->is(Value::Type::text)) {
        data.message_class = type->to_text();
        if (data.message_class.empty()) data.message_class = row.default_class;
    } else {
        data.message_class = Text(kind_of_type(type->to_integer()).base_class);
    }
    return std::make_shared<Item>(desk(), folder_, std::move(data))->self();
}

filter::Filter Items::read(const Text& text, bool for_find) const {
    desk().note_filter(text);
    const FolderRow& row = desk().existing_folder(folder_);
    const bool words = desk().options().instant_search && !for_find;
    return filter::Filter::parse(text, FolderHost(row, desk().surroundings()),
                                 words ? filter::Words::indexed : filter::Words::refused);
}

std::vector<RowId> Items::candidates(const filter::Filter& filter) {
    const auto by_index = [](const filter::Equality& equality) {
        const Text field = equality.is_address ? field_of_address(equality.name) : equality.name;
        return !equality.value.empty() && is_indexed(field);
    };
    const auto equalities = filter.candidates(by_index);
    if (!equalities) return ids();
    std::set<RowId> looked_up;
    for (const filter::Equality& equality : *equalities) {
        const Text field = equality.is_address ? field_of_address(equality.name) : equality.name;
        const std::vector<RowId> rows = desk().store().lookup(folder_, field, equality.value);
        looked_up.insert(rows.begin(), rows.end());
    }
    if (looked_up.empty()) return {};
    if (looked_up.size() == 1 && !own_order_) return {looked_up.begin(), looked_up.end()};
    std::vector<RowId> in_order;
    for (const RowId id : ids()) {
        if (looked_up.contains(id)) in_order.push_back(id);
        if (in_order.size() == looked_up.size()) break;
    }
    return in_order;
}

bool Items::matches(const filter::Filter& filter, RowId id) const {
    const std::optional<ItemRow> row = desk().store().load(id);
    const FolderRow* const folder = desk().folder_row(folder_);
    if (!row || !folder) return false;
    const FolderHost host(*folder, desk().surroundings());
    return filter.matches(ItemRecord(*row, host, desk().store()));
}

Object Items::find(const Text& text) {
    search_ = read(text, true);
    found_ = candidates(*search_);
    looked_at_ = 0;
    return next_match();
}

Object Items::find_next() {
    if (!search_) throw Failure(result::fail, u"FindNext needs a Find before it.");
    return next_match();
}

Object Items::next_match() {
    while (looked_at_ < found_.size()) {
        const RowId id = found_[looked_at_++];
        if (!matches(*search_, id)) continue;
        if (const std::shared_ptr<Item> item = desk().open_item(id)) return item->self();
    }
    return {};
}

Object Items::restricted(const Text& text) {
    const filter::Filter filter = read(text, false);
    std::vector<RowId> left = candidates(filter);
    std::erase_if(left, [&](RowId id) { return !matches(filter, id); });
    return std::make_shared<Items>(desk(), folder_, std::move(left))->self();
}

Object Items::step(std::int32_t to) {
    const std::vector<RowId>& all = ids();
    place = to;
    if (to < 1 || static_cast<std::size_t>(to) > all.size()) return {};
    return desk().existing_item(all[static_cast<std::size_t>(to - 1)])->self();
}

void Items::sort(const Text& property, bool descending) {
    const Text field = bare_name(property);
    const FolderHost names(desk().existing_folder(folder_), desk().surroundings());
    if (!names.knows(field)) {
        throw Failure(result::invalid_argument, u"The property \"" + field + u"\" is unknown.");
    }
    std::vector<RowId> order = ids();
    std::map<RowId, Value> keys;
    for (const RowId id : order) {
        if (const std::optional<ItemRow> row = desk().store().load(id)) {
            keys[id] = ItemRecord(*row, names, desk().store()).stored(field).value_or(Value(u""));
        }
    }
    std::ranges::stable_sort(order, [&](RowId left, RowId right) {
        return descending ? comes_before(keys[right], keys[left]) : comes_before(keys[left], keys[right]);
    });
    own_order_ = std::move(order);
}

const automation::Members<Items>& Items::members() {
    static const automation::Members<Items> table{
        {u"Count", 0x50, Use::get, [](Items& self) { return self.ids().size(); }},
        {u"Item", 0x51, Use::method, {u"Index"}, calls<&Items::at>},
        {u"Add", 0x5F, Use::method, {u"Type"}, calls<&Items::add>},
        {u"Find", 0x62, Use::method, {u"Filter"}, calls<&Items::find>},
        {u"FindNext", 0x63, Use::method, calls<&Items::find_next>},
        {u"Restrict", 0x64, Use::method, {u"Filter"}, calls<&Items::restricted>},
        {u"GetFirst", 0x56, Use::method, first<Items>},
        {u"GetLast", 0x58, Use::method, last<Items>},
        {u"GetNext", 0x57, Use::method, next<Items>},
        {u"GetPrevious", 0x59, Use::method, previous<Items>},
        {u"Remove",
         0x54,
         Use::method,
         {u"Index"},
         [](Items& self, std::int32_t index) {
             const Object item = self.at(index);
             item.call(u"Delete");
         }},
        {u"Sort",
         0x61,
         Use::method,
         {u"Property", u"Descending"},
         [](Items& self, const Text& property, std::optional<bool> descending) {
             self.sort(property, descending.value_or(false));
         }},
        {u"SetColumns", 0x5C, Use::method, {u"Columns"}, [](Items&, const Text&) {}},
        {u"ResetColumns", 0x5D, Use::method, [](Items&) {}},
    };
    return table;
}

}  // namespace desk
