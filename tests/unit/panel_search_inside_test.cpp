// What happens while the panel's search gives way to events: its window is closed, made anew, searches again,
// and the host lets go of the add-in. Nothing that has gone is touched.
#include <algorithm>
#include <map>
#include <set>

#include "addin/ground/status_windows.h"
#include "addin/searchpanel/show_items.h"
#include "tests/native/native_world.h"
#include "tests/world/search_panel.h"

namespace addin_tests {
namespace {

using acceptance::Lines;
using acceptance::SearchPanel;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
using native::NativeWorld;

const Lines of_account{"North Mill Ltd", "A note"};
const Lines of_bell{"Bell & Sons", "Of Bell"};

struct PanelSearching {
    NativeWorld world{acceptance::WorldSetup{}};
    Item account, bell;
    int last_yields = 0;

    PanelSearching() {
        acceptance::install_panel(world);
        account = acceptance::add_full_account(world);
        bell = acceptance::add_full_account(world, u"Bell & Sons", u"A-7");
        acceptance::add_note(world, u"A note", {{u"AccountID", u"A-100"}});
        acceptance::add_note(world, u"Of Bell", {{u"AccountID", u"A-7"}});
    }

    addin::Session& session() { return world.add_in()->session(); }
    addin::searchpanel::State& panels() { return world.add_in()->rooms().searchpanel; }
    void menu(TextView operation, const Item& item) { world.connect().call(operation, {Value(item)}); }

