// The names by which the host's namespaces know properties that have fields here: see "Referencing Properties
// by Namespace" of its documentation.
#pragma once

#include "automation/text.h"

namespace desk::tables {

/// What is no field of an item's, but told of it.
inline constexpr automation::TextView has_attachments = u"HasAttachments", size_in_bytes = u"Size";

struct SchemaNameRow {
    automation::TextView address;  ///< counts with the case of its letters
    automation::TextView field;
    bool opposite = false;  ///< says yes where the field says no
};

/// The row of a name; null if it names none of the fields.
const SchemaNameRow* find_schema_name(automation::TextView address);

}  // namespace desk::tables
