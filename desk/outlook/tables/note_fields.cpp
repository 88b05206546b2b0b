#include "desk/outlook/tables/fields.h"

namespace desk::tables {
namespace {

constexpr FieldRow note_rows[] = {
    {u"Body", 0x9100, FieldType::text, true},
    {u"Categories", 0x9001, FieldType::text, true},
    {u"Color", 0x8b00, FieldType::integer, true},
    {u"CreationTime", 0x3007, FieldType::date, false},
    {u"Height", 0x8b03, FieldType::integer, true},
    {u"LastModificationTime", 0x3008, FieldType::date, false},
    {u"Left", 0x8b04, FieldType::integer, true},
    {u"Subject", 0xf7a0, FieldType::text, false},
    {u"Top", 0x8b05, FieldType::integer, true},
    {u"Width", 0x8b02, FieldType::integer, true},
    {u"DownloadState", 0xfa4d, FieldType::integer, false},
    {u"MarkForDownload", 0x8571, FieldType::integer, true},
    {u"IsConflict", 0xfaa4, FieldType::boolean, false},
    {u"AutoResolvedWinner", 0xfaba, FieldType::boolean, false},
};

}  // namespace

std::span<const FieldRow> note_fields() { return note_rows; }

}  // namespace desk::tables
