// What can be searched, and how it is shown: data of the database.
#pragma once

#include <array>

#include "host/text.h"

namespace addin::records {

inline constexpr std::size_t shown_fields = 6;

/// The longest filter template; a longer one is cut, a shorter one is padded with blanks.
inline constexpr std::size_t template_length = 4096;

/// The definition of one search, as its record in the "System Folder" tells it.
struct ListDefinition {
    std::array<host::Text, shown_fields> ColumnName, FieldName, FieldType;
    host::Text KeyColumnName, KeyFieldName, SearchFolder;
    host::Text filter_template = host::Text(template_length, u' ');
};

/// A text at the template's length, without the blanks around it.
host::Text as_template(host::TextView body);

}  // namespace addin::records
