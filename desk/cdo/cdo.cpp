#include "desk/cdo/cdo.h"

#include "desk/base/desk.h"
#include "desk/cdo/cdo_message.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/item.h"
#include "desk/outlook/name_space.h"

namespace desk {

using automation::Arguments;
using automation::Failure;
using automation::Takes;
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
        {u"Value", automation::no_id, Use::get_put,
         [](CdoField& self, const Arguments& a) {
             if (a.is_put()) self.owner().property(self.tag, a.assigned());
             return self.owner().property(self.tag);
         }},
        {u"ID", automation::no_id, Use::get,
         [](CdoField& self, const Arguments&) { return Value(self.tag); }},
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
        {u"Name", automation::no_id, Use::get,
         [](CdoFolder& self, const Arguments&) { return Value(self.stored().name); }},
        {u"ID", automation::no_id, Use::get,
         [](CdoFolder& self, const Arguments&) {
             return std::make_shared<Folder>(self.desk(), self.id())->self().get(u"EntryID");
         }},
        {u"StoreID", automation::no_id, Use::get,
         [](CdoFolder& self, const Arguments&) {
             return std::make_shared<Folder>(self.desk(), self.id())->self().get(u"StoreID");
         }},
        {u"Fields",
         automation::no_id,
         Use::get,
         {{u"Tag", Takes::integer}},
         [](CdoFolder& self, const Arguments& a) { return cdo_field(self, a[0].to_integer()); }},
        {u"Update", automation::no_id, Use::method,
         [](CdoFolder& self, const Arguments&) {
             self.update();
             return Value();
         }},
    };
    return table;
}

void CdoSession::check_logged_on() const {
    if (!logged_on) throw Failure(not_logged_on, u"The session is not logged on.");
}

automation::Object CdoSession::folder(const Text& id, const Value& store) {
    check_logged_on();
    const automation::Object found = desk().name_space()->folder_from_id(id, store);
    return std::make_shared<CdoFolder>(desk(), folder_of(Value(found)).id(), self())->self();
}

automation::Object CdoSession::message(const Text& id, const Value& store) {
    check_logged_on();
    const RowId item = desk().name_space()->item_from_id(id, store)->id();
    return std::make_shared<CdoMessage>(desk(), desk().store().load(item).value(), self())->self();
}

const automation::Members<CdoSession>& CdoSession::members() {
    static const automation::Members<CdoSession> table{
        {u"Name", automation::no_id, Use::get,
         [](CdoSession& self, const Arguments&) {
             self.check_logged_on();
             return Value(u"Outlook");
         }},
        {u"Logon",
         automation::no_id,
         Use::method,
         {{u"ProfileName", Takes::value, true},
          {u"ProfilePassword", Takes::value, true},
          {u"ShowDialog", Takes::value, true},
          {u"NewSession", Takes::boolean, true},
          {u"ParentWindow", Takes::value, true},
          {u"NoMail", Takes::value, true},
          {u"ProfileInfo", Takes::value, true}},
         [](CdoSession& self, const Arguments&) {
             self.logged_on = true;
             return Value();
         }},
        {u"Logoff", automation::no_id, Use::method,
         [](CdoSession& self, const Arguments&) {
             self.check_logged_on();
             self.logged_on = false;
             return Value();
         }},
        {u"GetFolder",
         automation::no_id,
         Use::method,
         {{u"FolderID", Takes::text}, {u"StoreID", Takes::value, true}},
         [](CdoSession& self, const Arguments& a) { return Value(self.folder(a[0].to_text(), a[1])); }},
        {u"GetMessage",
         automation::no_id,
         Use::method,
         {{u"MessageID", Takes::text}, {u"StoreID", Takes::value, true}},
         [](CdoSession& self, const Arguments& a) { return Value(self.message(a[0].to_text(), a[1])); }},
    };
    return table;
}

}  // namespace desk