    /// Does something at the n-th yield of a search; whether there was one.
    bool at_yield(int n, const std::function<void()>& deed, const std::function<void()>& search) {
        last_yields = world.at_yield(n, deed, search);
        return last_yields >= n;
    }
};

TEST(PanelSearchInside, TellsWhatItHasFoundAndWhereItStops) {
    PanelSearching searching;
    for (int i = 0; i < 59; ++i) {
        acceptance::add_note(searching.world, u"A note", {{u"AccountID", u"A-100"}});
    }
    SearchPanel panel(searching.world);
    panel.open_second(Item());
    searching.menu(u"ShowItemsMenu2", searching.account);
    std::set<std::string> told;
    searching.world.follow_yields(
        [&](int) {
            if (panel.window()) told.insert(panel.text(u"StoreID"));
        },
        [&] { panel.choose(u"Accounts"); });
    EXPECT_TRUE(told.contains("Found 1 items in folder Account Profiles."));
    EXPECT_TRUE(told.contains("Please Wait.. Searching for North Mill Ltd  in folder Account Contacts"))
        << "where nothing is found, for an account without a contact";
    EXPECT_EQ(std::ranges::count_if(told,
                                    [](const std::string& text) {
                                        return text.starts_with("Found 60 items in folder ") &&
                                               text.ends_with(". Stopping at 50.");
                                    }),
              1);
    EXPECT_EQ(panel.text(u"StoreID"), "") << "at the end";
}

TEST(PanelSearchInside, ShowsTheStatusDuringTheWalkForAccountsAlone) {
    PanelSearching searching;
    const Item contact = acceptance::add_full_contact(searching.world);
    for (const bool of_account : {true, false}) {
        SCOPED_TRACE(of_account);
        std::set<bool> shown;
        searching.world.follow_yields(
            [&](int) { shown.insert(searching.session().SearchForm.window()->view().visible()); },
            [&] { searching.menu(u"ShowItemsMenu", of_account ? searching.account : contact); });
        EXPECT_EQ(shown, std::set<bool>{of_account});
        EXPECT_FALSE(searching.session().SearchForm.window()->view().visible()) << "at the end";
    }
}

TEST(PanelSearchInside, LeavesNothingPending) {
    PanelSearching searching;
    searching.menu(u"ShowItemsMenu", searching.account);
    EXPECT_EQ(searching.panels().gSelectedEntryID, u"");
    EXPECT_EQ(searching.panels().gSelectedStoreID, u"");
}

/// What the members of a kind are given, as "member text".
Lines arguments_of(NativeWorld& world, const std::set<std::string>& members,
                   const std::function<void()>& deed) {
    Lines given;
    world.boundary().before_request = [&](const std::string& member, const automation::Request& request) {
        if (!members.contains(member)) return;
        given.push_back(member);
        for (const Value& argument : request.arguments)
            given.back() += " " + automation::to_utf8(argument.to_text());
    };
    deed();
    world.boundary().before_request = nullptr;
    return given;
}

/// The sender is read through a wrapper that is made for each folder, or was made for the one before.
TEST(PanelSearchInside, ReadsTheSenderThroughTheLastWrapperThatCouldBeMade) {
    PanelSearching searching;
    for (const TextView folder : {u"Email", u"Notes"}) {
        const Item mail = searching.world.deliver(acceptance::message());
        mail.UserProperties().Add(u"AccountID", 1, false).value(Value(u"A-100"));
        mail.Save();
        mail.Move(searching.world.below(folder));
    }
    int made = 0;
    searching.world.boundary().before_call = [&](const std::string& member) {
        constexpr int of_the_first = 2;  // the accounts' folder above them has its own
        if (member != "create TarnwellOMG.SafeMailItem" || ++made <= of_the_first) return;
        throw automation::Failure(automation::result::fail, u"made to fail");
    };
    searching.menu(u"ShowItemsMenu", searching.account);
    const SearchPanel panel(searching.world);
    EXPECT_TRUE(panel.ends());
    searching.world.boundary().before_call = nullptr;
    EXPECT_GT(made, 2);
    const Lines creators = panel.column(3);
    EXPECT_EQ(std::ranges::count(creators, "Ann Lee"), 2);
}

TEST(PanelSearchInside, OpensTheTwoFoldersByTheirIds) {
    PanelSearching searching;
    EXPECT_EQ(arguments_of(searching.world, {"MainAddIn.GetFolderId"},
                           [&] { searching.menu(u"ShowItemsMenu", searching.account); }),
              (Lines{"MainAddIn.GetFolderId Account Profiles",  // the window's own
                     "MainAddIn.GetFolderId Account Profiles", "MainAddIn.GetFolderId System Folder"}));
}

TEST(PanelSearchInside, HandsThePickerTheFolderAndTheDefinition) {
    PanelSearching searching;
    SearchPanel panel(searching.world);
    panel.open();
    const host::outlook::Folder profiles = searching.world.account_profiles();
    const Lines given = arguments_of(
        searching.world, {"ListPicker.StoreID", "ListPicker.FolderId", "ListPicker.searchany"}, [&] {
            panel.choose(u"Accounts");
            const acceptance::Picker picker(searching.world, u"Accounts by id");
            ASSERT_TRUE(picker.comes_up());
            picker.click(u"cmdCancel");
            EXPECT_TRUE(picker.goes());
        });
    EXPECT_EQ(given, (Lines{"ListPicker.StoreID " + acceptance::shown(profiles.StoreID()),
                            "ListPicker.FolderId " + acceptance::shown(profiles.EntryID()),
                            "ListPicker.searchany Accounts by id Accounts by id False"}));
}

TEST(PanelSearchInside, KeepsNoPickerBeyondItsEnd) {
    PanelSearching searching;
    SearchPanel panel(searching.world);
    panel.open();
    for (int search = 1; search <= 2; ++search) {
        SCOPED_TRACE(search);
        searching.world.boundary().forget_calls();
        panel.choose(u"Accounts");
        const acceptance::Picker picker(searching.world, u"Accounts by id");
        ASSERT_TRUE(picker.comes_up());
        picker.click(u"cmdCancel");
        EXPECT_TRUE(picker.goes());
        EXPECT_TRUE(panel.ends());
        EXPECT_EQ(std::ranges::count(searching.world.boundary().calls(), "create ContactList.List"), 1);
    }
}

TEST(PanelSearchInside, TakesTheDefinitionOfTheTargetThatIsChosenWhenThePickerGoes) {
    PanelSearching searching;
    SearchPanel panel(searching.world);
    panel.open();
    panel.choose(u"Accounts");
    const acceptance::Picker picker(searching.world, u"Accounts by id");
    ASSERT_TRUE(picker.comes_up());
    searching.world.engine().find(acceptance::panel_caption)->control(u"SearchMe").text(u"Contacts");
    const Lines definitions = arguments_of(searching.world, {"Items.Restrict"}, [&] {
        picker.highlight(1);
        picker.click(u"cmdAdd");
        picker.click(u"cmdOK");
        EXPECT_TRUE(picker.goes());
        EXPECT_TRUE(panel.ends());
    });
    EXPECT_EQ(std::ranges::count_if(definitions,
                                    [](const std::string& filter) {
                                        return filter.ends_with("subject\" Like 'Contacts by id')");
                                    }),
              1);
}

TEST(PanelSearchInside, OfAWindowThatIsClosedEndsAtEachYield) {
    int yield = 1;
    for (bool more = true; more; ++yield) {
        SCOPED_TRACE(yield);
        PanelSearching searching;
        SearchPanel panel(searching.world);
        panel.open_second(Item());
        searching.menu(u"ShowItemsMenu2", searching.account);
        more = searching.at_yield(
            yield, [&] { searching.world.engine().find(acceptance::panel_caption)->close(); },
            [&] { panel.choose(u"Accounts"); });
        if (more) {
            EXPECT_FALSE(panel.window());
            EXPECT_EQ(searching.last_yields, yield) << "no folder is looked at any more";
            EXPECT_FALSE(searching.session().SearchForm.window()->view().visible());
            EXPECT_FALSE(searching.session().gOutlookApp);
            panel.open_second(searching.bell);
            EXPECT_EQ(panel.column(2), of_bell);
        }
        ASSERT_LT(yield, 60);
    }
    EXPECT_GT(yield, 5);
}

TEST(PanelSearchInside, GoesOnInNoWindowThatWasLoadedAnew) {
    PanelSearching searching;
    SearchPanel panel(searching.world);
    panel.open_second(Item());
    searching.menu(u"ShowItemsMenu2", searching.account);
    ASSERT_TRUE(searching.at_yield(
        3,
        [&] {
            searching.world.engine().find(acceptance::panel_caption)->close();
            searching.menu(u"ShowItemsMenu2", searching.bell);
        },
        [&] { panel.choose(u"Accounts"); }));
    EXPECT_EQ(panel.column(2), of_bell);
}

TEST(PanelSearchInside, InALoadEndsWithItsPanelWhenThatIsMadeAnew) {
    int yield = 1;
    for (bool more = true; more; ++yield) {
        SCOPED_TRACE(yield);
        PanelSearching searching;
        SearchPanel panel(searching.world);
        more = searching.at_yield(
            yield, [&] { searching.menu(u"ShowItemsMenu", searching.bell); },
            [&] { searching.menu(u"ShowItemsMenu", searching.account); });
        EXPECT_EQ(panel.column(2), more ? of_bell : of_account);
        EXPECT_EQ(searching.panels().loaded_panels.size(), 1U);
        EXPECT_EQ(searching.world.engine().failures, std::vector<std::string>{});
        ASSERT_LT(yield, 60);
    }
    EXPECT_GT(yield, 5);
}

TEST(PanelSearchInside, OutlivesTheEndOfTheAddIn) {
    for (const bool in_load : {true, false}) {
        int yield = 1;
        for (bool more = true; more; ++yield) {
            SCOPED_TRACE(yield);
            PanelSearching searching;
            {
                SearchPanel panel(searching.world);
                if (!in_load) {
                    panel.open_second(Item());
                    searching.menu(u"ShowItemsMenu2", searching.account);
                }
                more = searching.at_yield(
                    yield, [&] { searching.world.unload_add_in(1); },
                    [&] {
                        if (in_load) {
                            const automation::Object connect = searching.world.connect();
                            connect.call(u"ShowItemsMenu2", {Value(searching.account)});
                        } else {
                            panel.choose(u"Accounts");
                        }
                    });
            }
            if (more) {
                EXPECT_TRUE(searching.world.engine().windows().empty());
                EXPECT_TRUE(searching.world.boundary().live().empty());
            }
            ASSERT_LT(yield, 60);
        }
        EXPECT_GT(yield, 5);
    }
}

TEST(PanelSearchInside, StartedAgainFillsTheSameListUnderIt) {
    int yield = 1;
    for (bool more = true; more; ++yield) {
        SCOPED_TRACE(yield);
        PanelSearching searching;
        SearchPanel panel(searching.world);
        panel.open_second(Item());
        searching.menu(u"ShowItemsMenu2", searching.account);
        more = searching.at_yield(
            yield,
            [&] {
                searching.menu(u"ShowItemsMenu2", searching.bell);
                panel.choose(u"Accounts");
            },
            [&] { panel.choose(u"Accounts"); });
        Lines rows = panel.column(2);
        if (more) {
            ASSERT_GE(rows.size(), 2U);
            EXPECT_EQ(Lines(rows.begin(), rows.begin() + 2), of_bell) << "the inner one clears and fills";
            const Lines rest(rows.begin() + 2, rows.end());
            EXPECT_TRUE(rest.empty() || rest == of_account || rest == Lines{"A note"})
                << "and the outer one goes on where it was";
            EXPECT_EQ(panel.text(u"CompanyName"), "Bell & Sons");
        } else {
            EXPECT_EQ(rows, of_account);
        }
        ASSERT_LT(yield, 60);
    }
    EXPECT_GT(yield, 5);
}

TEST(PanelSearchInside, IsResizedAndCancelledWhileItGoesOn) {
    PanelSearching searching;
    SearchPanel panel(searching.world);
    panel.open_second(Item());
    searching.menu(u"ShowItemsMenu2", searching.account);
    const auto before = panel.widths();
    ASSERT_TRUE(searching.at_yield(
        2,
        [&] {
            native::MemoryWindow& window = *searching.world.engine().find(acceptance::panel_caption);
            EXPECT_TRUE(window.resize(900, 700));
            EXPECT_TRUE(window.key(27));
            EXPECT_TRUE(window.key('A')) << "any other key takes it back";
        },
        [&] { panel.choose(u"Accounts"); }));
    EXPECT_NE(panel.widths(), before);
    EXPECT_EQ(panel.column(2), of_account);
    EXPECT_EQ(acceptance::count_messages(searching.world), 0);
    // told at each folder from there on, and at each of the items
    searching.menu(u"ShowItemsMenu2", searching.account);
    const int folders = searching.last_yields;
    ASSERT_TRUE(searching.at_yield(
        1, [&] { searching.world.engine().find(acceptance::panel_caption)->key(27); },
        [&] { panel.choose(u"Accounts"); }));
    EXPECT_EQ(panel.column(2), of_account);
    EXPECT_EQ(acceptance::count_messages(searching.world), folders + 2);
}

// what calls it makes

TEST(PanelSearchInside, AsksEachFolderOnceAndReadsOfARowWhatItShows) {
    PanelSearching searching;
    for (int i = 0; i < 9; ++i) {
        acceptance::add_note(searching.world, u"More", {{u"AccountID", u"A-100"}});
    }
    std::map<std::string, int> calls;
    const auto count = [&] {
        calls.clear();
        searching.world.boundary().forget_calls();
        searching.menu(u"ShowItemsMenu", searching.account);
        for (const std::string& call : searching.world.boundary().calls()) ++calls[call];
    };
    count();
    const int folders = [&] {
        searching.at_yield(
            1, [] {}, [&] { searching.menu(u"ShowItemsMenu", searching.account); });
        return searching.last_yields;
    }();
    constexpr int around = 4;  // the entry, the account, the definition, the account's locations
    EXPECT_EQ(calls["Items.Restrict"], folders + around);
    EXPECT_EQ(calls["SafeMailItem.SenderName"], 11) << "once for each row";
    EXPECT_EQ(calls["create TarnwellOMG.SafeMailItem"], 2) << "once for each folder with a match";
    const std::map<std::string, int> before = calls;
    acceptance::add_note(searching.world, u"More", {{u"AccountID", u"A-100"}});
    count();
    int more = 0;
    for (const auto& [name, times] : calls) {
        if (name.find('.') != std::string::npos) more += times - before.at(name);  // of objects
    }
    EXPECT_EQ(more, 8) << "item, wrapper, subject, sender, class, time, change, entry id";
}

}  // namespace
}  // namespace addin_tests
