// The tables of buttons and windows, and what of the commands only this build can see.
#include <gmock/gmock.h>

#include <limits>
#include <set>

#include "addin/commands/buttons.h"
#include "addin/commands/explorer_tracking.h"
#include "addin/commands/small_windows.h"
#include "addin/ground/status_windows.h"
#include "tests/native/native_world.h"
#include "tests/world/people.h"

namespace addin_tests {
namespace {

using addin::Connect;
using automation::Object;
using automation::Text;
using automation::TextView;
using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;
using native::NativeWorld;

TEST(Buttons, AreLookedUpByTheirTagsButForTwo) {
    std::vector<std::pair<Text, Text>> different;
    for (const auto& row : addin::commands::buttons()) {
        if (row.sought != row.tag) different.emplace_back(row.sought, row.tag);
    }
    EXPECT_THAT(different,
                testing::UnorderedElementsAre(
                    testing::Pair(Text(u"ApptButton2"), Text(u"ApptButton1")),
                    testing::Pair(Text(u"OpenContactButton"), Text(u"OpenTarnwellContactButton"))));
}

TEST(Buttons, HaveOneMemberEach) {
    std::vector<automation::Sink addin::commands::Links::*> members;
    for (const auto& row : addin::commands::buttons()) {
        EXPECT_EQ(std::ranges::count(members, row.member), 0) << automation::to_utf8(row.caption);
        members.push_back(row.member);
        EXPECT_EQ(&addin::commands::button(row.member), &row);
    }
    EXPECT_EQ(members.size(), 11U);
}

/// A window's texts, as name and text.
std::vector<std::pair<Text, Text>> texts(const FormTable& table) {
    std::vector<std::pair<Text, Text>> all;
    for (const ControlRow& row : table.controls) all.emplace_back(row.name, row.text);
    return all;
}

TEST(StatusWindows, HaveTheirTitlesAndTexts) {
    using testing::Pair;
    using testing::UnorderedElementsAre;
    EXPECT_EQ(addin::search_form_table().caption, TextView(u"Tarnwell"));
    EXPECT_THAT(texts(addin::search_form_table()),
                UnorderedElementsAre(Pair(Text(u"Image1"), Text()), Pair(Text(u"Label1"), Text(u"Label1"))));

    EXPECT_EQ(addin::commands::tarnwell_table().caption, TextView(u"Tarnwell"));
    EXPECT_THAT(texts(addin::commands::tarnwell_table()),
                UnorderedElementsAre(Pair(Text(u"Command1"), Text()), Pair(Text(u"Command2"), Text()),
                                     Pair(Text(u"EntryID"), Text(u"Entry ID")),
                                     Pair(Text(u"ContactName"), Text(u"Contact Name")),
                                     Pair(Text(u"AccountName"), Text(u"Account Name"))));

    EXPECT_EQ(addin::commands::tarnwell_info_table().caption, TextView(u"Tarnwell Information"));
    EXPECT_THAT(
        texts(addin::commands::tarnwell_info_table()),
        UnorderedElementsAre(
            Pair(Text(u"Command1"), Text(u"Command1")), Pair(Text(u"Combo1"), Text(u"Combo1")),
            Pair(Text(u"Label1"), Text(u"Account Name")), Pair(Text(u"Label2"), Text(u"Search")),
            Pair(Text(u"Label3"), Text(u"Contact Name")), Pair(Text(u"Label4"), Text(u"Opportunity")),
            Pair(Text(u"Label5"), Text(u"Customer Inquiry")), Pair(Text(u"Label6"), Text(u"Account Name")),
            Pair(Text(u"Label7"), Text(u"Contact Name"))));
}

TEST(StatusWindows, BothButtonsOfTheSmallWindowHaveTheTip) {
    for (const ControlRow& row : addin::commands::tarnwell_table().controls) {
        if (row.kind != ControlKind::picture_button) continue;
        EXPECT_EQ(row.tool_tip, TextView(u"Click here to select an item."));
        EXPECT_FALSE(row.accessible_name.empty());
    }
}

TEST(StatusWindows, TheSmallWindowsFirstButtonShowsThePicker) {
    NativeWorld world{{}};
    addin::commands::State& state = world.add_in()->rooms().commands;
    state.Tarnwell.show();
    native::MemoryWindow* const window = world.engine().find(u"Tarnwell");
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->control(u"Command2").click());
    EXPECT_TRUE(world.family_calls().empty());
    EXPECT_TRUE(window->control(u"Command1").click());
    EXPECT_THAT(world.family_calls(),
                testing::ElementsAre(Text(u"ListPicker.loaddialog"), Text(u"ListPicker.showdialog")));
    native::MemoryWindow* const picker = world.engine().find(u"Account List");
    ASSERT_NE(picker, nullptr);
    EXPECT_TRUE(picker->visible());
    EXPECT_TRUE(picker->close());
    EXPECT_EQ(world.engine().find(u"Account List"), nullptr);
    state.Tarnwell.unload();
    EXPECT_EQ(world.engine().find(u"Tarnwell"), nullptr);
}

TEST(StatusWindows, TheInformationWindowHasNoLogic) {
    NativeWorld world{{}};
    addin::commands::State& state = world.add_in()->rooms().commands;
    state.TarnwellInfo.show();
    native::MemoryWindow* const window = world.engine().find(u"Tarnwell Information");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->control(u"Combo1").choice().count(), 0);
    world.boundary().forget_calls();
    window->control(u"Command1").click();
    EXPECT_TRUE(world.boundary().calls().empty());
    EXPECT_TRUE(window->visible());
    window->close();
    EXPECT_EQ(world.engine().find(u"Tarnwell Information"), nullptr);
}

