#include "desk/outlook/tables/fields.h"

namespace desk::tables {
namespace {

constexpr FieldRow dist_list_rows[] = {
    {u"DLName", 0x8053, FieldType::text, true},
};

}  // namespace

std::span<const FieldRow> dist_list_fields() { return dist_list_rows; }

}  // namespace desk::tables
