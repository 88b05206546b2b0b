// The family's menu "Tarnwell" in the host's main windows.
#include "addin/ground/settings.h"
#include "tests/world/note_dialog.h"
#include "tests/world/people.h"
#include "tests/world/search_panel.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

constexpr TextView menu_tag = u"TarnwellMenu", open_panel = u"Search &Panel",
                   open_on_selected = u"Search Panel on the &Selected Item", open_settings = u"Se&ttings...",
                   settings_window = u"Settings of Create Note", open_filed_today = u"What Was &Filed Today",
                   filed_window = u"What Was Filed Today";

class FamilyMenu : public Acceptance {
  protected:
    void TearDown() override { panel_.reset(); }

    /// A desk that was started with the menu wanted.
    void start_with_menu(const std::string& database = "empty") {
        with({.database = database, .started = false}).family(u"Menu", u"1");
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

    Object in_filed(TextView control) {
        return window_of(world(), filed_window).call(u"Control", {Value(control)}).to_object();
    }
    /// What the window of today's notes says of their number, and each of them.
    Lines filed_today() {
        Lines lines{shown(in_filed(u"lblCount").get(u"Text").to_text())};
        const Object list = in_filed(u"lstNotes");
        constexpr std::int32_t first_after_time = 1, last = 4;
        for (std::int32_t row = 1; row <= list.get(u"Count").to_integer(); ++row) {
            std::string line;
            for (std::int32_t column = first_after_time; column <= last; ++column) {
                const Object cells = list.call(u"Item", {row}).to_object();
                line += (line.empty() ? "" : "|") + shown(cells.get(u"SubItems", {column}).to_text());
            }
            lines.push_back(line);
        }
        return lines;
    }

    bool settings_are_shown() { return is_shown(window_of(world(), settings_window)); }
    Object setting(TextView control) {
        return window_of(world(), settings_window).call(u"Control", {Value(control)}).to_object();
    }
    void press(TextView control) {
        setting(control).call(u"Click");
        world().settle();
    }
    void write(TextView control, TextView text) { setting(control).put(u"Text", Value(text)); }
    bool is_on(TextView control) { return setting(control).get(u"Selected").to_integer() == 1; }
    /// "(none)" if it is not there.
    std::string stored(TextView name) {
        const Value value = world().connect().call(
            u"GetKeyValueEx", {host::current_user, Value(addin::Settings::key_name), Value(name)});
        return value.is(Value::Type::empty) ? "(none)" : shown(value.to_text());
    }

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
    choose(open_settings);
    EXPECT_EQ(message_texts(world()),
              (Lines{"The Create Note add-in is not loaded.", "The Create Note add-in is not loaded."}));
    EXPECT_FALSE(settings_are_shown());
}

TEST_F(FamilyMenu, ShowsTheSettingsAndStoresWhatWasChanged) {
    start_with_menu();
    world().option(u"AutoFileSentEmails", u"1");
    world().option(u"EnableQuickView", u"yes");
    choose(open_settings);
    ASSERT_TRUE(settings_are_shown());
    EXPECT_TRUE(is_on(u"chkAutoFileSentEmails"));
    EXPECT_TRUE(is_on(u"chkEnableGlobalCalendar")) << "it is on as long as nobody has switched it off";
    EXPECT_FALSE(is_on(u"chkEnableQuickView")) << "the add-in takes it for off";
    EXPECT_FALSE(is_on(u"chkNoContactButtons"));

    press(u"chkEnableGlobalCalendar");
    press(u"chkNoContactButtons");
    write(u"txtSavedEmailFolder", u" Letters ");
    press(u"cmdOK");
    EXPECT_FALSE(settings_are_shown());
    EXPECT_EQ(stored(u"EnableGlobalCalendar"), "0");
    EXPECT_EQ(stored(u"NoContactButtons"), "1");
    EXPECT_EQ(stored(u"SavedEmailFolder"), "Letters");
    EXPECT_EQ(stored(u"AutoFileSentEmails"), "1");
    EXPECT_EQ(stored(u"EnableQuickView"), "yes") << "nobody has touched it";
    EXPECT_EQ(stored(u"EnableGlobalTasks"), "(none)");
    EXPECT_EQ(stored(u"GlobalCalendar"), "(none)");

    choose(open_settings);
    EXPECT_FALSE(is_on(u"chkEnableGlobalCalendar")) << "it is read anew";
    write(u"txtSavedEmailFolder", u"");
    press(u"cmdOK");
    EXPECT_EQ(stored(u"SavedEmailFolder"), "") << "as if it were not there";
    EXPECT_EQ(message_texts(world()), Lines{});
}

TEST_F(FamilyMenu, ForgetsChangedSettingsThatAreCancelled) {
    start_with_menu();
    choose(open_settings);
    press(u"chkNoContactButtons");
    write(u"txtGlobalTasks", u"Elsewhere");
    press(u"cmdCancel");
    EXPECT_FALSE(settings_are_shown());
    EXPECT_EQ(stored(u"NoContactButtons"), "(none)");
    EXPECT_EQ(stored(u"GlobalTasks"), "(none)");
}

TEST_F(FamilyMenu, NamesTheSettingThatWasNotStoredAndKeepsItInTheWindow) {
    start_with_menu();
    choose(open_settings);
    press(u"chkNoContactButtons");
    const Text half{u'W', char16_t{0xD83D}};  // of a character: nothing that a code page has
    write(u"txtGlobalTasks", half);
    press(u"cmdOK");
    ASSERT_TRUE(settings_are_shown());
    EXPECT_EQ(message_texts(world()),
              Lines{"Windows did not store this as it stands here: \"Shared task folder\"."});
    EXPECT_EQ(setting(u"txtGlobalTasks").get(u"Text").to_text(), half);
    EXPECT_EQ(stored(u"NoContactButtons"), "1") << "the others are";
    write(u"txtGlobalTasks", u"Work");
    press(u"cmdOK");
    EXPECT_FALSE(settings_are_shown());
    EXPECT_EQ(stored(u"GlobalTasks"), "Work");
}

TEST_F(FamilyMenu, ListsWhatWasFiledToday) {
    start_with_menu("sample");  // its own notes are older
    choose(open_filed_today);
    EXPECT_EQ(filed_today(), Lines{"Nothing was filed today."});
    add_note(world(), u"Call back", {{u"Account Name", u"North Mill Ltd"}, {u"Contact Name", u"Ann North"}});
    in_filed(u"cmdRefresh").call(u"Click");
    world().settle();
    EXPECT_EQ(filed_today(), (Lines{"One note was made today.", "Call back|North Mill Ltd|Ann North|"}));

    in_filed(u"lstNotes").call(u"Select", {1});
    in_filed(u"cmdOpen").call(u"Click");
    world().settle();
    const Object opened = world().application().call(u"ActiveInspector").to_object();
    EXPECT_EQ(shown(Item(opened.get(u"CurrentItem").to_object()).Subject()), "Call back");
    opened.call(u"Close", {1});
    in_filed(u"cmdClose").call(u"Click");
    world().settle();
    EXPECT_FALSE(is_shown(window_of(world(), filed_window)));
    EXPECT_EQ(message_texts(world()), Lines{});
}

TEST_F(FamilyMenu, TellsThatANoteOfTheListWasDeletedMeanwhile) {
    start_with_menu();
    const Item note = add_note(world(), u"Call back", {});
    choose(open_filed_today);
    note.call(u"Delete");
    in_filed(u"lstNotes").call(u"Select", {1});
    in_filed(u"cmdOpen").call(u"Click");
    world().settle();
    EXPECT_EQ(message_texts(world()).size(), 1U);
}

TEST_F(FamilyMenu, LeavesToTheDatabaseWhatIsItsOwn) {
    start_with_menu();
    choose(open_settings);
    EXPECT_FALSE(setting(u"txtTarnwellStoreID").get(u"Enabled").to_boolean());
    EXPECT_TRUE(setting(u"txtTraceFile").get(u"Enabled").to_boolean());
    EXPECT_TRUE(setting(u"chkPDAContactSync").get(u"Enabled").to_boolean());
}

TEST_F(FamilyMenu, ClosesItsWindowsWithTheHost) {
    start_with_menu();
    choose(open_settings);
    write(u"txtGlobalTasks", u"Elsewhere");
    choose(open_filed_today);
    world().quit();
    world().start();
    EXPECT_FALSE(settings_are_shown());
    EXPECT_EQ(stored(u"GlobalTasks"), "(none)");
    choose(open_settings);
    EXPECT_TRUE(settings_are_shown());
}

TEST_F(FamilyMenu, ComesBackWithTheNextStartOfTheHost) {
    start_with_menu();
    world().quit();
    world().start();
    EXPECT_EQ(count_controls(first_window(), u"Menu Bar", menu_tag), 1);
}

}  // namespace
}  // namespace acceptance
