#include "desk/outlook/recipients.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/outlook/dist_lists.h"
#include "desk/outlook/name_space.h"
#include "desk/outlook/property_accessor.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;
namespace result = automation::result;

namespace {

/// Properties of people by their tags' numbers.
struct PersonProperty {
    TextView tag;  ///< the first four digits
    Text Person::*value;
};
constexpr PersonProperty person_properties[] = {
    {u"3001", &Person::name},
    {u"3002", &Person::address_type},
    {u"3003", &Person::address},
    {u"39fe", &Person::smtp_address},
};
constexpr TextView property_root = u"http://schemas.microsoft.com/mapi/proptag/0x";
constexpr std::size_t tag_number_digits = 4;

std::int32_t display_type(const Person& person) {
    constexpr std::int32_t user = 0, private_list = 5;  // OlDisplayType
    return person.address_type == dist_list_type ? private_list : user;
}

}  // namespace

std::optional<Value> person_property(const Person& person, TextView address) {
    if (address.size() < property_root.size() + tag_number_digits) return std::nullopt;
    if (!automation::same_ignoring_case(address.substr(0, property_root.size()), property_root))
        return std::nullopt;
    const TextView number = address.substr(property_root.size(), tag_number_digits);
    for (const PersonProperty& row : person_properties) {
        if (!automation::same_ignoring_case(row.tag, number)) continue;
        const Text& value = person.*row.value;
        if (value.empty()) return std::nullopt;
        return Value(value);
    }
    return std::nullopt;
}

Value sender_entry(Item& item) {
    Person person;
    person.name = item.field(u"SenderName").to_text();
    person.address = item.field(u"SenderEmailAddress").to_text();
    person.address_type = item.field(u"SenderEmailType").to_text();
    person.smtp_address = item.field(u"SenderSmtpAddress").to_text();
    if (person.name.empty() && person.address.empty() && person.smtp_address.empty())
        return Value(automation::Object());
    return Value(std::make_shared<AddressEntry>(item.desk(), std::move(person))->self());
}

