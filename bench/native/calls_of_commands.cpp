#include <algorithm>
#include <chrono>
#include <iostream>

#include "addin/ground/settings.h"
#include "bench/native/measures.h"
#include "bench/table.h"

namespace bench {
namespace {

using automation::Object;
using automation::Value;

constexpr int mail = 0, appointment = 1, contact = 2, task = 3;  // OlItemType

/// An item whose window is opened.
struct Opened {
    const char* name;
    std::int32_t type;
    automation::TextView message_class;  ///< empty: the type's own
    bool saved;
};
constexpr Opened opened_items[] = {
    {"a new mail", mail, u"", false},
    {"a saved mail", mail, u"", true},
    {"a personal contact", contact, u"", true},
    {"an account contact", contact, u"IPM.Contact.Account Contact", true},
    {"a personal appointment", appointment, u"", true},
    {"a linked appointment", appointment, u"IPM.Appointment.TarnwellAppt", true},
    {"a plain task", task, u"", true},
};

constexpr int rounds = 20;

/// Hosts switch off an add-in that takes longer for an opened item. Here there is no process border, so this
/// is only what its own work takes.
constexpr double longest = 5;  // milliseconds

Object make_item(native::NativeWorld& world, const Opened& opened) {
    const Object item = world.application().call(u"CreateItem", {opened.type}).to_object();
    if (!opened.message_class.empty()) item.put(u"MessageClass", Value(opened.message_class));
    item.put(u"Subject", u"An item");
    if (opened.saved) item.call(u"Save");
    return item;
}

}  // namespace

bool calls_of_opened_items() {
    using Clock = std::chrono::steady_clock;
    bool right = true;
    Table table("Fitting an item's window with commands, over " + std::to_string(rounds) + " windows",
                {"item", "calls", "median, ms"});
    for (const Opened& opened : opened_items) {
        const auto world = filing_world();
        std::vector<double> times;
        std::size_t calls = 0;
        for (int i = 0; i < rounds; ++i) {
            const Object item = make_item(*world, opened);
            world->settle();
            world->boundary().forget_calls();
            const Clock::time_point begin = Clock::now();
            item.call(u"Display");
            times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
            calls = world->boundary().calls().size();
            item.get(u"GetInspector").to_object().call(u"Close", {1});
        }
        std::ranges::sort(times);
        const double median = times[times.size() / 2];
        table.add_row({opened.name, std::to_string(calls), decimal(median, 3)});
        right = right && calls > 0 && median <= longest;
    }
    table.print(std::cout);
    if (!right) std::cout << "WRONG: a window is not fitted, or it takes too long\n\n";
    return right;
}

bool calls_of_a_selection() {
    bool right = true;
    Table table("What a change of the selection costs while Quick View is off", {"option", "calls"});
    for (const automation::TextView option : {u"", u"0"}) {
        const auto world = filing_world();
        if (!option.empty()) world->option(addin::setting::enable_quick_view, option);
        const Object delivered = world->deliver(acceptance::message());
        world->settle();
        world->boundary().forget_calls();
        world->desk().call(u"Select", {Value(delivered)});
        std::string calls;
        for (const std::string& call : world->boundary().calls()) {
            calls += (calls.empty() ? "" : ", ") + call;
            right = right && call.starts_with("registry.");
        }
        table.add_row({option.empty() ? "not there" : automation::to_utf8(option), calls});
        right = right && !calls.empty();
    }
    table.print(std::cout);
    if (!right) std::cout << "WRONG: more than one option is read\n\n";
    return right;
}

}  // namespace bench
