// Where the classes of items part: one face serves them all, and an id that one of them gave may mean another
// member to the next.
#pragma once

#include <algorithm>
#include <cstdint>

#include "automation/text.h"

namespace host::outlook {

using namespace automation;  // what the faces are written in

enum class ItemClass { mail, contact, post, appointment, task, note, count };

/// A member of a class, with the dispatch id that the host publishes for it.
struct PublishedMember {
    TextView name;
    ItemClass item_class;
    std::int32_t id;
};

/// Each member whose published id is another one in another class, or is there that of another member.
inline constexpr PublishedMember parting_members[] = {
    {u"Subject", ItemClass::mail, 0x37},
    {u"Subject", ItemClass::contact, 0x37},
    {u"Subject", ItemClass::post, 0x37},
    {u"Subject", ItemClass::appointment, 0x37},
    {u"Subject", ItemClass::task, 0x37},
    {u"Subject", ItemClass::note, 0xF7A0},

    {u"IsRecurring", ItemClass::appointment, 0x8223},
    {u"IsRecurring", ItemClass::task, 0xF617},
    {u"NetMeetingServer", ItemClass::contact, 0x8060},
    {u"NetMeetingServer", ItemClass::appointment, 0x8242},
    {u"Respond", ItemClass::appointment, 0xF502},
    {u"Respond", ItemClass::task, 0xF621},

    {u"Send", ItemClass::mail, 0xF075},
    {u"Send", ItemClass::appointment, 0xF075},
    {u"Send", ItemClass::task, 0xF075},
    {u"Post", ItemClass::post, 0xF075},

    {u"SentOnBehalfOfName", ItemClass::mail, 0x42},
    {u"Organizer", ItemClass::appointment, 0x42},
    {u"To", ItemClass::mail, 0xE04},
    {u"RequiredAttendees", ItemClass::appointment, 0xE04},
    {u"CC", ItemClass::mail, 0xE03},
    {u"OptionalAttendees", ItemClass::appointment, 0xE03},
    {u"StatusUpdateRecipients", ItemClass::task, 0xE03},
    {u"BCC", ItemClass::mail, 0xE02},
    {u"Resources", ItemClass::appointment, 0xE02},
    {u"StatusOnCompletionRecipients", ItemClass::task, 0xE02},

    {u"TaskStartDate", ItemClass::mail, 0x8104},
    {u"TaskStartDate", ItemClass::contact, 0x8104},
    {u"TaskStartDate", ItemClass::post, 0x8104},
    {u"StartDate", ItemClass::task, 0x8104},
    {u"TaskDueDate", ItemClass::mail, 0x8105},
    {u"TaskDueDate", ItemClass::contact, 0x8105},
    {u"TaskDueDate", ItemClass::post, 0x8105},
    {u"DueDate", ItemClass::task, 0x8105},
    {u"TaskCompletedDate", ItemClass::mail, 0x810F},
    {u"TaskCompletedDate", ItemClass::contact, 0x810F},
    {u"TaskCompletedDate", ItemClass::post, 0x810F},
    {u"DateCompleted", ItemClass::task, 0x810F},
};

/// Whether an id of a member is good for the class alone that gave it.
inline bool parts_item_classes(TextView member) {
    return std::ranges::any_of(
        parting_members, [&](const PublishedMember& row) { return same_ignoring_case(row.name, member); });
}

}  // namespace host::outlook
