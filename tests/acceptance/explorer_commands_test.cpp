// The entries that the add-in puts into the menu of the explorer's right click, and what they do.
#include "tests/world/bars.h"
#include "tests/world/host_numbers.h"
#include "tests/world/people.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
namespace default_folder = host::outlook::default_folder;

constexpr TextView menu = u"Context Menu", quick_view = u"Tarnwell Quick View",
                   create_note_entry = u"Tarnwell Create Note";

class ExplorerCommands : public Filing {
  protected:
    /// The menu after a right click.
    static Object right_click(World& world) { return world.desk().call(u"ContextMenu").to_object(); }

    /// The entries of a menu that aren't the host's own, as "Caption [Tag] priority 1, shown".
    static Lines entries(const Object& bar) {
        const Object controls = bar.get(u"Controls").to_object();
        const std::int32_t count = controls.get(u"Count").to_integer();
        Lines lines;
        for (std::int32_t i = 1; i <= count; ++i) {
            const Object entry = controls.get(u"Item", {i}).to_object();
            if (entry.get(u"BuiltIn").to_boolean()) continue;
            std::string line = shown(entry.get(u"Caption").to_text()) + " [" +
                               shown(entry.get(u"Tag").to_text()) + "] type " +
                               std::to_string(entry.get(u"Type").to_integer()) + ", priority " +
                               std::to_string(entry.get(u"Priority").to_integer()) +
                               (entry.get(u"Visible").to_boolean() ? ", shown" : ", hidden");
            if (const Text action = entry.get(u"OnAction").to_text(); !action.empty())
                line += ", " + shown(action);
            lines.push_back(line);
        }
        return lines;
    }

    static Object first_explorer(World& world) {
        return world.application().get(u"Explorers").to_object().call(u"Item", {1}).to_object();
    }

    static Object menu_of(const Object& explorer) { return find_bar(explorer, menu); }

    static void connect_add_in(World& world, bool connected) {
        world.application().COMAddIns().Item(u"CreateNote.Connect").put(u"Connect", connected);
    }
};

const Lines both_entries{"Tarnwell Quick View [Tarnwell Quick View] type 1, priority 1, shown",
                         "Tarnwell Create Note [Tarnwell Create Note] type 1, priority 1, shown"};

TEST_F(ExplorerCommands, AreAddedOnceInAMailFolder) {
    World& world = with({});
    show_folder(world, world.inbox());
    EXPECT_EQ(entries(right_click(world)), both_entries);
    EXPECT_EQ(entries(right_click(world)), both_entries);
    show_folder(world, world.name_space().GetDefaultFolder(default_folder::sent_mail));
    EXPECT_EQ(entries(right_click(world)), both_entries);
}

TEST_F(ExplorerCommands, FollowAnyRightClickOnMail) {
    World& world = with({});
    const Item mail = world.deliver(message());
    world.desk().call(u"Select", {Value(mail)});
    EXPECT_EQ(entries(right_click(world)), both_entries);
}

TEST_F(ExplorerCommands, WaitForAFolderOfMail) {
    World& world = with({});
    for (const std::int32_t number : {default_folder::calendar, default_folder::tasks, contacts, notes}) {
        SCOPED_TRACE(number);
        show_folder(world, world.name_space().GetDefaultFolder(number));
        EXPECT_EQ(entries(right_click(world)), Lines{});
    }
    show_folder(world, world.account_profiles());
    EXPECT_EQ(entries(right_click(world)), Lines{});
    show_folder(world, world.inbox());
    EXPECT_EQ(entries(right_click(world)), both_entries);
    show_folder(world, world.name_space().GetDefaultFolder(default_folder::calendar));
    EXPECT_EQ(entries(right_click(world)), both_entries) << "they stay where they are";
}

TEST_F(ExplorerCommands, AreForEveryHostButTheFirst) {
    struct Case {
        TextView version;
        bool added;
    };
    constexpr Case cases[] = {{u"9.0.0.3821", false},
                              {u"9", false},
                              {u"10.0.0.2627", true},
                              {u"16.0.0.0", true},
                              {u"19.0.0.0", true}};
    for (const auto& [version, added] : cases) {
        SCOPED_TRACE(shown(version));
        World& world = with({.host_version = Text(version)});
        show_folder(world, world.inbox());
        for (int i = 0; i < 2; ++i) EXPECT_EQ(entries(right_click(world)), added ? both_entries : Lines{});
    }
}

TEST_F(ExplorerCommands, AreNotAddedWhereTheFirstOneIsThere) {
    World& world = with({});
    show_folder(world, world.name_space().GetDefaultFolder(default_folder::calendar));
    const Object earlier = add_button(menu_of(first_explorer(world)), quick_view, false);
    show_folder(world, world.inbox());
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(entries(right_click(world)), Lines{" [Tarnwell Quick View] type 1, priority 3, hidden"});
    }
    earlier.call(u"Delete");
    EXPECT_EQ(entries(right_click(world)), both_entries) << "the test is made at each update";
}

TEST_F(ExplorerCommands, AreAddedBesideAnEarlierSecondOne) {
    World& world = with({});
    show_folder(world, world.name_space().GetDefaultFolder(default_folder::calendar));
    add_button(menu_of(first_explorer(world)), create_note_entry, false);
    show_folder(world, world.inbox());
    EXPECT_EQ(entries(right_click(world)),
              joined({{" [Tarnwell Create Note] type 1, priority 3, hidden"}, both_entries}));
}

