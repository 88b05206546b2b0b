#include "family/safe_mail_item.h"

namespace family {

using host::Arguments;
using host::Use;

const host::Members<SafeMailItem>& SafeMailItem::members() {
    static const host::Members<SafeMailItem> table{
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

const host::Members<SafeAddressEntry>& SafeAddressEntry::members() {
    static const host::Members<SafeAddressEntry> table{fields_row<SafeAddressEntry>(1)};
    return table;
}

const host::Members<SafeRecipient>& SafeRecipient::members() {
    static const host::Members<SafeRecipient> table{
        fields_row<SafeRecipient>(1),
        {u"AddressEntry", own_id(2), Use::get,
         [](SafeRecipient& self, const Arguments&) {
             return self.wrapped<SafeAddressEntry>(self.inner().get(u"AddressEntry"));
         }},
    };
    return table;
}

const host::Members<SafeRecipients>& SafeRecipients::members() {
    static const host::Members<SafeRecipients> table{
        {u"Item",
         host::default_member,
         Use::method,
         {host::Parameter{u"Index"}},
         [](SafeRecipients& self, const Arguments& arguments) {
             return self.wrapped<SafeRecipient>(self.inner().call(u"Item", {arguments[0]}));
         }},
        {u"Add",
         own_id(1),
         Use::method,
         {host::Parameter{u"Name"}},
         [](SafeRecipients& self, const Arguments& arguments) {
             return self.wrapped<SafeRecipient>(self.inner().call(u"Add", {arguments[0]}));
         }},
    };
    return table;
}

}  // namespace family
