// Finding a database in the profile's stores, and what the user's answer does.
#include "addin/ground/settings.h"
#include "tests/world/host_numbers.h"
#include "tests/world/search_panel.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Folder;

constexpr TextView title = u"Choose Tarnwell Database";
constexpr TextView sample_path = u"\\Public Folders\\All Public Folders\\Tarnwell\\Account Profiles\\";
constexpr TextView mailbox_path = u"\\Mailbox - Tarnwell\\Account Profiles\\";

class Discovery : public Acceptance {
  protected:
    struct Box {
        Text title, text;
        std::int32_t style = 0, answer = 0;
    };

    static std::vector<Box> boxes(World& world) {
        const Object messages = world.desk().get(u"Messages").to_object();
        const std::int32_t count = messages.get(u"Count").to_integer();
        std::vector<Box> all;
        for (std::int32_t i = 1; i <= count; ++i) {
            const Object message = messages.call(u"Item", {i}).to_object();
            all.push_back({message.get(u"Title").to_text(), message.get(u"Text").to_text(),
                           message.get(u"Style").to_integer(), message.get(u"Answer").to_integer()});
        }
        return all;
    }

    static Text question(TextView path) {
        return u"A Tarnwell database was found at \r\r" + Text(path) +
               u"\r\rWould you like to use this location as the default database?";
    }

    static void answer(World& world, std::int32_t button, TextView fragment = u"") {
        world.desk().call(u"Answer", {Value(title), Value(fragment), button});
    }

    static void search(World& world) { world.connect().call(u"FindFolder"); }
    static bool goes_on(World& world) { return world.connect().get(u"SetDatabase").to_boolean(); }

    static Text option(World& world, TextView name) { return addin::Settings(world.desktop()).option(name); }
    static void expect_nothing_stored(World& world) {
        for (const TextView name :
             {u"TarnwellStoreID", u"AccountProfileFolderID", u"AccountProfileFolderName", u"UserName"}) {
            EXPECT_EQ(option(world, name), u"") << shown(name);
        }
        EXPECT_TRUE(world.family_calls().empty());
    }

    static Folder store(World& world, std::int32_t number) {
        return world.name_space().Folders().Item(number);
    }
    static Folder add(const Folder& parent, TextView name) {
        return Folder(parent.Folders().call(u"Add", {Value(name)}).to_object());
    }
};

TEST_F(Discovery, OffersTheDatabaseAndStoresItOnYes) {
    World& world = with({});
    world.family(u"CurrentUserName", u"Mia Hart");
    answer(world, yes, sample_path);
    search(world);

    const std::vector<Box> shown_boxes = boxes(world);
    ASSERT_EQ(shown_boxes.size(), 1U);
    EXPECT_EQ(shown_boxes[0].title, title);
    EXPECT_EQ(shown_boxes[0].text, question(sample_path));
    EXPECT_EQ(shown_boxes[0].style, 3);
    EXPECT_EQ(shown_boxes[0].answer, yes);

    const Folder found = world.account_profiles();
    EXPECT_EQ(option(world, u"TarnwellStoreID"), found.StoreID());
    EXPECT_EQ(option(world, u"AccountProfileFolderID"), found.EntryID());
    EXPECT_EQ(option(world, u"AccountProfileFolderName"), sample_path);
    EXPECT_EQ(option(world, u"UserName"), u"Mia Hart");
    EXPECT_EQ(world.connect().get(u"whoami").to_text(), u"Mia Hart");
    EXPECT_FALSE(goes_on(world));
    EXPECT_EQ(world.family_calls(),
              (std::vector<Text>{u"ReportsHost.Initiate", u"MainAddIn.reloadtoolbar(UNLOAD)",
                                 u"MainAddIn.reloadtoolbar(RELOAD)"}));
}

TEST_F(Discovery, NamesAnUnknownUserNewUser) {
    World& world = with({});
    world.family(u"CurrentUserName", u"");
    answer(world, yes);
    search(world);
    EXPECT_EQ(option(world, u"UserName"), u"New User");
    EXPECT_EQ(world.connect().get(u"whoami").to_text(), u"New User");
}

