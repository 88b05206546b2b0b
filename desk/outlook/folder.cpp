#include "desk/outlook/folder.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/base/host_event_tables.h"
#include "desk/base/kept.h"
#include "desk/outlook/explorers.h"
#include "desk/outlook/folder_fields.h"
#include "desk/outlook/item.h"
#include "desk/outlook/items.h"
#include "desk/outlook/name_space.h"
#include "desk/outlook/property_accessor.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Ignored;
using automation::Object;
using automation::Text;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

bool is_taken(Desk& desk, RowId parent, const Text& name) {
    return std::ranges::any_of(desk.folders_below(parent), [&](RowId sibling) {
        return automation::same_ignoring_case(desk.existing_folder(sibling).name, name);
    });
}

/// A name that no sibling bears.
void check_name(Desk& desk, RowId parent, const Text& name) {
    if (automation::trimmed(name).empty()) throw Failure(result::invalid_argument, u"A folder needs a name.");
    if (is_taken(desk, parent, name))
        throw Failure(result::fail, u"A folder named \"" + name + u"\" already exists there.");
}

}  // namespace

Folder& folder_of(const Value& value) {
    const auto folder = std::dynamic_pointer_cast<Folder>(value.to_object().target());
    if (!folder) throw Failure(result::type_mismatch, u"A folder is expected.");
    return *folder;
}

const FolderRow& Folder::stored() const { return desk().existing_folder(id_); }

Object Folder::parent() const {
    const RowId above = stored().parent;
    return above == 0 ? desk().name_space()->self() : std::make_shared<Folder>(desk(), above)->self();
}

Text Folder::path() const {
    Text path;
    for (RowId id = id_; id != 0;) {
        const FolderRow& row = desk().existing_folder(id);
        path = u"\\" + row.name + path;
        id = row.parent;
    }
    return u"\\" + path;
}

void Folder::rename(const Text& new_name) {
    if (!automation::same_ignoring_case(stored().name, new_name))
        check_name(desk(), stored().parent, new_name);
    FolderRow renamed = stored();
    renamed.name = new_name;
    desk().change_folder(renamed);
    desk().tell_folders(stored().parent, u"FolderChange", id_);
}

void Folder::remove() {
    if (stored().parent == 0 || stored().default_number != 0) {
        throw Failure(result::access_denied, u"The folder \"" + stored().name + u"\" can't be deleted.");
    }
    // the mailbox has a place for what is deleted; shared folders have none
    const RowId bin = desk().default_folder(deleted_items_folder);
    bool recoverable = bin != 0 && desk().root_of(id_) == desk().root_of(bin);
    for (RowId above = id_; above != 0; above = desk().existing_folder(above).parent)
        recoverable = recoverable && above != bin;
    if (!recoverable) return desk().remove_folder(id_);
    const Text own_name = stored().name;
    Text free_name = own_name;
    for (std::int32_t number = 1; is_taken(desk(), bin, free_name); ++number)
        free_name = own_name + automation::to_text(number);
    move_to(bin, free_name);
}

void Folder::move_to(RowId target) { move_to(target, stored().name); }

void Folder::move_to(RowId target, const Text& name_there) {
    for (RowId above = target; above != 0; above = desk().existing_folder(above).parent) {
        if (above == id_) throw Failure(result::fail, u"A folder can't be moved into itself.");
    }
    check_name(desk(), target, name_there);
    const RowId former = stored().parent;
    FolderRow moved = stored();
    moved.parent = target;
    moved.name = name_there;
    desk().change_folder(moved);
    desk().tell_folders(former, u"FolderRemove", 0);
    desk().tell_folders(target, u"FolderAdd", id_);
}

Object Folder::copy_to(RowId target) {
    for (RowId above = target; above != 0; above = desk().existing_folder(above).parent) {
        if (above == id_) throw Failure(result::fail, u"A folder can't be copied into itself.");
    }
    check_name(desk(), target, stored().name);
    FolderRow twin = stored();
    twin.parent = target;
    twin.default_number = 0;
    const RowId twin_id = desk().add_folder(twin);
    const std::vector<RowId> own_items = desk().contents(id_);
    for (const RowId item : own_items) {
        const std::shared_ptr<Item> original = desk().open_item(item);
        if (!original) continue;  // it has left meanwhile
        std::make_shared<Item>(desk(), twin_id, original->whole())->save();
    }
    for (const RowId below : desk().folders_below(id_)) Folder(desk(), below).copy_to(twin_id);
    return std::make_shared<Folder>(desk(), twin_id)->self();
}

