// Every way into the add-in, with everything that can come while it gives way to the host.
#include <iostream>

#include "desk/outlook/application.h"
#include "tests/unit/support/trial.h"

namespace addin_tests {
namespace {

using host::outlook::Item;

constexpr std::int32_t user_closed = 1, host_shutdown = 0;  // ext_DisconnectMode

constexpr std::int32_t saving = 0;  // OlInspectorClose

/// What comes. Those without a deed are the entry itself again.
struct Coming {
    const char* name;
    void (*deed)(Scene& scene);
};
constexpr Coming coming[] = {
    {"the same again", nullptr},
    {"a selection", [](Scene& scene) { scene.select(scene.strange); }},
    {"a window", [](Scene& scene) { scene.show(scene.appointment); }},
    {"the close of the add-in's windows",
     [](Scene& scene) {
         const std::vector<native::MemoryWindow*> windows = scene.world.engine().windows();
         for (native::MemoryWindow* const window : windows) {
             const auto& there = scene.world.engine().windows();
             if (std::ranges::find(there, window) != there.end()) window->close();
         }
     }},
    {"the close of the host's windows",
     [](Scene& scene) {
         const host::outlook::Inspectors open = scene.world.application().Inspectors();
         while (open.Count() > 0) open.Item(1).Close(saving);
     }},
    {"somebody deletes the items",
     [](Scene& scene) {
         for (const Item* const item : {&scene.mail, &scene.strange, &scene.unlinked, &scene.contact,
                                        &scene.linked_appointment, &scene.linked_task}) {
             item->call(u"Delete");
         }
     }},
    {"somebody moves the mails",
     [](Scene& scene) {
         const host::outlook::Folder drafts =
             scene.world.name_space().GetDefaultFolder(host::outlook::default_folder::drafts);
         scene.mail.Move(drafts);
         scene.strange.Move(drafts);
     }},
    {"the folder of notes gets another name",
     [](Scene& scene) { scene.world.below(u"Email").put(u"Name", u"Post"); }},
    {"the add-in is disconnected", [](Scene& scene) { scene.world.unload_add_in(user_closed); }},
    {"the host ends",
     [](Scene& scene) {
         if (addin::Connect* const connect = scene.world.add_in())
             connect->IDTExtensibility2_OnBeginShutdown();
         scene.world.model().application()->raise(u"Quit");
         scene.world.unload_add_in(host_shutdown);
     }},
};

Outcome run_with(const Entry& entry, int yield, const Coming& what) {
    Trial trial;
    trial.yield = yield;
    trial.comes = [&](Scene& scene) {
        try {
            what.deed ? what.deed(scene) : entry.act(scene);
        } catch (const automation::Failure&) {
            // it can't be done any more
        }
    };
    return run_trial(entry, trial);
}

TEST(EveryYield, LetsNothingComeThatHurtsTheUser) {
    constexpr std::size_t most = 6;
    constexpr unsigned seed = 17;
    std::mt19937 random(seed);
    std::size_t all = 0, tried = 0;
    for (const Entry& entry : all_entries()) {
        struct Point {
            int yield;
            const Coming* what;
        };
        std::vector<Point> points;
        const int yields = run_trial(entry, {}).yields;
        for (int n = 1; n <= yields; ++n) {
            for (const Coming& what : coming) points.push_back({n, &what});
        }
        all += points.size();
        draw(points, most, random);
        tried += points.size();
        for (const Point& point : points) {
            const Outcome outcome = run_with(entry, point.yield, *point.what);
            EXPECT_TRUE(outcome.faults.empty()) << told(
                entry, std::string(point.what->name) + " at yield " + std::to_string(point.yield), outcome);
        }
    }
    EXPECT_GT(all, 500U);
    std::cout << tried << " points of " << all << "\n";
}

}  // namespace
}  // namespace addin_tests
