#include "desk/surface/listing.h"

#include "desk/base/desk.h"

namespace desk {

using automation::calls;
using automation::Failure;
using automation::Object;
using automation::Use;
using automation::Value;
namespace result = automation::result;

Object Listing::parent() const { return desk().surface; }

Value Listing::at(std::int32_t place) const {
    if (place < 1 || static_cast<std::size_t>(place) > count_()) {
        throw Failure(result::bad_index, u"Array index out of bounds.");
    }
    return element_(static_cast<std::size_t>(place - 1));
}

const automation::Members<Listing>& Listing::members() {
    static const automation::Members<Listing> table{
        {u"Count", automation::no_id, Use::get, calls<&Listing::count>},
        {u"Item", automation::no_id, Use::method, {u"Index"}, calls<&Listing::at>},
    };
    return table;
}

Object Entry::parent() const { return desk().surface; }

const automation::Members<Entry>& Entry::members() {
    static const automation::Members<Entry> none{};
    return none;
}

automation::MemberFacts Entry::facts_of(std::size_t place) const {
    constexpr std::int32_t first = 1;
    return {fields_[place].first, first + static_cast<std::int32_t>(place), Use::get, {}};
}

std::optional<automation::MemberFacts> Entry::other_facts(automation::TextView member) const {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        if (automation::same_ignoring_case(fields_[i].first, member)) return facts_of(i);
    }
    return std::nullopt;
}

Value Entry::other_member(automation::Request& request) {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const automation::MemberFacts facts = facts_of(i);
        const bool by_id = request.id == facts.id || (request.id == automation::default_member && i == 0);
        const bool by_name = automation::same_ignoring_case(facts.name, request.member);
        if (request.member.empty() ? !by_id : !by_name) continue;
        const std::vector<Value> rest = automation::arrange(facts, request);
        return rest.empty() ? fields_[i].second : automation::ask_default_member(fields_[i].second, rest);
    }
    automation::throw_no_member(request);
}

}  // namespace desk
