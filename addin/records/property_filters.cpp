#include "addin/records/property_filters.h"

#include "addin/records/names.h"

namespace addin::records {

using automation::Text;
using automation::TextView;

Text quoted_address(TextView property) {
    return u'"' + Text(schema_root) + u"mapi/string/" + Text(user_property_set) + u'/' +
           automation::replaced(property, u" ", u"%20") + u'"';
}

Text address_term(FilterForm form, const Text& address, TextView value) {
    return address + (form == FilterForm::phrase ? u" ci_phrasematch '" : u" Like '") + Text(value) + u'\'';
}

Text address_filter(const Text& terms) { return u"@SQL=(" + terms + u")"; }

Text key_filter(FilterForm form, TextView key, TextView id, TextView company) {
    Text terms = address_term(form, quoted_address(key), id);
    if (form == FilterForm::phrase) {
        terms +=
            Text(and_between_terms) + address_term(form, quoted_address(property::account_name), company);
    }
    return address_filter(terms);
}

Text equality(TextView property, TextView value) {
    return u"[" + Text(property) + u"] = '" + Text(value) + u"'";
}

}  // namespace addin::records