TEST_F(Discovery, OffersTheStoresInTheirOrderUntilItIsAnswered) {
    struct Case {
        const char* name;
        std::vector<std::int32_t> answers;
        std::vector<TextView> offered;
        TextView stored;
        bool goes_on;
    };
    const Case cases[] = {
        {"yes to the first", {yes}, {mailbox_path}, mailbox_path, false},
        {"no, then yes", {no, yes}, {mailbox_path, sample_path}, sample_path, false},
        {"no to both", {no, no}, {mailbox_path, sample_path}, u"", true},
        {"cancel", {cancel}, {mailbox_path}, u"", false},
        {"no, then cancel", {no, cancel}, {mailbox_path, sample_path}, u"", false},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = with({});
        add(store(world, 1), u"Account Profiles");
        for (const std::int32_t button : one.answers) answer(world, button);
        search(world);
        const std::vector<Box> all = boxes(world);
        ASSERT_EQ(all.size(), one.offered.size());
        for (std::size_t i = 0; i < all.size(); ++i) EXPECT_EQ(all[i].text, question(one.offered[i]));
        EXPECT_EQ(option(world, u"AccountProfileFolderName"), one.stored);
        EXPECT_EQ(goes_on(world), one.goes_on);
        if (one.stored.empty()) expect_nothing_stored(world);
    }
}

TEST_F(Discovery, ComparesTheNameExactly) {
    for (const TextView name : {u"account profiles", u"Account Profiles ", u"Account Profiles 2"}) {
        SCOPED_TRACE(shown(name));
        World& world = with({});
        world.account_profiles().put(u"Name", Value(name));
        search(world);
        EXPECT_TRUE(boxes(world).empty());
        expect_nothing_stored(world);
        EXPECT_TRUE(goes_on(world)) << "a search that runs out does not say so";
    }
}

TEST_F(Discovery, OffersTheOuterOfTwoNestedDatabasesOnly) {
    World& world = with({});
    add(world.account_profiles(), u"Account Profiles");
    answer(world, no);
    search(world);
    const std::vector<Box> all = boxes(world);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].text, question(sample_path));
}

TEST_F(Discovery, LeavesTheOtherFoldersOfALevelAfterNo) {
    World& world = with({});
    const Folder mailbox = store(world, 1);
    add(mailbox, u"Account Profiles");
    add(add(mailbox, u"Zone"), u"Account Profiles");  // comes later in the same level
    answer(world, no);
    answer(world, no);
    search(world);
    const std::vector<Box> all = boxes(world);
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].text, question(mailbox_path));
    EXPECT_EQ(all[1].text, question(sample_path)) << "the search went on one level up";
}

TEST_F(Discovery, GoesOnOneLevelUpAfterNo) {
    World& world = with({});
    const Folder mailbox = store(world, 1);
    add(add(mailbox, u"First"), u"Account Profiles");
    add(add(mailbox, u"Second"), u"Account Profiles");
    answer(world, no);
    answer(world, cancel);
    search(world);
    const std::vector<Box> all = boxes(world);
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].text, question(u"\\Mailbox - Tarnwell\\First\\Account Profiles\\"));
    EXPECT_EQ(all[1].text, question(u"\\Mailbox - Tarnwell\\Second\\Account Profiles\\"));
    EXPECT_FALSE(goes_on(world));
}

TEST_F(Discovery, EndsWithAYesOrACancelHoweverDeepItIsGiven) {
    World& world = with({});
    for (const TextView name : {u"First", u"Second"}) add(add(store(world, 1), name), u"Account Profiles");
    std::size_t offered = 0;
    for (const std::int32_t button : {cancel, yes}) {
        answer(world, button);
        search(world);
        EXPECT_EQ(boxes(world).size(), ++offered);
        EXPECT_FALSE(goes_on(world));
    }
    EXPECT_EQ(option(world, u"AccountProfileFolderName"), u"\\Mailbox - Tarnwell\\First\\Account Profiles\\");
}

