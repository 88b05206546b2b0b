// The filter texts of the panel's search.
#pragma once

#include "host/text.h"

namespace addin::searchpanel {

/// Each filter has two forms. `like` compares whole values of the key alone; `phrase` asks the store's word
/// index for the key and the name of the account, and only an indexed store knows its word.
enum class FilterForm { like, phrase };

/// The entry of the drop-down that stands for records of a message class.
host::Text drop_down_filter(FilterForm form, host::TextView message_class);
/// The definition of a list by its name.
host::Text definition_filter(FilterForm form, host::TextView name);
/// A contact by its id, and an account by its id.
host::Text contact_filter(FilterForm form, host::TextView id, host::TextView company);
host::Text account_filter(FilterForm form, host::TextView id, host::TextView company);
/// The accounts that are located under another one.
host::Text location_filter(FilterForm form, host::TextView id, host::TextView company);
/// Items of any folder by a property.
host::Text items_filter(FilterForm form, host::TextView property, host::TextView id, host::TextView company);

}  // namespace addin::searchpanel
