#include <algorithm>
#include <array>
#include <iostream>
#include <map>
#include <span>

#include "bench/table.h"
#include "bench/wine/measures.h"
#include "tests/world/people.h"

namespace bench {
namespace {

using acceptance::World;
using automation::Object;
using host::outlook::Item;

struct Calls {
    std::int32_t round_trips = 0;   ///< Invoke
    std::int32_t name_lookups = 0;  ///< GetIDsOfNames
};
using CallsByMember = std::map<std::string, Calls>;

constexpr std::size_t mail_count = 3;

/// This program's own calls while a mail is read, one of each. It has made them before, and so knows their
/// names.
constexpr std::string_view own_calls[] = {"UnRead", "Save"};

/// What only this program asks for, so as to count.
constexpr std::string_view counting[] = {"Desk", "ResetCalls", "Calls"};

/// What only the siblings ask for: they run in the desk's process, too, and look names up for each object.
constexpr std::string_view of_siblings[] = {"PropertyAccessor", "GetProperty"};

bool is_one_of(std::span<const std::string_view> members, std::string_view member) {
    return std::ranges::find(members, member) != members.end();
}

/// Whether the member's id is good for one class of items alone. The desk doesn't tell what class an object
/// is of, so the id is looked up for each item.
bool parts_classes(std::string_view member) {
    return host::outlook::parts_item_classes(automation::from_utf8(member));
}

/// What has reached the desk since the last reset, but for what this program did itself.
CallsByMember calls_of_a_mail(World& world) {
    CallsByMember all;
    const Object calls = world.desk().get(u"Calls").to_object();
    const std::int32_t count = calls.get(u"Count").to_integer();
    for (std::int32_t i = 1; i <= count; ++i) {
        const Object entry = calls.call(u"Item", {i}).to_object();
        const std::string member = automation::to_utf8(entry.get(u"Member").to_text());
        if (is_one_of(counting, member)) continue;
        const std::int32_t own = is_one_of(own_calls, member) ? 1 : 0;
        all[member] = {entry.get(u"Invocations").to_integer() - own, entry.get(u"NameLookups").to_integer()};
    }
    return all;
}

/// Lets this program learn the names of its own calls, on a mail that nobody watches.
void learn_names(World& world) {
    World::read(Item(world.application().call(u"CreateItem", {0}).to_object()));
}

std::string listed(std::span<const std::string_view> members) {
    std::string text;
    for (const std::string_view member : members) text += (text.empty() ? "" : ", ") + std::string(member);
    return text;
}

std::string shown(std::int32_t count) { return count == 0 ? "" : std::to_string(count); }

}  // namespace

bool round_trips() {
    const auto world = acceptance::make_world({});
    world->family(u"EmailAutoFile", u"1");
    learn_names(*world);
    acceptance::add_contact(*world);

    bool right = true;
    std::array<CallsByMember, mail_count> mails;
    for (CallsByMember& calls : mails) {
        const Item mail = world->deliver(acceptance::message());
        world->settle();
        const Object desk = world->desk();
        desk.call(u"ResetCalls");
        World::read(mail);
        calls = calls_of_a_mail(*world);
        if (!acceptance::is_marked(mail)) {
            std::cout << "WRONG: a mail was not filed\n\n";
            right = false;
        }
    }

    std::map<std::string, std::array<Calls, mail_count>> members;
    std::array<Calls, mail_count> sums;
    bool names_again = false;
    for (std::size_t i = 0; i < mail_count; ++i) {
        for (const auto& [member, calls] : mails[i]) {
            members[member][i] = calls;
            sums[i].round_trips += calls.round_trips;
            sums[i].name_lookups += calls.name_lookups;
            if (i > 0 && calls.name_lookups > 0 && !is_one_of(of_siblings, member) &&
                !parts_classes(member)) {
                names_again = true;
            }
        }
    }
    Table table("Calls that reach the desk for a filed mail, from the library and from its siblings",
                {"member", "1st: trips", "names", "2nd: trips", "names", "3rd: trips", "names"});
    const auto row = [&](const std::string& name, const std::array<Calls, mail_count>& counts) {
        std::vector<std::string> cells = {name};
        for (const Calls& calls : counts) {
            cells.push_back(shown(calls.round_trips));
            cells.push_back(shown(calls.name_lookups));
        }
        table.add_row(std::move(cells));
    };
    for (const auto& [member, counts] : members) row(member, counts);
    row("in all", sums);
    table.print(std::cout);

    std::cout << "Left out is what this program calls: " << listed(own_calls) << " once each, and "
              << listed(counting) << ".\n"
              << "Only the siblings call " << listed(of_siblings) << ".\n"
              << "Members whose ids differ between the classes of items are looked up for each item.\n"
              << (names_again ? "WRONG: the library looks names up again after the first mail.\n\n"
                              : "After the first mail the library looks no other name up.\n\n");
    return right && !names_again;
}

}  // namespace bench
