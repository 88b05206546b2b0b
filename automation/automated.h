// Objects of our own that can be asked by name: a class is a table of members.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

#include "automation/object.h"

namespace automation {

/// What a parameter takes. A value of another type is converted, and `result::type_mismatch` says that it
/// can't be.
enum class Takes { value, text, integer, boolean, number, date, object };

struct Parameter {
    TextView name;
    Takes takes = Takes::value;
    bool optional = false;
};

/// The arguments of one call, in the order of the parameters, those left out as `Missing`. The first ones
/// stand in the caller's own request, so that a change of them is seen there.
class Arguments {
  public:
    Arguments(std::span<Value> values, Access access) : values_(values), access_(access) {}

    Value& operator[](std::size_t index) const { return values_[index]; }
    bool has(std::size_t index) const { return index < values_.size() && !values_[index].is_missing(); }
    bool is_put() const { return access_ == Access::put; }
    Value& assigned() const { return values_[values_.size() - 1]; }  ///< the value of a put

  private:
    std::span<Value> values_;
    Access access_;
};

/// How a member may be used.
enum class Use { get, get_put, put, method };

/// The fixed part of a table row; `Row<T>` adds the code.
struct MemberFacts {
    TextView name;
    std::int32_t id = no_id;
    Use use = Use::get;
    std::vector<Parameter> parameters{};
};

template <class T>
struct Row : MemberFacts {
    using Code = Value (*)(T&, const Arguments&);
    Code code;

    Row(TextView name, std::int32_t id, Use use, Code code) : MemberFacts{name, id, use, {}}, code(code) {}
    Row(TextView name, std::int32_t id, Use use, std::vector<Parameter> parameters, Code code)
        : MemberFacts{name, id, use, std::move(parameters)}, code(code) {}
};

/// The members of a class. Rows without an id of the platform get one of their own, from 0x60000 on.
template <class T>
class Members {
  public:
    Members(std::initializer_list<Row<T>> rows) : rows_(rows) {
        std::int32_t next = 0x60000;
        for (Row<T>& row : rows_) {
            if (row.id == no_id) row.id = next++;
        }
    }

    /// The row that a request means, by its id if it names no member; null if there is none.
    const Row<T>* find(const Request& request) const {
        if (!request.member.empty()) return find(request.member);
        const auto found = std::ranges::find(rows_, request.id, &Row<T>::id);
        return found == rows_.end() ? nullptr : &*found;
    }

    /// The row of a name; null if there is none.
    const Row<T>* find(TextView name) const {
        const auto found = std::ranges::find_if(
            rows_, [&](const Row<T>& row) { return same_ignoring_case(row.name, name); });
        return found == rows_.end() ? nullptr : &*found;
    }

    std::span<const Row<T>> rows() const { return rows_; }

  private:
    std::vector<Row<T>> rows_;
};

/// The ids of a member and of some of its parameters.
MemberIds ids_of(const MemberFacts& facts, std::span<const Text> parameters);

/// Brings a request's arguments into the order of the parameters, converts them and checks their number.
/// Afterwards the request has as many arguments as the member has parameters, and one more for a put.
/// Arguments beyond those of a property without parameters are returned: they are meant for the default
/// member of what the property holds.
std::vector<Value> arrange(const MemberFacts& facts, Request& request);

/// Asks the default member of an answer, as `Folders("Inbox")` asks the collection that `Folders` is.
Value ask_default_member(const Value& answer, std::vector<Value> arguments);

[[noreturn]] void throw_no_member(const Request& request);

/// Runs the member that a request names. The name in the failure of an unknown member tells which it was.
template <class T>
Value dispatch(T& self, const Row<T>& row, Request& request) {
    std::vector<Value> rest = arrange(row, request);
    Value answer = row.code(self, Arguments(request.arguments, request.access));
    return rest.empty() ? answer : ask_default_member(answer, std::move(rest));
}

/// Base of a class whose members are all in its table: `static const Members<T>& T::members()`.
template <class T>
class Automated : public Invocable, public std::enable_shared_from_this<T> {
  public:
    Value invoke(Request& request) override {
        if (const Row<T>* row = T::members().find(request))
            return dispatch(static_cast<T&>(*this), *row, request);
        throw_no_member(request);
    }

    std::optional<MemberIds> identify(TextView member, std::span<const Text> parameters) override {
        const Row<T>* const row = T::members().find(member);
        return row ? std::optional(ids_of(*row, parameters)) : std::nullopt;
    }
};

}  // namespace automation
