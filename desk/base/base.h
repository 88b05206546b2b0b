// The base of the desk's objects: what they all answer, and the one point that each call passes.
#pragma once

#include "automation/automated.h"
#include "automation/named.h"
#include "desk/base/events.h"

namespace desk {

class Desk;

/// Numbers of object classes (OlObjectClass).
namespace object_class {
inline constexpr std::int32_t application = 0, name_space = 1, folder = 2, recipient = 4, attachment = 5,
                              address_entry = 8, folders = 15, items = 16, recipients = 17, attachments = 18,
                              appointment = 26, explorer = 34, inspector = 35, user_properties = 38,
                              user_property = 39, contact = 40, journal = 42, mail = 43, note = 44, post = 45,
                              task = 48, explorers = 60, inspectors = 61, dist_list = 69, selection = 74,
                              item_properties = 98, item_property = 99, property_accessor = 112,
                              user_defined_properties = 172, user_defined_property = 173, none = -1;
}  // namespace object_class

/// The desk outlives every object that it hands out.
class ModelBase : public automation::Invocable, public automation::Named {
  public:
    explicit ModelBase(Desk& desk) : desk_(desk) {}

    Desk& desk() const { return desk_; }

    virtual std::int32_t number() const = 0;  ///< its OlObjectClass
    virtual automation::Object parent() const = 0;
    virtual EventInterfaces event_interfaces() const { return {}; }

    Subscriptions& subscriptions() { return subscriptions_; }
    bool has_events(const automation::Guid& interface_id) override;
    std::int32_t subscribe(const automation::Guid& interface_id, const automation::Object& sink) override;
    void unsubscribe(const automation::Guid& interface_id, std::int32_t cookie) override;
    void raise(automation::TextView event, std::vector<automation::Value> arguments = {});
    /// The same, and the arguments come back as the listeners left them.
    void raise_with_answer(automation::TextView event, std::vector<automation::Value>& arguments);

  protected:
    /// What every call of a member passes before it is carried out: it may be made to fail.
    void observe(automation::TextView member) const;

    /// `Application`, `Class`, `Session` and `Parent`.
    static const automation::Members<ModelBase>& common_members();

  private:
    Desk& desk_;
    Subscriptions subscriptions_;
};

/// Base of a class whose members stand in a table: `static const automation::Members<T>& T::members()`, its
/// name `T::name` and the member that is meant when none is named, `T::default_name`.
template <class T>
class ModelObject : public ModelBase, public std::enable_shared_from_this<T> {
  public:
    using ModelBase::ModelBase;

    std::string_view class_name() const override { return T::name; }

    automation::Value invoke(automation::Request& request) override {
        if (request.member.empty() && request.id == automation::default_member)
            request.member = T::default_name;
        if (const automation::Row<T>* row = T::members().find(request)) {
            observe(row->name);
            return automation::dispatch(static_cast<T&>(*this), *row, request);
        }
        if (const automation::Row<ModelBase>* row = common_members().find(request)) {
            observe(row->name);
            return automation::dispatch(static_cast<ModelBase&>(*this), *row, request);
        }
        return other_member(request);
    }

    std::optional<automation::MemberIds> identify(automation::TextView member,
                                                  std::span<const automation::Text> parameters) override {
        if (const automation::MemberFacts* row = T::members().find(member)) return ids_of(*row, parameters);
        if (const automation::MemberFacts* row = common_members().find(member))
            return ids_of(*row, parameters);
        const std::optional<automation::MemberFacts> other = other_facts(member);
        return other ? std::optional(ids_of(*other, parameters)) : std::nullopt;
    }

    automation::Object self() { return automation::Object(this->shared_from_this()); }

  protected:
    /// Of a member that stands in no table of the class; nothing if there is none of the name.
    virtual std::optional<automation::MemberFacts> other_facts(automation::TextView) const { return {}; }

    /// Carries out what asks for such a member.
    virtual automation::Value other_member(automation::Request& request) {
        automation::throw_no_member(request);
    }
};

}  // namespace desk
