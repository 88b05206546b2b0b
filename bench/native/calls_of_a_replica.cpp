#include <chrono>
#include <iostream>

#include "bench/native/measures.h"
#include "bench/table.h"
#include "tests/world/bars.h"

namespace bench {
namespace {

using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;

struct Linked {
    const char* name;
    std::int32_t folder;
    TextView message_class, key, shared_folder;
};
constexpr Linked linked_kinds[] = {
    {"an appointment", host::outlook::default_folder::calendar, u"IPM.Appointment.TarnwellAppt", u"ApptID",
     u"Global Calendar"},
    {"a task", host::outlook::default_folder::tasks, u"IPM.Task.TarnwellTask", u"TaskID", u"Global Tasks"},
};

constexpr int changes = 50;

}  // namespace

bool calls_of_a_replica() {
    using Clock = std::chrono::steady_clock;
    bool right = true;
    Table table("Replacing the replica of a linked item, over " + std::to_string(changes) + " changes",
                {"item", "calls with its form open", "with no form open", "time of a change, ms"});
    for (const Linked& linked : linked_kinds) {
        const auto world = filing_world();
        const Item item = acceptance::new_item(*world, linked.folder, linked.message_class);
        item.UserProperties().Item(linked.key).value(Value(u"K-1"));
        item.UserProperties().Item(u"AccountID").value(Value(u"A-1"));
        item.Save();
        world->settle();
        const auto calls_of_change = [&](int number) {
            item.Subject(u"Plan " + automation::to_text(static_cast<long long>(number)));
            world->boundary().forget_calls();
            item.Save();
            return world->boundary().calls().size();
        };
        const std::size_t closed = calls_of_change(0);
        item.Display();
        std::size_t open = 0;
        const Clock::time_point begin = Clock::now();
        for (int i = 1; i <= changes; ++i) open = calls_of_change(i);
        const double time = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
        table.add_row(
            {linked.name, std::to_string(open), std::to_string(closed), decimal(time / changes, 3)});
        const host::outlook::Items replicas =
            Folder(world->account_profiles().Parent()).Folders().Item(linked.shared_folder).Items();
        right =
            right && closed < open && replicas.Count() == 1 && replicas.Item(1).Subject() == item.Subject();
        item.get(u"GetInspector").to_object().call(u"Close", {host::outlook::discard_changes});
    }
    table.print(std::cout);
    if (!right) std::cout << "WRONG: there isn't one replica of the last change\n\n";
    return right;
}

}  // namespace bench
