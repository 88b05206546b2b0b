// Replication while events come in any order, in between its steps, and with steps that fail.
#include "tests/world/linked_items.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;
using Texts = std::vector<std::string>;

class ReplicaEvents : public Replicas {
  protected:
    /// What stands in the folders after a new item and two changes of it, by then.
    struct Seen {
        Texts after_add, after_change, after_second, own;
        friend bool operator==(const Seen&, const Seen&) = default;
    };
    Seen add_and_change(World& world, const LinkedKind& kind, TextView key);

    static Item new_linked(World& world, const LinkedKind& kind, TextView key) {
        const Item item = new_item(world, kind.own_folder, kind.message_class);
        item.Subject(u"New");
        item.UserProperties().Item(kind.key).value(Value(key));
        item.UserProperties().Item(u"AccountID").value(Value(u"A-100"));
        return item;
    }
};

ReplicaEvents::Seen ReplicaEvents::add_and_change(World& world, const LinkedKind& kind, TextView key) {
    Seen seen;
    const Folder shared_folder = shared(world, kind);
    const Item item = new_linked(world, kind, key);
    open(item);
    item.Save();
    world.wait_for_handlers();
    seen.after_add = subjects(shared_folder);
    change(world, item, u"One");
    seen.after_change = subjects(shared_folder);
    if (!key.empty()) expect_one_replica(world, kind, item);
    change(world, item, u"Two");
    seen.after_second = subjects(shared_folder);
    if (!key.empty()) expect_one_replica(world, kind, item);
    seen.own = subjects(own(world, kind));
    return seen;
}

/// Has each kind of event come at once or at the next yield, by the bits of a number.
constexpr TextView event_options[] = {u"AddsAtOnce", u"ChangesAtOnce", u"RemovalsAtOnce"};
constexpr unsigned event_orders = 1U << std::size(event_options);
constexpr unsigned usual_order = 2;  // changes at once, the others later

std::string order_events(World& world, unsigned order) {
    std::string told;
    for (std::size_t i = 0; i < std::size(event_options); ++i) {
        const bool at_once = (order >> i & 1U) != 0;
        desk_option(world, event_options[i], at_once);
        if (at_once) told += " " + shown(event_options[i]);
    }
    return told;
}

