#include "family/list_picker.h"

namespace family {

using host::Arguments;
using host::no_id;
using host::Takes;
using host::Text;
using host::TextView;
using host::Use;
using host::Value;

namespace {

constexpr TextView folder_id = u"FolderId";
constexpr TextView account_folder_id = u"accountfolderid";
constexpr TextView store_id = u"StoreID";
constexpr TextView load_dialog = u"loaddialog";
constexpr TextView refresh_accounts = u"refreshaccounts";
constexpr TextView show_dialog = u"showdialog";
constexpr TextView search_any = u"searchany";

/// A property that tells where to look.
template <const TextView& member, Text ListPicker::Place::*part>
Value keep(ListPicker& self, const Arguments& arguments) {
    if (arguments.is_put()) {
        self.place().*part = arguments.assigned().to_text();
        self.record_put(member, self.place().*part);
    }
    return self.place().*part;
}

template <const TextView& member>
Value record(ListPicker& self, const Arguments&) {
    self.record_call(member);
    return {};
}

Value search(ListPicker& self, const Arguments& arguments) {
    const Text definition = arguments[0].to_text(), title = arguments[1].to_text();
    if (arguments.has(2)) {
        self.record_call(search_any, {definition, title, arguments[2].to_text()});
    } else {
        self.record_call(search_any, {definition, title});
    }
    return {};
}

}  // namespace

const host::Members<ListPicker>& ListPicker::members() {
    static const host::Members<ListPicker> table{
        {folder_id, no_id, Use::get_put, keep<folder_id, &Place::folder_id>},
        {account_folder_id, no_id, Use::get_put, keep<account_folder_id, &Place::account_folder_id>},
        {store_id, no_id, Use::get_put, keep<store_id, &Place::store_id>},
        {load_dialog, no_id, Use::method, record<load_dialog>},
        {refresh_accounts, no_id, Use::method, record<refresh_accounts>},
        {show_dialog, no_id, Use::method, record<show_dialog>},
        {search_any,
         no_id,
         Use::method,
         {{u"Definition", Takes::text}, {u"Title", Takes::text}, {u"Multiple", Takes::value, true}},
         search},
        {u"dialogcancel", no_id, Use::get,
         [](ListPicker& self, const Arguments&) -> Value { return self.cancelled(); }},
        {u"slist", no_id, Use::get,
         [](ListPicker& self, const Arguments&) -> Value { return self.chosen(); }},
    };
    return table;
}

}  // namespace family
