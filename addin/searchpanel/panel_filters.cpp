#include "addin/searchpanel/panel_filters.h"

#include "addin/records/names.h"

namespace addin::searchpanel {

using automation::Text;
using automation::TextView;
using records::address_term;
using records::quoted_address;
namespace property = records::property;

namespace {

constexpr TextView subject_address = u"\"urn:schemas:httpmail:subject\"";
constexpr TextView drop_down_type = u"Folder Drop Down", definition_type = u"List Definition";

Text of_type(FilterForm form, TextView type, const Text& other_term) {
    return records::address_filter(address_term(form, quoted_address(property::record_type), type) +
                                   Text(records::and_between_terms) + other_term);
}

}  // namespace

Text drop_down_filter(FilterForm form, TextView message_class) {
    return of_type(form, drop_down_type,
                   address_term(form, quoted_address(property::message_class), message_class));
}

Text definition_filter(FilterForm form, TextView name) {
    return of_type(form, definition_type, address_term(form, Text(subject_address), name));
}

}  // namespace addin::searchpanel
