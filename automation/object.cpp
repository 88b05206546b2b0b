#include "automation/object.h"

namespace automation {

Failure::Failure(std::int32_t number, Text description)
    : number_(number), description_(std::move(description)), utf8_(to_utf8(description_)) {}

Value Object::invoke(Request& request) const {
    if (!target_) throw Failure(result::object_not_set, u"Object variable not set");
    if (!request.kind) request.kind = kind_;
    const std::shared_ptr<Invocable> alive = target_;  // a call may drop the reference that it came through
    return alive->invoke(request);
}

Value Object::ask(Access access, TextView member, std::initializer_list<Value> arguments) const {
    Request request{.access = access, .member = member, .arguments = arguments};
    return invoke(request);
}

}  // namespace automation
