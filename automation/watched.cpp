#include "automation/watched.h"

#include <algorithm>

namespace automation {

/// An object of the outside.
class Watch::Watched : public Invocable {
  public:
    Watched(std::shared_ptr<Watch> watch, std::shared_ptr<Invocable> outside)
        : watch_(std::move(watch)), outside_(std::move(outside)) {}
    ~Watched() override { watch_->held_.erase(outside_.get()); }

    const std::shared_ptr<Invocable>& outside() const { return outside_; }

    Value invoke(Request& request) override;
    std::optional<MemberIds> identify(TextView member, std::span<const Text> parameters) override {
        return outside_->identify(member, parameters);
    }
    bool has_events(const Guid& interface_id) override { return outside_->has_events(interface_id); }
    std::int32_t subscribe(const Guid& interface_id, const Object& sink) override;
    void unsubscribe(const Guid& interface_id, std::int32_t cookie) override {
        outside_->unsubscribe(interface_id, cookie);
    }

  private:
    std::shared_ptr<Watch> watch_;
    std::shared_ptr<Invocable> outside_;
};

/// What hears the events for a sink.
class Watch::Ear : public Invocable {
  public:
    Ear(std::shared_ptr<Watch> watch, const Guid& interface_id, Object sink)
        : watch_(std::move(watch)), interface_id_(interface_id), sink_(std::move(sink)) {}

    Value invoke(Request& request) override {
        const std::shared_ptr<Watch> watch = watch_;  // a handler may end the subscription
        const Object sink = sink_;
        Request event = request;
        for (Value& argument : event.arguments) argument = watch->watched(argument);
        watch->watcher_->tells(interface_id_, event);
        const std::shared_ptr<void> over(nullptr, [&](void*) { watch->watcher_->told(); });
        const Value answer = sink.invoke(event);
        std::ranges::transform(event.arguments, request.arguments.begin(), bare);
        return bare(answer);
    }

  private:
    std::shared_ptr<Watch> watch_;
    Guid interface_id_;
    Object sink_;
};

Value Watch::Watched::invoke(Request& request) {
    const std::shared_ptr<Watch> watch = watch_;  // the call may let go of the last reference
    const std::shared_ptr<Invocable> outside = outside_;
    Request passed = request;
    std::ranges::transform(passed.arguments, passed.arguments.begin(), bare);
    for (NamedArgument& argument : passed.named) argument.value = bare(argument.value);
    watch->watcher_->asks(request);
    Value answer;
    try {
        answer = outside->invoke(passed);
    } catch (const Failure& failure) {
        watch->watcher_->asked(request, nullptr, &failure);
        throw;
    } catch (...) {
        watch->watcher_->asked(request, nullptr, nullptr);
        throw;
    }
    watch->watcher_->asked(request, &answer, nullptr);
    for (std::size_t i = 0; i < request.arguments.size(); ++i) {
        if ((request.by_reference >> i) & 1U) request.arguments[i] = watch->watched(passed.arguments[i]);
    }
    return watch->watched(answer);
}

std::int32_t Watch::Watched::subscribe(const Guid& interface_id, const Object& sink) {
    if (!sink) return outside_->subscribe(interface_id, sink);
    return outside_->subscribe(interface_id, Object(std::make_shared<Ear>(watch_, interface_id, sink)));
}

std::shared_ptr<Watch> Watch::create(std::shared_ptr<Watcher> watcher) {
    return std::shared_ptr<Watch>(new Watch(std::move(watcher)));
}

Object Watch::watched(const Object& outside) {
    if (!outside || std::dynamic_pointer_cast<Watched>(outside.target())) return outside;
    std::weak_ptr<Watched>& known = held_[outside.target().get()];
    std::shared_ptr<Watched> watched = known.lock();
    if (!watched) {
        watched = std::make_shared<Watched>(shared_from_this(), outside.target());
        known = watched;
    }
    return Object(std::move(watched));
}

Value Watch::watched(const Value& outside) {
    return outside.is(Value::Type::object) ? Value(watched(outside.to_object())) : outside;
}

Value Watch::bare(const Value& value) {
    if (!value.is(Value::Type::object)) return value;
    const auto own = std::dynamic_pointer_cast<Watched>(value.to_object().target());
    return own ? Value(own->outside()) : value;
}

}  // namespace automation
