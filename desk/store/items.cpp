#include <algorithm>
#include <iterator>
#include <numeric>

#include "desk/store/item_codec.h"
#include "desk/store/sqlite_store.h"

namespace desk {
namespace {

/// Entries kept in memory before they are written: some 50 megabytes.
constexpr std::size_t most_pending = 500000;

std::int64_t length(std::string_view bytes) { return static_cast<std::int64_t>(bytes.size()); }

std::int64_t length(const std::vector<std::string>& all) {
    return std::accumulate(all.begin(), all.end(), std::int64_t{0},
                           [](std::int64_t sum, const std::string& bytes) { return sum + length(bytes); });
}

std::vector<std::string> write_attachments(const std::vector<AttachmentData>& attachments) {
    std::vector<std::string> all;
    for (const AttachmentData& attachment : attachments) all.push_back(write_attachment(attachment));
    return all;
}

bool is_unread(const ItemData& data) {
    const auto found = data.fields.find(automation::TextView(u"UnRead"));
    return found != data.fields.end() && found->second.is(automation::Value::Type::boolean) &&
           found->second.to_boolean();
}

/// What is in `left` and not in `right`.
std::set<IndexEntry> without(const std::set<IndexEntry>& left, const std::set<IndexEntry>& right) {
    std::set<IndexEntry> rest;
    std::ranges::set_difference(left, right, std::inserter(rest, rest.end()));
    return rest;
}

}  // namespace

RowId SqliteStore::add_item(RowId folder, const ItemData& data) {
    require_folder(folder);
    const std::string bytes = write_bare_item(data);
    const std::vector<std::string> attachments = write_attachments(data.attachments);

    Step step(*this);
    const auto [item, position] = [&] {
        auto rows = add_item_.rows(folder, is_unread(data), length(bytes) + length(attachments), bytes);
        rows.next();
        return std::pair(rows.integer(0), rows.integer(1));
    }();
    add_attachments(item, attachments);
    add_entries(item, folder, position, index_entries(data));
    step.done();
    return item;
}

void SqliteStore::update_item(RowId item, const ItemData& data, bool with_attachments) {
    const StoredItem old = stored(item);
    const std::string bytes = write_bare_item(data);
    const std::vector<std::string> attachments =
        with_attachments ? write_attachments(data.attachments) : std::vector<std::string>();
    const std::int64_t attachment_bytes = with_attachments ? length(attachments) : old.attachment_bytes;

    Step step(*this);
    update_item_.run(item, is_unread(data), length(bytes) + attachment_bytes, bytes);
    if (with_attachments) {
        remove_attachments_.run(item);
        add_attachments(item, attachments);
    }
    const std::set<IndexEntry> entries = index_entries(data);
    remove_entries(old.folder, old.position, without(old.entries, entries));
    add_entries(item, old.folder, old.position, without(entries, old.entries));
    step.done();
}

void SqliteStore::move_item(RowId item, RowId folder) {
    require_folder(folder);
    const StoredItem old = stored(item);

    Step step(*this);
    remove_entries(old.folder, old.position, old.entries);
    const std::int64_t position = [&] {
        auto rows = move_item_.rows(item, folder);
        rows.next();
        return rows.integer(0);
    }();
    add_entries(item, folder, position, old.entries);
    step.done();
}

void SqliteStore::remove_item(RowId item) {
    const StoredItem old = stored(item);
    Step step(*this);
    remove_entries(old.folder, old.position, old.entries);
    remove_attachments_.run(item);
    remove_item_.run(item);
    step.done();
}

std::optional<ItemRow> SqliteStore::load(RowId item) {
    auto rows = item_.rows(item);
    if (!rows.next()) return std::nullopt;
    return ItemRow{item, rows.integer(0), read_item(rows.bytes(3)), rows.integer(2)};
}

std::vector<AttachmentData> SqliteStore::attachments(RowId item) {
    std::vector<AttachmentData> attachments;
    for (auto rows = attachments_.rows(item); rows.next();)
        attachments.push_back(read_attachment(rows.bytes(0)));
    return attachments;
}

std::vector<RowId> SqliteStore::items(RowId folder) {
    std::vector<RowId> items;
    for (auto rows = items_.rows(folder); rows.next();) items.push_back(rows.integer(0));
    return items;
}

std::vector<RowId> SqliteStore::lookup(RowId folder, automation::TextView field, automation::TextView value) {
    std::vector<RowId> items;
    const std::optional<std::int64_t> number = index_number(field);
    if (!number) return items;
    write_pending();
    const std::string key = index_key(value);
    for (auto rows = (value.empty() ? lookup_empty_ : lookup_).rows(folder, *number, key); rows.next();) {
        items.push_back(rows.integer(0));
    }
    return items;
}

SqliteStore::StoredItem SqliteStore::stored(RowId item) {
    auto rows = item_.rows(item);
    if (!rows.next()) throw automation::Failure(automation::result::not_found, u"The item is not there.");
    const std::string_view bytes = rows.bytes(3);
    return {rows.integer(0), rows.integer(1), rows.integer(2) - length(bytes),
            index_entries(read_item(bytes))};
}

void SqliteStore::add_attachments(RowId item, const std::vector<std::string>& attachments) {
    std::int64_t number = 0;
    for (const std::string& bytes : attachments) add_attachment_.run(item, ++number, bytes);
}

void SqliteStore::add_entries(RowId item, RowId folder, std::int64_t position,
                              const std::set<IndexEntry>& entries) {
    for (const IndexEntry& entry : entries) pending_.push_back({folder, entry, position, item});
    if (pending_.size() >= most_pending) write_pending();
}

void SqliteStore::remove_entries(RowId folder, std::int64_t position, const std::set<IndexEntry>& entries) {
    write_pending();
    for (const auto& [field, key] : entries) remove_key_.run(folder, field, key, position);
}

}  // namespace desk
