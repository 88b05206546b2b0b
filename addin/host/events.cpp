#include "host/events.h"

#include <algorithm>

namespace host {
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
        if (event == interface_.events.end()) throw Failure(result::member_not_found, Text(request.member));
        if (request.access == Access::identify) {
            request.id = event->id;
            return {};
        }
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

void Sink::clear() noexcept {
    if (receiver_) {
        static_cast<Receiver&>(*receiver_).cut_off();
        try {
            Request request{.access = Access::unadvise,
                            .member = {},
                            .arguments = {cookie_},
                            .interface = interface_->id};
            source_.invoke(request);
        } catch (...) {
            // a source that is gone has no subscription left to end
        }
    }
    receiver_.reset();
    source_.reset();
    cookie_ = {};
}

}  // namespace host