/// The orders in which the host may tell of what a replication does with its copy.
TEST_F(ReplicaEvents, ComeInAnyOrder) {
    World& world = with({});
    for (const LinkedKind* kind : linked_kinds) {
        const bool is_task = kind == &linked_tasks;
        const Seen expected{is_task ? Texts{} : Texts{"New"}, {"One"}, {"Two"}, {"Two"}};
        for (unsigned order = 0; order < event_orders; ++order) {
            World& same = emptied(*kind);
            SCOPED_TRACE(kind->name + order_events(same, order));
            EXPECT_EQ(add_and_change(same, *kind, u"K-1"), expected);
            close_forms();
            order_events(same, usual_order);
        }
    }
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(ReplicaEvents, OfACopyWithoutAKeyStartNoOther) {
    for (const LinkedKind* kind : linked_kinds) {
        const bool is_task = kind == &linked_tasks;
        const Texts after_add = is_task ? Texts{} : Texts{"New"};
        Texts after_change = after_add;
        after_change.emplace_back("One");
        Texts after_second = after_change;
        after_second.emplace_back("Two");
        const Seen expected{after_add, after_change, after_second, {"Two"}};
        for (unsigned order = 0; order < event_orders; ++order) {
            World& world = emptied(*kind);
            SCOPED_TRACE(kind->name + order_events(world, order));
            EXPECT_EQ(add_and_change(world, *kind, u""), expected);
            close_forms();
            order_events(world, usual_order);
        }
    }
}

TEST_F(ReplicaEvents, InAnyOrderCleanBothFoldersAndLeaveTheReplicaOfADeletedItem) {
    for (const LinkedKind* kind : linked_kinds) {
        for (unsigned order = 0; order < event_orders; ++order) {
            World& world = emptied(*kind);
            SCOPED_TRACE(kind->name + order_events(world, order));
            const Item item = add(world, *kind, {.opened = false});
            add_twin(*kind, own(world, *kind), u"Second");
            add_twin(*kind, shared(world, *kind), u"Old");
            add_twin(*kind, shared(world, *kind), u"Older");
            world.wait_for_handlers();
            open(item);
            change(world, item, u"New");
            expect_one_replica(world, *kind, item);

            const std::string replica = described(world, item);
            close_forms();
            item.call(u"Delete");
            world.wait_for_handlers();
            EXPECT_EQ(subjects(own(world, *kind)), Texts{});
            EXPECT_EQ(described(world, shared(world, *kind)), Texts{replica});
            order_events(world, usual_order);
        }
    }
}

/// What the user or the host may do while a replication gives way.
struct Meanwhile {
    const char* name;
    void (*plan)(World&, const LinkedKind&, const Item& item, const Item& other,
                 const std::function<void(const Object&, TextView, const Value&)>& call);
    Texts shared, own;
};

TEST_F(ReplicaEvents, ThatComeWhileAReplicationGivesWayAreHandledInBetween) {
    const Meanwhile cases[] = {
        {"another item is changed",
         [](World&, const LinkedKind&, const Item&, const Item& other, const auto& call) {
             other.Subject(u"Other, changed");
             call(other, u"Save", automation::Missing{});
         },
         {"Other, changed", "Changed"},
         {"Other, changed", "Changed"}},
        {"the same item is changed again",
         [](World&, const LinkedKind&, const Item& item, const Item&, const auto& call) {
             call(item, u"Subject", u"Changed twice");
             call(item, u"Save", automation::Missing{});
         },
         {"Changed twice"},
         {"Other", "Changed twice"}},
        {"the item is deleted",
         [](World&, const LinkedKind&, const Item& item, const Item&, const auto& call) {
             call(item, u"Delete", automation::Missing{});
         },
         {},
         {"Other"}},
        {"the replication is turned off by its guard",
         [](World& w, const LinkedKind& k, const Item&, const Item&, const auto& call) {
             call(w.connect(), k.guard, false);
         },
         {"Changed"},
         {"Other", "Changed"}},
    };
    for (const LinkedKind* kind : linked_kinds) {
        for (const Meanwhile& one : cases) {
            SCOPED_TRACE(std::string(kind->name) + ", " + one.name);
            World& world = emptied(*kind);
            const Item other = add(world, *kind, {.subject = u"Other", .key = u"K-2", .opened = false});
            const Item item = add(world, *kind);
            const Text moment = automation::from_utf8(kind->status);
            one.plan(world, *kind, item, other,
                     [&](const Object& object, TextView member, const Value& value) {
                         meanwhile(world, moment, object, member, value);
                     });
            change(world, item, u"Changed");
            EXPECT_EQ(subjects(shared(world, *kind)), one.shared);
            EXPECT_EQ(subjects(own(world, *kind)), one.own);
            EXPECT_FALSE(window_of(world, u"Tarnwell").get(u"Visible").to_boolean());
        }
    }
}

TEST_F(ReplicaEvents, EndWithTheAddIn) {
    for (const LinkedKind* kind : linked_kinds) {
        SCOPED_TRACE(kind->name);
        World& world = with({});
        const Item item = add(world, *kind);
        const Object entry = world.application().COMAddIns().Item(u"CreateNote.Connect");
        entry.put(u"Connect", false);
        change(world, item, u"Changed");
        EXPECT_EQ(subjects(shared(world, *kind)), Texts{});
        EXPECT_EQ(subjects(own(world, *kind)), Texts{"Changed"});
        close_forms();  // before their world ends
    }
}

/// A step that fails is left out, and the others follow.
struct FailingCall {
    const char* name;
    const char* calendar_member;  ///< that fails
    const char* task_member;
    std::int32_t after;
    Texts shared, own;
};

TEST_F(ReplicaEvents, FindStepsThatFailLeftOut) {
    const FailingCall cases[] = {
        {"nothing fails", "", "", 0, {"Changed"}, {"Changed"}},
        {"the copy can't be made", "AppointmentItem.Copy", "TaskItem.Copy", 0, {}, {"Changed"}},
        {"the copy can't be moved: it is a second item, and goes",
         "AppointmentItem.Move",
         "TaskItem.Move",
         0,
         {},
         {"Changed"}},
        {"the first look for second items fails",
         "Items.Restrict",
         "Items.Restrict",
         0,
         {"Changed"},
         {"Changed"}},
        {"the search for old replicas fails; the last one takes the new one away",
         "Items.Restrict",
         "Items.Restrict",
         1,
         {"Old"},
         {"Changed"}},
        {"the last look for second items fails",
         "Items.Restrict",
         "Items.Restrict",
         3,
         {"Changed"},
         {"Changed"}},
        {"the item's class can't be read",
         "AppointmentItem.MessageClass",
         "TaskItem.MessageClass",
         1,
         {"Changed"},
         {"Changed"}},
    };
    for (const LinkedKind* kind : linked_kinds) {
        for (const FailingCall& one : cases) {
            SCOPED_TRACE(std::string(kind->name) + ", " + one.name);
            World& world = emptied(*kind);
            const Item item = add(world, *kind);
            add_twin(*kind, shared(world, *kind), u"Old");
            const Folder own_folder = own(world, *kind), shared_folder = shared(world, *kind);
            const char* const member = kind == &linked_tasks ? one.task_member : one.calendar_member;
            if (*member != 0) world.fail(automation::from_utf8(member), one.after);
            change(world, item, u"Changed");
            EXPECT_EQ(subjects(shared_folder), one.shared);
            EXPECT_EQ(subjects(own_folder), one.own);
            EXPECT_TRUE(guard(world, *kind));
        }
    }
}

TEST_F(ReplicaEvents, OfAThousandChangesLeaveOneReplicaAndNothingElse) {
    constexpr int changes = 1000, warm_up = 5;
    World& world = with({});
    const Item item = add(world, appointments);
    std::int32_t held_then = 0;
    for (int i = 1; i <= changes; ++i) {
        item.Subject(u"Plan " + automation::to_text(static_cast<long long>(i)));
        item.Save();
        if (i == warm_up) {
            world.settle();
            held_then = held(world);
        }
    }
    world.wait_for_handlers();
    EXPECT_EQ(held(world), held_then);
    EXPECT_EQ(subjects(own(world, appointments)), Texts{"Plan 1000"});
    expect_one_replica(world, appointments, item);
}

}  // namespace
}  // namespace acceptance
