// What only a look from inside shows of the replicas of appointments and tasks: the table, the order of the
// steps, what is remembered, calls that fail, and what comes in between.
#include <algorithm>
#include <set>
#include <utility>

#include "addin/connect/connect.h"
#include "addin/replicas/replicas.h"
#include "tests/native/native_world.h"
#include "tests/native/nth_call.h"
#include "tests/world/linked_items.h"

namespace addin_tests {
namespace {

using acceptance::LinkedKind;
using addin::Connect;
using addin::replicas::Ending;
using addin::replicas::ReplicaRow;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;
using host::outlook::Items;
using native::NativeWorld;
using native::NthCall;
using Texts = std::vector<std::string>;

/// More calls than any of the handlers makes.

constexpr TextView task_properties[] = {
    u"Account Manager",  u"Account Name", u"AccountID",    u"Alignment", u"Contact Name",
    u"ContactID",        u"Inquiry ID",   u"Inquiry Type", u"NoteID",    u"OppID",
    u"Opportunity Name", u"Team",         u"TaskID"};

TEST(ReplicaTable, SaysInWhatTheTwoKindsDiffer) {
    const ReplicaRow& calendar = addin::replicas::calendar;
    const ReplicaRow& tasks = addin::replicas::tasks;
    EXPECT_EQ(calendar.guard, &Connect::GlobalCalendar);
    EXPECT_EQ(tasks.guard, &Connect::GlobalTask);
    EXPECT_EQ(calendar.enabled, u"EnableGlobalCalendar");
    EXPECT_EQ(tasks.enabled, u"EnableGlobalTasks");
    EXPECT_EQ(calendar.folder_option, u"GlobalCalendar");
    EXPECT_EQ(tasks.folder_option, u"GlobalTasks");
    EXPECT_EQ(calendar.default_folder, u"Global Calendar");
    EXPECT_EQ(tasks.default_folder, u"Global Tasks");
    EXPECT_EQ(calendar.message_class, u"IPM.Appointment.TarnwellAppt");
    EXPECT_EQ(tasks.message_class, u"IPM.Task.TarnwellTask");
    EXPECT_EQ(calendar.key, u"ApptID");
    EXPECT_EQ(tasks.key, u"TaskID");
    EXPECT_EQ(calendar.status, u"Updating Global Calendar ");
    EXPECT_EQ(tasks.status, u"Updating Global Tasks ");
    EXPECT_TRUE(calendar.copied.empty());
    EXPECT_TRUE(std::ranges::equal(tasks.copied, task_properties));
    EXPECT_EQ(calendar.on_add, Ending::move);
    EXPECT_EQ(calendar.on_change, Ending::move);
    EXPECT_EQ(tasks.on_add, Ending::save_and_delete);
    EXPECT_EQ(tasks.on_change, Ending::yield_and_move);
}

Folder own(NativeWorld& world, const LinkedKind& kind) {
    return world.name_space().GetDefaultFolder(kind.own_folder);
}

Folder shared(NativeWorld& world, const LinkedKind& kind) {
    return Folder(world.account_profiles().Parent()).Folders().Item(kind.shared_folder);
}

Texts subjects(const Folder& folder) {
    const Items items = folder.Items();
    const std::int32_t count = items.Count();
    Texts all;
    for (std::int32_t i = 1; i <= count; ++i) all.push_back(automation::to_utf8(items.Item(i).Subject()));
    return all;
}

void empty(const Folder& folder) {
    const Items items = folder.Items();
    for (std::int32_t i = items.Count(); i >= 1; --i) items.Item(i).call(u"Delete");
}

/// An item that is about to be added, with its form open.
Item new_linked(NativeWorld& world, const LinkedKind& kind, TextView key = u"K-1") {
    const Item item = own(world, kind).Items().Add(kind.message_class);
    item.Subject(u"New");
    item.UserProperties().Item(kind.key).value(Value(key));
    item.UserProperties().Item(u"AccountID").value(Value(u"A-100"));
    item.Display();
    return item;
}

void close_window(const Item& item) {
    try {
        item.get(u"GetInspector").to_object().call(u"Close", {host::outlook::discard_changes});
    } catch (const automation::Failure&) {
        // the item has gone, and its window with it
    }
}

TEST(Replication, SetsTheThirteenPropertiesOfATaskInTheirOrder) {
    NativeWorld world({});
    const Item task = new_linked(world, acceptance::linked_tasks);
    task.Save();
    world.settle();
    for (const TextView name : task_properties) {
        task.UserProperties().Item(name).value(Value(u"the " + Text(name)));
    }
    const auto set = std::make_shared<Texts>();
    constexpr automation::Event item_events[] = {{u"CustomPropertyChange", 0xF008}};
    const automation::EventInterface item_interface{
        "ItemEvents", automation::guid("{0006303A-0000-0000-C000-000000000046}"), item_events};
    automation::Sink sink;
    bool copied = false;
    // a host whose copies lose what the form doesn't know is listened to from the copy on
    world.boundary().before_call = [&](const std::string& member) {
        if (member == "TaskItem.Copy") {
            copied = true;
        } else if (copied && !sink.source()) {
            const Items items = own(world, acceptance::linked_tasks).Items();
            const Item copy = items.Item(items.Count());
            for (const TextView name : task_properties) copy.UserProperties().Item(name).value(Value(u""));
            sink.connect(item_interface, copy, {{u"CustomPropertyChange", [set](auto a) {
                                                     set->push_back(automation::to_utf8(a[0].to_text()));
                                                 }}});
        }
    };
    task.Save();
    world.boundary().before_call = nullptr;
    Texts expected;
    for (const TextView name : task_properties) expected.push_back(automation::to_utf8(name));
    EXPECT_EQ(*set, expected);
    ASSERT_EQ(shared(world, acceptance::linked_tasks).Items().Count(), 1);
    const Item replica = shared(world, acceptance::linked_tasks).Items().Item(1);
    for (const TextView name : task_properties) {
        EXPECT_EQ(acceptance::World::property(replica, name), u"the " + Text(name));
    }
}

TEST(Replication, TakesTheCopyTheWayOfItsKindAndEvent) {
    struct Case {
        const LinkedKind* kind;
        bool is_add;
        Texts steps;
    };
    const Case cases[] = {
        {&acceptance::appointments, true, {"yield", "Copy", "Move", "yield"}},
        {&acceptance::appointments, false, {"yield", "Copy", "Move", "yield"}},
        {&acceptance::linked_tasks, true, {"yield", "Copy", "Save", "yield", "Delete"}},
        {&acceptance::linked_tasks, false, {"yield", "Copy", "yield", "Move", "yield"}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.kind->name) + (one.is_add ? ", add" : ", change"));
        NativeWorld world({});
        const Item item = new_linked(world, *one.kind);
        if (one.is_add) {
            world.add_in()->GlobalCalendar = world.add_in()->GlobalTask = true;
        } else {
            world.add_in()->GlobalCalendar = world.add_in()->GlobalTask = false;
            item.Save();
            world.settle();
            item.Subject(u"Changed");
        }
        Texts steps;
        world.boundary().before_call = [&](const std::string& member) {
            for (const char* const step : {"Copy", "Save", "Move", "Delete"}) {
                if (member.ends_with("Item." + std::string(step))) steps.emplace_back(step);
            }
        };
        world.follow_yields([&](int) { steps.emplace_back("yield"); },
                            [&] {
                                item.Save();
                                world.settle();
                            });
        world.boundary().before_call = nullptr;
        EXPECT_EQ(steps, one.steps);
        close_window(item);
    }
}

TEST(Replication, LetsAnotherItemsReplicaPassAtEachOfItsYields) {
    for (const LinkedKind* const kind : acceptance::linked_kinds) {
        bool more = true;
        for (int n = 1; more; ++n) {
            SCOPED_TRACE(std::string(kind->name) + ", yield " + std::to_string(n));
            NativeWorld world({});
            world.add_in()->GlobalCalendar = world.add_in()->GlobalTask = false;
            const Item other = new_linked(world, *kind, u"K-2"), item = new_linked(world, *kind);
            other.Save();
            item.Save();
            world.settle();
            empty(shared(world, *kind));
            more = n <= world.at_yield(
                            n,
                            [&] {
                                other.Subject(u"Other, changed");
                                other.Save();
                            },
                            [&] {
                                item.Subject(u"Changed");
                                item.Save();
                                world.settle();
                            });
            world.settle();
            Texts replicas = subjects(shared(world, *kind));
            std::ranges::sort(replicas);
            EXPECT_EQ(replicas, (more ? Texts{"Changed", "Other, changed"} : Texts{"Changed"}));
            close_window(item);
            close_window(other);
            ASSERT_LT(n, 30);
        }
    }
}

/// What comes while the copy is being made and isn't of the copy.
TEST(Replication, LetsAnotherItemsReplicaPassWhileItsCopyIsMade) {
    struct Case {
        const char* name;
        TextView key, account;
    };
    const Case cases[] = {{"of another key", u"K-2", u"A-100"},
                          {"without a key, of another account", u"", u"A-300"},
                          {"without a key, of another subject", u"", u"A-100"}};
    for (const LinkedKind* const kind : acceptance::linked_kinds) {
        for (const Case& one : cases) {
            SCOPED_TRACE(std::string(kind->name) + ", " + one.name);
            NativeWorld world({});
            world.add_in()->GlobalCalendar = world.add_in()->GlobalTask = false;
            const Item other = new_linked(world, *kind, one.key),
                       item = new_linked(world, *kind, one.key.empty() ? u"" : u"K-1");
            other.UserProperties().Item(u"AccountID").value(Value(one.account));
            other.Save();
            item.Save();
            world.settle();
            empty(shared(world, *kind));
            bool first = true;
            world.boundary().before_call = [&](const std::string& member) {
                if (!member.ends_with("Item.Copy") || !std::exchange(first, false)) return;
                other.Subject(u"Other, changed");
                other.Save();
            };
            item.Subject(u"Changed");
            item.Save();
            world.settle();
            world.boundary().before_call = nullptr;
            Texts replicas = subjects(shared(world, *kind));
            std::ranges::sort(replicas);
            EXPECT_EQ(replicas, (Texts{"Changed", "Other, changed"}));
            close_window(item);
            close_window(other);
        }
    }
}

/// A fresh copy's id comes with its saving, or can't be read at all.
TEST(Replication, KnowsItsCopyWithoutAnId) {
    for (const LinkedKind* const kind : acceptance::linked_kinds) {
        for (const auto& [order_name, order] : desk::event_orders) {
            for (const bool until_saved : {true, false}) {
                for (const TextView key : {u"K-1", u""}) {
                    SCOPED_TRACE(std::string(kind->name) + ", " + order_name + ", key " +
                                 automation::to_utf8(key) + (until_saved ? ", until it is saved" : ""));
                    NativeWorld world({.event_order = order});
                    world.add_in()->GlobalCalendar = world.add_in()->GlobalTask = true;
                    const Item item = new_linked(world, *kind, key);
                    int copies = 0;
                    bool saved = false;
                    world.boundary().before_call = [&](const std::string& member) {
                        constexpr int enough = 4;  // a copy of each copy would go on without end
                        if (member.ends_with("Item.Copy")) ++copies;
                        if (member.ends_with("Item.Save")) saved = true;
                        const bool has_id = copies > enough || (until_saved && saved);
                        if (copies > 0 && !has_id && member.ends_with("Item.EntryID")) {
                            throw automation::Failure(automation::result::fail, u"no id yet");
                        }
                    };
                    item.Save();
                    world.settle();
                    EXPECT_EQ(copies, 1) << "of the new item";
                    copies = 0;
                    saved = false;
                    item.Subject(u"Changed");
                    item.Save();
                    world.settle();
                    EXPECT_EQ(copies, 1) << "of the changed one";
                    world.boundary().before_call = nullptr;
                    EXPECT_EQ(subjects(own(world, *kind)), Texts{"Changed"});
                    EXPECT_TRUE(world.add_in()->rooms().replicas.copies_under_way.empty());
                    close_window(item);
                }
            }
        }
    }
}

/// A key that can't be read makes no filter. A host may take an empty one for "everything".
TEST(Replication, LooksForNothingWithoutAKeyToLookFor) {
    for (const LinkedKind* const kind : acceptance::linked_kinds) {
        SCOPED_TRACE(kind->name);
        NativeWorld world({});
        const Item item = new_linked(world, *kind);
        item.UserProperties().Item(kind->key).call(u"Delete");
        item.Save();
        world.settle();
        empty(shared(world, *kind));
        world.boundary().forget_calls();
        item.Subject(u"Changed");
        item.Save();
        world.settle();
        EXPECT_EQ(std::ranges::count(world.boundary().calls(), "Items.Restrict"), 0);
        EXPECT_EQ(subjects(shared(world, *kind)), Texts{"Changed"});
        close_window(item);
    }
}

TEST(Replication, DeletesNothingWhoseKeyCannotBeRead) {
    for (const LinkedKind* const kind : acceptance::linked_kinds) {
        SCOPED_TRACE(kind->name);
        NativeWorld world({});
        const Item item = new_linked(world, *kind);
        item.Save();
        world.settle();
        empty(shared(world, *kind));
        const Item older = shared(world, *kind).Items().Add(kind->message_class);
        older.Subject(u"Older");
        older.UserProperties().Item(kind->key).value(Value(u"K-1"));
        older.Save();
        bool searched = false;
        world.boundary().before_call = [&](const std::string& member) {
            if (member == "Items.Restrict") searched = true;
            if (searched && member == "UserProperties.Find")
                throw automation::Failure(automation::result::fail, u"");
        };
        item.Subject(u"Changed");
        item.Save();
        world.settle();
        world.boundary().before_call = nullptr;
        EXPECT_TRUE(searched);
        EXPECT_EQ(subjects(shared(world, *kind)), (Texts{"Older", "Changed"}));
        EXPECT_EQ(subjects(own(world, *kind)), Texts{"Changed"});
        close_window(item);
    }
}

TEST(Replication, LeavesTheLastInspectorAsItWas) {
    NativeWorld world({});
    for (const LinkedKind* kind : acceptance::linked_kinds) {
        const Item item = new_linked(world, *kind);
        item.Save();
        world.settle();
        const Item last(world.application().call(u"CreateItem", {0}).to_object());
        last.Display();
        const automation::Object held = world.add_in()->goInspector.source();
        ASSERT_TRUE(held);
        item.Subject(u"Changed");
        item.Save();
        EXPECT_EQ(subjects(shared(world, *kind)), Texts{"Changed"});
        EXPECT_EQ(world.add_in()->goInspector.source(), held) << "an item is no inspector";
        close_window(last);
        EXPECT_FALSE(world.add_in()->goInspector.source()) << "and its events still come";
        close_window(item);
    }
}

/// Where a handler runs, and what stands in the shared folder if nothing fails.
struct Handled {
    const LinkedKind* kind;
    bool is_add;
    int least_calls;
    Texts shared;
};
const std::vector<Handled>& handled() {
    static const std::vector<Handled> all = {{&acceptance::appointments, true, 40, {"New"}},
                                             {&acceptance::appointments, false, 50, {"Changed"}},
                                             {&acceptance::linked_tasks, true, 100, {}},
                                             {&acceptance::linked_tasks, false, 100, {"Changed"}}};
    return all;
}

TEST(Replication, EndsWhateverFails) {
    NativeWorld world({});
    for (const Handled& run : handled()) {
        SCOPED_TRACE(run.kind->name);
        const int calls = native::for_each_call([&](NthCall& call) {
            const Item item = new_linked(world, *run.kind);
            if (!run.is_add) {
                world.add_in()->GlobalCalendar = world.add_in()->GlobalTask = false;
                item.Save();
                world.settle();
                item.Subject(u"Changed");
            }
            call.failing(world, [&] {
                item.Save();
                world.settle();
            });
            EXPECT_EQ(subjects(own(world, *run.kind)), Texts{run.is_add ? "New" : "Changed"})
                << "the user's item is there once";
            EXPECT_LE(shared(world, *run.kind).Items().Count(), 1);
            if (!call.came()) {
                EXPECT_EQ(subjects(shared(world, *run.kind)), run.shared);
            }
            EXPECT_TRUE(world.add_in()->rooms().replicas.copies_under_way.empty());
            close_window(item);
            empty(own(world, *run.kind));
            empty(shared(world, *run.kind));
            world.settle();
        });
        EXPECT_GT(calls, run.least_calls);
    }
}

/// What comes before the n-th call of a handler, so that it runs at the next yield. Between two yields there
/// are more calls than are left out.
constexpr int step = 4;
struct Between {
    const char* name;
    void (*act)(NativeWorld&, const LinkedKind&, const Item& item);
    bool item_stays;
};
constexpr Between betweens[] = {
    {"the same item changes",
     [](NativeWorld&, const LinkedKind&, const Item& item) {
         item.put(u"Categories", u"Blue");
         item.Save();
     },
     true},
    {"another is added",
     [](NativeWorld& world, const LinkedKind& kind, const Item&) {
         const Item other = own(world, kind).Items().Add(kind.message_class);
         other.Subject(u"Another");
         other.UserProperties().Item(kind.key).value(Value(u"K-2"));
         other.UserProperties().Item(u"ContactID").value(Value(u"C-200"));
         other.Save();
     },
     true},
    {"the item goes", [](NativeWorld&, const LinkedKind&, const Item& item) { item.call(u"Delete"); }, false},
    {"the add-in stops",
     [](NativeWorld& world, const LinkedKind&, const Item&) { world.add_in()->StopAddIn(); }, true},
    {"the guard falls",
     [](NativeWorld& world, const LinkedKind&, const Item&) {
         world.add_in()->GlobalCalendar = world.add_in()->GlobalTask = false;
     },
     true},
};

TEST(Replication, HandlesWhatComesAtAnyOfItsYields) {
    for (const Handled& run : handled()) {
        for (const Between& between : betweens) {
            std::set<std::size_t> yields;
            std::unique_ptr<NativeWorld> world;
            SCOPED_TRACE(std::string(run.kind->name) + ", " + between.name);
            const auto round = [&](NthCall& call) {
                // an add-in that has stopped has to be loaded anew
                if (!world || !world->add_in()->goCalendar.source()) {
                    world = std::make_unique<NativeWorld>(acceptance::WorldSetup{});
                }
                const Item item = new_linked(*world, *run.kind);
                if (!run.is_add) {
                    world->add_in()->GlobalCalendar = world->add_in()->GlobalTask = false;
                    item.Save();
                    world->settle();
                    item.Subject(u"Changed");
                }
                bool running = true;
                const auto post = [&] {
                    world->model().surroundings().post([&] {
                        if (running) yields.insert(world->boundary().calls().size());
                        between.act(*world, *run.kind, item);
                    });
                };
                world->boundary().forget_calls();
                call.with(*world, post, [&] {
                    item.Save();
                    world->settle();
                    running = false;
                    world->settle();
                });
                const Texts left = subjects(own(*world, *run.kind));
                EXPECT_EQ(std::ranges::count(left, run.is_add ? "New" : "Changed"),
                          between.item_stays || !call.came() ? 1 : 0);
                const Texts replicas = subjects(shared(*world, *run.kind));
                const std::set<std::string> different(replicas.begin(), replicas.end());
                EXPECT_EQ(different.size(), replicas.size()) << "never two of one";
                EXPECT_TRUE(world->add_in()->rooms().replicas.copies_under_way.empty());
                close_window(item);
                empty(own(*world, *run.kind));
                empty(shared(*world, *run.kind));
                world->settle();
            };
            native::for_each_call(round, step);
            EXPECT_GE(yields.size(), run.kind == &acceptance::linked_tasks && !run.is_add ? 3U : 2U);
        }
    }
}

}  // namespace
}  // namespace addin_tests
