// The sending end of events: who subscribed to an object, by the event interface.
#pragma once

#include <vector>

#include "automation/events.h"
#include "automation/object.h"

namespace desk {

/// The event interfaces that a class has.
using EventInterfaces = std::span<const automation::EventInterface* const>;

/// The one with an id; null if it isn't among them.
const automation::EventInterface* find_events(EventInterfaces interfaces, const automation::Guid& id);

class Subscriptions {
  public:
    /// Answers a subscription's cookie. Throws `result::no_connection` for no interface,
    /// `result::invalid_argument` for an empty sink.
    std::int32_t add(const automation::EventInterface* interface, const automation::Object& sink);

    /// Ends a subscription. Throws `result::no_connection` for an unknown cookie.
    void remove(std::int32_t cookie);

    /// Tells an event to all who subscribed to an interface that has it. What a sink throws is its own
    /// affair: the others are told all the same. The arguments come back changed where the event lets them.
    void raise(automation::TextView event, std::vector<automation::Value>& arguments);

    /// Lets go of all who subscribed: the object has come to its end.
    void clear() { entries_.clear(); }

    [[nodiscard]] bool any() const { return !entries_.empty(); }

  private:
    struct Entry {
        std::int32_t cookie;
        const automation::EventInterface* interface;
        automation::Object sink;
    };
    std::vector<Entry> entries_;
    std::int32_t last_cookie_ = 0;
};

}  // namespace desk
