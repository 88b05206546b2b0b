#include "desk/base/events.h"

#include <algorithm>

namespace desk {

using automation::Access;
using automation::Failure;
using automation::Request;
using automation::Value;
namespace result = automation::result;

const automation::EventInterface* find_events(EventInterfaces interfaces, const automation::Guid& id) {
    const auto wanted = std::ranges::find_if(interfaces, [&](auto* i) { return i->id == id; });
    return wanted == interfaces.end() ? nullptr : *wanted;
}

std::int32_t Subscriptions::add(const automation::EventInterface* interface, const automation::Object& sink) {
    if (!interface) throw Failure(result::no_connection, u"The object has no such events.");
    if (!sink) throw Failure(result::invalid_argument, u"Nobody is there to receive the events.");
    entries_.push_back({++last_cookie_, interface, sink});
    return last_cookie_;
}

void Subscriptions::remove(std::int32_t cookie) {
    if (std::erase_if(entries_, [&](const Entry& e) { return e.cookie == cookie; }) == 0) {
        throw Failure(result::no_connection, u"There is no such subscription.");
    }
}

void Subscriptions::raise(automation::TextView name, std::vector<Value>& arguments) {
    const std::vector<Entry> told = entries_;  // a sink may subscribe or leave while it is told
    for (const Entry& entry : told) {
        const auto& events = entry.interface->events;
        const auto event =
            std::ranges::find_if(events, [&](const automation::Event& e) { return e.name == name; });
        const bool still_there =
            std::ranges::any_of(entries_, [&](const Entry& e) { return e.cookie == entry.cookie; });
        if (event == events.end() || !still_there) continue;
        Request request{.access = Access::call,
                        .member = event->name,
                        .id = event->id,
                        .arguments = arguments,
                        .by_reference = event->outs};
        try {
            entry.sink.invoke(request);
        } catch (const Failure&) {
            continue;  // a listener that fails, or has died, is no failure of what happened
        }
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            if ((event->outs >> i) & 1U) arguments[i] = request.arguments[i];
        }
    }
}

}  // namespace desk
