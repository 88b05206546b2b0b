// Linked appointments and tasks are kept as copies in shared folders: what is replicated, when, and what else
// stands in the folders afterwards.
#include "tests/world/linked_items.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;
using host::outlook::Item;
using Texts = std::vector<std::string>;

/// The folder beside "Account Profiles" that the option names in some cases; made on first use.
constexpr TextView other_folder = u"The Team's";

std::int32_t count(const Folder& folder) { return folder.Items().Count(); }

TEST_F(Replicas, OfAnItemThatIsChangedThroughItsFormAreEqualToIt) {
    World& world = with({});
    for (const LinkedKind* kind : linked_kinds) {
        SCOPED_TRACE(kind->name);
        const Item item = add(world, *kind);
        item.Attachments().Add(new_item(world, item_type::post), 1);
        const std::size_t shown_before = statuses(world).size();
        EXPECT_TRUE(guard(world, *kind)) << "its form is open";
        EXPECT_EQ(count(shared(world, *kind)), 0);
        item.Subject(u"Plan of the new line, 2");
        const std::string edited = described(world, item);
        item.Save();
        world.wait_for_handlers();
        EXPECT_EQ(described(world, item), edited) << "the user's own item is as it was saved";
        EXPECT_TRUE(item.Saved());
        EXPECT_NE(edited.find("Subject: Plan of the new line, 2\n"), std::string::npos) << edited;
        expect_one_replica(world, *kind, item);
        EXPECT_EQ(statuses(world, shown_before), Texts{kind->status});
        EXPECT_FALSE(window_of(world, u"Tarnwell").get(u"Visible").to_boolean());

        // the form stays open, and the next change replaces the replica
        const Text id = shared(world, *kind).Items().Item(1).EntryID();
        EXPECT_TRUE(guard(world, *kind));
        change(world, item, u"Plan of the new line, 3");
        expect_one_replica(world, *kind, item);
        EXPECT_NE(shared(world, *kind).Items().Item(1).EntryID(), id);
    }
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(Replicas, AreMadeUnlessTheOptionSaysZero) {
    struct Case {
        const char* name;
        void (*set)(World&, const LinkedKind&);
        bool replicated;
    };
    const Case cases[] = {
        {"not there", [](World&, const LinkedKind&) {}, true},
        {"empty", [](World& w, const LinkedKind& k) { w.option(k.enabled, u""); }, true},
        {"on", [](World& w, const LinkedKind& k) { w.option(k.enabled, u"1"); }, true},
        {"another text", [](World& w, const LinkedKind& k) { w.option(k.enabled, u" 0"); }, true},
        {"off", [](World& w, const LinkedKind& k) { w.option(k.enabled, u"0"); }, false},
        {"off, as a number", [](World& w, const LinkedKind& k) { w.option(k.enabled, 0); }, false},
    };
    for (const LinkedKind* kind : linked_kinds) {
        for (const Case& one : cases) {
            SCOPED_TRACE(std::string(kind->name) + ", " + one.name);
            World& world = emptied(*kind);
            const Item item = add(world, *kind);
            one.set(world, *kind);
            change(world, item, u"Changed");
            EXPECT_EQ(count(shared(world, *kind)), one.replicated ? 1 : 0);
            EXPECT_EQ(count(own(world, *kind)), 1);
            EXPECT_TRUE(guard(world, *kind)) << "the form is open";
        }

        // nor is anything done about a new item, whose coming would clean the shared folder
        World& world = emptied(*kind);
        world.option(kind->enabled, u"0");
        add_twin(*kind, shared(world, *kind), u"Older");
        const std::size_t shown_before = statuses(world).size();
        const Item item = new_item(world, kind->own_folder, kind->message_class);
        open(item);
        item.UserProperties().Item(kind->key).value(u"K-1");
        item.UserProperties().Item(u"AccountID").value(u"A-100");
        item.Save();
        world.wait_for_handlers();
        EXPECT_EQ(subjects(shared(world, *kind)), Texts{"Older"});
        EXPECT_EQ(statuses(world, shown_before), Texts{});
    }
}

TEST_F(Replicas, LieInTheFolderThatTheOptionNames) {
    World& world = with({});
    const auto beside = Folder(world.account_profiles().Parent()).Folders();
    for (const LinkedKind* kind : linked_kinds) {
        SCOPED_TRACE(kind->name);
        World& same = emptied(*kind);
        const Text name = Text(other_folder) + u" " + Text(kind->shared_folder);
        beside.call(u"Add", {Value(name), kind->own_folder});
        const Item item = add(same, *kind);
        same.option(kind->folder_option, name);
        change(same, item, u"One");
        EXPECT_EQ(subjects(shared(same, name)), Texts{"One"});
        EXPECT_EQ(count(shared(same, *kind)), 0);

        // a folder that isn't there
        const std::size_t shown_before = statuses(same).size();
        same.option(kind->folder_option, u"Nowhere");
        change(same, item, u"Two");
        EXPECT_EQ(subjects(shared(same, name)), Texts{"One"});
        EXPECT_EQ(count(shared(same, *kind)), 0);
        EXPECT_EQ(statuses(same, shown_before), Texts{});

        // an item that lies in a folder of that name is taken for a replica
        const Text own_name = own(same, *kind).Name();
        beside.call(u"Add", {Value(own_name), kind->own_folder});
        same.option(kind->folder_option, own_name);
        change(same, item, u"Three");
        EXPECT_EQ(count(shared(same, own_name)), 0);
        same.option(kind->folder_option, u"");
        change(same, item, u"Four");
        expect_one_replica(same, *kind, item);
    }
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(Replicas, AreMadeOfLinkedItemsOnly) {
    struct Case {
        const char* name;
        LinkedPlan plan;
        bool without_property, replicated;
    };
    const Case cases[] = {
        {"of an account and a contact", {}, false, true},
        {"of an account", {.contact_id = u""}, false, true},
        {"of a contact", {.account_id = u""}, false, true},
        {"of neither", {.account_id = u"", .contact_id = u""}, false, false},
        {"of blanks", {.account_id = u"  ", .contact_id = u" "}, false, false},
        {"without the property, so that it can't be told", {.contact_id = u""}, true, true},
    };
    for (const LinkedKind* kind : linked_kinds) {
        for (const Case& one : cases) {
            SCOPED_TRACE(std::string(kind->name) + ", " + one.name);
            World& world = emptied(*kind);
            const Item item = add(world, *kind, one.plan);
            if (one.without_property) item.UserProperties().Item(u"ContactID").call(u"Delete");
            change(world, item, u"Changed");
            EXPECT_EQ(subjects(shared(world, *kind)), one.replicated ? Texts{"Changed"} : Texts{});
            EXPECT_EQ(count(own(world, *kind)), 1);
        }
        // one of the host's own class stays the user's alone, also while a linked one is open
        World& world = emptied(*kind);
        add(world, *kind, {.subject = u"Linked"});
        const Item plain = add(world, *kind, {.message_class = kind->plain_class});
        change(world, plain, u"Dentist");
        EXPECT_EQ(count(shared(world, *kind)), 0);
        EXPECT_TRUE(guard(world, *kind));
    }
}

TEST_F(Replicas, AreReplacedWhereverTheSameKeyStands) {
    for (const LinkedKind* kind : linked_kinds) {
        SCOPED_TRACE(kind->name);
        World& world = emptied(*kind);
        const Item item = add(world, *kind);
        for (const TextView subject : {u"Old", u"Older", u"Oldest"}) {
            add_twin(*kind, shared(world, *kind), subject);
        }
        add_twin(*kind, shared(world, *kind), u"Another's", u"K-2");
        close_forms();
        guard(world, *kind, false);
        add_twin(*kind, own(world, *kind), u"Second");
        add_twin(*kind, own(world, *kind), u"Third");
        add_twin(*kind, own(world, *kind), u"Another", u"K-2");
        world.wait_for_handlers();
        const std::string another = described(world, own(world, *kind)).back();
        open(item);
        change(world, item, u"New");
        EXPECT_EQ(subjects(shared(world, *kind)), (Texts{"Another's", "New"}));
        EXPECT_EQ(described(world, own(world, *kind)), (Texts{described(world, item), another}))
            << "the first stays, and another's";
    }
}

/// A key is foreign text. As a part of the filter it may find what doesn't bear it, which stays.
TEST_F(Replicas, OfAForeignKeyTakeNothingElseAway) {
    struct Case {
        const char* name;
        Text (*key)(const LinkedKind&);
        bool replaced;  ///< the filter finds the older replica
    };
    const Case cases[] = {
        {"a filter that finds everything",
         [](const LinkedKind& k) { return u"x' Or [" + Text(k.key) + u"] <> 'x"; }, true},
        {"one that finds the others only",
         [](const LinkedKind& k) { return u"K-2' Or [" + Text(k.key) + u"] = 'K-1"; }, false},
        {"doubled quotes, which stand for one", [](const LinkedKind&) { return Text(u"O''Malley"); }, false},
    };
    for (const LinkedKind* kind : linked_kinds) {
        for (const Case& one : cases) {
            SCOPED_TRACE(std::string(kind->name) + ", " + one.name);
            World& world = emptied(*kind);
            const Folder own_folder = own(world, *kind), shared_folder = shared(world, *kind);
            for (const TextView key : {u"K-1", u"K-2", u"O'Malley"}) {
                add_twin(*kind, own_folder, u"Own " + Text(key), key);
                add_twin(*kind, shared_folder, u"Shared " + Text(key), key);
            }
            const Text key = one.key(*kind);
            add_twin(*kind, shared_folder, u"Older", key);
            const Item item = add(world, *kind, {.key = key});
            change(world, item, u"New");
            EXPECT_EQ(subjects(own_folder), (Texts{"Own K-1", "Own K-2", "Own O'Malley", "New"}));
            Texts expected{"Shared K-1", "Shared K-2", "Shared O'Malley"};
            if (!one.replaced) expected.emplace_back("Older");
            expected.emplace_back("New");
            EXPECT_EQ(subjects(shared_folder), expected);
        }
    }
}

TEST_F(Replicas, WithoutAKeyAddUp) {
    struct Case {
        const char* name;
        Text key;
        bool without_property;
    };
    const Case cases[] = {
        {"an empty key", u"", false},
        {"a key that breaks the filter", u"O'Malley's", false},
        {"no such property", u"K-1", true},
    };
    for (const LinkedKind* kind : linked_kinds) {
        for (const Case& one : cases) {
            SCOPED_TRACE(std::string(kind->name) + ", " + one.name);
            World& world = emptied(*kind);
            const Item item = add(world, *kind, {.key = one.key});
            if (one.without_property) item.UserProperties().Item(kind->key).call(u"Delete");
            add_twin(*kind, shared(world, *kind), u"Another's", u"");
            change(world, item, u"One");
            change(world, item, u"Two");
            EXPECT_EQ(subjects(shared(world, *kind)), (Texts{"Another's", "One", "Two"}));
            EXPECT_EQ(subjects(own(world, *kind)), Texts{"Two"});
        }
    }
}

TEST_F(Replicas, StayWhenTheUserDeletesTheItem) {
    for (const LinkedKind* kind : linked_kinds) {
        SCOPED_TRACE(kind->name);
        World& world = emptied(*kind);
        const Item item = add(world, *kind);
        change(world, item, u"Over");
        const Texts before = described(world, shared(world, *kind));
        item.call(u"Delete");
        world.wait_for_handlers();
        EXPECT_EQ(count(own(world, *kind)), 0);
        EXPECT_EQ(described(world, shared(world, *kind)), before);
        EXPECT_EQ(before.size(), 1U);
    }
}

TEST_F(Replicas, AreNotMadeOfWhatASynchronisationChanges) {
    for (const LinkedKind* kind : linked_kinds) {
        SCOPED_TRACE(kind->name);
        World& world = emptied(*kind);
        const Item item = add(world, *kind, {.opened = false});
        EXPECT_EQ(count(shared(world, *kind)), 0) << "nor of what it adds";
        change(world, item, u"One");
        EXPECT_EQ(count(shared(world, *kind)), 0);

        // a form that has been closed lets one more change through
        open(item);
        close_forms();
        EXPECT_TRUE(guard(world, *kind));
        change(world, item, u"Two");
        EXPECT_EQ(subjects(shared(world, *kind)), Texts{"Two"});
        EXPECT_FALSE(guard(world, *kind));
        change(world, item, u"Three");
        EXPECT_EQ(subjects(shared(world, *kind)), Texts{"Two"});

        // any open form of the class is enough
        add(world, *kind, {.subject = u"Another", .key = u"K-2"});
        change(world, item, u"Four");
        EXPECT_EQ(subjects(shared(world, *kind)), Texts{"Four"});
        EXPECT_TRUE(guard(world, *kind));
        guard(world, *kind, false);
        change(world, item, u"Five");
        EXPECT_EQ(subjects(shared(world, *kind)), Texts{"Five"}) << "it is looked for at each change";

        // what ends before the item is looked at lets the guard fall, too
        close_forms();
        const Item unlinked = add(world, *kind, {.key = u"K-3", .account_id = u"", .contact_id = u""});
        close_forms();
        change(world, unlinked, u"Six");
        EXPECT_EQ(subjects(shared(world, *kind)), Texts{"Five"});
        EXPECT_FALSE(guard(world, *kind));
    }
}

/// A new item that is made in its own form, saved as its last step, and what the shared folder holds then.
TEST_F(Replicas, OfANewItemAreMadeAtOnceOrWithItsFirstChange) {
    for (const LinkedKind* kind : linked_kinds) {
        for (const bool keyed : {true, false}) {
            SCOPED_TRACE(std::string(kind->name) + (keyed ? "" : ", without a key"));
            World& world = emptied(*kind);
            const Folder bin = world.name_space().GetDefaultFolder(3);
            empty_folder(bin);
            const bool is_task = kind == &linked_tasks;
            const Text key = keyed ? u"K-1" : u"";
            add_twin(*kind, shared(world, *kind), u"Older", key);
            const Item item = new_item(world, kind->own_folder, kind->message_class);
            open(item);
            EXPECT_TRUE(guard(world, *kind));
            item.Subject(u"New");
            item.UserProperties().Item(kind->key).value(Value(key));
            item.UserProperties().Item(u"AccountID").value(Value(u"A-100"));
            const std::size_t shown_before = statuses(world).size();
            item.Save();
            const std::string saved = described(world, item);
            ASSERT_TRUE(world.wait_until([&] { return statuses(world).size() > shown_before; }));
            world.wait_for_handlers();
            EXPECT_EQ(statuses(world, shown_before), Texts{kind->status});
            EXPECT_EQ(described(world, own(world, *kind)), Texts{saved});
            Texts expected = keyed ? Texts{} : Texts{"Older"};
            if (!is_task) expected.emplace_back("New");
            EXPECT_EQ(subjects(shared(world, *kind)), expected);
            EXPECT_EQ(subjects(bin), is_task ? Texts{"New"} : Texts{}) << "a task's copy is deleted";
            EXPECT_TRUE(guard(world, *kind));

            change(world, item, u"Changed");
            if (keyed) expected.clear();
            expected.emplace_back("Changed");
            EXPECT_EQ(subjects(shared(world, *kind)), expected);
            EXPECT_EQ(subjects(own(world, *kind)), Texts{"Changed"});
        }
    }
}

TEST_F(Replicas, OfATaskBearWhatItsFormDoesNotKnow) {
    World& world = with({});
    const Item task = add(world, linked_tasks);
    task.UserProperties().Add(u"Own", 1, false).value(Value(u"the user's own"));
    change(world, task, u"Changed");
    expect_one_replica(world, linked_tasks, task);
    const Item replica = shared(world, linked_tasks).Items().Item(1);
    EXPECT_EQ(World::property(replica, u"Own"), u"the user's own");

    // a property that the task lacks is passed over; the form gives the copy an empty one
    task.UserProperties().Item(u"NoteID").call(u"Delete");
    change(world, task, u"Changed again");
    ASSERT_EQ(subjects(shared(world, linked_tasks)), Texts{"Changed again"});
    EXPECT_EQ(World::property(shared(world, linked_tasks).Items().Item(1), u"NoteID"), u"");
    EXPECT_FALSE(task.UserProperties().Find(u"NoteID"));
}

}  // namespace
}  // namespace acceptance
