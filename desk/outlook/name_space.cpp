#include "desk/outlook/name_space.h"

#include "desk/base/desk.h"
#include "desk/outlook/application.h"
#include "desk/outlook/dist_lists.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/item.h"
#include "desk/outlook/item_file.h"
#include "desk/outlook/recipients.h"

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

constexpr std::int32_t contacts_folder = 10;

Text text_field(const ItemData& item, automation::TextView field) {
    return field_value(item, field).value_or(u"").to_text();
}

/// The store that an id names must be the one that the object lies in; an omitted one is no restriction.
void check_store(Desk& desk, RowId folder, const std::optional<Value>& store) {
    if (!store) return;
    const Text named = store->to_text();
    if (!named.empty() && !automation::same_ignoring_case(named, desk.store_uid(folder))) {
        throw Failure(result::not_found, u"The store does not hold an object with that id.");
    }
}

}  // namespace

Object NameSpace::parent() const { return desk().application()->self(); }

Object NameSpace::default_folder(std::int32_t folder_number) const {
    const RowId id = desk().default_folder(folder_number);
    if (id == 0)
        throw Failure(result::invalid_argument, u"The profile has no default folder with that number.");
    return std::make_shared<Folder>(desk(), id)->self();
}

Object NameSpace::folder_from_id(const Text& id, const std::optional<Value>& store) const {
    const std::optional<RowId> folder = desk().folder_of_entry_id(id);
    if (!folder) throw Failure(result::not_found, u"There is no folder with that id.");
    check_store(desk(), *folder, store);
    return std::make_shared<Folder>(desk(), *folder)->self();
}

std::shared_ptr<Item> NameSpace::item_from_id(const Text& id, const std::optional<Value>& store) const {
    const std::optional<RowId> row = Desk::item_of_entry_id(id);
    std::shared_ptr<Item> item = row ? desk().open_item(*row) : nullptr;
    if (!item || !automation::same_ignoring_case(item->entry_id(), id)) {
        throw Failure(result::not_found, u"There is no item with that id.");
    }
    check_store(desk(), item->folder(), store);
    return item;
}

Object NameSpace::open_message_file(const Text& path) const {
    constexpr RowId no_folder = 0;
    return std::make_shared<Item>(desk(), no_folder, read_message_file(path))->self();
}

Object NameSpace::create_recipient(const Text& recipient_name) const {
    if (automation::trimmed(recipient_name).empty())
        throw Failure(result::invalid_argument, u"A recipient needs a name.");
    Person person;
    person.name = recipient_name;
    person.resolved = false;
    return free_recipient(desk(), std::move(person));
}

Person NameSpace::user() const {
    Person user;
    user.name = user_name();
    user.address = user_address;
    user.address_type = u"SMTP";
    user.smtp_address = user.address;
    return user;
}

Person NameSpace::person(const Text& typed, std::int32_t kind) const {
    Person person;
    person.name = typed;
    person.kind = kind;
    const std::size_t bracket = typed.find(u'<');
    if (bracket != Text::npos && typed.back() == u'>') {  // Ann Lee <ann@one.example>
        person.name = automation::trimmed(typed.substr(0, bracket));
        person.address = typed.substr(bracket + 1, typed.size() - bracket - 2);
    } else if (typed.find(u'@') != Text::npos) {
        person.address = typed;
    } else if (const RowId folder = desk().default_folder(contacts_folder); folder != 0 && !typed.empty()) {
        for (const RowId id : desk().store().lookup(folder, u"FullName", typed)) {
            const std::optional<ItemRow> row = desk().store().load(id);
            if (!row) continue;
            if (kind_of(row->data.message_class).number == object_class::dist_list) {
                person.address_type = dist_list_type;
                break;
            }
            person.address = text_field(row->data, u"Email1Address");
            person.address_type = text_field(row->data, u"Email1AddressType");
            break;
        }
    }
    person.resolved = !person.address.empty() || person.address_type == dist_list_type;
    if (person.resolved && person.address_type.empty()) person.address_type = u"SMTP";
    if (person.address_type == u"SMTP") person.smtp_address = person.address;
    return person;
}

Text NameSpace::person_id(const Person& person) {
    constexpr char16_t digits[] = u"0123456789ABCDEF";
    Text id = u"00000000";
    for (const char byte :
         automation::to_utf8(person.address_type + u":" + person.address + u":" + person.name)) {
        const auto value = static_cast<unsigned char>(byte);
        id += digits[value >> 4];
        id += digits[value & 0xF];
    }
    return id;
}

const automation::Members<NameSpace>& NameSpace::members() {
    static const automation::Members<NameSpace> table{
        {u"Folders", 0x2103, Use::get,
         [](NameSpace& self) {
             constexpr RowId top = 0;
             return std::make_shared<FoldersCollection>(self.desk(), top)->self();
         }},
        {u"Type", 0x2104, Use::get, [](NameSpace&) { return u"MAPI"; }},
        {u"CurrentUser", 0x2101, Use::get,
         [](NameSpace& self) { return free_recipient(self.desk(), self.user()); }},
        {u"CreateRecipient", 0x210A, Use::method, {u"RecipientName"}, calls<&NameSpace::create_recipient>},
        {u"GetDefaultFolder", 0x210B, Use::method, {u"FolderType"}, calls<&NameSpace::default_folder>},
        {u"GetFolderFromID",
         0x2108,
         Use::method,
         {u"EntryIDFolder", u"EntryIDStore"},
         calls<&NameSpace::folder_from_id>},
        {u"GetItemFromID",
         0x2109,
         Use::method,
         {u"EntryIDItem", u"EntryIDStore"},
         [](NameSpace& self, const Text& entry_id_item, const std::optional<Value>& entry_id_store) {
             return self.item_from_id(entry_id_item, entry_id_store)->self();
         }},
        {u"OpenSharedItem", 0xFBF7, Use::method, {u"Path"}, calls<&NameSpace::open_message_file>},
        {u"CompareEntryIDs",
         0xFBFC,
         Use::method,
         {u"FirstEntryID", u"SecondEntryID"},
         [](NameSpace&, const Text& first_entry_id, const Text& second_entry_id) {
             return automation::same_ignoring_case(first_entry_id, second_entry_id);
         }},
        {u"Logon",
         0x2105,
         Use::method,
         {u"Profile", u"Password", u"ShowDialog", u"NewSession"},
         [](NameSpace&, Ignored, Ignored, Ignored, Ignored) {}},  // there is one profile, and it is logged on
        {u"Logoff", 0x2106, Use::method, [](NameSpace&) {}},
    };
    return table;
}

}  // namespace desk