automation::Object Recipients::at(std::int32_t place) const {
    item_->check_there();
    if (place < 1 || static_cast<std::size_t>(place) > item_->data().recipients.size()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return std::make_shared<Recipient>(desk(), item_, static_cast<std::size_t>(place - 1))->self();
}

automation::Object Recipients::named(const Text& person) const {
    const auto& people = item_->data().recipients;
    const auto found = std::ranges::find_if(
        people, [&](const Person& p) { return automation::same_ignoring_case(p.name, person); });
    if (found == people.end())
        throw Failure(result::not_found, u"The item has no recipient \"" + person + u"\".");
    return at(static_cast<std::int32_t>(found - people.begin()) + 1);
}

automation::Object Recipients::add(const Text& person) {
    if (automation::trimmed(person).empty())
        throw Failure(result::invalid_argument, u"A recipient needs a name.");
    constexpr std::int32_t to = 1;
    item_->change().recipients.push_back(desk().name_space()->person(person, to));
    item_->people_changed();
    return at(static_cast<std::int32_t>(item_->data().recipients.size()));
}

bool Recipients::resolve_all() {
    bool all = true;
    for (std::size_t i = 0; i < item_->data().recipients.size(); ++i) {
        all = Recipient(desk(), item_, i).resolve() && all;
    }
    if (all) item_->names_are_checked();
    return all;
}

const automation::Members<Recipients>& Recipients::members() {
    static const automation::Members<Recipients> table{
        {u"Count", 0x50, Use::get, [](Recipients& self) { return self.item().data().recipients.size(); }},
        {u"Item",
         0x51,
         Use::method,
         {u"Index"},
         [](Recipients& self, const Value& index) {
             return index.is(Value::Type::text) ? self.named(index.to_text()) : self.at(index.to_integer());
         }},
        {u"Add", 0x6F, Use::method, {u"Name"}, calls<&Recipients::add>},
        {u"Remove",
         0x54,
         Use::method,
         {u"Index"},
         [](Recipients& self, std::int32_t index) {
             std::dynamic_pointer_cast<Recipient>(self.at(index).target())->remove();
         }},
        {u"ResolveAll", 0x7E, Use::method, calls<&Recipients::resolve_all>},
    };
    return table;
}

automation::Object free_recipient(Desk& desk, Person person) {
    constexpr RowId no_folder = 0;
    constexpr std::size_t first = 0;
    ItemData alone;
    alone.recipients.push_back(std::move(person));
    return std::make_shared<Recipient>(desk, std::make_shared<Item>(desk, no_folder, std::move(alone)), first)
        ->self();
}

/// Who is the recipient of no item is one of the session.
automation::Object Recipient::parent() const {
    const bool is_free = item_->data().message_class.empty();
    return is_free ? desk().name_space()->self() : item_->self();
}

const Person& Recipient::person() const {
    item_->check_there();
    if (place_ >= item_->data().recipients.size())
        throw Failure(result::object_deleted, u"The recipient was removed.");
    return item_->data().recipients[place_];
}

void Recipient::kind(std::int32_t kind) {
    person();
    item_->change().recipients[place_].kind = kind;
    item_->people_changed();
}

bool Recipient::resolve() {
    if (person().resolved) return true;
    const Person known = desk().name_space()->person(person().name, person().kind);
    if (!known.resolved) return false;
    item_->change().recipients[place_] = known;
    item_->people_changed();
    return true;
}

void Recipient::remove() {
    person();
    auto& people = item_->change().recipients;
    people.erase(people.begin() + static_cast<std::ptrdiff_t>(place_));
    item_->people_changed();
}

const automation::Members<Recipient>& Recipient::members() {
    static const automation::Members<Recipient> table{
        {u"Name", 0x3001, Use::get, [](Recipient& self) { return self.person().name; }},
        {u"Address", 0x3003, Use::get, [](Recipient& self) { return self.person().address; }},
        {u"AddressEntry", 0x79, Use::get,
         [](Recipient& self) { return std::make_shared<AddressEntry>(self.desk(), self.person())->self(); }},
        {u"Index", 0x5B, Use::get, calls<&Recipient::index>},
        {u"Parent", 0x6D, Use::get, calls<&Recipient::parent>},
        {u"EntryID", 0xF01E, Use::get, [](Recipient& self) { return NameSpace::person_id(self.person()); }},
        {u"Type", 0x0C15, [](Recipient& self) { return self.person().kind; }, calls<&Recipient::kind>},
        {u"Resolved", 0x64, Use::get, [](Recipient& self) { return self.person().resolved; }},
        {u"DisplayType", 0x3900, Use::get, [](Recipient& self) { return display_type(self.person()); }},
        {u"Resolve", 0x71, Use::method, calls<&Recipient::resolve>},
        {u"Delete", 0x6E, Use::method, calls<&Recipient::remove>},
        {u"PropertyAccessor", 0xFAFD, Use::get,
         [](Recipient& self) {
             return PropertyAccessor::of_person(self.desk(), self.person(), self.self())->self();
         }},
    };
    return table;
}

automation::Object AddressEntry::parent() const { return desk().name_space()->self(); }

const automation::Members<AddressEntry>& AddressEntry::members() {
    static const automation::Members<AddressEntry> table{
        {u"Name", 0x3001, Use::get, [](AddressEntry& self) { return self.person().name; }},
        {u"Address", 0x3003, Use::get, [](AddressEntry& self) { return self.person().address; }},
        {u"Type", 0x3002, Use::get, [](AddressEntry& self) { return self.person().address_type; }},
        {u"ID", 0xF01E, Use::get, [](AddressEntry& self) { return NameSpace::person_id(self.person()); }},
        {u"DisplayType", 0x3900, Use::get, [](AddressEntry& self) { return display_type(self.person()); }},
        {u"PropertyAccessor", 0xFAFD, Use::get,
         [](AddressEntry& self) {
             return PropertyAccessor::of_person(self.desk(), self.person(), self.self())->self();
         }},
    };
    return table;
}

}  // namespace desk
