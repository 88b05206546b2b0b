#include "desk/outlook/tables/fields.h"

namespace desk::tables {
namespace {

constexpr FieldRow common_rows[] = {
    {u"BillingInformation", 0x8535, FieldType::text, true},
    {u"Body", 0x9100, FieldType::text, true},
    {u"Categories", 0x9001, FieldType::text, true},
    {u"Companies", 0x853b, FieldType::text, true},
    {u"ConversationIndex", 0xfac0, FieldType::text, false},
    {u"ConversationTopic", 0x70, FieldType::text, false},
    {u"CreationTime", 0x3007, FieldType::date, false},
    {u"Importance", 0x17, FieldType::integer, true},
    {u"LastModificationTime", 0x3008, FieldType::date, false},
    {u"Mileage", 0x8534, FieldType::text, true},
    {u"NoAging", 0x850e, FieldType::boolean, true},
    {u"OutlookInternalVersion", 0x8552, FieldType::integer, false},
    {u"OutlookVersion", 0x8554, FieldType::text, false},
    {u"Sensitivity", 0x36, FieldType::integer, true},
    {u"Subject", 0x37, FieldType::text, true},
    {u"UnRead", 0xf01c, FieldType::boolean, true},
    {u"ReminderOverrideDefault", 0x851c, FieldType::boolean, true},
    {u"ReminderPlaySound", 0x851e, FieldType::boolean, true},
    {u"ReminderSet", 0x8503, FieldType::boolean, true},
    {u"ReminderSoundFile", 0x851f, FieldType::text, true},
    {u"DownloadState", 0xfa4d, FieldType::integer, false},
    {u"MarkForDownload", 0x8571, FieldType::integer, true},
    {u"IsConflict", 0xfaa4, FieldType::boolean, false},
    {u"AutoResolvedWinner", 0xfaba, FieldType::boolean, false},
    {u"ConversationID", 0xfc75, FieldType::text, false},
};

}  // namespace

std::span<const FieldRow> common_fields() { return common_rows; }

}  // namespace desk::tables
