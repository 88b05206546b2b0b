#include "automation/com/bridge_counter.h"

#include <algorithm>

namespace windows {

std::size_t BridgeCounter::live_in_all() const {
    std::size_t count = 0;
    for (const auto& [name, live] : live_) count += live;
    return count;
}

BridgeCounter::Calls BridgeCounter::calls(automation::TextView member) const {
    const auto found = std::ranges::find_if(
        calls_, [&](const auto& entry) { return automation::same_ignoring_case(entry.first, member); });
    return found == calls_.end() ? Calls{} : found->second;
}

BridgeCounter::Calls BridgeCounter::calls_in_all() const {
    Calls all;
    for (const auto& [name, calls] : calls_) {
        all.identified += calls.identified;
        all.invoked += calls.invoked;
    }
    return all;
}

void BridgeCounter::gone(const std::string& class_name) {
    const auto found = live_.find(class_name);
    if (found != live_.end() && --found->second == 0) live_.erase(found);
}

void BridgeCounter::identified(const std::string& class_name, automation::TextView member, std::int32_t id) {
    const automation::Text& name = names_.try_emplace({class_name, id}, member).first->second;
    ++calls_[name].identified;
}

void BridgeCounter::invoked(const std::string& class_name, std::int32_t id) {
    const auto known = names_.find({class_name, id});
    ++calls_[known == names_.end() ? u"#" + automation::to_text(id) : known->second].invoked;
}

}  // namespace windows
