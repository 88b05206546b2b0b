// The small window that tells how a long operation goes on, and the operations that others of the family call
// to show it.
#include <chrono>

#include "tests/world/bars.h"
#include "tests/world/people.h"
#include "tests/world/search_panel.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

class StatusWindows : public Acceptance {
  protected:
    static Object window(World& world) { return window_of(world, u"Tarnwell"); }

    static bool is_shown(World& world) { return acceptance::is_shown(window(world)); }

    static std::string label(World& world) {
        return shown(window(world).call(u"Control", {u"Label1"}).to_object().get(u"Text").to_text());
    }

    static void import_message(World& world, const Text& text, std::int32_t milliseconds) {
        const Value answer = world.connect().call(u"ShowImportMessage", {text, milliseconds});
        EXPECT_TRUE(answer.is(Value::Type::empty));
    }
};

TEST_F(StatusWindows, ShowAMessageForAMomentAndHideAgain) {
    World& world = with({});
    EXPECT_FALSE(window(world)) << "it comes up on first use";
    const Value answer = world.connect().call(u"ShowMessage", {u"Working on it"});
    EXPECT_TRUE(answer.is(Value::Type::empty));
    EXPECT_EQ(statuses(world), Lines{"Working on it"});
    EXPECT_FALSE(is_shown(world));
    ASSERT_TRUE(window(world)) << "it is hidden, not unloaded";
    EXPECT_EQ(label(world), "Working on it");
}

TEST_F(StatusWindows, ShowAnythingAsText) {
    World& world = with({});
    const Object connect = world.connect();
    connect.call(u"ShowMessage", {42});
    connect.call(u"ShowMessage", {true});
    connect.call(u"ShowMessage", {u""});
    connect.call(u"ShowMessage", {automation::to_date({2009, 12, 31, 22, 30, 0})});
    EXPECT_EQ(statuses(world), (Lines{"42", "True", "", "12/31/2009 10:30:00 PM"}));
}

TEST_F(StatusWindows, StayWithAnImportsMessagesUntilTheEmptyOneCloses) {
    World& world = with({});
    import_message(world, u"Importing contacts", 0);
    ASSERT_TRUE(is_shown(world));
    EXPECT_EQ(label(world), "Importing contacts");
    import_message(world, u"Importing mails", 10);
    ASSERT_TRUE(is_shown(world));
    EXPECT_EQ(label(world), "Importing mails");
    EXPECT_EQ(statuses(world), (Lines{"Importing contacts", "Importing mails"}));

    import_message(world, u"", 0);
    EXPECT_FALSE(window(world));
    import_message(world, u"Importing tasks", 0);
    EXPECT_TRUE(is_shown(world)) << "and comes up again";
    import_message(world, u"", 0);
    EXPECT_FALSE(window(world));
    EXPECT_EQ(statuses(world), (Lines{"Importing contacts", "Importing mails", "Importing tasks"}));
}

TEST_F(StatusWindows, KeepTheHourglassUntilTheEmptyOneCloses) {
    World& world = with({});
    const SearchPanel panel(world);
    panel.open();
    const auto busy = [&] { return panel.window().get(u"Busy").to_boolean(); };
    EXPECT_FALSE(busy());
    for (const std::int32_t milliseconds : {0, 10}) {
        import_message(world, u"Importing contacts", milliseconds);
        EXPECT_TRUE(busy()) << "over other windows, too";
        EXPECT_TRUE(window(world).get(u"Busy").to_boolean());
        import_message(world, u"", 0);
        EXPECT_FALSE(busy());
    }
    world.connect().call(u"ShowMessage", {u"A moment"});
    EXPECT_FALSE(busy()) << "a message alone has none";
    EXPECT_TRUE(window(world).get(u"Busy").to_boolean()) << "but in its own window";
}

TEST_F(StatusWindows, CloseAtOnceHoweverLongTheyWereToSleep) {
    World& world = with({});
    import_message(world, u"Importing", 0);
    const auto start = std::chrono::steady_clock::now();
    import_message(world, u"", 5000);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
    EXPECT_FALSE(window(world));
    import_message(world, u"", 5000);
    EXPECT_FALSE(window(world)) << "there is nothing left to close";
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
}

