// The members of items that are more than a field.
#include "desk/base/desk.h"
#include "desk/outlook/attachments.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item.h"
#include "desk/outlook/item_file.h"
#include "desk/outlook/item_properties.h"
#include "desk/outlook/property_accessor.h"
#include "desk/outlook/recipients.h"
#include "desk/outlook/user_properties.h"

namespace desk {

using automation::Arguments;
using automation::Failure;
using automation::Takes;
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
Value post_or_send(Item& self, const Arguments&) {
    if (self.kind().number == object_class::post) {
        self.post();
    } else {
        only(self.kind().has_people, u"Send");
        self.send();
    }
    return {};
}

}  // namespace

const automation::Members<Item>& Item::members() {
    static const automation::Members<Item> table{
        {u"MessageClass", 0x001A, Use::get_put,
         [](Item& self, const Arguments& a) {
             if (a.is_put()) self.set_message_class(a.assigned().to_text());
             return Value(self.data().message_class);
         }},
        {u"EntryID", 0xF01E, Use::get, [](Item& self, const Arguments&) { return Value(self.entry_id()); }},
        {u"Saved", 0xF0A3, Use::get, [](Item& self, const Arguments&) { return Value(self.is_saved()); }},
        {u"Size", 0x0E08, Use::get,
         [](Item& self, const Arguments&) { return Value(static_cast<std::int32_t>(self.size())); }},
        {u"UserProperties", 0xF816, Use::get,
         [](Item& self, const Arguments&) {
             only(!self.kind().is_note, u"UserProperties");
             return Value(std::make_shared<UserProperties>(self.desk(), self.shared_from_this())->self());
         }},
        {u"ItemProperties", 0xFA09, Use::get,
         [](Item& self, const Arguments&) {
             return Value(std::make_shared<ItemProperties>(self.desk(), self.shared_from_this())->self());
         }},
        {u"Attachments", 0xF815, Use::get,
         [](Item& self, const Arguments&) {
             only(!self.kind().is_note, u"Attachments");
             return Value(std::make_shared<Attachments>(self.desk(), self.shared_from_this())->self());
         }},
        {u"Recipients", 0xF814, Use::get,
         [](Item& self, const Arguments&) {
             only(self.kind().has_people, u"Recipients");
             return Value(std::make_shared<Recipients>(self.desk(), self.shared_from_this())->self());
         }},
        {u"Sender", 0xFC7B, Use::get,
         [](Item& self, const Arguments&) {
             only(self.kind().number == object_class::mail, u"Sender");
             return sender_entry(self);
         }},
        {u"PropertyAccessor", 0xFAFD, Use::get,
         [](Item& self, const Arguments&) {
             return Value(PropertyAccessor::of_item(self.shared_from_this())->self());
         }},
        {u"GetInspector", 0xF03E, Use::get,
         [](Item& self, const Arguments&) { return Value(self.inspector()->self()); }},
        {u"Close",
         0xF023,
         Use::method,
         {{u"SaveMode", Takes::integer}},
         [](Item& self, const Arguments& a) {
             self.inspector()->close(a[0].to_integer());
             return Value();
         }},
        {u"Copy", 0xF032, Use::method, [](Item& self, const Arguments&) { return object(self.copy()); }},
        {u"Delete", 0xF04A, Use::method,
         [](Item& self, const Arguments&) {
             self.remove();
             return Value();
         }},
        {u"Display",
         0xF0A6,
         Use::method,
         {{u"Modal", Takes::value, true}},
         [](Item& self, const Arguments&) {
             self.desk().displayed.push_back(self.self());
             self.inspector()->display();
             return Value();
         }},
        {u"Move",
         0xF034,
         Use::method,
         {{u"DestFldr", Takes::object}},
         [](Item& self, const Arguments& a) { return object(self.move_to(folder_of(a[0]).id())); }},
        {u"PrintOut", 0xF033, Use::method,
         [](Item&, const Arguments&) -> Value { throw Failure(result::fail, u"No printer is set up."); }},
        {u"Save", 0xF048, Use::method,
         [](Item& self, const Arguments&) {
             self.save();
             return Value();
         }},
        {u"SaveAs",
         0xF051,
         Use::method,
         {{u"Path", Takes::text}, {u"Type", Takes::integer, true}},
         [](Item& self, const Arguments& a) {
             save_item_file(self.whole(), a[0].to_text(), a.has(1) ? a[1].to_integer() : item_file_message);
             return Value();
         }},
        {u"Post", 0xF075, Use::method, post_or_send},
        {u"Send", 0xF075, Use::method, post_or_send},
        {u"Reply", 0xF810, Use::method,
         [](Item& self, const Arguments&) { return object(self.reply(false)); }},
        {u"ReplyAll", 0xF811, Use::method,
         [](Item& self, const Arguments&) { return object(self.reply(true)); }},
        {u"Forward", 0xF813, Use::method,
         [](Item& self, const Arguments&) { return object(self.forward()); }},
        {u"MarkComplete", 0xF60D, Use::method,
         [](Item& self, const Arguments&) {
             only(self.kind().number == object_class::task, u"MarkComplete");
             self.set_field(*find_field(self.kind(), u"Complete"), true);
             return Value();
         }},
    };
    return table;
}

}  // namespace desk
