#include "desk/search/search_index.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/filter/patterns.h"
#include "desk/outlook/item_kinds.h"
#include "desk/search/select_query.h"

namespace desk {

using automation::Null;
using automation::Text;
using automation::TextView;
using automation::Value;

namespace {

/// An item or a file that was found. One of the two is there.
struct Found {
    const ItemRow* item = nullptr;
    const IndexedFile* file = nullptr;
    Text folder;  ///< of an item, from the store on: "/Mailbox - Ann/Inbox"; of a file: "C:\papers"
    std::int32_t number = 0;
};

/// A field of an item that has it filled; null otherwise, and for a file.
Value field(const Found& found, TextView name) {
    const std::optional<Value> value = found.item ? field_value(found.item->data, name) : std::nullopt;
    const bool nothing = !value || *value == Value(no_date) || *value == Value(u"");
    return nothing ? Value(Null{}) : *value;
}

Value lacking(const Found&) { return Null{}; }
Value file_name(const Found& found) { return found.file ? Value(found.file->name) : Value(Null{}); }

struct Column {
    TextView name;
    Value (*value)(const Found&);
};
constexpr Column columns[] = {
    {u"System.Document.LastAuthor", lacking},
    {u"System.Message.SenderName", [](const Found& found) { return field(found, u"SenderName"); }},
    {u"System.Message.ConversationIndex", lacking},
    {u"System.ItemURL",
     [](const Found& found) {
         if (found.item) return Value(u"mapi:/" + found.folder + u"/" + automation::to_text(found.item->id));
         return Value(u"file:" + automation::replaced(found.folder + u"\\" + found.file->name, u"\\", u"/"));
     }},
    {u"System.SourceItem", lacking},
    {u"System.Subject", [](const Found& found) { return field(found, u"Subject"); }},
    {u"System.Search.EntryID", [](const Found& found) { return Value(found.number); }},
    {u"System.FileName", file_name},
    {u"System.ItemFolderPathDisplay", [](const Found& found) { return Value(found.folder); }},
    {u"System.DateCreated",
     [](const Found& found) {
         return found.file ? Value(found.file->created) : field(found, u"CreationTime");
     }},
    {u"System.DateModified",
     [](const Found& found) {
         return found.file ? Value(found.file->modified) : field(found, u"LastModificationTime");
     }},
};

const Column& column_of(TextView name) {
    const auto found = std::ranges::find_if(
        columns, [&](const Column& column) { return automation::same_ignoring_case(column.name, name); });
    if (found == std::end(columns)) {
        throw automation::Failure(errors_in_command, u"There is no column \"" + Text(name) + u"\".");
    }
    return *found;
}

/// A phrase does not go on from one text of an item into the next.
bool has_phrase(const ItemData& item, const std::vector<Text>& words) {
    return std::ranges::any_of(item.fields, [&](const auto& field) {
        return field.second.is(Value::Type::text) && filter::has_phrase(field.second.to_text(), words);
    });
}

bool has_phrase(const IndexedFile& file, const std::vector<Text>& words) {
    return filter::has_phrase(file.name, words) ||
           filter::has_phrase(automation::from_utf8(file.content), words);
}

Text path_of(const Desk& desk, const FolderRow& folder) {
    const FolderRow* const parent = desk.folder_row(folder.parent);
    return (parent ? path_of(desk, *parent) : Text()) + u"/" + folder.name;
}

class Search {
  public:
    explicit Search(const SelectQuery& query) : words_(query.words) {
        result_.columns = query.columns;
        for (const Text& name : query.columns) wanted_.push_back(&column_of(name));
    }

    void look_into(Desk& desk, const FolderRow& folder) {
        const Text path = path_of(desk, folder);
        for (const RowId id : desk.contents(folder.id)) {
            const std::optional<ItemRow> item = desk.store().load(id);
            if (item && has_phrase(item->data, words_)) add({.item = &*item, .folder = path});
        }
    }
    void look_at(const IndexedFile& file) {
        if (has_phrase(file, words_)) add({.file = &file, .folder = file.folder});
    }

    FoundRows take_result() { return std::move(result_); }

  private:
    void add(Found found) {
        found.number = static_cast<std::int32_t>(result_.rows.size()) + 1;
        std::vector<Value>& row = result_.rows.emplace_back();
        for (const Column* const column : wanted_) row.push_back(column->value(found));
    }

    const std::vector<Text>& words_;
    std::vector<const Column*> wanted_;
    FoundRows result_;
};

}  // namespace

FoundRows search_index(Desk& desk, TextView command) {
    const SelectQuery query = read_select(command);
    Search search(query);
    const std::vector<FolderRow> folders =
        desk.folder_rows();  // a copy: to load a folder's items may change them
    for (const FolderRow& folder : folders) search.look_into(desk, folder);
    for (const IndexedFile& file : desk.surroundings().indexed_files()) search.look_at(file);
    return search.take_result();
}

}  // namespace desk