TEST_F(StatusWindows, OfAnImportAreOverwrittenAndHiddenByAMessage) {
    World& world = with({});
    import_message(world, u"Importing", 0);
    world.connect().call(u"ShowMessage", {u"Done"});
    EXPECT_FALSE(is_shown(world));
    import_message(world, u"Importing more", 0);
    EXPECT_TRUE(is_shown(world));
    EXPECT_EQ(label(world), "Importing more");
    EXPECT_EQ(statuses(world), (Lines{"Importing", "Done", "Importing more"}));
    import_message(world, u"", 0);
    EXPECT_FALSE(window(world));
}

TEST_F(StatusWindows, HaveAnImageAndALabel) {
    World& world = with({});
    import_message(world, u"Importing", 0);
    const Object there = window(world);
    ASSERT_TRUE(there);
    EXPECT_FALSE(there.get(u"Topmost").to_boolean());
    EXPECT_GT(there.get(u"Width").to_integer(), 0);
    EXPECT_GT(there.get(u"Height").to_integer(), 0);
    const Object text = there.call(u"Control", {u"Label1"}).to_object();
    ASSERT_TRUE(text);
    EXPECT_TRUE(text.get(u"Visible").to_boolean());
    EXPECT_TRUE(text.get(u"Enabled").to_boolean());
    EXPECT_FALSE(there.call(u"Control", {u"Command1"}).to_object()) << "it has no button";
    import_message(world, u"", 0);
}

TEST_F(StatusWindows, EndWhenTheUserClosesThem) {
    World& world = with({});
    import_message(world, u"Importing", 0);
    window(world).call(u"Close");
    world.settle();
    EXPECT_FALSE(is_shown(world));
    import_message(world, u"Importing more", 0);
    EXPECT_TRUE(is_shown(world));
    EXPECT_EQ(label(world), "Importing more");
    import_message(world, u"", 0);
}

TEST_F(StatusWindows, OfTheAddInGoWithIt) {
    World& world = with({});
    import_message(world, u"Importing", 0);
    world.quit();
    world.start();
    EXPECT_FALSE(window(world));
    EXPECT_EQ(statuses(world), Lines{});
}

// files

TEST_F(StatusWindows, AreNotNeededToTellAFile) {
    World& world = with({});
    const Object connect = world.connect();
    const auto exists = [&](const Text& path) { return connect.call(u"FileExists", {path}); };
    const Text file = world.write_file("here.txt", "x");
    EXPECT_EQ(exists(file), Value(true));
    world.desk().call(u"ResetCalls");
    EXPECT_EQ(exists(file + u"\\"), Value(false));
    EXPECT_EQ(exists(u"\\"), Value(false));
    EXPECT_EQ(exists(u""), Value(false));
    EXPECT_EQ(calls_of(world, u"find_file"), 0) << "such a path is not even looked for";
    EXPECT_EQ(exists(file + u".not"), Value(false));
    EXPECT_FALSE(window(world));
}

// the Search Panel

TEST_F(StatusWindows, TheSearchPanelIsOpenedWithAndWithoutAnItem) {
    World& world = with({});
    const Object connect = world.connect();
    const Item contact = add_contact(world);
    const std::int32_t before = held(world);
    {
        const SearchPanel panels(world);
        connect.call(u"PowerPanel");
        for (const TextView operation : {u"ShowItemsMenu", u"ShowItemsMenu2"}) {
            SCOPED_TRACE(shown(operation));
            connect.call(operation, {Value(contact)});
            connect.call(operation, {Value(Object())});
            connect.call(operation, {Value(new_item(world, item_type::mail))});
        }
        EXPECT_EQ(count_messages(world), 0);
        for (const char* const panel : {"of its own", "the new one", "the default one"}) {
            EXPECT_TRUE(panels.is_open()) << panel;
            panels.close();
        }
        EXPECT_FALSE(panels.is_open()) << "each is one window, however often it was opened";
        connect.call(u"ShowItemsMenu2", {Value(contact)});
        connect.call(u"ShowItemsMenu2", {Value(contact)});
        panels.close();
        EXPECT_FALSE(panels.is_open());
    }
    world.settle();
    EXPECT_EQ(held(world), before) << "the item's ids are kept, not the item";
}

}  // namespace
}  // namespace acceptance
