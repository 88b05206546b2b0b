#include "family/safe_mail_item.h"

namespace family {

using automation::Arguments;
using automation::Use;

const automation::Members<SafeMailItem>& SafeMailItem::members() {
    static const automation::Members<SafeMailItem> table{
        item_row<SafeMailItem>(1),
        fields_row<SafeMailItem>(2),
        named_row<SafeMailItem>(3),
        {u"sender", own_id(4), Use::get,
         [](SafeMailItem& self, const Arguments&) {
             return self.wrapped<SafeAddressEntry>(self.inner().get(u"Sender"));
         }},
        {u"Recipients", own_id(5), Use::get,
         [](SafeMailItem& self, const Arguments&) {
             return self.wrapped<SafeRecipients>(self.inner().get(u"Recipients"));
         }},
        {u"ResolveAll", own_id(6), Use::method,
         [](SafeMailItem& self, const Arguments&) {
             return self.inner().get(u"Recipients").to_object().call(u"ResolveAll");
         }},
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
         [](SafeRecipient& self, const Arguments&) {
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
         {automation::Parameter{u"Index"}},
         [](SafeRecipients& self, const Arguments& arguments) {
             return self.wrapped<SafeRecipient>(self.inner().call(u"Item", {arguments[0]}));
         }},
        {u"Add",
         own_id(1),
         Use::method,
         {automation::Parameter{u"Name"}},
         [](SafeRecipients& self, const Arguments& arguments) {
             return self.wrapped<SafeRecipient>(self.inner().call(u"Add", {arguments[0]}));
         }},
    };
    return table;
}

}  // namespace family
