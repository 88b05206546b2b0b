// The add-in comes and goes with the host; on a first run it starts the family's programs.
#include <filesystem>
#include <fstream>

#include "tests/world/host_numbers.h"
#include "tests/world/outgoing.h"
#include "tests/world/search_panel.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

class Lifecycle : public Filing {
  protected:
    struct Program {
        Text command_line, folder;
        friend bool operator==(const Program&, const Program&) = default;
    };

    /// The programs that were started, once there are so many: each notes its start itself.
    static std::vector<Program> programs(World& world, std::int32_t at_least = 0) {
        const Object started = world.desk().get(u"Programs").to_object();
        world.wait_until([&] { return started.get(u"Count").to_integer() >= at_least; });
        const std::int32_t count = started.get(u"Count").to_integer();
        std::vector<Program> all;
        for (std::int32_t i = 1; i <= count; ++i) {
            const Object program = started.call(u"Item", {i}).to_object();
            all.push_back({program.get(u"CommandLine").to_text(), program.get(u"Folder").to_text()});
        }
        return all;
    }

    static void expect_started(World& world, const std::vector<TextView>& expected) {
        std::vector<Text> lines;
        for (const Program& program : programs(world, static_cast<std::int32_t>(expected.size())))
            lines.push_back(program.command_line);
        EXPECT_EQ(lines, std::vector<Text>(expected.begin(), expected.end()));
    }

    /// A world in which the add-in meets no database at its start.
    World& first_run(const std::vector<std::string>& without = {}) {
        World& world = with({.without = without, .started = false});
        world.family(u"StoreID", u"-");
        return world;
    }

    static Text marker(World& world) {
        const Text path = world.add_in_folder() + u"/initial.txt";
        std::ofstream file{std::filesystem::path(path)};
        file << "first run";
        return path;
    }

    static bool is_filing(World& world) {
        const std::int32_t before = count_in(world, u"Email");
        read_mail(world);
        return count_in(world, u"Email") == before + 1;
    }

    static bool fits_windows_with_buttons(World& world) {
        OpenedItem window(new_mail(world));
        window.show();
        return static_cast<bool>(find_control(window.window, u"TarnwellCreateNote", u"CreateNoteButton"));
    }

    static Object new_explorer(World& world) {
        const Object explorer = world.name_space().GetDefaultFolder(drafts).call(u"GetExplorer").to_object();
        explorer.call(u"Display");
        return explorer;
    }
};

constexpr TextView store_line = u"TWstore.exe /s", utility_line = u"TarnwellUtility.exe Help",
                   update_line = u"TarnwellUpdate.exe Help";

TEST_F(Lifecycle, IsPublishedToTheFamily) {
    World& world = with({});
    const Object connect = world.connect();
    ASSERT_TRUE(connect);
    EXPECT_FALSE(connect.get(u"GlobalCalendar").to_boolean());
    EXPECT_FALSE(connect.get(u"GlobalTask").to_boolean());
    EXPECT_FALSE(connect.get(u"SetDatabase").to_boolean());
    EXPECT_EQ(connect.get(u"whoami").to_text(), u"");
    EXPECT_TRUE(programs(world).empty()) << "there is a database";
}

TEST_F(Lifecycle, IsNotThereUnlessItIsRegistered) {
    World& world = filing({.add_in = false});
    add_contact(world);
    const Item mail = read_mail(world);
    expect_left_alone(world, mail);
    EXPECT_NE(failure_of([&] { world.connect(); }), 0);
}

TEST_F(Lifecycle, EndsWithTheHostAndBeginsAnew) {
    World& world = filing();
    add_contact(world);
    EXPECT_TRUE(is_filing(world));
    world.quit();
    world.start();
    EXPECT_TRUE(is_filing(world));
    world.quit();
    world.start();
    EXPECT_TRUE(is_filing(world));
}