TEST_F(Discovery, SearchesOneCollectionOfFoldersOnDemand) {
    World& world = with({});
    add(add(store(world, 1), u"Zone"), u"Account Profiles");
    answer(world, yes);
    const Folder public_folders = store(world, 2);
    world.connect().call(u"FindNextFolder", {Value(public_folders.Folders())});
    const std::vector<Box> all = boxes(world);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].text, question(sample_path));
    EXPECT_EQ(option(world, u"AccountProfileFolderName"), sample_path);
}

TEST_F(Discovery, WalksOnWhereAStoreRefusesItsFolders) {
    for (const TextView member : {u"MAPIFolder.Folders", u"NameSpace.Folders"}) {
        SCOPED_TRACE(shown(member));
        World& world = with({});
        answer(world, yes);
        world.fail(member);
        search(world);
        // the first store reads as an empty one; where the stores themselves can't be had, the application is
        // made anew
        EXPECT_EQ(option(world, u"AccountProfileFolderName"), sample_path);
    }
}

/// A test that can't be made counts as passed: a folder whose name can't be read is taken for the one that is
/// looked for, and of its level nothing else is looked at.
TEST_F(Discovery, TellsOfAFolderWhoseNameCannotBeRead) {
    World& world = with({});
    constexpr std::int32_t information = 64, test_and_name = 2;
    world.desk().call(u"Answer", {u"Tarnwell", u"Could not find", ok});
    answer(world, yes);
    world.fail(u"MAPIFolder.Name", 0, test_and_name);
    search(world);
    const std::vector<Box> all = boxes(world);
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].text, u"Could not find a Tarnwell Folder");
    EXPECT_EQ(all[0].title, u"Tarnwell");
    EXPECT_EQ(all[0].style, information);
    EXPECT_EQ(all[1].text, question(sample_path)) << "the next store's";
    EXPECT_EQ(option(world, u"AccountProfileFolderName"), sample_path);
}

TEST_F(Discovery, WorksWithoutSiblings) {
    struct Case {
        const char* sibling;
        std::vector<Text> calls;
    };
    const Case cases[] = {
        {"Tarnwell.connect", {u"ReportsHost.Initiate"}},
        {"TarnwellReports.Reports", {u"MainAddIn.reloadtoolbar(UNLOAD)", u"MainAddIn.reloadtoolbar(RELOAD)"}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.sibling);
        World& world = with({.without = {one.sibling}});
        answer(world, yes);
        search(world);
        EXPECT_EQ(option(world, u"AccountProfileFolderName"), sample_path);
        EXPECT_EQ(option(world, u"UserName"), u"New User");
        EXPECT_EQ(world.family_calls(), one.calls);
    }
}

/// An object of the class that the host has never connected, after the connected one has gone.
TEST_F(Discovery, WithAYesTakesTheApplicationThatItLacks) {
    for (const std::int32_t button : {no, yes}) {
        SCOPED_TRACE(button);
        World& world = with({});
        const Object other = world.application().call(u"CreateObject", {u"CreateNote.Connect"}).to_object();
        world.application().COMAddIns().Item(u"CreateNote.Connect").put(u"Connect", false);
        answer(world, button);
        other.call(u"FindFolder");
        ASSERT_EQ(boxes(world).size(), 1U);
        const SearchPanel panel(world);
        other.call(u"PowerPanel");
        world.settle();
        ASSERT_TRUE(panel.is_open());
        world.desk().call(u"Raise", {u"Quit"});
        EXPECT_EQ(panel.is_open(), button == no) << "who holds the application hears of its end";
    }
}

TEST_F(Discovery, OverwritesAnEarlierChoice) {
    World& world = with({});
    world.option(u"AccountProfileFolderName", u"\\Elsewhere\\");
    world.option(u"UserName", u"Somebody");
    answer(world, yes);
    search(world);
    EXPECT_EQ(option(world, u"AccountProfileFolderName"), sample_path);
    EXPECT_EQ(option(world, u"UserName"), u"New User");
}

}  // namespace
}  // namespace acceptance
