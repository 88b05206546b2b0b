// What items of each class are, and the ids of the members that the add-in keeps for a class.
#include <array>
#include <cstdio>

#include "admin/probe/questions.h"

namespace admin {
namespace {

using automation::Object;
using host::outlook::Folder;
using host::outlook::Item;

constexpr std::int32_t inbox = 6, calendar = 9, contacts = 10, notes = 12, tasks = 13;  // OlDefaultFolders

/// A new item of a class in a folder that is for such.
template <std::int32_t Folder, const char16_t* Class>
Item made(Probed& probed) {
    return probed.folder(Folder).Items().Add(Class);
}

constexpr char16_t mail[] = u"IPM.Note", post[] = u"IPM.Post", contact[] = u"IPM.Contact",
                   appointment[] = u"IPM.Appointment", task[] = u"IPM.Task", note[] = u"IPM.StickyNote",
                   record[] = u"IPM.Post.Note", lead[] = u"IPM.Contact.Lead";

/// The class's number and the message class of what was made.
template <std::int32_t Folder, const char16_t* Class>
std::string kind(Probed& probed) {
    const Item item = made<Folder, Class>(probed);
    return std::to_string(item.Class()) + " " + automation::to_utf8(item.MessageClass());
}

std::string id_of(const Object& object, TextView member) {
    const std::optional<automation::MemberIds> ids = object.identify(member);
    if (!ids) return "none";
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "0x%X", static_cast<unsigned>(ids->id));
    return digits.data();
}

/// The ids of the members that each path of the add-in uses of every class.
std::string common_ids(const Item& item) {
    std::string ids;
    for (const TextView member :
         {u"Subject", u"Body", u"MessageClass", u"EntryID", u"Save", u"Copy", u"Move", u"Close"}) {
        ids += (ids.empty() ? "" : " ") + id_of(item, member);
    }
    return ids;
}
template <std::int32_t Folder, const char16_t* Class>
std::string common(Probed& probed) {
    return common_ids(made<Folder, Class>(probed));
}

constexpr const char* common_of_items = "0x37 0x9100 0x1A 0xF01E 0xF048 0xF032 0xF034 0xF023";

constexpr ProbeQuestion class_rows[] = {
    {"A mail's class", "43 IPM.Note", source::type_library, kind<inbox, mail>},
    {"A post's class", "45 IPM.Post", source::type_library, kind<inbox, post>},
    {"A contact's class", "40 IPM.Contact", source::type_library, kind<contacts, contact>},
    {"An appointment's class", "26 IPM.Appointment", source::type_library, kind<calendar, appointment>},
    {"A task's class", "48 IPM.Task", source::type_library, kind<tasks, task>},
    {"A sticky note's class", "44 IPM.StickyNote", source::type_library, kind<notes, note>},
    {"The class of a record that is a post", "45 IPM.Post.Note", "Items.Add method", kind<inbox, record>},
    {"The class of a record that is a contact", "40 IPM.Contact.Lead", "Items.Add method",
     kind<contacts, lead>},
    {"A contact that was given another message class, found again", "40 IPM.Contact.Lead", source::believed,
     [](Probed& probed) {
         const Item item = probed.contact();
         item.MessageClass(lead);
         item.Save();
         const Item again = probed.name_space().GetItemFromID(item.EntryID(), probed.root().StoreID());
         return std::to_string(again.Class()) + " " + automation::to_utf8(again.MessageClass());
     }},
    {"A folder's class", "2", source::type_library,
     [](Probed& probed) { return std::to_string(probed.root().Class()); }},
    {"The class of new items in a folder for contacts", "IPM.Contact", "Folder.DefaultMessageClass property",
     [](Probed& probed) { return automation::to_utf8(probed.folder(contacts).DefaultMessageClass()); }},
    {"The class of new items in a folder for tasks", "IPM.Task", "Folder.DefaultMessageClass property",
     [](Probed& probed) { return automation::to_utf8(probed.folder(tasks).DefaultMessageClass()); }},
    {"Ids of a mail's Subject, Body, MessageClass, EntryID, Save, Copy, Move, Close", common_of_items,
     source::type_library, common<inbox, mail>},
    {"The same of a post", common_of_items, source::type_library, common<inbox, post>},
    {"The same of a contact", common_of_items, source::type_library, common<contacts, contact>},
    {"The same of an appointment", common_of_items, source::type_library, common<calendar, appointment>},
    {"The same of a task", common_of_items, source::type_library, common<tasks, task>},
    {"Ids of a mail's FlagStatus, FlagRequest, BillingInformation, Sensitivity, UnRead, Sent",
     "0x1090 0x8530 0x8535 0x36 0xF01C 0xF402", source::type_library,
     [](Probed& probed) {
         const Item item = made<inbox, mail>(probed);
         std::string ids;
         for (const TextView member :
              {u"FlagStatus", u"FlagRequest", u"BillingInformation", u"Sensitivity", u"UnRead", u"Sent"}) {
             ids += (ids.empty() ? "" : " ") + id_of(item, member);
         }
         return ids;
     }},
    {"Ids of a contact's FullName, CompanyName, CustomerID", "0x3001 0x3A16 0x3A4A", source::type_library,
     [](Probed& probed) {
         const Item item = made<contacts, contact>(probed);
         return id_of(item, u"FullName") + " " + id_of(item, u"CompanyName") + " " +
                id_of(item, u"CustomerID");
     }},
    {"Post of a post and Send of a mail share an id", "0xF075 0xF075", source::type_library,
     [](Probed& probed) {
         return id_of(made<inbox, post>(probed), u"Post") + " " + id_of(made<inbox, mail>(probed), u"Send");
     }},
    {"The id of a member that isn't there", "none", source::believed,
     [](Probed& probed) { return id_of(made<inbox, post>(probed), u"No Such Member"); }},
};

}  // namespace

std::span<const ProbeQuestion> class_questions() { return class_rows; }

}  // namespace admin
