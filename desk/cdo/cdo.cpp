#include "desk/cdo/cdo.h"

#include "desk/base/desk.h"
#include "desk/cdo/cdo_message.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/item.h"
#include "desk/outlook/name_space.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Ignored;
using automation::Text;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

constexpr std::int32_t not_logged_on = static_cast<std::int32_t>(0x80040605);  // CdoE_NOT_INITIALIZED

/// A property of folders by its tag (published with MAPI).
struct FolderProperty {
    std::int32_t tag;
    Text FolderRow::*member;
};
constexpr FolderProperty folder_properties[] = {
    {0x3001001E, &FolderRow::name},           // PR_DISPLAY_NAME
    {0x36E5001E, &FolderRow::default_class},  // PR_DEF_POST_MSGCLASS
};

const FolderProperty& property_of(std::int32_t tag) {
    for (const FolderProperty& property : folder_properties) {
        if (property.tag == tag) return property;
    }
    throw Failure(result::not_found, u"The folder has no such property.");
}

}  // namespace

const automation::Members<CdoField>& CdoField::members() {
    static const automation::Members<CdoField> table{
        {u"Value", automation::no_id, [](CdoField& self) { return self.owner().property(self.tag); },
         [](CdoField& self, const Value& given) { self.owner().property(self.tag, given); }},
        {u"ID", automation::no_id, Use::get, [](CdoField& self) { return self.tag; }},
    };
    return table;
}

const FolderRow& CdoFolder::stored() const {
    if (const FolderRow* const found = desk().folder_row(folder_)) return *found;
    throw Failure(result::not_found, u"The folder is gone.");
}

Value CdoFolder::property(std::int32_t tag) const {
    const auto changed = changed_.find(tag);
    return changed != changed_.end() ? changed->second : stored().*property_of(tag).member;
}

void CdoFolder::property(std::int32_t tag, const Value& value) {
    property_of(tag);
    changed_[tag] = value.to_text();
}

void CdoFolder::update() {
    FolderRow now = stored();
    for (const auto& [tag, value] : changed_) now.*property_of(tag).member = value;
    desk().change_folder(now);
    changed_.clear();
}

const automation::Members<CdoFolder>& CdoFolder::members() {
    static const automation::Members<CdoFolder> table{
        {u"Name", automation::no_id, Use::get, [](CdoFolder& self) { return self.stored().name; }},
        {u"ID", automation::no_id, Use::get,
         [](CdoFolder& self) {
             return std::make_shared<Folder>(self.desk(), self.id())->self().get(u"EntryID");
         }},
        {u"StoreID", automation::no_id, Use::get,
         [](CdoFolder& self) {
             return std::make_shared<Folder>(self.desk(), self.id())->self().get(u"StoreID");
         }},
        {u"Fields",
         automation::no_id,
         Use::get,
         {u"Tag"},
         [](CdoFolder& self, std::int32_t tag) { return cdo_field(self, tag); }},
        {u"Update", automation::no_id, Use::method, calls<&CdoFolder::update>},
    };
    return table;
}

void CdoSession::check_logged_on() const {
    if (!logged_on) throw Failure(not_logged_on, u"The session is not logged on.");
}

automation::Object CdoSession::folder(const Text& id, const std::optional<Value>& store) {
    check_logged_on();
    const automation::Object found = desk().name_space()->folder_from_id(id, store);
    return std::make_shared<CdoFolder>(desk(), folder_of(Value(found)).id(), self())->self();
}

automation::Object CdoSession::message(const Text& id, const std::optional<Value>& store) {
    check_logged_on();
    const RowId item = desk().name_space()->item_from_id(id, store)->id();
    return std::make_shared<CdoMessage>(desk(), desk().store().load(item).value(), self())->self();
}

const automation::Members<CdoSession>& CdoSession::members() {
    static const automation::Members<CdoSession> table{
        {u"Name", automation::no_id, Use::get,
         [](CdoSession& self) {
             self.check_logged_on();
             return u"Outlook";
         }},
        {u"Logon",
         automation::no_id,
         Use::method,
         {u"ProfileName", u"ProfilePassword", u"ShowDialog", u"NewSession", u"ParentWindow", u"NoMail",
          u"ProfileInfo"},
         [](CdoSession& self, Ignored, Ignored, Ignored, std::optional<bool>, Ignored, Ignored, Ignored) {
             self.logged_on = true;
         }},
        {u"Logoff", automation::no_id, Use::method,
         [](CdoSession& self) {
             self.check_logged_on();
             self.logged_on = false;
         }},
        {u"GetFolder", automation::no_id, Use::method, {u"FolderID", u"StoreID"}, calls<&CdoSession::folder>},
        {u"GetMessage",
         automation::no_id,
         Use::method,
         {u"MessageID", u"StoreID"},
         calls<&CdoSession::message>},
    };
    return table;
}

}  // namespace desk
