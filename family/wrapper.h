// Base of the safe wrappers: a few members of their own, all others are those of what they wrap.
#pragma once

#include "family/sibling.h"

namespace family {

/// A MAPI property of an item, a recipient or an address entry as text; an empty value if it lacks the
/// property. Throws `Failure` for what is no tag.
host::Value read_field(const host::Object& owner, Surroundings& surroundings, const host::Value& tag);
void write_field(const host::Object& owner, const NamedProperties& named, const host::Value& tag,
                 const host::Value& value);

/// The dispatch id of a member that the wrapper adds. The ids of what is wrapped are passed on as they are,
/// so that a caller may keep them; these stand far from any of them.
constexpr std::int32_t own_id(std::int32_t number) { return 0x5AFE0000 + number; }

template <class T>
class Wrapper : public Sibling<T> {
  public:
    explicit Wrapper(std::shared_ptr<Surroundings> surroundings, host::Object inner = {})
        : Sibling<T>(std::move(surroundings)), inner_(std::move(inner)) {}

    /// What is wrapped. Throws `Failure` as long as there is nothing.
    const host::Object& inner() const {
        if (!inner_)
            throw host::Failure(host::result::object_not_set, host::Text(T::name) + u" has no item yet");
        return inner_;
    }

    const host::Object& item() const { return inner_; }
    void item(host::Object item) { inner_ = std::move(item); }

    /// An object that the wrapped one answers, in a wrapper of its own; Nothing stays Nothing.
    template <class Other>
    host::Value wrapped(const host::Value& answer) const {
        const host::Object object = answer.to_object();
        if (!object) return host::Object();
        return host::Object(std::make_shared<Other>(this->shared_surroundings(), object));
    }

    NamedProperties& named_properties() const { return this->surroundings().memory().named_properties; }

  protected:
    host::Value ask_elsewhere(host::Request& request) override {
        request.kind = nullptr;  // ids that the caller keeps for wrappers say nothing about what is wrapped
        auto& names = this->surroundings().memory().names;
        if (request.access == host::Access::identify) {
            host::Value places = inner().invoke(request);
            names[{T::name, request.id}] = request.member;
            return places;
        }
        const auto known = names.find({T::name, request.id});
        const bool by_id = request.member.empty() && known != names.end();
        this->surroundings().check(T::name, by_id ? host::TextView(known->second) : request.member);
        return inner().invoke(request);
    }

  private:
    host::Object inner_;
};

/// The row of `Item`, which takes what is wrapped and gives it back.
template <class T>
host::Row<T> item_row(std::int32_t number) {
    return {u"Item", own_id(number), host::Use::get_put,
            [](T& self, const host::Arguments& arguments) -> host::Value {
                if (arguments.is_put()) self.item(arguments.assigned().to_object());
                return self.item();
            }};
}

/// The row of `Fields(tag)`.
template <class T>
host::Row<T> fields_row(std::int32_t number) {
    return {u"Fields",
            own_id(number),
            host::Use::get_put,
            {host::Parameter{u"Tag"}},
            [](T& self, const host::Arguments& arguments) -> host::Value {
                if (!arguments.is_put()) return read_field(self.inner(), self.surroundings(), arguments[0]);
                write_field(self.inner(), self.named_properties(), arguments[0], arguments.assigned());
                return {};
            }};
}

/// The row of `GetIDsFromNames(set, id or name)`, which answers a tag without a type.
template <class T>
host::Row<T> named_row(std::int32_t number) {
    return {u"GetIDsFromNames",
            own_id(number),
            host::Use::method,
            {host::Parameter{u"PropertySet", host::Takes::text}, host::Parameter{u"IdOrName"}},
            [](T& self, const host::Arguments& arguments) -> host::Value {
                const NamedProperty property = read_named_property(arguments[0].to_text(), arguments[1]);
                self.inner();
                return static_cast<std::int32_t>(self.named_properties().tag(property));
            }};
}

}  // namespace family
