#include "desk/outlook/tables/fields.h"

namespace desk::tables {
namespace {

constexpr FieldRow task_rows[] = {
    {u"ActualWork", 0x8110, FieldType::integer, true},
    {u"CardData", 0x812b, FieldType::text, true},
    {u"Complete", 0x811c, FieldType::boolean, true},
    {u"Contacts", 0x853a, FieldType::text, true},
    {u"ContactNames", 0x853c, FieldType::text, true},
    {u"DateCompleted", 0x810f, FieldType::date, true},
    {u"DelegationState", 0x812a, FieldType::integer, false},
    {u"Delegator", 0x8121, FieldType::text, false},
    {u"DueDate", 0x8105, FieldType::date, true},
    {u"IsRecurring", 0xf617, FieldType::boolean, false},
    {u"Ordinal", 0x8123, FieldType::integer, true},
    {u"Owner", 0x811f, FieldType::text, true},
    {u"Ownership", 0x8129, FieldType::integer, false},
    {u"PercentComplete", 0xf61f, FieldType::integer, true},
    {u"ReminderTime", 0x8502, FieldType::date, true},
    {u"ResponseState", 0xf623, FieldType::integer, false},
    {u"Role", 0x8127, FieldType::text, true},
    {u"SchedulePlusPriority", 0x812f, FieldType::text, true},
    {u"StartDate", 0x8104, FieldType::date, true},
    {u"Status", 0x8101, FieldType::integer, true},
    {u"StatusOnCompletionRecipients", 0xe02, FieldType::text, true},
    {u"StatusUpdateRecipients", 0xe03, FieldType::text, true},
    {u"TeamTask", 0x8103, FieldType::boolean, true},
    {u"TotalWork", 0x8111, FieldType::integer, true},
    {u"InternetCodepage", 0x3fde, FieldType::integer, true},
    {u"ToDoTaskOrdinal", 0x85a0, FieldType::date, true},
};

}  // namespace

std::span<const FieldRow> task_fields() { return task_rows; }

}  // namespace desk::tables
