#include "desk/outlook/tables/fields.h"

namespace desk::tables {
namespace {

constexpr FieldRow appointment_rows[] = {
    {u"AllDayEvent", 0x8215, FieldType::boolean, true},
    {u"BusyStatus", 0x8205, FieldType::integer, true},
    {u"Duration", 0x8213, FieldType::integer, true},
    {u"End", 0x820e, FieldType::date, true},
    {u"IsOnlineMeeting", 0x8240, FieldType::boolean, true},
    {u"IsRecurring", 0x8223, FieldType::boolean, false},
    {u"Location", 0x8208, FieldType::text, true},
    {u"MeetingStatus", 0x8217, FieldType::integer, true},
    {u"NetMeetingAutoStart", 0x8244, FieldType::boolean, true},
    {u"NetMeetingOrganizerAlias", 0x8243, FieldType::text, true},
    {u"NetMeetingServer", 0x8242, FieldType::text, true},
    {u"NetMeetingType", 0x8241, FieldType::integer, true},
    {u"OptionalAttendees", 0xe03, FieldType::text, true},
    {u"Organizer", 0x42, FieldType::text, false},
    {u"RecurrenceState", 0xf545, FieldType::integer, false},
    {u"ReminderMinutesBeforeStart", 0x8501, FieldType::integer, true},
    {u"ReplyTime", 0x8220, FieldType::date, true},
    {u"RequiredAttendees", 0xe04, FieldType::text, true},
    {u"Resources", 0xe02, FieldType::text, true},
    {u"ResponseRequested", 0x63, FieldType::boolean, true},
    {u"ResponseStatus", 0x8218, FieldType::integer, false},
    {u"Start", 0x820d, FieldType::date, true},
    {u"NetMeetingDocPathName", 0x8247, FieldType::text, true},
    {u"NetShowURL", 0x8248, FieldType::text, true},
    {u"ConferenceServerAllowExternal", 0x8246, FieldType::boolean, true},
    {u"ConferenceServerPassword", 0x8249, FieldType::text, true},
    {u"InternetCodepage", 0x3fde, FieldType::integer, true},
    {u"MeetingWorkspaceURL", 0x8209, FieldType::text, false},
    {u"GlobalAppointmentID", 0xfbfd, FieldType::text, false},
    {u"ForceUpdateToAllAttendees", 0xf53a, FieldType::boolean, true},
    {u"StartUTC", 0x8268, FieldType::date, true},
    {u"EndUTC", 0x8269, FieldType::date, true},
    {u"StartInStartTimeZone", 0x8266, FieldType::date, true},
    {u"EndInEndTimeZone", 0x8267, FieldType::date, true},
};

}  // namespace

std::span<const FieldRow> appointment_fields() { return appointment_rows; }

}  // namespace desk::tables