TEST_F(Lifecycle, OnAFirstRunStartsTheProgramsInTheirFolders) {
    World& world = first_run();
    world.start();
    EXPECT_EQ(programs(world, 2),
              (std::vector<Program>{{Text(store_line), world.family(u"SpecialFolder")},
                                    {Text(utility_line), world.family(u"ProgramFolder")}}));
}

TEST_F(Lifecycle, TakesAMissingDatabaseAsAFirstRun) {
    World& world = with({.started = false});
    world.start();
    ASSERT_TRUE(programs(world).empty());
    world.account_profiles().put(u"Name", u"Profiles");
    world.quit();
    world.start();
    expect_started(world, {store_line, utility_line});
}

TEST_F(Lifecycle, StartsTheUpdateProgramIfAnythingFailed) {
    struct Case {
        const char* name;
        std::vector<std::string> without;
        TextView failing;
        std::vector<TextView> started;
    };
    const Case cases[] = {
        {"the utility is missing", {"TarnwellUtility.exe"}, u"", {store_line, update_line}},
        {"the store program is missing", {"TWstore.exe"}, u"", {utility_line, update_line}},
        {"both are missing", {"TWstore.exe", "TarnwellUtility.exe"}, u"", {update_line}},
        {"all are missing", {"TWstore.exe", "TarnwellUtility.exe", "TarnwellUpdate.exe"}, u"", {}},
        {"the data folder can't be told",
         {},
         u"getspecialfolderlocation",
         {store_line, utility_line, update_line}},
        {"the program folder can't be told", {}, u"GetDLLPath", {store_line, utility_line, update_line}},
        {"the user's name can't be told", {}, u"getcurrentusername", {store_line, utility_line}},
        {"the folder's id can't be told", {}, u"GetFolderId", {store_line, utility_line}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = first_run(one.without);
        world.family(u"Fail", one.failing);
        world.start();
        expect_started(world, one.started);
    }
}

TEST_F(Lifecycle, TakesAStoreThatCannotBeToldAsNone) {
    World& world = with({.started = false});
    world.family(u"Fail", u"GetStoreId");
    world.start();
    expect_started(world, {store_line, utility_line});
}

TEST_F(Lifecycle, WithoutTheMainAddInStartsTheProgramsWhereTheShellStands) {
    World& world = with({.without = {"Tarnwell.connect"}});
    expect_started(world, {store_line, utility_line, update_line});
    const std::vector<Program> started = programs(world);
    ASSERT_EQ(started.size(), 3U);
    for (const Program& program : started) {
        EXPECT_NE(program.folder, world.family(u"SpecialFolder"));
        EXPECT_NE(program.folder, world.family(u"ProgramFolder"));
        EXPECT_EQ(program.folder, started[0].folder);
    }
    ASSERT_TRUE(world.connect()) << "the add-in is loaded with what it could reach";
    EXPECT_TRUE(fits_windows_with_buttons(world));
    world.option(u"AutoFileSentEmails", u"1");
    send(world, new_mail(world));
    EXPECT_EQ(statuses(world).back(), "Searching for Ann Lee - NOT FOUND") << "but nobody is to be found";
    EXPECT_EQ(world.desk().get(u"Messages").to_object().get(u"Count").to_integer(), 0);
    world.quit();
}

/// The folder is missing while the add-in starts, and is there again when the events come.
TEST_F(Lifecycle, WithoutTheContactsFolderReceivesAllOtherEvents) {
    World& world = filing();
    world.option(u"AutoFileSentEmails", u"1");
    world.option(u"EnableQuickView", u"1");
    world.option(u"PDAContactSync", u"1");
    const auto rename = [&](TextView name, TextView to) { world.below(name).put(u"Name", Value(to)); };
    const auto arrives = [&] {  // a contact that comes through synchronisation
        const Item contact = world.below(u"Account Contacts").Items().Add(u"IPM.Contact");
        contact.FullName(u"Bob Ray");
        contact.Save();
        EXPECT_TRUE(world.wait_for_handlers());
        return contact.MessageClass();
    };
    for (const bool missing : {true, false}) {
        SCOPED_TRACE(missing);
        if (missing) rename(u"Account Contacts", u"Former Contacts");
        world.quit();
        world.start();
        if (missing) {
            rename(u"Former Contacts", u"Account Contacts");
            add_contact(world);
        }
        EXPECT_TRUE(is_filing(world));
        const std::int32_t notes = count_in(world, u"Email");
        send(world, new_mail(world));
        EXPECT_EQ(count_in(world, u"Email"), notes + 1);
        EXPECT_TRUE(fits_windows_with_buttons(world));
        world.desk().get(u"ContextMenu");
        EXPECT_TRUE(
            find_control(world.application().ActiveExplorer(), u"Context Menu", u"Tarnwell Quick View"));
        for (const auto& [folder, message_class, shared, key] :
             {std::tuple(host::outlook::default_folder::calendar, u"IPM.Appointment.TarnwellAppt",
                         u"Global Calendar", u"ApptID"),
              std::tuple(host::outlook::default_folder::tasks, u"IPM.Task.TarnwellTask", u"Global Tasks",
                         u"TaskID")}) {
            const Item plan = new_item(world, folder, message_class);
            plan.UserProperties().Item(key).value(missing ? u"K-1" : u"K-2");
            plan.UserProperties().Item(u"AccountID").value(u"A-1");
            plan.Save();
            OpenedItem form(plan);
            form.show();
            plan.Subject(u"A plan");
            plan.Save();
            EXPECT_TRUE(world.wait_for_handlers());
            const host::outlook::Folder beside(
                host::outlook::Folder(world.account_profiles().Parent()).Folders().Item(shared));
            EXPECT_EQ(beside.Items().Count(), missing ? 1 : 2) << shown(shared);
        }
        show_folder(world, world.inbox());
        world.desk().call(u"Select", {Value(world.deliver(message()))});
        EXPECT_TRUE(world.wait_for_handlers());
        EXPECT_TRUE(is_shown(window_of(world, u"TW Quick View")));
        EXPECT_EQ(arrives() == u"IPM.Contact.Account Contact", !missing);
    }
}

TEST_F(Lifecycle, LeavesTheProgramsOutOnceIfTheMarkerIsThere) {
    World& world = first_run();
    const Text path = marker(world);
    world.start();
    EXPECT_FALSE(world.file_exists(path)) << "the marker is consumed";
    EXPECT_TRUE(programs(world).empty());

    world.quit();
    world.start();
    expect_started(world, {store_line, utility_line});
}

TEST_F(Lifecycle, LeavesTheMarkerAloneIfThereIsADatabase) {
    World& world = with({.started = false});
    const Text path = marker(world);
    world.start();
    EXPECT_TRUE(world.file_exists(path));
    EXPECT_TRUE(programs(world).empty());
    world.remove_file(path);
}

TEST_F(Lifecycle, OutlivesTheFirstExplorerOnALaterHost) {
    for (const TextView version : {u"10.0.0.2627", u"16.0.0.0", u"19.0.0.0"}) {
        SCOPED_TRACE(shown(version));
        World& world = filing({.host_version = Text(version)});
        add_contact(world);
        const Object first = world.application().ActiveExplorer();
        new_explorer(world);
        first.call(u"Close");
        EXPECT_TRUE(is_filing(world));
    }
}

TEST_F(Lifecycle, EndsWithTheFirstExplorerOnTheFirstHost) {
    World& world = filing({.host_version = u"9.0.0.3821"});
    add_contact(world);
    const Object first = world.application().ActiveExplorer();
    const Object second = new_explorer(world);
    EXPECT_TRUE(is_filing(world));
    first.call(u"Close");
    EXPECT_FALSE(is_filing(world));

    world.quit();
    world.start();
    EXPECT_TRUE(is_filing(world)) << "until the host is started again";
}

TEST_F(Lifecycle, OnTheFirstHostOutlivesTheFirstExplorerWhileItemsAreOpen) {
    struct Case {
        int open_items;
        bool goes_on;
    };
    for (const auto& [open_items, goes_on] : {Case{1, false}, Case{2, true}, Case{3, true}}) {
        SCOPED_TRACE(open_items);
        World& world = filing({.host_version = u"9.0.0.3821"});
        add_contact(world);
        const Object first = world.application().ActiveExplorer();
        new_explorer(world);
        for (int i = 0; i < open_items; ++i) {
            constexpr std::int32_t mail_item = 0;
            world.application().call(u"CreateItem", {mail_item}).to_object().call(u"Display");
        }
        first.call(u"Close");
        EXPECT_EQ(is_filing(world), goes_on) << "the open items are counted, not the explorers";
    }
}

TEST_F(Lifecycle, OfAnotherExplorerIsNotTouched) {
    World& world = filing({.host_version = u"9.0.0.3821"});
    add_contact(world);
    new_explorer(world).call(u"Close");
    EXPECT_TRUE(is_filing(world));
}

TEST_F(Lifecycle, EndsIfTheHostsVersionCannotBeTold) {
    World& world = filing();
    add_contact(world);
    const Object first = world.application().ActiveExplorer();
    new_explorer(world);
    world.fail(u"Application.Version");
    first.call(u"Close");
    EXPECT_FALSE(is_filing(world)) << "a test that fails counts as passed";
}

TEST_F(Lifecycle, EndsWhenTheUserDisconnectsItAndComesBack) {
    World& world = filing();
    add_contact(world);
    const Object entry = world.application().COMAddIns().Item(u"CreateNote.Connect");
    EXPECT_TRUE(entry.get(u"Connect").to_boolean());
    entry.put(u"Connect", false);
    EXPECT_FALSE(entry.get(u"Connect").to_boolean());
    EXPECT_FALSE(is_filing(world));
    entry.put(u"Connect", true);
    EXPECT_TRUE(is_filing(world));
}

TEST_F(Lifecycle, EndsWithTheHostsQuitAloneAndOnlyOnce) {
    World& world = filing();
    add_contact(world);
    const Object explorer = world.application().ActiveExplorer();
    const auto entry = [&] { return find_control(explorer, u"Context Menu", u"Tarnwell Quick View"); };
    world.desk().get(u"ContextMenu");
    ASSERT_TRUE(entry());
    const SearchPanel panel(world);
    panel.open();
    ASSERT_TRUE(panel.is_open());
    ASSERT_TRUE(is_filing(world));
    world.desk().call(u"Raise", {u"Quit"});
    EXPECT_FALSE(is_filing(world));
    EXPECT_FALSE(panel.is_open());
    EXPECT_FALSE(entry());
    EXPECT_TRUE(find_bar(explorer, u"Context Menu")) << "the host's own bar stays";

    // the stop that follows finds nothing left to let go of
    const Object add_in = world.application().COMAddIns().Item(u"CreateNote.Connect");
    world.desk().call(u"ResetCalls");
    add_in.put(u"Connect", false);
    for (const TextView member : {u"Delete", u"Reset", u"Priority", u"FindControl"})
        EXPECT_EQ(calls_of(world, member), 0) << shown(member);
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(Lifecycle, HoldsNothingOfTheHostOnceItIsDisconnected) {
    World& world = filing();
    add_contact(world);
    read_mail(world);
    const auto held = [&](TextView kind) { return world.desk().get(u"Live", {Value(kind)}).to_integer(); };
    EXPECT_GT(held(u"Items"), 0);
    world.application().COMAddIns().Item(u"CreateNote.Connect").put(u"Connect", false);
    world.settle();
    for (const TextView kind : {u"Items", u"Explorers", u"Inspectors", u"CommandBars", u"MailItem"}) {
        EXPECT_EQ(held(kind), 0) << shown(kind);
    }
}

}  // namespace
}  // namespace acceptance
