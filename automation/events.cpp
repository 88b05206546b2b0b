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
        const bool known = event != interface_.events.end();
        if (request.access == Access::identify) {
            if (!known) throw Failure(result::member_not_found, Text(request.member));
            request.id = event->id;
            return {};
        }
        if (!known) return {};  // an event of later days is none of our business
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
    Request request{
        .access = Access::advise, .member = {}, .interface = interface.id, .sink = Value(receiver_)};
    try {
        cookie_ = source_.invoke(request);
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
    const Value cookie = std::exchange(cookie_, {});
    const std::shared_ptr<Invocable> receiver = std::exchange(receiver_, nullptr);
    if (!receiver) return;
    static_cast<Receiver&>(*receiver).cut_off();
    Request request{
        .access = Access::unadvise, .member = {}, .arguments = {cookie}, .interface = interface_->id};
    try {
        source.invoke(request);
    } catch (const Failure&) {
        return;  // a source that is gone has no subscription left to end
    }
}

}  // namespace automation
