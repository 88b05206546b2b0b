// Objects of our own that can be asked by name: a class is a table of members.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

#include "automation/signature.h"

namespace automation {

/// How a member may be used.
enum class Use { get, get_put, method };

/// The fixed part of a table row; `Row<T>` adds the code.
struct MemberFacts {
    TextView name;
    std::int32_t id = no_id;
    Use use = Use::get;
    std::vector<Parameter> parameters{};
};

/// A member of a class: its name, its id, how it may be used, the names of its parameters, and its code. What
/// the parameters take, and which may be left out, the code's signature tells. A property that is also
/// written has a second code, which takes the value at the end.
template <class T>
class Row : public MemberFacts {
  public:
    template <class Run>
    Row(TextView name, std::int32_t id, Use use, Run run)
        : Row(MemberFacts{name, id, use}, std::span<const TextView>(), run) {
        static_assert(signature::Of<Run>::count == 0, "each parameter of the code needs a name");
    }
    template <std::size_t count, class Run>
    Row(TextView name, std::int32_t id, Use use, const TextView (&parameters)[count], Run run)
        : Row(MemberFacts{name, id, use}, std::span<const TextView>(parameters), run) {
        static_assert(signature::Of<Run>::count == count, "each parameter of the code needs a name");
    }
    template <class Get, class Put>
    requires(!std::same_as<Get, Use>) Row(TextView name, std::int32_t id, Get get, Put put)
        : Row(name, id, Use::get_put, get) {
        writes<Get>(put);
    }
    template <std::size_t count, class Get, class Put>
    Row(TextView name, std::int32_t id, const TextView (&parameters)[count], Get get, Put put)
        : Row(name, id, Use::get_put, parameters, get) {
        writes<Get>(put);
    }
    template <class Get, class Put>
    Row(TextView name, std::int32_t id, Property<Get, Put> codes) : Row(name, id, codes.get, codes.put) {}

    /// Runs the code with arguments that `arrange` has brought in order. Throws `Failure` if there is none
    /// for the request.
    Value run(T& self, Request& request) const {
        const Code& code = request.access == Access::put ? put_ : run_;
        if (!code.run) throw Failure(result::member_not_found, Text(name));
        return code.run(self, request.arguments, code.code);
    }

  private:
    struct Code {
        Value (*run)(T&, std::span<Value>, AnyCode) = nullptr;
        AnyCode code = nullptr;
    };

    template <class Run>
    static Code code_of(Run run) {
        return {&signature::Of<Run>::template run<T>, reinterpret_cast<AnyCode>(+run)};
    }

    template <class Run>
    Row(MemberFacts facts, std::span<const TextView> parameters, Run run)
        : MemberFacts(std::move(facts)), run_(code_of(run)) {
        this->parameters = signature::parameters(parameters, signature::Of<Run>::told);
    }

    template <class Get, class Put>
    void writes(Put put) {
        static_assert(signature::Of<Put>::count == signature::Of<Get>::count + 1,
                      "the value comes at the end");
        put_ = code_of(put);
    }

    Code run_, put_;
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
    Value answer = row.run(self, request);
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
