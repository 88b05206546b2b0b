#include "desk/outlook/tables/unfiltered_fields.h"

#include <algorithm>

namespace desk::tables {
namespace {

constexpr automation::TextView unfiltered[] = {
    u"AutoResolvedWinner",
    u"Body",
    u"BodyFormat",
    u"Children",
    u"Class",
    u"Companies",
    u"CompanyLastFirstNoSpace",
    u"CompanyLastFirstSpaceOnly",
    u"ContactNames",
    u"Contacts",
    u"ConversationIndex",
    u"DLName",
    u"DownloadState",
    u"Email1EntryID",
    u"Email2EntryID",
    u"Email3EntryID",
    u"EntryID",
    u"HTMLBody",
    u"InternetCodepage",
    u"IsConflict",
    u"IsOnlineMeeting",
    u"LastFirstAndSuffix",
    u"LastFirstNoSpace",
    u"LastFirstNoSpaceAndSuffix",
    u"LastFirstNoSpaceCompany",
    u"LastFirstSpaceOnly",
    u"LastFirstSpaceOnlyCompany",
    u"MeetingWorkspaceURL",
    u"MemberCount",
    u"NetMeetingAlias",
    u"NetMeetingAutoStart",
    u"NetMeetingOrganizerAlias",
    u"NetMeetingServer",
    u"NetMeetingType",
    u"Parent",
    u"Permission",
    u"ReceivedByEntryID",
    u"ReceivedOnBehalfOfEntryID",
    u"RecurrenceState",
    u"ReplyRecipients",
    u"ResponseState",
    u"Saved",
    u"Sent",
    u"Submitted",
    u"VotingOptions",
};

}  // namespace

bool is_unfiltered(automation::TextView field) {
    return std::ranges::any_of(
        unfiltered, [&](automation::TextView name) { return automation::same_ignoring_case(name, field); });
}

}  // namespace desk::tables
