// What the outside holds and asks: live bridge objects by class, calls by member.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "automation/text.h"

namespace windows {

/// Counts for the owner of an apartment. Members are known by the names under which they were asked for; one
/// that was only ever used by its id counts as "#" and the id.
class BridgeCounter {
  public:
    struct Calls {
        std::size_t identified = 0;  ///< GetIDsOfNames
        std::size_t invoked = 0;     ///< Invoke
    };
    using LiveByClass = std::map<std::string, std::size_t>;
    using CallsByMember = std::map<automation::Text, Calls>;

    const LiveByClass& live() const { return live_; }  ///< classes without a live object are not in it
    std::size_t live_in_all() const;

    const CallsByMember& calls() const { return calls_; }
    Calls calls(automation::TextView member) const;  ///< of a member, in any case
    Calls calls_in_all() const;
    void reset_calls() { calls_.clear(); }

    void made(const std::string& class_name) { ++live_[class_name]; }
    void gone(const std::string& class_name);
    void identified(const std::string& class_name, automation::TextView member, std::int32_t id);
    void invoked(const std::string& class_name, std::int32_t id);

  private:
    LiveByClass live_;
    CallsByMember calls_;
    std::map<std::pair<std::string, std::int32_t>, automation::Text> names_;
};

}  // namespace windows
