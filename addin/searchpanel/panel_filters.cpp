#include "searchpanel/panel_filters.h"

#include "records/names.h"

namespace addin::searchpanel {

using host::Text;
using host::TextView;
namespace property = records::property;

namespace {

constexpr TextView start = u"@SQL=(", end = u")", both = u" AND ";
constexpr TextView subject_address = u"\"urn:schemas:httpmail:subject\"";
constexpr TextView drop_down_type = u"Folder Drop Down", definition_type = u"List Definition";

/// The quoted address of a user property.
Text address_of(TextView name) {
    return u'"' + Text(records::schema_root) + u"mapi/string/" + Text(records::user_property_set) + u'/' +
           host::replaced(name, u" ", u"%20") + u'"';
}

Text term(FilterForm form, const Text& address, TextView value) {
    return address + (form == FilterForm::phrase ? u" ci_phrasematch '" : u" Like '") + Text(value) + u'\'';
}

Text of_type(FilterForm form, TextView type, const Text& other_term) {
    return Text(start) + term(form, address_of(property::record_type), type) + Text(both) + other_term +
           Text(end);
}

Text by_key(FilterForm form, TextView key, TextView id, TextView company) {
    Text filter = Text(start) + term(form, address_of(key), id);
    if (form == FilterForm::phrase) {
        filter += Text(both) + term(form, address_of(property::account_name), company);
    }
    return filter + Text(end);
}

}  // namespace

Text drop_down_filter(FilterForm form, TextView message_class) {
    return of_type(form, drop_down_type, term(form, address_of(property::message_class), message_class));
}

Text definition_filter(FilterForm form, TextView name) {
    return of_type(form, definition_type, term(form, Text(subject_address), name));
}

Text contact_filter(FilterForm form, TextView id, TextView company) {
    return by_key(form, property::contact_id, id, company);
}

Text account_filter(FilterForm form, TextView id, TextView company) {
    return by_key(form, property::account_id, id, company);
}

Text location_filter(FilterForm form, TextView id, TextView company) {
    return by_key(form, property::account_location, id, company);
}

Text items_filter(FilterForm form, TextView key, TextView id, TextView company) {
    return by_key(form, key, id, company);
}

}  // namespace addin::searchpanel
