// The Search Panel's window: how it comes up, what it shows, how it is arranged and sorted.
#include "tests/world/search_panel.h"

#include <algorithm>
#include <cmath>

#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using host::outlook::Item;

constexpr const char* design_header = "Contact Name|Company Name|Phone|Fax|Street1|City|State|Zip";
constexpr const char* ann_header = "Ann Lee|North Mill Ltd|555 200|555 201|2 Mill Lane|Leeds|WA|98765";

class SearchPanelWindow : public Acceptance {
  protected:
    void TearDown() override { panel_.reset(); }
    SearchPanel& panel() {
        if (!panel_) panel_ = std::make_unique<SearchPanel>(world());
        return *panel_;
    }
    Item last_displayed() { return world().displayed_since(0).back(); }
    void close_displayed() { last_displayed().Close(host::outlook::discard_changes); }

  private:
    std::unique_ptr<SearchPanel> panel_;
};

TEST_F(SearchPanelWindow, OpenedOnNothingShowsItsTargetsAndSearchesNothing) {
    install_panel(world(), {contacts_target(),
                            {.name = u"Elsewhere", .definition = u"x", .display_in = "Find"},
                            accounts_target()});
    panel().open();
    ASSERT_TRUE(panel().is_open());
    EXPECT_EQ(panel().entries(), (Lines{"Accounts", "Contacts"}));
    EXPECT_EQ(panel().text(u"SearchMe"), "SearchMe");
    EXPECT_EQ(panel().header(), design_header);
    EXPECT_EQ(panel().ids(), "AccountID|ContactID");
    EXPECT_EQ(panel().count(), 0);
    EXPECT_EQ(panel().marks(), std::vector<std::int32_t>(7, -1)) << "no search has ended";
    EXPECT_EQ(panel().control(u"lstItems").get(u"ToolTip").to_text(), u"Double click on an item to open it.");
    for (const TextView hidden : {u"AccountID", u"ContactID", u"KeyField"}) {
        EXPECT_FALSE(panel().control(hidden).get(u"Visible").to_boolean()) << shown(hidden);
    }
    EXPECT_FALSE(panel().window().get(u"Topmost").to_boolean());
    EXPECT_TRUE(statuses(world()).empty());
    // a link of a header that shows no record finds nothing, and a row that isn't there is refused silently
    panel().click(u"CompanyName");
    panel().click(u"Contactname");
    panel().double_click();
    EXPECT_EQ(world().displayed(), 0);
    EXPECT_EQ(count_messages(world()), 0);
    // closed, it is gone; the next one reads the file anew
    panel().close();
    EXPECT_FALSE(window_of(world(), panel_caption));
    install_panel(world(), {inquiries_target()});
    panel().open();
    EXPECT_EQ(panel().entries(), Lines{"Inquiries"});
}

TEST_F(SearchPanelWindow, ArrangesItsListByItsSize) {
    panel().open();
    const auto twips = [](std::int32_t pixels) { return pixels * 15; };
    const auto expected = [&](std::int32_t width) {
        const double share = twips(width) / 7.0 - 40;
        const auto pixels = [](double length) { return static_cast<std::int32_t>(std::lround(length / 15)); };
        const std::int32_t usual = pixels(share + share / 5), subject = pixels(share + 5.1 * (share / 5));
        return std::vector<std::int32_t>{usual, subject, usual, usual, usual, 0, 0};
    };
    EXPECT_EQ(panel().widths(), expected(panel().window().get(u"Width").to_integer()));
    struct Size {
        std::int32_t width, height;
        bool arranged;
    };
    std::vector<std::int32_t> before = panel().widths();
    for (const Size& size : {Size{900, 600, true},
                             {199, 600, false},
                             {640, 199, false},
                             {700, 199, false},
                             {200, 200, true},
                             {400, 700, true}}) {
        SCOPED_TRACE(size.width);
        panel().window().call(u"Resize", {size.width, size.height});
        world().settle();
        EXPECT_EQ(panel().widths(), size.arranged ? expected(size.width) : before);
        before = panel().widths();
    }
}

TEST_F(SearchPanelWindow, OfAnItemShowsItsRecordAndOpensItByTheLinks) {
    install_panel(world());
    const Item account = add_full_account(world());
    const Item contact = add_full_contact(world());
    panel().open_new(contact);
    EXPECT_EQ(panel().header(), ann_header);
    EXPECT_EQ(panel().ids(), "A-100|C-200");
    EXPECT_EQ(panel().text(u"SearchMe"), "Contacts");
    panel().click(u"CompanyName");
    ASSERT_EQ(world().displayed(), 1);
    EXPECT_EQ(last_displayed().EntryID(), account.EntryID());
    close_displayed();
    panel().click(u"Contactname");
    ASSERT_EQ(world().displayed(), 2);
    EXPECT_EQ(last_displayed().EntryID(), contact.EntryID());
    close_displayed();
    panel().open_new(account);
    EXPECT_EQ(panel().header(), "|North Mill Ltd|555 100|555 101|1 Mill Lane|York|NY|12345");
    EXPECT_EQ(panel().ids(), "A-100|");
    panel().click(u"Contactname");
    EXPECT_EQ(world().displayed(), 2) << "an empty key opens nothing";
    EXPECT_EQ(count_messages(world()), 0);
}

