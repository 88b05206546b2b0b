// Event interfaces are data, and a subscription ends with its owner.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

#include "automation/object.h"

namespace automation {

/// One event of an interface. `outs`: bit i is set for an argument that the handler may change.
struct Event {
    TextView name;
    std::int32_t id;
    std::uint32_t outs = 0;
};

/// An event interface: its id and what it tells.
struct EventInterface {
    std::string_view name;
    Guid id;
    std::span<const Event> events;
};

/// What runs when an event comes. The arguments are the event's own, in their order.
struct Handler {
    TextView event;
    std::function<void(std::span<Value>)> run;
};

/// An event subscription. Assigning another source, or clearing, ends the earlier one; so does the end of the
/// sink.
class Sink {
  public:
    Sink() = default;
    ~Sink();
    Sink(const Sink&) = delete;
    Sink& operator=(const Sink&) = delete;

    /// Holds the source and receives its events. Throws what the source throws when it refuses; the source is
    /// held then all the same, as a member that was assigned is.
    void connect(const EventInterface& interface, Object source, std::vector<Handler> handlers);

    /// Ends the subscription and lets go of the source, also of one that fails meanwhile.
    void clear();

    const Object& source() const { return source_; }

  private:
    const EventInterface* interface_ = nullptr;
    Object source_;
    std::shared_ptr<Invocable> receiver_;
    std::int32_t cookie_ = 0;
};

}  // namespace automation
