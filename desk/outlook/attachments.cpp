#include "desk/outlook/attachments.h"

#include <algorithm>
#include <filesystem>

#include "desk/base/desk.h"
#include "desk/outlook/item_file.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Object;
using automation::Text;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

constexpr std::int32_t by_value = 1, embedded_item = 5;  // OlAttachmentType

/// The item that an object is or stands for.
std::shared_ptr<Item> item_of(const Object& source) {
    if (auto item = std::dynamic_pointer_cast<Item>(source.target())) return item;
    const Object wrapped = source.get(u"Item").to_object();
    if (auto item = std::dynamic_pointer_cast<Item>(wrapped.target())) return item;
    throw Failure(result::invalid_argument, u"Only a file or an item can be attached.");
}

AttachmentData attached_item(const std::shared_ptr<Item>& source) {
    AttachmentData data;
    data.type = embedded_item;
    data.item = std::make_shared<ItemData>(source->whole());
    data.display_name = source->subject();
    data.file_name = data.display_name + u".msg";
    return data;
}

AttachmentData attached_file(const Text& path) {
    AttachmentData data;
    data.type = by_value;
    data.content = read_file(path);
    data.file_name = path.substr(path.find_last_of(u"/\\") + 1);
    data.display_name = data.file_name;
    return data;
}

}  // namespace

bool may_save_attachments(const std::shared_ptr<Item>& item) {
    const auto stored =
        item->id() == 0 ? std::vector<AttachmentData>() : item->desk().store().attachments(item->id());
    for (std::size_t i = 0; i < item->whole().attachments.size(); ++i) {
        if (std::ranges::find(stored, item->whole().attachments[i]) != stored.end()) continue;
        std::vector<Value> arguments{Value(std::make_shared<Attachment>(item->desk(), item, i)->self()),
                                     false};
        item->raise_with_answer(u"BeforeAttachmentSave", arguments);
        if (arguments[1].to_boolean()) return false;
        item->check_there();  // who was asked may have moved or deleted it
    }
    return true;
}

Object Attachments::at(const Value& index) const {
    item_->check_there();
    const auto& all = item_->whole().attachments;
    if (index.is(Value::Type::text)) {
        const Text wanted = index.to_text();
        const auto found = std::ranges::find_if(all, [&](const AttachmentData& a) {
            return automation::same_ignoring_case(a.display_name, wanted);
        });
        if (found == all.end())
            throw Failure(result::not_found, u"There is no attachment \"" + wanted + u"\".");
        return std::make_shared<Attachment>(desk(), item_, static_cast<std::size_t>(found - all.begin()))
            ->self();
    }
    const std::int32_t place = index.to_integer();
    if (place < 1 || static_cast<std::size_t>(place) > all.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return std::make_shared<Attachment>(desk(), item_, static_cast<std::size_t>(place - 1))->self();
}

Object Attachments::add(const Value& source, std::int32_t position, const Text& display_name) {
    AttachmentData data = source.is(Value::Type::object) ? attached_item(item_of(source.to_object()))
                                                         : attached_file(source.to_text());
    data.position = position;
    if (!display_name.empty()) data.display_name = display_name;
    auto& all = item_->change_attachments().attachments;
    all.push_back(std::move(data));
    const Object attachment = at(static_cast<std::int32_t>(all.size()));
    item_->raise(u"AttachmentAdd", {Value(attachment)});
    return attachment;
}

const automation::Members<Attachments>& Attachments::members() {
    static const automation::Members<Attachments> table{
        {u"Count", 0x50, Use::get, [](Attachments& self) { return self.item().whole().attachments.size(); }},
        {u"Item", 0x51, Use::method, {u"Index"}, calls<&Attachments::at>},
        {u"Add",
         0x65,
         Use::method,
         {u"Source", u"Type", u"Position", u"DisplayName"},
         [](Attachments& self, const Value& source, std::optional<std::int32_t>,
            std::optional<std::int32_t> position, const std::optional<Text>& display_name) {
             return self.add(source, position.value_or(0), display_name.value_or(Text()));
         }},
        {u"Remove",
         0x54,
         Use::method,
         {u"Index"},
         [](Attachments& self, std::int32_t index) {
             std::dynamic_pointer_cast<Attachment>(self.at(index).target())->remove();
         }},
    };
    return table;
}

const AttachmentData& Attachment::data() const {
    item_->check_there();
    const auto& all = item_->whole().attachments;
    if (place_ >= all.size()) throw Failure(result::object_deleted, u"The attachment was removed.");
    return all[place_];
}

AttachmentData& Attachment::change() {
    data();
    return item_->change_attachments().attachments[place_];
}

void Attachment::remove() {
    data();
    auto& all = item_->change_attachments().attachments;
    all.erase(all.begin() + static_cast<std::ptrdiff_t>(place_));
}

std::string Attachment::bytes() const { return data().item ? message_file(*data().item) : data().content; }

Object Attachment::open() const {
    if (!data().item) throw Failure(result::invalid_argument, u"The attachment is a file, not an item.");
    constexpr RowId no_folder = 0;
    return std::make_shared<desk::Item>(desk(), no_folder, *data().item)->self();
}

const automation::Members<Attachment>& Attachment::members() {
    static const automation::Members<Attachment> table{
        {u"DisplayName", 0x3001, [](Attachment& self) { return self.data().display_name; },
         [](Attachment& self, const Text& given) { self.change().display_name = given; }},
        {u"FileName", 0x3704, Use::get, [](Attachment& self) { return self.data().file_name; }},
        {u"Index", 0x5B, Use::get, calls<&Attachment::index>},
        {u"Parent", 0x71, Use::get, calls<&Attachment::parent>},
        {u"PathName", 0x3708, Use::get, [](Attachment&) { return u""; }},
        {u"Position", 0x72, [](Attachment& self) { return self.data().position; },
         [](Attachment& self, std::int32_t given) { self.change().position = given; }},
        {u"Type", 0x3705, Use::get, [](Attachment& self) { return self.data().type; }},
        {u"Size", 0xFBE9, Use::get, [](Attachment& self) { return self.bytes().size(); }},
        {u"Delete", 0x69, Use::method, calls<&Attachment::remove>},
        {u"SaveAsFile",
         0x68,
         Use::method,
         {u"Path"},
         [](Attachment& self, const Text& path) { write_file(path, self.bytes()); }},
        {u"EmbeddedItem", automation::no_id, Use::get, calls<&Attachment::open>},
    };
    return table;
}

}  // namespace desk
