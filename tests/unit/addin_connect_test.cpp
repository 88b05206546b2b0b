// The add-in object: what it publishes, what it holds after its start and after its end.
#include <gtest/gtest.h>

#include "desk/office/command_bars.h"
#include "desk/outlook/application.h"
#include "tests/native/native_world.h"
#include "tests/world/people.h"

namespace addin_tests {
namespace {

using acceptance::failure_of;
using addin::Connect;
using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Use;
using automation::Value;
using native::NativeWorld;
namespace result = automation::result;

// the published table

TEST(Connect, PublishesItsOperationsInTheirOrder) {
    struct Case {
        TextView name;
        Use use;
        std::vector<TextView> parameters;
    };
    const Case cases[] = {
        {u"AutomaticCreateNote", Use::method, {u"Item"}},
        {u"QueryValueEx", Use::method, {u"lhKey", u"szValueName", u"vValue"}},
        {u"GetKeyValueEx", Use::method, {u"lKey", u"sKeyName", u"sValueName"}},
        {u"PowerPanel", Use::method, {}},
        {u"AutomaticCreateNoteSend", Use::method, {u"Item"}},
        {u"ShowQuickView", Use::method, {u"Selection"}},
        {u"ShowTarnwell", Use::method, {u"Selection"}},
        {u"ShowMessage", Use::method, {u"MyText"}},
        {u"ShowImportMessage", Use::method, {u"MyText", u"SleepTime"}},
        {u"FileExists", Use::method, {u"Fname"}},
        {u"FindFolder", Use::method, {}},
        {u"FindNextFolder", Use::method, {u"ofolders"}},
        {u"SetValueEx", Use::method, {u"hKey", u"sValueName", u"lType", u"vValue"}},
        {u"SetKeyValue", Use::method, {u"lKey", u"sKeyName", u"sValueName", u"vValueSetting", u"lValueType"}},
        {u"ShowItemsMenu", Use::method, {u"Myitem"}},
        {u"ShowItemsMenu2", Use::method, {u"Myitem"}},
        {u"GlobalCalendar", Use::get_put, {}},
        {u"GlobalTask", Use::get_put, {}},
        {u"SetDatabase", Use::get_put, {}},
        {u"whoami", Use::get_put, {}},
        {u"bFinished", Use::get_put, {}},
    };
    const auto rows = Connect::members().rows();
    ASSERT_EQ(rows.size(), std::size(cases));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(automation::to_utf8(cases[i].name));
        EXPECT_EQ(rows[i].name, cases[i].name);
        EXPECT_EQ(rows[i].use, cases[i].use);
        std::vector<TextView> parameters;
        for (const automation::Parameter& parameter : rows[i].parameters)
            parameters.push_back(parameter.name);
        EXPECT_EQ(parameters, cases[i].parameters);
        if (i > 0) {
            EXPECT_EQ(rows[i].id, rows[i - 1].id + 1);
        }
    }
}

class ConnectTest : public ::testing::Test {
  protected:
    NativeWorld world{{}};
    Object published = world.connect();
};

TEST_F(ConnectTest, RefusesWrongNumbersOfArguments) {
    struct Case {
        TextView member;
        std::vector<Value> arguments;
    };
    const Case cases[] = {
        {u"AutomaticCreateNote", {}},
        {u"AutomaticCreateNote", {Value(Object()), 1}},
        {u"GetKeyValueEx", {1, u"key"}},
        {u"PowerPanel", {1}},
        {u"FindFolder", {u"x"}},
        {u"FindNextFolder", {}},
        {u"SetKeyValue", {1, u"key", u"name", u"value"}},
        {u"ShowImportMessage", {u"text"}},
        {u"FileExists", {}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(automation::to_utf8(one.member) + " with " + std::to_string(one.arguments.size()));
        automation::Request request{.member = one.member, .arguments = one.arguments};
        EXPECT_EQ(failure_of([&] { published.invoke(request); }), result::bad_count);
    }
}

TEST_F(ConnectTest, RefusesWrongTypesOfArguments) {
    struct Case {
        TextView member;
        std::vector<Value> arguments;
    };
    const Case cases[] = {
        {u"AutomaticCreateNote", {u"a mail"}},
        {u"GetKeyValueEx", {u"root", u"key", u"name"}},
        {u"FindNextFolder", {7}},
        {u"ShowImportMessage", {u"text", u"soon"}},
        {u"ShowItemsMenu", {u"item"}},
        {u"SetValueEx", {Value(Object()), u"name", 1, u"x"}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(automation::to_utf8(one.member));
        automation::Request request{.member = one.member, .arguments = one.arguments};
        EXPECT_EQ(failure_of([&] { published.invoke(request); }), result::type_mismatch);
    }
    EXPECT_EQ(failure_of([&] { published.call(u"NoSuchOperation"); }), result::unknown_name);
    EXPECT_EQ(failure_of([&] { published.put(u"PowerPanel", 1); }), result::member_not_found);
}

TEST_F(ConnectTest, KeepsItsPlainMembers) {
    for (const TextView flag : {u"GlobalCalendar", u"GlobalTask", u"SetDatabase", u"bFinished"}) {
        SCOPED_TRACE(automation::to_utf8(flag));
        EXPECT_EQ(published.get(flag), Value(false));
        published.put(flag, -1);
        EXPECT_EQ(published.get(flag), Value(true));
        published.put(flag, 0);
        EXPECT_EQ(published.get(flag), Value(false));
    }
    published.put(u"whoami", u"Mia Hart");
    EXPECT_EQ(published.get(u"whoami"), Value(u"Mia Hart"));
}

TEST_F(ConnectTest, TellsWhetherAFileExists) {
    const auto exists = [&](const Text& path) { return published.call(u"FileExists", {path}).to_boolean(); };
    const Text file = world.write_file("here.txt", "x");
    EXPECT_TRUE(exists(file));
    EXPECT_FALSE(exists(file + u".not"));
    EXPECT_FALSE(exists(world.add_in_folder())) << "a folder is no file";
    world.boundary().forget_calls();
    EXPECT_FALSE(exists(u""));
    EXPECT_FALSE(exists(world.add_in_folder() + u"\\"));
    EXPECT_TRUE(world.boundary().calls().empty()) << "nothing is looked for";
}

TEST_F(ConnectTest, ShowsItsMessagesForTheirTime) {
    published.call(u"ShowMessage", {u"Done"});
    EXPECT_EQ(world.system().slept, 1000U);
    published.call(u"ShowImportMessage", {u"Importing", 250});
    EXPECT_EQ(world.system().slept, 1250U);
    EXPECT_EQ(world.system().shown_pointer, forms::Pointer::hourglass);
    published.call(u"ShowImportMessage", {u"Importing", 0});
    EXPECT_EQ(world.system().slept, 1250U);
    published.call(u"ShowImportMessage", {u"", 0});
    EXPECT_EQ(world.system().shown_pointer, forms::Pointer::standard);
}

// start and end

/// The sinks by name.
std::vector<std::pair<std::string, automation::Sink*>> wired_sinks(Connect& connect) {
    return {{"goOutlook", &connect.goOutlook},
            {"goExplorers", &connect.goExplorers},
            {"goExplorer", &connect.goExplorer},
            {"goInspectors", &connect.goInspectors},
            {"goInbox", &connect.goInbox},
            {"goCalendar", &connect.goCalendar},
            {"goTask", &connect.goTask},
            {"goContacts", &connect.goContacts},
            {"ActiveExplorerCBars", &connect.ActiveExplorerCBars}};
}

TEST(Start, WiresEverySink) {
    NativeWorld world{{}};
    Connect& connect = *world.add_in();
    for (const auto& [name, sink] : wired_sinks(connect)) EXPECT_TRUE(sink->source()) << name;
    for (const automation::Sink* sink :
         {&connect.goInspector, &connect.goButton, &connect.OpenButton, &connect.ContextButton}) {
        EXPECT_FALSE(sink->source());
    }
    EXPECT_EQ(connect.goOutlook.source(), Object(connect.session().gOutlookApp));
    EXPECT_EQ(connect.session().gProgId, u"CreateNote.Connect");
    EXPECT_FALSE(connect.rooms().createnote.gNoteFromExplorer);
    EXPECT_FALSE(connect.goNameSpace);
}

TEST(Start, WithoutTheMainAddInLacksTheSharedContactsOnly) {
    NativeWorld world{{.without = {"Tarnwell.connect"}}};
    for (const auto& [name, sink] : wired_sinks(*world.add_in())) {
        EXPECT_EQ(static_cast<bool>(sink->source()), name != "goContacts") << name;
    }
}

TEST(Start, ReachesTheHostInAFixedOrder) {
    NativeWorld world{{.started = false}};
    world.boundary().forget_calls();
    world.start();
    std::vector<std::string> order;
    for (const std::string& member : world.boundary().calls()) {
        if (!member.starts_with("registry.")) order.push_back(member);
    }
    const std::vector<std::string> expected = {
        "COMAddIn.ProgId",
        "Application.COMAddIns",
        "COMAddIns.Item",
        "COMAddIn.Object",
        "application",
        "Application.ActiveExplorer",
        "Explorer.CommandBars",
        "CommandBars.advise",
        "Application.advise",
        "Application.Inspectors",
        "Inspectors.advise",
        "Application.Explorers",
        "Explorers.advise",
        "Application.ActiveExplorer",
        "Explorer.advise",
        "application",
        "Application.GetNamespace",
        "NameSpace.GetDefaultFolder",
        "MAPIFolder.Items",
        "Items.advise",
        "application",
        "Application.GetNamespace",
        "NameSpace.GetDefaultFolder",
        "MAPIFolder.Items",
        "Items.advise",
        "application",
        "Application.GetNamespace",
        "NameSpace.GetDefaultFolder",
        "MAPIFolder.Items",
        "Items.advise",
        "create Tarnwell.connect",
        "MainAddIn.GetFolderId",
        "MainAddIn.GetStoreId",
        "application",
        "Application.GetNamespace",
        "NameSpace.GetFolderFromID",
        "MainAddIn.getcurrentusername",
        "MAPIFolder.Folders",
        "Folders.Item",
        "MAPIFolder.Items",
        "Items.advise",
        "MainAddIn.GetStoreId",
    };
    EXPECT_EQ(order, expected);
}

TEST(Start, ResetsTheFlagsThatItOwns) {
    NativeWorld world{{}};
    Connect& connect = *world.add_in();
    connect.GlobalCalendar = true;
    connect.GlobalTask = true;
    connect.rooms().createnote.gNoteFromExplorer = true;
    connect.IDTExtensibility2_OnConnection(world.application_for_add_in(), 0, world.entry_for_add_in());
    EXPECT_FALSE(connect.GlobalCalendar);
    EXPECT_TRUE(connect.GlobalTask) << "the start does not clear the tasks' guard";
    EXPECT_FALSE(connect.rooms().createnote.gNoteFromExplorer);
}

TEST(Start, IsLeftSilentlyIfTheEntryCannotBeRead) {
    NativeWorld world{{}};
    world.unload_add_in(1);
    addin::Rooms rooms(world.desktop(), world.engine());
    const auto connect = std::make_shared<Connect>(rooms);
    world.boundary().forget_calls();
    EXPECT_NO_THROW(connect->IDTExtensibility2_OnConnection(world.application_for_add_in(), 1, Object()));
    EXPECT_FALSE(connect->goOutlook.source());
    EXPECT_TRUE(world.boundary().calls().empty());
}

/// A window that tells what was done to it.
class ToldWindow : public forms::Window {
  public:
    explicit ToldWindow(std::vector<std::string>& told) : told_(told) {}
    void show() override { told_.emplace_back("show"); }
    void hide() override { told_.emplace_back("hide"); }
    void unload() override { told_.emplace_back("unload"); }

  private:
    std::vector<std::string>& told_;
};

TEST(Start, ShowsTheSearchPanelIfTheOptionIsExactlyOne) {
    struct Case {
        TextView option;
        bool shown;
    };
    for (const auto& [option, shown] : {Case{u"", false}, Case{u"0", false}, Case{u" 1", false},
                                        Case{u"1 ", false}, Case{u"True", false}, Case{u"1", true}}) {
        SCOPED_TRACE(automation::to_utf8(option));
        std::vector<std::string> told;
        NativeWorld world{{}};
        world.unload_add_in(1);
        world.option(u"EnablePowerPanel", option);
        addin::Rooms rooms(world.desktop(), world.engine());
        rooms.searchpanel.search_panel.made_by([&] { return std::make_shared<ToldWindow>(told); });
        const auto connect = std::make_shared<Connect>(rooms);
        connect->IDTExtensibility2_OnConnection(world.application_for_add_in(), 1, world.entry_for_add_in());
        EXPECT_EQ(told, shown ? std::vector<std::string>{"show"} : std::vector<std::string>{});
        connect->StopAddIn();
        if (shown) {
            EXPECT_EQ(told, (std::vector<std::string>{"show", "hide", "unload"}));
        }
    }
    NativeWorld world{{}};
    world.option(u"EnablePowerPanel", 1);
    EXPECT_EQ(world.connect().call(u"PowerPanel"), Value());
}

TEST(Start, TakesAMarkerThatCannotBeLookedForAsThere) {
    NativeWorld world{{.started = false}};
    world.family(u"StoreID", u"-");
    world.boundary().before_call = [](const std::string& member) {
        if (member == "find_file") throw automation::Failure(result::fail);
    };
    world.start();
    world.boundary().before_call = nullptr;
    EXPECT_TRUE(world.model().surroundings().programs().empty()) << "a test that fails counts as passed";
}

TEST(SearchPanels, AreOpenedOnAnItemOrOnNone) {
    struct Case {
        TextView operation;
        std::vector<std::string> told_twice;
    };
    const Case cases[] = {
        {u"ShowItemsMenu", {"show", "unload", "show"}},  // always a new panel
        {u"ShowItemsMenu2", {"show", "show"}},           // its own comes up again
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(automation::to_utf8(one.operation));
        NativeWorld world{{}};
        addin::searchpanel::State& panels = world.add_in()->rooms().searchpanel;
        std::vector<std::string> told;
        const auto make = [&] { return std::make_shared<ToldWindow>(told); };
        (one.operation == TextView(u"ShowItemsMenu") ? panels.gPanelMenu : panels.gPanelMenu2).made_by(make);
        const host::outlook::Item contact = acceptance::add_contact(world);
        world.connect().call(one.operation, {Value(contact)});
        EXPECT_EQ(panels.gSelectedEntryID, contact.EntryID());
        EXPECT_EQ(panels.gSelectedStoreID, world.account_profiles().StoreID());
        EXPECT_EQ(panels.gSelectedClass, u"IPM.Contact.Account Contact");
        world.connect().call(one.operation, {Value(Object())});
        EXPECT_EQ(panels.gSelectedEntryID + panels.gSelectedStoreID + panels.gSelectedClass, u"");
        EXPECT_EQ(told, one.told_twice);
        world.add_in()->StopAddIn();
        EXPECT_EQ(told.back(), "unload");
    }
}

TEST(SearchPanels, KeepAnEarlierChoiceWhereTheItemRefusesItsOwn) {
    std::vector<std::string> told;  // by a panel that leaves the choice as it is, to its end
    NativeWorld world{{}};
    addin::searchpanel::State& panels = world.add_in()->rooms().searchpanel;
    panels.gPanelMenu2.made_by([&] { return std::make_shared<ToldWindow>(told); });
    const host::outlook::Item contact = acceptance::add_contact(world);
    world.connect().call(u"ShowItemsMenu2", {Value(contact)});
    world.fail(u"MailItem.EntryID");
    world.connect().call(u"ShowItemsMenu2", {Value(world.deliver(acceptance::message()))});
    EXPECT_EQ(panels.gSelectedEntryID, contact.EntryID());
    EXPECT_EQ(panels.gSelectedClass, u"IPM.Note");
}

TEST(Stop, ClearsEverySinkWhicheverWayItComes) {
    struct Case {
        const char* name;
        void (*stop)(NativeWorld&);
    };
    const Case cases[] = {
        {"shutdown begins", [](NativeWorld& w) { w.add_in()->IDTExtensibility2_OnBeginShutdown(); }},
        {"disconnected", [](NativeWorld& w) { w.add_in()->IDTExtensibility2_OnDisconnection(0); }},
        {"the host quits", [](NativeWorld& w) { w.model().application()->raise(u"Quit"); }},
        {"stopped twice",
         [](NativeWorld& w) {
             w.add_in()->StopAddIn();
             w.add_in()->StopAddIn();
         }},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        NativeWorld world{{}};
        one.stop(world);
        for (const auto& [name, sink] : wired_sinks(*world.add_in())) EXPECT_FALSE(sink->source()) << name;
        EXPECT_FALSE(world.add_in()->session().gOutlookApp);
        EXPECT_FALSE(world.add_in()->gExiting);
    }
}

TEST(Stop, LeavesTheHostsBar) {
    NativeWorld world{{}};
    world.add_in()->StopAddIn();
    const Object bars = world.application().ActiveExplorer().CommandBars();
    EXPECT_EQ(bars.get(u"Item", {u"Context Menu"}).to_object().get(u"Name").to_text(), u"Context Menu");
}

TEST(Stop, AgainDoesNothingToTheHost) {
    NativeWorld world{{}};
    world.add_in()->StopAddIn();
    world.boundary().forget_calls();
    world.add_in()->StopAddIn();
    world.add_in()->IDTExtensibility2_OnBeginShutdown();
    world.add_in()->IDTExtensibility2_OnDisconnection(0);
    EXPECT_TRUE(world.boundary().calls().empty());
}

TEST(Stop, ThroughTheLastWindowHappensOnce) {
    NativeWorld world{{.host_version = u"9.0.0.3821"}};
    Connect& connect = *world.add_in();
    constexpr std::int32_t drafts = 16;
    const Object first = world.application().ActiveExplorer();
    world.name_space().GetDefaultFolder(drafts).call(u"GetExplorer");
    first.call(u"Close");
    EXPECT_TRUE(connect.gExiting);
    EXPECT_FALSE(connect.goInbox.source());

    // whatever is wired later stays: the end has been
    connect.IDTExtensibility2_OnConnection(world.application_for_add_in(), 0, world.entry_for_add_in());
    connect.StopAddIn();
    EXPECT_TRUE(connect.goInbox.source());
}

/// A window that can't be hidden.
class StubbornWindow final : public ToldWindow {
  public:
    using ToldWindow::ToldWindow;
    void hide() override {
        ToldWindow::hide();
        throw automation::Failure(result::fail);
    }
};

TEST(Stop, AtTheHostsEndRunsEachOfItsSteps) {
    NativeWorld world{{}};
    world.unload_add_in(1);
    std::vector<std::string> told;
    addin::Rooms rooms(world.desktop(), world.engine());
    rooms.searchpanel.search_panel.made_by([&] { return std::make_shared<StubbornWindow>(told); });
    const auto connect = std::make_shared<Connect>(rooms);
    connect->IDTExtensibility2_OnConnection(world.application_for_add_in(), 1, world.entry_for_add_in());
    rooms.searchpanel.search_panel.show();
    world.model().application()->raise(u"Quit");
    EXPECT_EQ(told, (std::vector<std::string>{"show", "hide", "unload"}));
    EXPECT_FALSE(connect->goInbox.source());
    EXPECT_FALSE(connect->goOutlook.source());
}

TEST(Stop, OpensTheContextMenuForChangesWhenTheWindowCloses) {
    NativeWorld world{{}};
    constexpr std::int32_t drafts = 16, no_customize = 1, no_move = 4;
    const Object first = world.application().ActiveExplorer();
    const Object bar = first.get(u"CommandBars").to_object().get(u"Item", {u"Context Menu"}).to_object();
    bar.put(u"Protection", no_customize | no_move);
    world.name_space().GetDefaultFolder(drafts).call(u"GetExplorer");
    first.call(u"Close");
    // the bar has gone with its window; what was written to it shows inside of the desk
    const auto model = std::dynamic_pointer_cast<desk::CommandBar>(bar.target());
    EXPECT_EQ(model->protection, no_move);
    EXPECT_TRUE(world.add_in()->goInbox.source()) << "a later host goes on";
}

TEST(Discovery, FillsAnEmptyHolderOfTheApplication) {
    NativeWorld world{{}};
    world.unload_add_in(1);
    addin::Rooms rooms(world.desktop(), world.engine());
    const auto connect = std::make_shared<Connect>(rooms);  // never connected
    world.desk().call(u"Answer", {u"Choose Tarnwell Database", u"", host::box::answer_yes});
    connect->FindFolder();
    EXPECT_TRUE(connect->goOutlook.source());
    EXPECT_FALSE(connect->goInbox.source());
    world.model().application()->raise(u"Quit");
    EXPECT_FALSE(connect->goOutlook.source()) << "and listens to its end";
}

TEST(Discovery, LeavesTheHolderAloneUnlessYesIsAnswered) {
    for (const int answer : {host::box::answer_no, host::box::answer_cancel}) {
        NativeWorld world{{}};
        world.unload_add_in(1);
        addin::Rooms rooms(world.desktop(), world.engine());
        const auto connect = std::make_shared<Connect>(rooms);
        world.desk().call(u"Answer", {u"Choose Tarnwell Database", u"", answer});
        connect->FindFolder();
        EXPECT_FALSE(connect->goOutlook.source());
    }
}

}  // namespace
}  // namespace addin_tests
