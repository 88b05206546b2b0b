// The built-in fields of items, as the published type library names and numbers them.
#pragma once

#include <cstdint>
#include <span>

#include "automation/text.h"

namespace desk::tables {

enum class FieldType { text, integer, boolean, date, number };

struct FieldRow {
    automation::TextView name;
    std::int32_t id;  ///< dispatch id; below 0x8000 also the id of the MAPI property
    FieldType type;
    bool writable;
};

std::span<const FieldRow> common_fields();  ///< of all items but notes
std::span<const FieldRow> mail_fields();
std::span<const FieldRow> contact_fields();
std::span<const FieldRow> dist_list_fields();
std::span<const FieldRow> appointment_fields();
std::span<const FieldRow> task_fields();
std::span<const FieldRow> post_fields();
std::span<const FieldRow> note_fields();  ///< all of them

}  // namespace desk::tables
