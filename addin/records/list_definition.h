// What can be searched, and how it is shown: data of the database.
#pragma once

#include <array>

#include "automation/text.h"

namespace addin::records {

inline constexpr std::size_t shown_fields = 6;

/// The longest filter template; a longer one is cut, a shorter one is padded with blanks.
inline constexpr std::size_t template_length = 4096;

/// The definition of one search, as its record in the "System Folder" tells it.
struct ListDefinition {
    std::array<automation::Text, shown_fields> ColumnName, FieldName, FieldType;
    automation::Text KeyColumnName, KeyFieldName, SearchFolder;
    automation::Text filter_template = automation::Text(template_length, u' ');
};

/// A text at the template's length, without the blanks around it.
automation::Text as_template(automation::TextView body);

}  // namespace addin::records
