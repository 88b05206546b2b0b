#include "family/safe_mail_item.h"

namespace family {

using automation::Use;

const automation::Members<SafeMailItem>& SafeMailItem::members() {
    static const automation::Members<SafeMailItem> table{
        item_row<SafeMailItem>(1),
        fields_row<SafeMailItem>(2),
        named_row<SafeMailItem>(3),
        {u"sender", own_id(4), Use::get,
         [](SafeMailItem& self) { return self.wrapped<SafeAddressEntry>(self.inner().get(u"Sender")); }},
        {u"Recipients", own_id(5), Use::get,
         [](SafeMailItem& self) { return self.wrapped<SafeRecipients>(self.inner().get(u"Recipients")); }},
        {u"ResolveAll", own_id(6), Use::method,
         [](SafeMailItem& self) { return self.inner().get(u"Recipients").to_object().call(u"ResolveAll"); }},
    };
    return table;
}

const automation::Members<SafeAddressEntry>& SafeAddressEntry::members() {
    static const automation::Members<SafeAddressEntry> table{fields_row<SafeAddressEntry>(1)};
    return table;
}

const automation::Members<SafeRecipient>& SafeRecipient::members() {
    static const automation::Members<SafeRecipient> table{
        fields_row<SafeRecipient>(1),
        {u"AddressEntry", own_id(2), Use::get,
         [](SafeRecipient& self) {
             return self.wrapped<SafeAddressEntry>(self.inner().get(u"AddressEntry"));
         }},
    };
    return table;
}

const automation::Members<SafeRecipients>& SafeRecipients::members() {
    static const automation::Members<SafeRecipients> table{
        {u"Item",
         automation::default_member,
         Use::method,
         {u"Index"},
         [](SafeRecipients& self, const automation::Value& index) {
             return self.wrapped<SafeRecipient>(self.inner().call(u"Item", {index}));
         }},
        {u"Add",
         own_id(1),
         Use::method,
         {u"Name"},
         [](SafeRecipients& self, const automation::Value& person) {
             return self.wrapped<SafeRecipient>(self.inner().call(u"Add", {person}));
         }},
    };
    return table;
}

}  // namespace family
