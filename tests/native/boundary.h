// The border between the add-in and everything outside of it, as the COM layer is on Windows: whatever is
// called by name from one side on the other passes it. So calls can be counted and made to fail in one place.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "automation/object.h"
#include "desk/base/surroundings.h"

namespace native {

class Boundary : public std::enable_shared_from_this<Boundary> {
  public:
    /// What an object of the outside is to the add-in, and one of the add-in to the outside. The same object
    /// is the same one each time, as long as it is held.
    automation::Object to_add_in(const automation::Object& outside);
    automation::Object to_outside(const automation::Object& of_the_add_in);

    /// Runs before each call that the add-in makes; told its name as "MailItem.Subject". What it throws is
    /// what the call fails with.
    std::function<void(const std::string& member)> before_call;

    /// The same for calls of objects' members, with what is asked.
    std::function<void(const std::string& member, const automation::Request& request)> before_request;

    /// A call of the add-in that is no automation passes here, too.
    void pass(const std::string& member);

    /// The add-in's calls since the start or the last `forget_calls`, in order.
    const std::vector<std::string>& calls() const { return calls_; }
    void forget_calls() { calls_.clear(); }

    /// How many of the desk's objects the add-in holds, by class.
    std::vector<desk::LiveCount> live() const;

  private:
    class Across;
    class Relay;
    enum class Side { add_in, outside };

    automation::Object across(const automation::Object& object, Side to);
    automation::Value across(const automation::Value& value, Side to);
    void across(automation::Request& request, Side to);

    std::map<std::pair<automation::Invocable*, Side>, std::weak_ptr<Across>> held_;
    std::vector<std::string> calls_;
};

}  // namespace native
