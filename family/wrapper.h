// Base of the safe wrappers: a few members of their own, all others are those of what they wrap.
#pragma once

#include "family/sibling.h"

namespace family {

/// A MAPI property of an item, a recipient or an address entry as text; an empty value if it lacks the
/// property. Throws `Failure` for what is no tag.
automation::Value read_field(const automation::Object& owner, Context& context, const automation::Value& tag);
void write_field(const automation::Object& owner, const NamedProperties& named, const automation::Value& tag,
                 const automation::Value& value);

/// The dispatch id of a member that the wrapper adds. The ids of what is wrapped are passed on as they are,
/// so that a caller may keep them; these stand far from any of them.
constexpr std::int32_t own_id(std::int32_t number) { return 0x5AFE0000 + number; }

template <class T>
class Wrapper : public Sibling<T> {
  public:
    explicit Wrapper(std::shared_ptr<Context> context, automation::Object inner = {})
        : Sibling<T>(std::move(context)), inner_(std::move(inner)) {}

    /// What is wrapped. Throws `Failure` as long as there is nothing.
    const automation::Object& inner() const {
        if (!inner_)
            throw automation::Failure(automation::result::object_not_set,
                                      automation::Text(T::name) + u" has no item yet");
        return inner_;
    }

    const automation::Object& item() const { return inner_; }
    void item(automation::Object item) { inner_ = std::move(item); }

    /// An object that the wrapped one answers, in a wrapper of its own; Nothing stays Nothing.
    template <class Other>
    automation::Value wrapped(const automation::Value& answer) const {
        const automation::Object object = answer.to_object();
        if (!object) return automation::Object();
        return automation::Object(std::make_shared<Other>(this->shared_context(), object));
    }

    NamedProperties& named_properties() const { return this->context().memory().named_properties; }

    std::optional<automation::MemberIds> identify(automation::TextView member,
                                                  std::span<const automation::Text> parameters) override {
        if (const auto own = Sibling<T>::identify(member, parameters)) return own;
        const std::optional<automation::MemberIds> ids = inner().identify(member, parameters);
        if (ids) this->context().memory().names[{T::name, ids->id}] = member;
        return ids;
    }

    // the events are those of what is wrapped
    bool has_events(const automation::Guid& interface_id) override {
        return inner_ && inner_.target()->has_events(interface_id);
    }
    std::int32_t subscribe(const automation::Guid& interface_id, const automation::Object& sink) override {
        return inner().subscribe(interface_id, sink);
    }
    void unsubscribe(const automation::Guid& interface_id, std::int32_t cookie) override {
        inner().unsubscribe(interface_id, cookie);
    }

  protected:
    automation::Value ask_elsewhere(automation::Request& request) override {
        request.kind = nullptr;  // ids that the caller keeps for wrappers say nothing about what is wrapped
        auto& names = this->context().memory().names;
        const auto known = names.find({T::name, request.id});
        const bool by_id = request.member.empty() && known != names.end();
        this->context().check(T::name, by_id ? automation::TextView(known->second) : request.member);
        return inner().invoke(request);
    }

  private:
    automation::Object inner_;
};

/// The row of `Item`, which takes what is wrapped and gives it back.
template <class T>
automation::Row<T> item_row(std::int32_t number) {
    return {u"Item", own_id(number), [](T& self) { return self.item(); },
            [](T& self, const automation::Object& item) { self.item(item); }};
}

/// The row of `Fields(tag)`.
template <class T>
automation::Row<T> fields_row(std::int32_t number) {
    return {
        u"Fields",
        own_id(number),
        {u"Tag"},
        [](T& self, const automation::Value& tag) { return read_field(self.inner(), self.context(), tag); },
        [](T& self, const automation::Value& tag, const automation::Value& value) {
            write_field(self.inner(), self.named_properties(), tag, value);
        }};
}

/// The row of `GetIDsFromNames(set, id or name)`, which answers a tag without a type.
template <class T>
automation::Row<T> named_row(std::int32_t number) {
    return {u"GetIDsFromNames",
            own_id(number),
            automation::Use::method,
            {u"PropertySet", u"IdOrName"},
            [](T& self, const automation::Text& set, const automation::Value& id_or_name) {
                const NamedProperty property = read_named_property(set, id_or_name);
                self.inner();
                return static_cast<std::int32_t>(self.named_properties().tag(property));
            }};
}

}  // namespace family
