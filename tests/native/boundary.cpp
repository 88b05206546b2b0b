#include "tests/native/boundary.h"

#include "desk/base/base.h"
#include "family/list_picker.h"
#include "family/main_add_in.h"
#include "family/reports_host.h"
#include "family/safe_item.h"
#include "family/safe_mail_item.h"

namespace native {

using automation::Object;
using automation::Request;
using automation::Value;

namespace {

template <class T>
bool is(const automation::Invocable& object, std::string& name) {
    if (!dynamic_cast<const T*>(&object)) return false;
    name = automation::to_utf8(T::name);
    return true;
}

std::string class_name(const automation::Invocable& object) {
    if (const auto* named = dynamic_cast<const automation::Named*>(&object))
        return std::string(named->class_name());
    std::string name = "Object";
    using namespace family;
    is<MainAddIn>(object, name) || is<SafeMailItem>(object, name) || is<SafeAddressEntry>(object, name) ||
        is<SafeRecipients>(object, name) || is<SafeRecipient>(object, name) || is<ListPicker>(object, name) ||
        is<ReportsHost>(object, name) || is<SafeContactItem>(object, name) || is<SafePostItem>(object, name);
    return name;
}

}  // namespace

/// An object of one side as the other side holds it.
class Boundary::Across : public automation::Invocable {
  public:
    Across(std::shared_ptr<Boundary> boundary, Object inner, Side holder)
        : boundary_(std::move(boundary)), inner_(std::move(inner)), holder_(holder) {}
    ~Across() override { boundary_->held_.erase({inner_.target().get(), holder_}); }

    const Object& inner() const { return inner_; }
    Side holder() const { return holder_; }

    Value invoke(Request& request) override;
    std::optional<automation::MemberIds> identify(automation::TextView member,
                                                  std::span<const automation::Text> parameters) override {
        return inner_.identify(member, parameters);
    }
    bool has_events(const automation::Guid& interface_id) override {
        return inner_.target()->has_events(interface_id);
    }
    std::int32_t subscribe(const automation::Guid& interface_id, const Object& sink) override;
    void unsubscribe(const automation::Guid& interface_id, std::int32_t cookie) override;

  private:
    std::string name_of(const std::string& member) const {
        return class_name(*inner_.target()) + "." + member;
    }
    void pass(const std::string& member);  ///< where the add-in asks

    std::shared_ptr<Boundary> boundary_;
    Object inner_;
    Side holder_;
};

/// Hands the events of a source to a sink of the other side.
class Boundary::Relay : public automation::Invocable {
  public:
    Relay(std::shared_ptr<Boundary> boundary, Object sink, Side sinks_side)
        : boundary_(std::move(boundary)), sink_(std::move(sink)), sinks_side_(sinks_side) {}

    Value invoke(Request& request) override {
        Request told = request;
        boundary_->across(told, sinks_side_);
        const Value answer = sink_.invoke(told);
        const Side back = sinks_side_ == Side::add_in ? Side::outside : Side::add_in;
        for (std::size_t i = 0; i < request.arguments.size(); ++i) {
            request.arguments[i] = boundary_->across(told.arguments[i], back);
        }
        return boundary_->across(answer, back);
    }

  private:
    std::shared_ptr<Boundary> boundary_;
    Object sink_;
    Side sinks_side_;
};

void Boundary::Across::pass(const std::string& member) {
    if (holder_ == Side::add_in) boundary_->pass(name_of(member));
}

Value Boundary::Across::invoke(Request& request) {
    const Side owner = holder_ == Side::add_in ? Side::outside : Side::add_in;
    const std::string member = automation::to_utf8(request.member);
    if (holder_ == Side::add_in && boundary_->before_request) {
        boundary_->before_request(name_of(member), request);
    }
    pass(member);
    Request passed = request;
    passed.kind = nullptr;
    boundary_->across(passed, owner);
    const Value answer = inner_.invoke(passed);
    for (std::size_t i = 0; i < request.arguments.size() && i < passed.arguments.size(); ++i) {
        if ((request.by_reference >> i) & 1U)
            request.arguments[i] = boundary_->across(passed.arguments[i], holder_);
    }
    return boundary_->across(answer, holder_);
}

std::int32_t Boundary::Across::subscribe(const automation::Guid& interface_id, const Object& sink) {
    pass("advise");
    return inner_.subscribe(interface_id, Object(std::make_shared<Relay>(boundary_, sink, holder_)));
}

void Boundary::Across::unsubscribe(const automation::Guid& interface_id, std::int32_t cookie) {
    pass("unadvise");
    inner_.unsubscribe(interface_id, cookie);
}

Object Boundary::to_add_in(const Object& outside) { return across(outside, Side::add_in); }
Object Boundary::to_outside(const Object& of_the_add_in) { return across(of_the_add_in, Side::outside); }

void Boundary::pass(const std::string& member) {
    calls_.push_back(member);
    if (before_call) before_call(member);
}

Object Boundary::across(const Object& object, Side to) {
    if (!object) return {};
    if (const auto own = std::dynamic_pointer_cast<Across>(object.target())) {
        return own->holder() == to ? object : own->inner();  // it comes back to where it belongs
    }
    std::weak_ptr<Across>& known = held_[{object.target().get(), to}];
    std::shared_ptr<Across> held = known.lock();
    if (!held) {
        held = std::make_shared<Across>(shared_from_this(), Object(object.target()), to);
        known = held;
    }
    return Object(held);
}

Value Boundary::across(const Value& value, Side to) {
    if (!value.is(Value::Type::object)) return value;
    return Value(across(value.to_object(), to));
}

void Boundary::across(Request& request, Side to) {
    for (Value& argument : request.arguments) argument = across(argument, to);
    for (automation::NamedArgument& argument : request.named) argument.value = across(argument.value, to);
}

std::vector<desk::LiveCount> Boundary::live() const {
    std::map<std::string, std::int32_t> counts;
    for (const auto& [key, held] : held_) {
        const bool of_the_desk = dynamic_cast<const desk::ModelBase*>(key.first) != nullptr;
        if (key.second == Side::add_in && of_the_desk && !held.expired()) ++counts[class_name(*key.first)];
    }
    std::vector<desk::LiveCount> all;
    for (const auto& [kind, count] : counts) all.push_back({kind, count});
    return all;
}

}  // namespace native