TEST_F(ExplorerCommands, StandInTheFirstExplorerOnly) {
    World& world = with({});
    const Object first = first_explorer(world);
    const Object second = world.inbox().call(u"GetExplorer").to_object();
    second.call(u"Display");
    EXPECT_EQ(entries(right_click(world)), Lines{}) << "the active one is the second";
    first.call(u"Activate");
    EXPECT_EQ(entries(right_click(world)), both_entries);
    EXPECT_EQ(entries(menu_of(second)), Lines{});
}

TEST_F(ExplorerCommands, OpenAProtectedMenuAndLeaveItOpen) {
    struct Case {
        std::int32_t before, after;
    };
    // only the bit against changes matters; where it was set, all others go with it
    for (const auto& [before, after] :
         {Case{0, 0}, Case{1, 0}, Case{2, 2}, Case{3, 0}, Case{16, 16}, Case{19, 0}}) {
        SCOPED_TRACE(before);
        World& world = with({});
        show_folder(world, world.name_space().GetDefaultFolder(default_folder::calendar));
        menu_of(first_explorer(world)).put(u"Protection", before);
        show_folder(world, world.inbox());
        const Object bar = right_click(world);
        EXPECT_EQ(entries(bar), both_entries);
        EXPECT_EQ(bar.get(u"Protection").to_integer(), after);
    }
}

TEST_F(ExplorerCommands, LeaveTheSecondEntryBehindWhenTheAddInGoes) {
    World& world = with({});
    show_folder(world, world.inbox());
    right_click(world);
    connect_add_in(world, false);
    const Lines left{"Tarnwell Create Note [Tarnwell Create Note] type 1, priority 0, shown"};
    EXPECT_EQ(entries(right_click(world)), left) << "the last control that was worked on loses its priority";
    connect_add_in(world, true);
    EXPECT_EQ(entries(right_click(world)), joined({left, both_entries}));
}

TEST_F(ExplorerCommands, ArePressedWithoutHarm) {
    World& world = filing();
    add_contact(world);
    const Item mail = world.deliver(message());
    world.desk().call(u"Select", {Value(mail)});
    const Object entry = find_control(first_explorer(world), menu, quick_view);
    const Object there =
        entry ? entry : (right_click(world), find_control(first_explorer(world), menu, quick_view));
    ASSERT_TRUE(there);
    there.call(u"Execute");
    EXPECT_EQ(count_messages(world), 0);
    World::read(mail);
    EXPECT_EQ(count_in(world, u"Email"), 1);
}

// sticky notes

TEST_F(ExplorerCommands, QuickViewClosesTheStickyNotesOfTheAccountThatIsShown) {
    World& world = with({});
    const Object quick_view_entry = [&] {
        show_folder(world, world.inbox());
        right_click(world);
        return find_control(first_explorer(world), menu, quick_view);
    }();
    ASSERT_TRUE(quick_view_entry);
    const auto sticky_note = [&](TextView account) { return new_sticky_note(world, account); };
    // as long as no record was shown, the window's account is the empty one
    OpenedItem of_account(sticky_note(u"")), second(sticky_note(u"")), of_another(sticky_note(u"A-100")),
        mail(new_item(world, item_type::mail)), contact(new_item(world, item_type::contact));
    OpenedItem own(new_item(world, item_type::note));  // the user's own belongs to no account
    for (OpenedItem* const window : {&of_account, &of_another, &mail, &second, &contact, &own})
        window->show();
    own.item.Body(u"Milk, not yet saved");
    ASSERT_EQ(world.application().Inspectors().Count(), 6);
    quick_view_entry.call(u"Execute");
    world.settle();
    const auto is_open = [&](const OpenedItem& opened) {
        const Object inspectors = world.application().Inspectors();
        for (std::int32_t i = inspectors.get(u"Count").to_integer(); i >= 1; --i) {
            if (inspectors.call(u"Item", {i}).to_object() == opened.window) return true;
        }
        return false;
    };
    EXPECT_FALSE(is_open(of_account));
    EXPECT_FALSE(is_open(second));
    EXPECT_TRUE(is_open(of_another));
    EXPECT_TRUE(is_open(mail));
    EXPECT_TRUE(is_open(contact));
    EXPECT_TRUE(is_open(own));
    EXPECT_EQ(world.application().Inspectors().Count(), 4);

    // and afterwards that of the record
    add_contact(world);
    world.desk().call(u"Select", {Value(world.deliver(message()))});
    quick_view_entry.call(u"Execute");
    EXPECT_TRUE(world.wait_for_handlers());
    EXPECT_TRUE(is_open(of_another)) << "it was not yet shown";
    OpenedItem of_none(sticky_note(u""));
    of_none.show();
    quick_view_entry.call(u"Execute");
    EXPECT_TRUE(world.wait_for_handlers());
    EXPECT_FALSE(is_open(of_another));
    EXPECT_TRUE(is_open(of_none));
    EXPECT_TRUE(is_open(mail));
    EXPECT_TRUE(is_open(contact));
    EXPECT_TRUE(is_open(own));
    EXPECT_EQ(own.item.Body(), u"Milk, not yet saved");
}

}  // namespace
}  // namespace acceptance
