#include "desk/outlook/tables/enumeration_names.h"

namespace desk::tables {
namespace {

struct EnumerationRow {
    automation::TextView field, name;
    std::int32_t number;
};
constexpr EnumerationRow enumeration_rows[] = {
    {u"Importance", u"Low", 0},
    {u"Importance", u"Normal", 1},
    {u"Importance", u"High", 2},
    {u"Sensitivity", u"Normal", 0},
    {u"Sensitivity", u"Personal", 1},
    {u"Sensitivity", u"Private", 2},
    {u"Sensitivity", u"Confidential", 3},
    {u"BusyStatus", u"Free", 0},
    {u"BusyStatus", u"Tentative", 1},
    {u"BusyStatus", u"Busy", 2},
    {u"BusyStatus", u"Out of Office", 3},
    {u"Status", u"Not Started", 0},
    {u"Status", u"In Progress", 1},
    {u"Status", u"Completed", 2},
    {u"Status", u"Waiting on someone else", 3},
    {u"Status", u"Deferred", 4},
};

}  // namespace

std::optional<std::int32_t> number_of_name(automation::TextView field, automation::TextView name) {
    for (const EnumerationRow& row : enumeration_rows) {
        if (automation::same_ignoring_case(row.field, field) &&
            automation::same_ignoring_case(row.name, name)) {
            return row.number;
        }
    }
    return std::nullopt;
}

}  // namespace desk::tables