TEST_F(SearchPanelWindow, SearchesAtAnActivationOnlyIfAnotherItemWasPendingAtTheLast) {
    install_panel(world());
    const Item ann = add_full_contact(world());
    const Item bob = add_contact(world(), {.full_name = u"Bob Ray", .properties = {{u"ContactID", u"C-1"}}});
    const Item cid = add_contact(world(), {.full_name = u"Cid Fox", .properties = {{u"ContactID", u"C-2"}}});
    const auto activate_with = [&](const Item& item) {
        world().application().ActiveExplorer().call(u"Activate");  // the user goes on in the main window
        world().settle();
        panel().open_second(item);
    };
    panel().open_second(ann);
    EXPECT_EQ(panel().text(u"Contactname"), "Ann Lee") << "a new panel searches at once";
    activate_with(bob);
    EXPECT_EQ(panel().text(u"Contactname"), "Ann Lee") << "the search has left nothing to compare with";
    activate_with(bob);
    EXPECT_EQ(panel().text(u"Contactname"), "Ann Lee") << "the same item again";
    activate_with(cid);
    EXPECT_TRUE(panel().ends());
    EXPECT_EQ(panel().text(u"Contactname"), "Cid Fox");
    // whatever is pending is searched for when a target is chosen
    panel().search_for(bob);
    EXPECT_EQ(panel().text(u"Contactname"), "Bob Ray");
    EXPECT_EQ(count_messages(world()), 0);
}

TEST_F(SearchPanelWindow, HasThreeInstancesOfWhichOneIsAlwaysMadeAnew) {
    install_panel(world());
    const Item contact = add_full_contact(world());
    panel().open_new(contact);
    panel().open_new(Item());
    EXPECT_EQ(panel().header(), design_header) << "a new one, on nothing";
    panel().close();
    EXPECT_FALSE(panel().is_open()) << "the old one has gone";

    panel().open_second(contact);
    panel().open_second(Item());
    EXPECT_EQ(panel().header(), ann_header) << "it came up as it was";
    panel().open();
    EXPECT_EQ(panel().header(), design_header);
    panel().open();
    panel().close();
    EXPECT_EQ(panel().header(), ann_header) << "there was one default panel";

    // every search lets go of the default panel: it stays, and the next one is another
    panel().open();
    panel().choose(u"Contacts");
    const Picker picker(world(), u"Contacts by id");
    ASSERT_TRUE(picker.comes_up());
    picker.highlight(1);
    picker.click(u"cmdAdd");
    picker.click(u"cmdOK");
    EXPECT_TRUE(panel().ends());
    EXPECT_EQ(panel().header(), ann_header);
    panel().open();
    EXPECT_EQ(panel().header(), design_header);
    panel().close();
    EXPECT_EQ(panel().header(), ann_header);
    world().quit();
    world().start();
    EXPECT_FALSE(panel().is_open()) << "all ended with the host";
}

TEST_F(SearchPanelWindow, SortsByTheTextsOfAColumnAndMarksIt) {
    install_panel(world());
    const Item contact = add_full_contact(world());
    for (const TextView subject : {u"beta", u"Gamma", u"alpha"}) {
        add_note(world(), Text(subject), {{u"ContactID", u"C-200"}});
    }
    panel().open_new(contact);
    constexpr std::int32_t none = -1, down = 0, up = 1;
    EXPECT_EQ(panel().column(2), (Lines{"Ann Lee", "beta", "Gamma", "alpha"})) << "in the walk's order";
    EXPECT_EQ(panel().marks(), (std::vector<std::int32_t>{up, none, none, none, none, none, none}));
    panel().click_column(1);
    EXPECT_EQ(panel().column(1), (Lines{"Notes", "Notes", "Notes", "Account Contacts"}))
        << "the first column counts as the last one that was sorted";
    EXPECT_EQ(panel().marks(), (std::vector<std::int32_t>{down, none, none, none, none, none, none}));
    panel().click_column(2);
    EXPECT_EQ(panel().column(2), (Lines{"alpha", "Ann Lee", "beta", "Gamma"}));
    EXPECT_EQ(panel().marks(), (std::vector<std::int32_t>{none, up, none, none, none, none, none}));
    panel().click_column(2);
    EXPECT_EQ(panel().column(2), (Lines{"Gamma", "beta", "Ann Lee", "alpha"}));
    EXPECT_EQ(panel().marks(), (std::vector<std::int32_t>{none, down, none, none, none, none, none}));
    panel().click_column(2);
    EXPECT_EQ(panel().column(2), (Lines{"alpha", "Ann Lee", "beta", "Gamma"}));

    // the lists of all windows share which column was sorted last
    const OpenedItem mail(world().deliver(message({.from = "zoe@one.example", .to = "ann@two.example"})));
    mail.item.Display();
    NoteDialog dialog(world());
    ASSERT_TRUE(dialog.open(mail));
    dialog.click_column(2);
    EXPECT_EQ(dialog.marks().at(1), down) << "it counts as sorted already";
}

TEST_F(SearchPanelWindow, ComesUpAtTheStartIfTheOptionSaysSo) {
    World& same = with({.started = false});
    same.option(u"EnablePowerPanel", u"1");
    same.start();
    EXPECT_TRUE(same.wait_until([&] { return panel().is_open(); }));
    EXPECT_EQ(panel().header(), design_header);
}

}  // namespace
}  // namespace acceptance
