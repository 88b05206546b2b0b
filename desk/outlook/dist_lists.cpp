#include "desk/outlook/dist_lists.h"

#include <algorithm>

#include "desk/outlook/quoted_mail.h"
#include "desk/outlook/recipients.h"

namespace desk {

using automation::Failure;
using automation::Object;
using automation::TextView;
namespace result = automation::result;

namespace {

constexpr TextView own_members[] = {u"MemberCount",  u"AddMember",     u"AddMembers",
                                    u"RemoveMember", u"RemoveMembers", u"GetMember"};

/// The people of a recipient or of a collection of them.
std::vector<Person> people_of(const Object& given) {
    std::vector<Person> people;
    if (const auto one = std::dynamic_pointer_cast<Recipient>(given.target())) {
        people.push_back(one->person());
    } else if (const auto all = std::dynamic_pointer_cast<Recipients>(given.target())) {
        people = all->item().data().recipients;
    } else {
        throw Failure(result::type_mismatch, u"A recipient is expected.");
    }
    for (const Person& person : people) {
        if (!person.resolved) throw Failure(result::fail, u"\"" + person.name + u"\" is not resolved.");
    }
    return people;
}

}  // namespace

bool is_dist_list_member(TextView member) {
    return std::ranges::any_of(own_members,
                               [&](TextView own) { return automation::same_ignoring_case(own, member); });
}

void add_members(Item& list, const Object& people) {
    const std::vector<Person> added = people_of(people);
    std::vector<Person>& members = list.change().recipients;
    members.insert(members.end(), added.begin(), added.end());
}

void remove_members(Item& list, const Object& people) {
    const std::vector<Person> removed = people_of(people);
    std::erase_if(list.change().recipients, [&](const Person& member) {
        return std::ranges::any_of(removed,
                                   [&](const Person& person) { return is_same_person(person, member); });
    });
}

}  // namespace desk
