#include "automation/events.h"

#include <algorithm>
#include <utility>

namespace automation {
namespace {

/// Receives the calls of a source and hands them to the handlers, until it is cut off.
class Receiver : public Invocable {
  public:
    Receiver(const EventInterface& interface, std::vector<Handler> handlers)
        : interface_(interface), handlers_(std::move(handlers)) {}

    Value invoke(Request& request) override {
        const auto event = std::ranges::find_if(interface_.events, [&](const Event& e) {
            return request.id != no_id ? e.id == request.id : same_ignoring_case(e.name, request.member);
        });
        if (event == interface_.events.end()) return {};  // one of later days is none of our business
        const auto handler =
            std::ranges::find_if(handlers_, [&](const Handler& h) { return h.event == event->name; });
        if (handler != handlers_.end()) {
            const auto run = handler->run;  // the handler may end the subscription that it came through
            run(request.arguments);
        }
        return {};
    }

    void cut_off() { handlers_.clear(); }

  private:
    const EventInterface& interface_;
    std::vector<Handler> handlers_;
};

}  // namespace

void Sink::connect(const EventInterface& interface, Object source, std::vector<Handler> handlers) {
    clear();
    source_ = std::move(source);
    if (!source_) return;
    interface_ = &interface;
    receiver_ = std::make_shared<Receiver>(interface, std::move(handlers));
    try {
        cookie_ = source_.subscribe(interface.id, Object(receiver_));
    } catch (...) {
        receiver_.reset();
        throw;
    }
}

Sink::~Sink() {
    try {
        clear();
    } catch (...) {
        return;  // an end can tell nobody; who wants to know what went wrong clears before
    }
}

void Sink::clear() {
    const Object source = std::exchange(source_, {});
    const std::int32_t cookie = std::exchange(cookie_, 0);
    const std::shared_ptr<Invocable> receiver = std::exchange(receiver_, nullptr);
    if (!receiver) return;
    static_cast<Receiver&>(*receiver).cut_off();
    try {
        source.unsubscribe(interface_->id, cookie);
    } catch (const Failure&) {
        return;  // a source that is gone has no subscription left to end
    }
}

}  // namespace automation
