#include "automation/object.h"

namespace automation {

Failure::Failure(std::int32_t number, Text description)
    : number_(number), description_(std::move(description)), utf8_(to_utf8(description_)) {}

std::optional<MemberIds> Invocable::identify(TextView, std::span<const Text>) { return std::nullopt; }

bool Invocable::has_events(const Guid&) { return false; }

std::int32_t Invocable::subscribe(const Guid&, const Object&) {
    throw Failure(result::no_connection, u"The object has no such events.");
}

void Invocable::unsubscribe(const Guid&, std::int32_t) {
    throw Failure(result::no_connection, u"The object has no such events.");
}

std::shared_ptr<Invocable> Object::alive() const {
    if (!target_) throw Failure(result::object_not_set, u"Object variable not set");
    return target_;
}

Value Object::invoke(Request& request) const {
    if (!request.kind) request.kind = kind_;
    return alive()->invoke(request);
}

std::optional<MemberIds> Object::identify(TextView member, std::span<const Text> parameters) const {
    return alive()->identify(member, parameters);
}

std::int32_t Object::subscribe(const Guid& interface_id, const Object& sink) const {
    return alive()->subscribe(interface_id, sink);
}

void Object::unsubscribe(const Guid& interface_id, std::int32_t cookie) const {
    alive()->unsubscribe(interface_id, cookie);
}

Value Object::ask(Access access, TextView member, std::initializer_list<Value> arguments) const {
    Request request{.access = access, .member = member, .arguments = arguments};
    return invoke(request);
}

}  // namespace automation
