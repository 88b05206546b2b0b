#include "desk/outlook/recipients.h"

#include <algorithm>

#include "desk/base/desk.h"
#include "desk/outlook/name_space.h"
#include "desk/outlook/property_accessor.h"

namespace desk {

using automation::Arguments;
using automation::Failure;
using automation::Takes;
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
    return all;
}

const automation::Members<Recipients>& Recipients::members() {
    static const automation::Members<Recipients> table{
        {u"Count", 0x50, Use::get,
         [](Recipients& self, const Arguments&) {
             return Value(static_cast<std::int32_t>(self.item().data().recipients.size()));
         }},
        {u"Item",
         0x51,
         Use::method,
         {{u"Index"}},
         [](Recipients& self, const Arguments& a) {
             return Value(a[0].is(Value::Type::text) ? self.named(a[0].to_text())
                                                     : self.at(a[0].to_integer()));
         }},
        {u"Add",
         0x6F,
         Use::method,
         {{u"Name", Takes::text}},
         [](Recipients& self, const Arguments& a) { return Value(self.add(a[0].to_text())); }},
        {u"Remove",
         0x54,
         Use::method,
         {{u"Index", Takes::integer}},
         [](Recipients& self, const Arguments& a) {
             std::dynamic_pointer_cast<Recipient>(self.at(a[0].to_integer()).target())->remove();
             return Value();
         }},
        {u"ResolveAll", 0x7E, Use::method,
         [](Recipients& self, const Arguments&) { return Value(self.resolve_all()); }},
    };
    return table;
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
        {u"Name", 0x3001, Use::get,
         [](Recipient& self, const Arguments&) { return Value(self.person().name); }},
        {u"Address", 0x3003, Use::get,
         [](Recipient& self, const Arguments&) { return Value(self.person().address); }},
        {u"AddressEntry", 0x79, Use::get,
         [](Recipient& self, const Arguments&) {
             return Value(std::make_shared<AddressEntry>(self.desk(), self.person())->self());
         }},
        {u"Index", 0x5B, Use::get, [](Recipient& self, const Arguments&) { return Value(self.index()); }},
        {u"Parent", 0x6D, Use::get, [](Recipient& self, const Arguments&) { return Value(self.parent()); }},
        {u"EntryID", 0xF01E, Use::get,
         [](Recipient& self, const Arguments&) { return Value(NameSpace::person_id(self.person())); }},
        {u"Type", 0x0C15, Use::get_put,
         [](Recipient& self, const Arguments& a) {
             if (a.is_put()) self.kind(a.assigned().to_integer());
             return Value(self.person().kind);
         }},
        {u"Resolved", 0x64, Use::get,
         [](Recipient& self, const Arguments&) { return Value(self.person().resolved); }},
        {u"DisplayType", 0x3900, Use::get, [](Recipient&, const Arguments&) { return Value(0); }},
        {u"Resolve", 0x71, Use::method,
         [](Recipient& self, const Arguments&) { return Value(self.resolve()); }},
        {u"Delete", 0x6E, Use::method,
         [](Recipient& self, const Arguments&) {
             self.remove();
             return Value();
         }},
        {u"PropertyAccessor", 0xFAFD, Use::get,
         [](Recipient& self, const Arguments&) {
             return Value(PropertyAccessor::of_person(self.desk(), self.person(), self.self())->self());
         }},
    };
    return table;
}

automation::Object AddressEntry::parent() const { return desk().name_space()->self(); }

const automation::Members<AddressEntry>& AddressEntry::members() {
    static const automation::Members<AddressEntry> table{
        {u"Name", 0x3001, Use::get,
         [](AddressEntry& self, const Arguments&) { return Value(self.person().name); }},
        {u"Address", 0x3003, Use::get,
         [](AddressEntry& self, const Arguments&) { return Value(self.person().address); }},
        {u"Type", 0x3002, Use::get,
         [](AddressEntry& self, const Arguments&) { return Value(self.person().address_type); }},
        {u"ID", 0xF01E, Use::get,
         [](AddressEntry& self, const Arguments&) { return Value(NameSpace::person_id(self.person())); }},
        {u"DisplayType", 0x3900, Use::get, [](AddressEntry&, const Arguments&) { return Value(0); }},
        {u"PropertyAccessor", 0xFAFD, Use::get,
         [](AddressEntry& self, const Arguments&) {
             return Value(PropertyAccessor::of_person(self.desk(), self.person(), self.self())->self());
         }},
    };
    return table;
}

}  // namespace desk
