// What was shown, asked for and started, for whoever watches the desk.
#include "desk/base/desk.h"
#include "desk/surface/listing.h"
#include "desk/surface/surface.h"

namespace desk {

using automation::Object;
using automation::Text;
using automation::Value;

namespace {

/// A list of what `all` answers, which it is asked for anew each time; `shown` makes a value of one of them.
template <class All, class Shown>
Object listed(Desk& desk, All all, Shown shown) {
    return std::make_shared<Listing>(
               desk, [all] { return all().size(); },
               [all, shown](std::size_t i) { return shown(all().at(i)); })
        ->self();
}

/// What a list shows of an element that has several values.
Value entry(Desk& desk, Entry::Fields fields) {
    return Value(std::make_shared<Entry>(desk, std::move(fields))->self());
}

/// What a list shows of an element that is a value.
constexpr auto as_it_is = [](const auto& element) { return Value(element); };

}  // namespace

Object Surface::messages() {
    Desk& all = desk();
    return listed(
        all, [&all]() -> const auto& { return all.messages; },
        [&all](const ShownMessage& message) {
            return entry(all, {{u"Text", message.text},
                               {u"Title", message.title},
                               {u"Style", static_cast<std::int32_t>(message.style)},
                               {u"Answer", std::int32_t{message.answer}}});
        });
}

Object Surface::programs() {
    Desk& all = desk();
    return listed(
        all, [&all] { return all.surroundings().programs(); },
        [&all](const StartedProgram& program) {
            return entry(all, {{u"CommandLine", program.command_line}, {u"Folder", program.folder}});
        });
}

Object Surface::calls() {
    const auto taken = std::make_shared<const std::vector<CallCount>>(desk().surroundings().calls());
    Desk& all = desk();
    return listed(
        all, [taken]() -> const auto& { return *taken; },
        [&all](const CallCount& call) {
            return entry(all, {{u"Member", automation::from_utf8(call.member)},
                               {u"Invocations", static_cast<std::int32_t>(call.invocations)},
                               {u"NameLookups", static_cast<std::int32_t>(call.name_lookups)}});
        });
}

Object Surface::statuses() {
    Desk& all = desk();
    return listed(
        all, [&all]() -> const auto& { return all.statuses; }, as_it_is);
}

Object Surface::filters() {
    Desk& all = desk();
    return listed(
        all, [&all]() -> const auto& { return all.filters; }, as_it_is);
}

Object Surface::displayed() {
    Desk& all = desk();
    return listed(
        all, [&all]() -> const auto& { return all.displayed; }, as_it_is);
}

Object Surface::opened() {
    Desk& all = desk();
    return listed(
        all, [&all] { return all.surroundings().opened(); }, as_it_is);
}

void Surface::forget() {
    desk().statuses.clear();
    desk().filters.clear();
    desk().displayed.clear();
}

Value Surface::live(const std::optional<Text>& kind) {
    const auto counts = std::make_shared<const std::vector<LiveCount>>(desk().surroundings().live());
    std::int32_t all = 0;
    for (const LiveCount& count : *counts) all += count.count;
    if (kind) {
        for (const LiveCount& count : *counts) {
            if (automation::same_ignoring_case(automation::from_utf8(count.kind), *kind)) return count.count;
        }
        return 0;
    }
    Desk& owner = desk();
    const Object kinds = listed(
        owner, [counts]() -> const auto& { return *counts; },
        [&owner](const LiveCount& count) {
            return entry(owner, {{u"Kind", automation::from_utf8(count.kind)}, {u"Count", count.count}});
        });
    return entry(owner, {{u"Total", all},
                         {u"Count", static_cast<std::int32_t>(counts->size())},
                         {u"Item", Value(kinds)},
                         {u"Kinds", Value(kinds)}});
}

}  // namespace desk
