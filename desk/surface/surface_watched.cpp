// What was shown, asked for and started, for whoever watches the desk.
#include "desk/base/desk.h"
#include "desk/surface/listing.h"
#include "desk/surface/surface.h"

namespace desk {

using automation::Object;
using automation::Text;
using automation::Value;

Object Surface::messages() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.messages.size(); },
               [&all](std::size_t i) {
                   const ShownMessage& message = all.messages.at(i);
                   return Value(std::make_shared<Entry>(
                                    all, Entry::Fields{{u"Text", message.text},
                                                       {u"Title", message.title},
                                                       {u"Style", static_cast<std::int32_t>(message.style)},
                                                       {u"Answer", std::int32_t{message.answer}}})
                                    ->self());
               })
        ->self();
}

Object Surface::programs() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.surroundings().programs().size(); },
               [&all](std::size_t i) {
                   const StartedProgram program = all.surroundings().programs().at(i);
                   return Value(
                       std::make_shared<Entry>(all, Entry::Fields{{u"CommandLine", program.command_line},
                                                                  {u"Folder", program.folder}})
                           ->self());
               })
        ->self();
}

Object Surface::calls() {
    const auto taken = std::make_shared<const std::vector<CallCount>>(desk().surroundings().calls());
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [taken] { return taken->size(); },
               [&all, taken](std::size_t i) {
                   const CallCount& call = taken->at(i);
                   return Value(
                       std::make_shared<Entry>(
                           all, Entry::Fields{{u"Member", automation::from_utf8(call.member)},
                                              {u"Invocations", static_cast<std::int32_t>(call.invocations)},
                                              {u"NameLookups", static_cast<std::int32_t>(call.name_lookups)}})
                           ->self());
               })
        ->self();
}

Object Surface::statuses() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.statuses.size(); },
               [&all](std::size_t i) { return Value(all.statuses.at(i)); })
        ->self();
}

Object Surface::filters() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.filters.size(); },
               [&all](std::size_t i) { return Value(all.filters.at(i)); })
        ->self();
}

Object Surface::displayed() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.displayed.size(); },
               [&all](std::size_t i) { return Value(all.displayed.at(i)); })
        ->self();
}

Object Surface::opened() {
    Desk& all = desk();
    return std::make_shared<Listing>(
               all, [&all] { return all.surroundings().opened().size(); },
               [&all](std::size_t i) { return Value(all.surroundings().opened().at(i)); })
        ->self();
}

Value Surface::live(const Value& kind) {
    const auto counts = std::make_shared<const std::vector<LiveCount>>(desk().surroundings().live());
    std::int32_t all = 0;
    for (const LiveCount& count : *counts) all += count.count;
    if (!kind.is_missing()) {
        const Text wanted = kind.to_text();
        for (const LiveCount& count : *counts) {
            if (automation::same_ignoring_case(automation::from_utf8(count.kind), wanted)) return count.count;
        }
        return 0;
    }
    Desk& owner = desk();
    const Object kinds =
        std::make_shared<Listing>(
            owner, [counts] { return counts->size(); },
            [&owner, counts](std::size_t i) {
                const LiveCount& count = counts->at(i);
                return Value(
                    std::make_shared<Entry>(owner, Entry::Fields{{u"Kind", automation::from_utf8(count.kind)},
                                                                 {u"Count", count.count}})
                        ->self());
            })
            ->self();
    return Value(
        std::make_shared<Entry>(owner, Entry::Fields{{u"Total", all},
                                                     {u"Count", static_cast<std::int32_t>(counts->size())},
                                                     {u"Item", Value(kinds)},
                                                     {u"Kinds", Value(kinds)}})
            ->self());
}

}  // namespace desk
