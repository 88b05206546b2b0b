#include "desk/outlook/tables/fields.h"

namespace desk::tables {
namespace {

constexpr FieldRow mail_rows[] = {
    {u"AlternateRecipientAllowed", 0x2, FieldType::boolean, true},
    {u"AutoForwarded", 0x5, FieldType::boolean, true},
    {u"BCC", 0xe02, FieldType::text, true},
    {u"CC", 0xe03, FieldType::text, true},
    {u"DeferredDeliveryTime", 0xf, FieldType::date, true},
    {u"DeleteAfterSubmit", 0xe01, FieldType::boolean, true},
    {u"ExpiryTime", 0x15, FieldType::date, true},
    {u"FlagDueBy", 0x30, FieldType::date, true},
    {u"FlagRequest", 0x8530, FieldType::text, true},
    {u"FlagStatus", 0x1090, FieldType::integer, true},
    {u"HTMLBody", 0xf404, FieldType::text, true},
    {u"OriginatorDeliveryReportRequested", 0x23, FieldType::boolean, true},
    {u"ReadReceiptRequested", 0x29, FieldType::boolean, true},
    {u"ReceivedByEntryID", 0x3f, FieldType::text, false},
    {u"ReceivedByName", 0x40, FieldType::text, false},
    {u"ReceivedOnBehalfOfEntryID", 0x43, FieldType::text, false},
    {u"ReceivedOnBehalfOfName", 0x44, FieldType::text, false},
    {u"ReceivedTime", 0xe06, FieldType::date, false},
    {u"RecipientReassignmentProhibited", 0x2b, FieldType::boolean, true},
    {u"ReminderTime", 0x8502, FieldType::date, true},
    {u"RemoteStatus", 0x8511, FieldType::integer, true},
    {u"ReplyRecipientNames", 0x50, FieldType::text, false},
    {u"SenderName", 0xc1a, FieldType::text, false},
    {u"Sent", 0xf402, FieldType::boolean, false},
    {u"SentOn", 0x39, FieldType::date, false},
    {u"SentOnBehalfOfName", 0x42, FieldType::text, true},
    {u"Submitted", 0xf403, FieldType::boolean, false},
    {u"To", 0xe04, FieldType::text, true},
    {u"VotingOptions", 0xf01b, FieldType::text, true},
    {u"VotingResponse", 0x8524, FieldType::text, true},
    {u"BodyFormat", 0xfa49, FieldType::integer, true},
    {u"InternetCodepage", 0x3fde, FieldType::integer, true},
    {u"IsIPFax", 0x859b, FieldType::boolean, true},
    {u"FlagIcon", 0xfacc, FieldType::integer, true},
    {u"HasCoverSheet", 0xfab0, FieldType::boolean, true},
    {u"SenderEmailAddress", 0xc1f, FieldType::text, false},
    {u"SenderEmailType", 0xc1e, FieldType::text, false},
    {u"EnableSharedAttachments", 0xfac4, FieldType::boolean, true},
    {u"Permission", 0xfac6, FieldType::integer, true},
    {u"PermissionService", 0xfacb, FieldType::integer, true},
    {u"TaskSubject", 0xfc1f, FieldType::text, true},
    {u"TaskDueDate", 0x8105, FieldType::date, true},
    {u"TaskStartDate", 0x8104, FieldType::date, true},
    {u"TaskCompletedDate", 0x810f, FieldType::date, true},
    {u"ToDoTaskOrdinal", 0x85a0, FieldType::date, true},
    {u"IsMarkedAsTask", 0xfc0a, FieldType::boolean, false},
    {u"PermissionTemplateGuid", 0xfc7d, FieldType::text, true},
    {u"RetentionPolicyName", 0xfc8b, FieldType::text, false},
    {u"RetentionExpirationDate", 0xfc8a, FieldType::date, false},
};

}  // namespace

std::span<const FieldRow> mail_fields() { return mail_rows; }

}  // namespace desk::tables