TEST(ExplorerTrackers, AreKeptByTheTextsOfTheirNumbers) {
    NativeWorld world{{}};
    addin::commands::ExplorerTrackers trackers(world.add_in()->session(), [] {});
    const auto tracker = [&] { return std::make_shared<addin::commands::TrackExpl>(trackers); };
    trackers.Add(tracker(), u"1");
    trackers.Add(tracker(), u"2");
    EXPECT_EQ(trackers.Count(), 2);
    EXPECT_THROW(trackers.Add(tracker(), u"2"), automation::Failure);
    trackers.Remove(u"1");
    EXPECT_THROW(trackers.Remove(u"1"), automation::Failure);
    EXPECT_EQ(trackers.Count(), 1);
}

/// Opens a further main window.
Object open_explorer(NativeWorld& world) {
    constexpr std::int32_t drafts = 16;
    const Object explorer = world.name_space().GetDefaultFolder(drafts).call(u"GetExplorer").to_object();
    explorer.call(u"Display");
    return explorer;
}

TEST(ExplorerTracking, NumbersFurtherWindowsAndForgetsThemWhenTheyClose) {
    NativeWorld world{{}};
    addin::commands::ExplorerTrackers& trackers = world.add_in()->rooms().commands.gExplorerList;
    const Object second = open_explorer(world), third = open_explorer(world);
    EXPECT_EQ(trackers.gExplorerSerial, 2);
    EXPECT_EQ(trackers.Count(), 2);
    EXPECT_THROW(trackers.Add(nullptr, u"1"), automation::Failure);
    EXPECT_THROW(trackers.Add(nullptr, u"2"), automation::Failure);
    second.call(u"Close");
    EXPECT_EQ(trackers.Count(), 1);
    third.call(u"Close");
    EXPECT_EQ(trackers.Count(), 0);
    EXPECT_EQ(trackers.gExplorerSerial, 2) << "it is never reset";
}

TEST(ExplorerTracking, LeavesTheConnectedObjectsSinksAloneWhenTheLastFurtherWindowCloses) {
    NativeWorld world{{}};
    Connect& connect = *world.add_in();
    const Object second = open_explorer(world);
    connect.session().SearchForm.show();
    second.call(u"Close");
    EXPECT_TRUE(connect.goInbox.source());
    EXPECT_TRUE(connect.goExplorer.source());
    EXPECT_FALSE(connect.gExiting);
    EXPECT_FALSE(connect.session().gOutlookApp) << "the session's own reference goes";
}

TEST(ExplorerTracking, UsesTheLastNumberAgainWhenTheCounterIsFull) {
    NativeWorld world{{}};
    addin::commands::ExplorerTrackers& trackers = world.add_in()->rooms().commands.gExplorerList;
    trackers.gExplorerSerial = std::numeric_limits<std::int16_t>::max() - 1;
    const Object second = open_explorer(world), third = open_explorer(world);
    EXPECT_EQ(trackers.gExplorerSerial, std::numeric_limits<std::int16_t>::max());
    EXPECT_EQ(trackers.Count(), 1) << "the key is there already, so the second is not kept";
    third.call(u"Close");
    EXPECT_EQ(trackers.Count(), 1) << "and nobody follows it";
    second.call(u"Close");
    EXPECT_EQ(trackers.Count(), 0);
}

TEST(ExplorerTracking, IsSkippedWhileTheSessionSaysSo) {
    NativeWorld world{{}};
    addin::commands::ExplorerTrackers& trackers = world.add_in()->rooms().commands.gExplorerList;
    EXPECT_FALSE(trackers.gSkipExplorerTracking) << "nothing sets it";
    trackers.gSkipExplorerTracking = true;
    open_explorer(world);
    EXPECT_EQ(trackers.Count(), 0);
    EXPECT_EQ(trackers.gExplorerSerial, 0);
}

}  // namespace
}  // namespace addin_tests
