// The family's menu "Tarnwell" in the host's main windows.
#include "tests/world/note_dialog.h"
#include "tests/world/search_panel.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

constexpr TextView menu_tag = u"TarnwellMenu", open_panel = u"Search &Panel",
                   open_on_selected = u"Search Panel on the &Selected Item";

class FamilyMenu : public Acceptance {
  protected:
    void TearDown() override { panel_.reset(); }

    /// A desk that was started with the menu wanted.
    void start_with_menu(bool add_in = true) {
        with({.add_in = add_in, .started = false}).family(u"Menu", u"1");
        world().start();
        panel_ = std::make_unique<SearchPanel>(world());
    }
    SearchPanel& panel() { return *panel_; }

    Object first_window() { return world().application().ActiveExplorer(); }
    static Object menu_of(const Object& window) { return find_control(window, u"Menu Bar", menu_tag); }
    static Object entries_of(const Object& window) { return menu_of(window).get(u"Controls").to_object(); }
    void choose(const Object& window, TextView entry) {
        entries_of(window).get(u"Item", {Value(entry)}).to_object().call(u"Execute");
        world().settle();
    }
    void choose(TextView entry) { choose(first_window(), entry); }

  private:
    std::unique_ptr<SearchPanel> panel_;
};

TEST_F(FamilyMenu, IsNotThereUnlessItIsWanted) { EXPECT_FALSE(menu_of(first_window())); }

TEST_F(FamilyMenu, StandsOnceInEachMainWindowAlsoInLaterOnes) {
    start_with_menu();
    const Object later = world().inbox().call(u"GetExplorer").to_object();
    later.call(u"Display");
    world().settle();
    for (const Object& window : {first_window(), later}) {
        EXPECT_EQ(count_controls(window, u"Menu Bar", menu_tag), 1);
        EXPECT_EQ(shown(world().text(menu_of(window), u"Caption")), "&Tarnwell");
    }
    later.call(u"Close");
    world().settle();
    choose(open_panel);
    EXPECT_TRUE(panel().is_open()) << "the window that stays has its menu still";
}

TEST_F(FamilyMenu, OpensTheSearchPanelOnNothing) {
    start_with_menu();
    install_panel(world());
    const Item contact = add_full_contact(world());
    panel().open_new(contact);
    choose(open_panel);
    EXPECT_TRUE(panel().is_open());
    EXPECT_EQ(panel().ids(), "AccountID|ContactID") << "what was searched for before is forgotten";
    EXPECT_EQ(message_texts(world()), Lines{});
}

TEST_F(FamilyMenu, OpensTheSearchPanelOnTheSelectedRecord) {
    start_with_menu();
    install_panel(world());
    const Item contact = add_full_contact(world());
    world().desk().call(u"Select", {Value(contact)});
    choose(open_on_selected);
    EXPECT_TRUE(panel().is_open());
    EXPECT_EQ(panel().ids(), "A-100|C-200");
    EXPECT_EQ(message_texts(world()), Lines{});
}

TEST_F(FamilyMenu, TellsThatAnItemIsToBeSelectedFirst) {
    start_with_menu();
    show_folder(world(), world().inbox());
    choose(open_on_selected);
    EXPECT_EQ(message_texts(world()),
              Lines{"Select one item of the list first: the Search Panel opens on it."});
    EXPECT_FALSE(panel().is_open());
}

TEST_F(FamilyMenu, TellsThatTheAddInIsNotLoaded) {
    start_with_menu();
    world().application().COMAddIns().Item(u"CreateNote.Connect").put(u"Connect", false);
    choose(open_panel);
    EXPECT_EQ(message_texts(world()), Lines{"The Create Note add-in is not loaded."});
}

TEST_F(FamilyMenu, ComesBackWithTheNextStartOfTheHost) {
    start_with_menu();
    world().quit();
    world().start();
    EXPECT_EQ(count_controls(first_window(), u"Menu Bar", menu_tag), 1);
}

}  // namespace
}  // namespace acceptance
