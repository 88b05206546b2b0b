// The filter texts of the panel's search that no other window asks.
#pragma once

#include "addin/records/property_filters.h"

namespace addin::searchpanel {

using records::FilterForm;

/// The entry of the drop-down that stands for records of a message class.
automation::Text drop_down_filter(FilterForm form, automation::TextView message_class);
/// The definition of a list by its name.
automation::Text definition_filter(FilterForm form, automation::TextView name);

}  // namespace addin::searchpanel
