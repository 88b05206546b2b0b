// The filter texts of the panel's search that no other window asks.
#pragma once

#include "records/property_filters.h"

namespace addin::searchpanel {

using records::FilterForm;

/// The entry of the drop-down that stands for records of a message class.
host::Text drop_down_filter(FilterForm form, host::TextView message_class);
/// The definition of a list by its name.
host::Text definition_filter(FilterForm form, host::TextView name);

}  // namespace addin::searchpanel
