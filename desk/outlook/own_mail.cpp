#include "desk/outlook/own_mail.h"

#include <algorithm>
#include <set>

#include "desk/outlook/dist_lists.h"
#include "desk/outlook/name_space.h"
#include "desk/outlook/quoted_mail.h"

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr std::int32_t blind_copy = 3;

/// The fields that go to the recipients. Flags, categories and the like are the sender's, and stay.
constexpr TextView travelling_fields[] = {
    u"Subject",
    u"ConversationTopic",
    u"Body",
    u"HTMLBody",
    u"BodyFormat",
    u"Importance",
    u"Sensitivity",
    u"SentOnBehalfOfName",
    u"ReplyRecipientNames",
    u"SenderName",
    u"SenderEmailAddress",
    u"SenderEmailType",
    u"To",
    u"CC",
    u"SentOn",
    u"ReceivedTime",
    u"Sent",
};

/// Looks for the user, also in lists and in lists of those.
class UserSearch {
  public:
    explicit UserSearch(Desk& desk) : desk_(desk) {}

    bool finds(const std::vector<Person>& people) {
        return std::ranges::any_of(people, [&](const Person& person) {
            return is_user(person, NameSpace::user_address) ||
                   (person.address_type == dist_list_type && finds_in_list(person.name));
        });
    }

  private:
    bool finds_in_list(const Text& name) {
        for (const RowId id :
             desk_.store().lookup(desk_.default_folder(contacts_folder), u"FullName", name)) {
            if (!seen_.insert(id).second) continue;  // lists may hold each other
            const std::optional<ItemRow> row = desk_.store().load(id);
            if (row && kind_of(row->data.message_class).number == object_class::dist_list)
                return finds(row->data.recipients);
        }
        return false;
    }

    static constexpr std::int32_t contacts_folder = 10;

    Desk& desk_;
    std::set<RowId> seen_;
};

}  // namespace

std::optional<ItemData> arriving_mail(Desk& desk, const ItemData& sent) {
    if (kind_of(sent.message_class).number != object_class::mail) return std::nullopt;
    if (!UserSearch(desk).finds(sent.recipients)) return std::nullopt;
    ItemData arriving;
    arriving.message_class = sent.message_class;
    for (const TextView field : travelling_fields) {
        if (const auto found = sent.fields.find(field); found != sent.fields.end())
            arriving.fields.insert(*found);
    }
    arriving.fields[u"SenderSmtpAddress"] = Text(NameSpace::user_address);
    arriving.fields[u"CreationTime"] = arriving.fields[u"ReceivedTime"];
    std::ranges::copy_if(sent.recipients, std::back_inserter(arriving.recipients),
                         [](const Person& person) { return person.kind != blind_copy; });
    arriving.attachments = sent.attachments;
    return arriving;
}

}  // namespace desk