const automation::Members<Folder>& Folder::members() {
    static const automation::Members<Folder> table{
        {u"Name", 0x3001, [](Folder& self) { return self.stored().name; }, calls<&Folder::rename>},
        {u"EntryID", 0xF01E, Use::get,
         [](Folder& self) {
             self.stored();
             return self.desk().folder_entry_id(self.id());
         }},
        {u"StoreID", 0x3108, Use::get,
         [](Folder& self) {
             self.stored();
             return self.desk().store_uid(self.id());
         }},
        {u"Folders", 0x2103, Use::get,
         [](Folder& self) {
             self.stored();
             return std::make_shared<FoldersCollection>(self.desk(), self.id())->self();
         }},
        {u"Items", 0x3100, Use::get,
         [](Folder& self) {
             self.stored();
             return std::make_shared<Items>(self.desk(), self.id())->self();
         }},
        {u"DefaultItemType", 0x3106, Use::get, [](Folder& self) { return self.stored().item_type; }},
        {u"DefaultMessageClass", 0x3107, Use::get, [](Folder& self) { return self.stored().default_class; }},
        {u"Description", 0x3004, [](Folder& self) { return self.stored().description; },
         [](Folder& self, const Text& given) {
             FolderRow described = self.stored();
             described.description = given;
             self.desk().change_folder(described);
         }},
        {u"UnReadItemCount", 0x3603, Use::get,
         [](Folder& self) {
             self.stored();
             return static_cast<std::int32_t>(self.desk().store().unread(self.id()));
         }},
        {u"PropertyAccessor", 0xFAFD, Use::get,
         [](Folder& self) {
             self.stored();
             return PropertyAccessor::of_folder(self.desk(), self.id())->self();
         }},
        {u"UserDefinedProperties", 0xF816, Use::get,
         [](Folder& self) {
             self.stored();
             return std::make_shared<UserDefinedProperties>(self.desk(), self.id())->self();
         }},
        {u"FolderPath", 0xFA78, Use::get, calls<&Folder::path>},
        {u"FullFolderPath", 0xFA91, Use::get, calls<&Folder::path>},
        {u"CopyTo",
         0xF032,
         Use::method,
         {u"DestinationFolder"},
         [](Folder& self, const Object& destination_folder) {
             return self.copy_to(folder_of(destination_folder).id());
         }},
        {u"MoveTo",
         0xF034,
         Use::method,
         {u"DestinationFolder"},
         [](Folder& self, const Object& destination_folder) {
             self.move_to(folder_of(destination_folder).id());
         }},
        {u"Delete", 0xF045, Use::method, calls<&Folder::remove>},
        {u"Display", 0x3104, Use::method, [](Folder& self) { self.desk().explorers()->show(self.id()); }},
        {u"GetExplorer",
         0x3101,
         Use::method,
         {u"DisplayMode"},
         [](Folder& self, Ignored) { return self.desk().explorers()->make(self.id()); }},
    };
    return table;
}

Object FoldersCollection::parent() const {
    return parent_ == 0 ? desk().name_space()->self() : std::make_shared<Folder>(desk(), parent_)->self();
}

EventInterfaces FoldersCollection::event_interfaces() const { return events::folders; }

std::int32_t FoldersCollection::subscribe(const automation::Guid& interface_id, const Object& sink) {
    const std::int32_t cookie = ModelObject::subscribe(interface_id, sink);
    desk().watch_folders(parent_, shared_from_this());
    return cookie;
}

std::vector<RowId> FoldersCollection::ids() const {
    if (parent_ != 0) desk().existing_folder(parent_);
    return desk().folders_below(parent_);
}

Object FoldersCollection::at(const Value& index) const {
    const std::vector<RowId> all = ids();
    if (index.is(Value::Type::text)) {
        const Text wanted = index.to_text();
        for (const RowId id : all) {
            if (automation::same_ignoring_case(desk().existing_folder(id).name, wanted)) {
                return std::make_shared<Folder>(desk(), id)->self();
            }
        }
        throw Failure(result::not_found, u"The folder \"" + wanted + u"\" could not be found.");
    }
    const std::int32_t wanted = index.to_integer();
    if (wanted < 1 || static_cast<std::size_t>(wanted) > all.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return std::make_shared<Folder>(desk(), all[static_cast<std::size_t>(wanted - 1)])->self();
}

Object FoldersCollection::add(const Text& folder_name, const std::optional<Value>& type) {
    if (parent_ == 0) throw Failure(result::access_denied, u"Stores can't be added here.");
    ids();
    check_name(desk(), parent_, folder_name);
    /// What a number of a default folder says of a new folder's contents.
    struct TypeRow {
        std::int32_t number, item_type;
    };
    constexpr TypeRow types[] = {{6, 0}, {9, 1}, {10, 2}, {11, 4}, {12, 5}, {13, 3}, {16, 0}};
    FolderRow row;
    row.parent = parent_;
    row.name = folder_name;
    row.item_type = desk().existing_folder(parent_).item_type;
    if (type) {
        const std::int32_t number = type->to_integer();
        const auto found = std::ranges::find(types, number, &TypeRow::number);
        if (found == std::end(types))
            throw Failure(result::invalid_argument, u"There is no type of folder with that number.");
        row.item_type = found->item_type;
    }
    constexpr std::int32_t posts = 6;
    row.default_class =
        row.item_type == posts ? Text(u"IPM.Post") : Text(kind_of_type(row.item_type).base_class);
    return std::make_shared<Folder>(desk(), desk().add_folder(row))->self();
}

Object FoldersCollection::step(std::int32_t to) {
    const std::vector<RowId> all = ids();
    place = to;
    if (to < 1 || static_cast<std::size_t>(to) > all.size()) return {};
    return std::make_shared<Folder>(desk(), all[static_cast<std::size_t>(to - 1)])->self();
}

const automation::Members<FoldersCollection>& FoldersCollection::members() {
    using Self = FoldersCollection;
    static const automation::Members<Self> table{
        {u"Count", 0x50, Use::get, [](Self& self) { return self.ids().size(); }},
        {u"Item", 0x51, Use::method, {u"Index"}, calls<&Self::at>},
        {u"Add", 0x5F, Use::method, {u"Name", u"Type"}, calls<&Self::add>},
        {u"GetFirst", 0x56, Use::method, first<Self>},
        {u"GetLast", 0x58, Use::method, last<Self>},
        {u"GetNext", 0x57, Use::method, next<Self>},
        {u"GetPrevious", 0x59, Use::method, previous<Self>},
        {u"Remove",
         0x54,
         Use::method,
         {u"Index"},
         [](Self& self, std::int32_t index) { folder_of(Value(self.at(index))).remove(); }},
    };
    return table;
}

}  // namespace desk
