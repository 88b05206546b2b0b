#include "tests/unit/support/trial.h"

#include <algorithm>

namespace addin_tests {

using acceptance::shown;

namespace {

/// What has become of the things that were there, beyond what the entry may change.
void compare(const Entry& entry, const Things& before, const Things& after,
             std::vector<std::string>& damages) {
    for (const auto& [id, was] : before) {
        const std::string& folder = was.at("its folder");
        const std::string what = folder + " " + (was.contains("Subject") ? was.at("Subject") : "?");
        const auto found = after.find(id);
        if (found == after.end()) {
            const bool may_go = std::ranges::any_of(
                entry.gone, [&](const std::string& name) { return folder.ends_with(name); });
            if (!may_go) damages.push_back(what + " is gone");
            continue;
        }
        for (const std::string& change : acceptance::changes(was, found->second)) {
            const bool allowed = std::ranges::any_of(
                entry.changes, [&](const std::string& field) { return change.starts_with(field + ":"); });
            if (!allowed) damages.push_back(what + ": " + change);
        }
    }
}

/// The things after something has come that changed some itself: without those that the entry has made until
/// then and still works on.
Things what_is_the_users(const Things& at_first, const Things& until_then, Things now) {
    std::erase_if(now, [&](const auto& one) {
        return until_then.contains(one.first) && !at_first.contains(one.first);
    });
    return now;
}

void look_at_windows(Scene& scene, std::vector<std::string>& faults) {
    if (scene.world.system().shown_pointer != forms::Pointer::standard)
        faults.emplace_back("the hourglass is left");
    for (const native::MemoryWindow* const window : scene.world.engine().windows()) {
        if (!window->visible()) continue;
        if (window->table().name == u"SearchForm") faults.emplace_back("the status window is left");
        if (window->pointer() != forms::Pointer::standard) {
            faults.push_back("the hourglass is left over " + shown(window->caption()));
        }
    }
}

}  // namespace

Outcome run_trial(const Entry& entry, const Trial& trial) {
    Outcome outcome;
    std::vector<std::string>& faults = outcome.faults;
    Scene scene;
    native::NativeWorld& world = scene.world;
    entry.prepare(scene);
    world.settle();
    Things before = things_of(world);
    const std::string synchronisation = scene.synchronisation();
    world.boundary().forget_calls();
    world.boundary().before_call = [&, number = 0](const std::string&) mutable { trial.at_call(++number); };
    const auto at_yield = [&](int number) {
        if (number != trial.yield) return;
        const Things now = things_of(world);
        compare(entry, before, now, faults);
        trial.comes(scene);
        before = what_is_the_users(before, now, things_of(world));
    };
    outcome.yields = world.follow_yields(at_yield, [&] {
        try {
            entry.act(scene);
            if (world.runs()) world.settle();
        } catch (const automation::Failure&) {
            // whoever has called an operation is told
        } catch (const std::exception& fault) {
            faults.push_back(std::string("thrown: ") + fault.what());
        }
    });
    world.boundary().before_call = nullptr;
    outcome.calls = world.boundary().calls();
    if (world.memory_registry().open_keys() != 0) faults.emplace_back("a key of the registry is open");
    if (!world.runs()) return outcome;

    look_at_windows(scene, faults);
    if (trial.restores && scene.synchronisation() != synchronisation) {
        faults.push_back("the synchronisation was " + synchronisation + " and is " + scene.synchronisation());
    }
    compare(entry, before, things_of(world), faults);
    if (const std::string lost = scene.lost_text(); !lost.empty() && !entry.drops_text)
        faults.push_back(lost);
    if (const std::string left = scene.leave(); !left.empty()) faults.push_back("left:" + left);
    return outcome;
}

std::string told(const Entry& entry, const std::string& trial, const Outcome& outcome) {
    std::string text = entry.name + (entry.variant.empty() ? "" : ", " + entry.variant) + ": " + trial;
    for (const std::string& fault : outcome.faults) text += "\n  " + fault;
    return text;
}

}  // namespace addin_tests
