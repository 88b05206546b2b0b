// Everything outside is reached by name at run time. This is the one place through which such calls pass.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/failure.h"
#include "automation/guid.h"
#include "automation/text.h"
#include "automation/value.h"

namespace automation {

class Object;

/// A family of objects that share their dispatch ids, but for those of parting members. Compared by address.
struct Kind {
    std::string_view name;

    /// Whether a member's id is good for the class alone that gave it, where objects of several classes are
    /// of the kind. None if null.
    bool (*parts)(TextView member) = nullptr;
};

/// What is asked of an object.
enum class Access {
    get,  ///< reads a property; an object that has a method of that name runs it
    put,  ///< writes a property; the value is the last argument
    call  ///< runs a method; an object that has a property of that name reads it
};

inline constexpr std::int32_t no_id = -1;          ///< the dispatch id that stands for "not known"
inline constexpr std::int32_t default_member = 0;  ///< the dispatch id of an object's default member

struct NamedArgument {
    Text name;
    Value value;
};

/// One call to an object. The arguments belong to the callee while it runs: it may change those whose bit is
/// set in `by_reference`, and the caller finds the changed value there afterwards.
struct Request {
    Access access = Access::call;
    TextView member;                     ///< compared without regard to case; empty if only `id` is known
    std::int32_t id = no_id;             ///< dispatch id; `no_id` if only the name is known
    std::vector<Value> arguments{};      ///< in their order
    std::vector<NamedArgument> named{};  ///< come on top of `arguments`
    std::uint32_t by_reference = 0;      ///< bit i: the callee may change `arguments[i]`
    const Kind* kind = nullptr;          ///< whose ids the callee may take from a cache; none if null
};

/// What the names of a member and of its parameters stand for.
struct MemberIds {
    std::int32_t id = no_id;
    std::vector<std::int32_t>
        places{};  ///< of the parameters, as they were named; `no_id` for an unknown one
};

/// Whatever can be asked for members by name.
class Invocable {
  public:
    Invocable() = default;
    Invocable(const Invocable&) = delete;
    Invocable& operator=(const Invocable&) = delete;
    virtual ~Invocable() = default;

    /// Does what the request says. Throws `Failure`, with `result::unknown_name` or
    /// `result::member_not_found` for a member that is not there.
    virtual Value invoke(Request& request) = 0;

    /// The ids of a member and of some of its parameters, nothing if there is no such member. What can only
    /// be called by id or by name alone knows none.
    virtual std::optional<MemberIds> identify(TextView member, std::span<const Text> parameters);

    /// Whether it raises the events of an interface.
    virtual bool has_events(const Guid& interface_id);

    /// Has a sink told of the events of an interface; answers the subscription's cookie. Throws `Failure`,
    /// with `result::no_connection` for events that are not there and `result::invalid_argument` for no sink.
    virtual std::int32_t subscribe(const Guid& interface_id, const Object& sink);

    /// Ends a subscription. Throws `Failure`, with `result::no_connection` for a cookie of none.
    virtual void unsubscribe(const Guid& interface_id, std::int32_t cookie);
};

/// A counted reference to something that can be asked by name; an empty one is Nothing.
class Object {
  public:
    Object() = default;
    Object(std::nullptr_t) {}
    Object(std::shared_ptr<Invocable> target, const Kind* kind = nullptr)
        : target_(std::move(target)), kind_(kind) {}

    explicit operator bool() const { return target_ != nullptr; }
    void reset() { target_.reset(); }
    const std::shared_ptr<Invocable>& target() const { return target_; }
    friend bool operator==(const Object& left, const Object& right) { return left.target_ == right.target_; }

    /// Reads, writes, runs. All throw `Failure`; `result::object_not_set` on Nothing.
    Value get(TextView member, std::initializer_list<Value> arguments = {}) const {
        return ask(Access::get, member, arguments);
    }
    void put(TextView member, const Value& value) const { ask(Access::put, member, {value}); }
    Value call(TextView member, std::initializer_list<Value> arguments = {}) const {
        return ask(Access::call, member, arguments);
    }

    /// A call in full, for named arguments and arguments by reference.
    Value invoke(Request& request) const;

    /// As the target's own; they throw `result::object_not_set` on Nothing, too.
    std::optional<MemberIds> identify(TextView member, std::span<const Text> parameters = {}) const;
    std::int32_t subscribe(const Guid& interface_id, const Object& sink) const;
    void unsubscribe(const Guid& interface_id, std::int32_t cookie) const;

  protected:
    void kind(const Kind* kind) { kind_ = kind; }

  private:
    std::shared_ptr<Invocable> alive() const;  ///< the target, kept while a call may drop this reference
    Value ask(Access access, TextView member, std::initializer_list<Value> arguments) const;

    std::shared_ptr<Invocable> target_;
    const Kind* kind_ = nullptr;
};

}  // namespace automation
