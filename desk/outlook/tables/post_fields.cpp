#include "desk/outlook/tables/fields.h"

namespace desk::tables {
namespace {

constexpr FieldRow post_rows[] = {
    {u"ExpiryTime", 0x15, FieldType::date, true},
    {u"HTMLBody", 0xf404, FieldType::text, true},
    {u"ReceivedTime", 0xe06, FieldType::date, false},
    {u"SenderName", 0xc1a, FieldType::text, false},
    {u"SentOn", 0x39, FieldType::date, false},
    {u"BodyFormat", 0xfa49, FieldType::integer, true},
    {u"InternetCodepage", 0x3fde, FieldType::integer, true},
    {u"SenderEmailAddress", 0xc1f, FieldType::text, false},
    {u"SenderEmailType", 0xc1e, FieldType::text, false},
    {u"TaskSubject", 0xfc1f, FieldType::text, true},
    {u"TaskDueDate", 0x8105, FieldType::date, true},
    {u"TaskStartDate", 0x8104, FieldType::date, true},
    {u"TaskCompletedDate", 0x810f, FieldType::date, true},
    {u"ToDoTaskOrdinal", 0x85a0, FieldType::date, true},
    {u"ReminderTime", 0x8502, FieldType::date, true},
    {u"IsMarkedAsTask", 0xfc0a, FieldType::boolean, false},
};

}  // namespace

std::span<const FieldRow> post_fields() { return post_rows; }

}  // namespace desk::tables
