// The members of items that are more than a field.
#include "desk/base/desk.h"
#include "desk/outlook/attachments.h"
#include "desk/outlook/dist_lists.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item.h"
#include "desk/outlook/item_file.h"
#include "desk/outlook/item_properties.h"
#include "desk/outlook/property_accessor.h"
#include "desk/outlook/recipients.h"
#include "desk/outlook/user_properties.h"

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

Value object(const std::shared_ptr<Item>& item) {
    return item ? Value(item->self()) : Value(automation::Object());
}

/// Members that only some kinds of items have.
void only(bool has, automation::TextView member) {
    if (!has) throw Failure(result::member_not_found, Text(member));
}

/// The two names share one dispatch id: posts are posted, what has recipients is sent.
void post_or_send(Item& self) {
    if (self.kind().number == object_class::post) {
        self.post();
    } else {
        only(self.kind().has_people, u"Send");
        self.send();
    }
}

}  // namespace

const automation::Members<Item>& Item::members() {
    static const automation::Members<Item> table{
        {u"MessageClass", 0x001A, [](Item& self) { return self.data().message_class; },
         calls<&Item::set_message_class>},
        {u"EntryID", 0xF01E, Use::get, calls<&Item::entry_id>},
        {u"Saved", 0xF0A3, Use::get, calls<&Item::is_saved>},
        {u"Size", 0x0E08, Use::get, [](Item& self) { return static_cast<std::int32_t>(self.size()); }},
        {u"UserProperties", 0xF816, Use::get,
         [](Item& self) {
             only(!self.kind().is_note, u"UserProperties");
             return std::make_shared<UserProperties>(self.desk(), self.shared_from_this())->self();
         }},
        {u"ItemProperties", 0xFA09, Use::get,
         [](Item& self) {
             return std::make_shared<ItemProperties>(self.desk(), self.shared_from_this())->self();
         }},
        {u"Attachments", 0xF815, Use::get,
         [](Item& self) {
             only(!self.kind().is_note, u"Attachments");
             return std::make_shared<Attachments>(self.desk(), self.shared_from_this())->self();
         }},
        {u"Recipients", 0xF814, Use::get,
         [](Item& self) {
             only(self.kind().has_people, u"Recipients");
             return std::make_shared<Recipients>(self.desk(), self.shared_from_this())->self();
         }},
        {u"Sender", 0xFC7B, Use::get,
         [](Item& self) {
             only(self.kind().number == object_class::mail, u"Sender");
             return sender_entry(self);
         }},
        {u"PropertyAccessor", 0xFAFD, Use::get,
         [](Item& self) { return PropertyAccessor::of_item(self.shared_from_this())->self(); }},
        {u"GetInspector", 0xF03E, Use::get, [](Item& self) { return self.inspector()->self(); }},
        {u"Close",
         0xF023,
         Use::method,
         {u"SaveMode"},
         [](Item& self, std::int32_t save_mode) { self.inspector()->close(save_mode); }},
        {u"Copy", 0xF032, Use::method, [](Item& self) { return object(self.copy()); }},
        {u"Delete", 0xF04A, Use::method, calls<&Item::remove>},
        {u"Display",
         0xF0A6,
         Use::method,
         {u"Modal"},
         [](Item& self, Ignored) {
             self.desk().displayed.push_back(self.self());
             self.inspector()->display();
         }},
        {u"Move",
         0xF034,
         Use::method,
         {u"DestFldr"},
         [](Item& self, const Object& dest_fldr) { return object(self.move_to(folder_of(dest_fldr).id())); }},
        {u"PrintOut", 0xF033, Use::method,
         [](Item&) -> Value { throw Failure(result::fail, u"No printer is set up."); }},
        {u"Save", 0xF048, Use::method, calls<&Item::save>},
        {u"SaveAs",
         0xF051,
         Use::method,
         {u"Path", u"Type"},
         [](Item& self, const Text& path, std::optional<std::int32_t> type) {
             save_item_file(self.whole(), path, type.value_or(item_file_message));
         }},
        {u"Post", 0xF075, Use::method, post_or_send},
        {u"Send", 0xF075, Use::method, post_or_send},
        {u"Reply", 0xF810, Use::method, [](Item& self) { return object(self.reply(false)); }},
        {u"ReplyAll", 0xF811, Use::method, [](Item& self) { return object(self.reply(true)); }},
        {u"Forward", 0xF813, Use::method, [](Item& self) { return object(self.forward()); }},
        {u"MemberCount", 0x804B, Use::get, [](Item& self) { return self.data().recipients.size(); }},
        {u"AddMembers", 0xF900, Use::method, {u"Recipients"}, add_members},
        {u"RemoveMembers", 0xF901, Use::method, {u"Recipients"}, remove_members},
        {u"GetMember",
         0xF905,
         Use::method,
         {u"Index"},
         [](Item& self, std::int32_t index) {
             return Recipients(self.desk(), self.shared_from_this()).at(index);
         }},
        {u"AddMember", 0xFA8C, Use::method, {u"Recipient"}, add_members},
        {u"RemoveMember", 0xFA8D, Use::method, {u"Recipient"}, remove_members},
        {u"MarkComplete", 0xF60D, Use::method,
         [](Item& self) {
             only(self.kind().number == object_class::task, u"MarkComplete");
             self.set_field(*find_field(self.kind(), u"Complete"), true);
         }},
    };
    return table;
}

}  // namespace desk
