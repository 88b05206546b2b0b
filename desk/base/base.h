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
                              task = 48, explorers = 60, inspectors = 61, selection = 74,
                              item_properties = 98, item_property = 99, property_accessor = 112, none = -1;
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
    void raise(automation::TextView event, std::vector<automation::Value> arguments = {});
    /// The same, and the arguments come back as the listeners left them.
    void raise_with_answer(automation::TextView event, std::vector<automation::Value>& arguments);

  protected:
    /// Whether a request uses the object, other than to resolve a name or to end a subscription.
    static bool is_use(const automation::Request& request) {
        return request.access == automation::Access::get || request.access == automation::Access::put ||
               request.access == automation::Access::call;
    }

    /// What every call passes before it is carried out: it may be made to fail.
    void observe(const automation::Request& request, automation::TextView member) const;

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
        if (request.access == automation::Access::advise || request.access == automation::Access::unadvise) {
            return subscriptions().answer(request, event_interfaces());
        }
        if (request.member.empty() && request.id == automation::default_member)
            request.member = T::default_name;
        if (const automation::Row<T>* row = T::members().find(request)) {
            observe(request, row->name);
            return automation::dispatch(static_cast<T&>(*this), *row, request);
        }
        if (const automation::Row<ModelBase>* row = common_members().find(request)) {
            observe(request, row->name);
            return automation::dispatch(static_cast<ModelBase&>(*this), *row, request);
        }
        return other_member(request);
    }

    automation::Object self() { return automation::Object(this->shared_from_this()); }

  protected:
    /// A member that stands in no table of the class.
    virtual automation::Value other_member(automation::Request& request) {
        automation::throw_no_member(request);
    }
};

}  // namespace desk
