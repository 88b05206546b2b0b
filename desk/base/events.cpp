#include "desk/base/events.h"

#include <algorithm>

namespace desk {

using automation::Access;
using automation::Failure;
using automation::Request;
using automation::Value;
namespace result = automation::result;

Value Subscriptions::answer(Request& request, EventInterfaces interfaces) {
    const auto wanted = std::ranges::find_if(interfaces, [&](auto* i) { return i->id == request.interface; });
    if (wanted == interfaces.end()) throw Failure(result::no_connection, u"The object has no such events.");
    if (request.access == Access::advise) {
        automation::Object sink = request.sink.to_object();
        if (!sink) throw Failure(result::invalid_argument, u"Nobody is there to receive the events.");
        entries_.push_back({++last_cookie_, *wanted, std::move(sink)});
        return last_cookie_;
    }
    const std::int32_t cookie = request.arguments.at(0).to_integer();
    if (std::erase_if(entries_, [&](const Entry& e) { return e.cookie == cookie; }) == 0) {
        throw Failure(result::no_connection, u"There is no such subscription.");
    }
    return {};
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
