// Quick View's own pieces: the texts of its filters, the order of its list, and what becomes of it when the
// world changes while it works.
#include "addin/quickview/quick_view.h"

#include <algorithm>
#include <random>
#include <set>

#include "tests/native/native_world.h"
#include "tests/native/nth_call.h"
#include "tests/world/quick_view.h"

namespace addin_tests {
namespace {

using acceptance::add_contact;
using acceptance::message;
using addin::quickview::QuickView;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;
using native::NativeWorld;

// the order of the list

/// A window with rows of given dates.
class SortedQuickView : public testing::Test {
  protected:
    NativeWorld world_{{}};
    std::shared_ptr<QuickView> window_ = std::make_shared<QuickView>(world_.add_in()->rooms().quickview);

    forms::List& list() { return window_->control(u"lstItems").list(); }

    void fill(const std::vector<Text>& dates) {
        list().sorted(false);
        list().clear();
        int number = 0;
        for (const Text& date : dates) {
            const int row = list().add(automation::to_text(static_cast<long long>(number++)));
            list().text(row, 1, date);
        }
    }
    std::vector<Text> dates() {
        std::vector<Text> all;
        for (int row = 0; row < list().count(); ++row) all.push_back(list().text(row, 1));
        return all;
    }
    std::vector<Text> texts() {
        std::vector<Text> all;
        for (int row = 0; row < list().count(); ++row) all.push_back(list().text(row, 0));
        return all;
    }
    std::set<Text> rows() {
        const std::vector<Text> all = texts();
        EXPECT_EQ(std::set<Text>(all.begin(), all.end()).size(), all.size());
        return {all.begin(), all.end()};
    }
    /// The parameter of a row; they count on for as long as the list is there.
    std::intptr_t parameter_of(int row) {
        constexpr std::intptr_t most = 100000;
        for (std::intptr_t parameter = 1; parameter < most; ++parameter) {
            if (list().find(parameter) == row) return parameter;
        }
        return 0;
    }
    void click(int column) {
        native::MemoryWindow* const shown = world_.engine().find(u"TW Quick View");
        ASSERT_NE(shown, nullptr);
        window_->show();
        ASSERT_TRUE(shown->control(u"lstItems").column_click(column));
        world_.settle();
    }
};

Text date_of(int day) { return automation::to_text(automation::Date{46000.0 + day}); }

TEST_F(SortedQuickView, ComparesDatesWithThreeNumbers) {
    struct Case {
        const char* name;
        Text first, second;
        int rising, falling;
    };
    const Case cases[] = {
        {"before", date_of(1), date_of(2), 0, 2},
        {"equal", date_of(1), date_of(1), 1, 1},
        {"later", date_of(2), date_of(1), 2, 0},
        {"unreadable and a date", u"no date", date_of(1), 0, 2},
        {"a date and an empty text", date_of(1), u"", 2, 0},
        {"both unreadable", u"no date", u"neither", 1, 1},
        {"an earlier day than the first one", u"1890-01-01", u"no date", 0, 2},
        // the buffer's 32 characters end with the terminator
        {"a date in 31 characters and more behind", Text(21, u' ') + u"1890-01-01" + u"x", u"no date", 0, 2},
        {"a date of which 30 characters are blanks", Text(22, u' ') + u"1890-01-01", u"no date", 1, 1},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        fill({one.first, one.second});
        addin::quickview::State& state = world_.add_in()->rooms().quickview;
        const std::intptr_t first = parameter_of(0), second = parameter_of(1);
        state.SortAscending = true;
        EXPECT_EQ(window_->CompareDates(first, second), one.rising);
        state.SortAscending = false;
        EXPECT_EQ(window_->CompareDates(first, second), one.falling);
        EXPECT_EQ(window_->CompareDates(0, 0), 1) << "rows that aren't there";
    }
}

TEST_F(SortedQuickView, SortsListsOfAnyLengthWithAnyDates) {
    std::mt19937 chance(7);  // the same each time
    for (const std::size_t count : {1U, 2U, 50U, 2000U}) {
        for (const char* const kind : {"different", "many equal", "all equal", "some unreadable", "none"}) {
            SCOPED_TRACE(std::to_string(count) + " " + kind);
            std::vector<Text> dates_before;
            for (std::size_t i = 0; i < count; ++i) {
                const int day = static_cast<int>(chance() % 10000);
                const std::string how = kind;
                if (how == "different") dates_before.push_back(date_of(static_cast<int>(i)));
                if (how == "many equal") dates_before.push_back(date_of(day % 5));
                if (how == "all equal") dates_before.push_back(date_of(1));
                if (how == "some unreadable") dates_before.push_back(day % 3 ? date_of(day) : Text(u"?"));
                if (how == "none") dates_before.emplace_back();
            }
            std::ranges::shuffle(dates_before, chance);
            fill(dates_before);
            const std::set<Text> rows_before = rows();
            std::vector<Text> rising = dates_before;
            std::ranges::sort(rising);
            std::stable_partition(rising.begin(), rising.end(),
                                  [](const Text& date) { return date.size() < 5; });
            std::vector<Text> falling(rising.rbegin(), rising.rend());
            addin::quickview::State& state = world_.add_in()->rooms().quickview;
            state.SortAscending = true;
            click(1);
            EXPECT_FALSE(state.SortAscending);
            EXPECT_EQ(dates(), falling);
            EXPECT_EQ(rows(), rows_before) << "each row is still there, once";
            click(1);
            EXPECT_EQ(dates(), rising);
            EXPECT_EQ(rows(), rows_before);
            click(0);
            EXPECT_EQ(rows(), rows_before);
            EXPECT_TRUE(std::ranges::is_sorted(texts())) << "the flag is off";
        }
    }
}

// what the button for the panel hands over

TEST(QuickViewPanelButton, HandsOverTheRecordAndMakesThePanelAnew) {
    class Panel : public forms::Window {
      public:
        explicit Panel(std::vector<std::string>& told) : told_(told) {}
        void show() override { told_.emplace_back("show"); }
        void hide() override {}
        void unload() override { told_.emplace_back("unload"); }

      private:
        std::vector<std::string>& told_;
    };
    std::vector<std::string> told;  // by a panel that ends with the world
    NativeWorld world{{}};
    addin::searchpanel::State& panels = world.add_in()->rooms().searchpanel;
    panels.gPanelMenu.made_by([&] { return std::make_shared<Panel>(told); });
    panels.gPanelMenu.show();
    const auto window = std::make_shared<QuickView>(world.add_in()->rooms().quickview);
    window->control(u"EntryID").text(u"E");
    window->control(u"StoreID").text(u"S");
    window->control(u"MessageClass").text(u"M");
    window->show();
    world.engine().find(u"TW Quick View")->control(u"cmdSearchpanel").click();
    world.settle();
    EXPECT_EQ(panels.gSelectedEntryID, u"E");
    EXPECT_EQ(panels.gSelectedStoreID, u"S");
    EXPECT_EQ(panels.gSelectedClass, u"M");
    EXPECT_EQ(told, (std::vector<std::string>{"show", "unload", "show"}));
}

// a drop beside the rows

TEST(QuickViewDrop, BelowTheRowsDoesNothing) {
    NativeWorld world{{}};
    const auto window = std::make_shared<QuickView>(world.add_in()->rooms().quickview);
    forms::List& list = window->control(u"lstItems").list();
    list.add(u"row");
    list.takes_drops(true);
    window->show();
    native::MemoryControl& shown = world.engine().find(u"TW Quick View")->control(u"lstItems");
    world.boundary().forget_calls();
    ASSERT_TRUE(shown.drop(-1));
    world.settle();
    EXPECT_TRUE(world.boundary().calls().empty());
    EXPECT_EQ(list.selected(), -1);
    const forms::Hit second_column = list.hit(shown.memory_list().pixel_width(0) + 5, 30);
    EXPECT_EQ(second_column.row, 0) << "a cell of another column is the row's, too";
}

// what comes while it waits

std::unique_ptr<NativeWorld> followed_world() {
    auto world = std::make_unique<NativeWorld>(acceptance::WorldSetup{});
    world->option(u"EnableQuickView", u"1");
    acceptance::show_folder(*world, world->inbox());
    add_contact(*world);
    add_contact(*world, u"Bob Ray", u"bob@ray.example");
    return world;
}

/// Runs an action at the next yield after the n-th call of a routine, for every n.
template <class Action, class After>
void at_every_call(const Action& action, const After& after) {
    native::for_each_call([&](native::NthCall& call) {
        const auto world = followed_world();
        const Item of_ann = world->deliver(message());
        const Item of_bob = world->deliver(message({.from = "Bob Ray <bob@ray.example>"}));
        const auto post = [&] { world->model().surroundings().post([&] { action(*world, of_bob); }); };
        call.with(*world, post, [&] {
            world->desk().call(u"Select", {Value(of_ann)});
            world->settle();
        });
        after(*world);
    });
}

/// The filters that the choice of a folder sends, in their order.
std::vector<std::string> filters_of_choice(bool instant_search, TextView company) {
    NativeWorld world({.instant_search = instant_search});
    const auto window = std::make_shared<QuickView>(world.add_in()->rooms().quickview);
    window->show();
    window->control(u"ContactID").text(u"C-200");
    window->control(u"CompanyName").text(company);
    std::vector<std::string> sent;
    world.boundary().before_request = [&](const std::string& member, const automation::Request& request) {
        if (member == "Items.Restrict")
            sent.push_back(automation::to_utf8(request.arguments.at(0).to_text()));
    };
    forms::Choice& folders = window->control(u"cmbFolders").choice();
    folders.clear();
    folders.add(u"Notes");
    world.engine().find(u"TW Quick View")->control(u"cmbFolders").choose(0);
    world.settle();
    world.boundary().before_request = nullptr;
    return sent;
}

TEST(QuickViewFilters, NameTheContactAndTheCompany) {
    const std::string address =
        "\"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/";
    const std::string like = "@SQL=(" + address + "ContactID\" Like 'C-200')";
    const auto indexed = [&](const std::string& company) {
        return "@SQL=(" + address + "ContactID\" ci_phrasematch 'C-200' AND " + address +
               "Account%20Name\" ci_phrasematch '" + company + "')";
    };
    const std::string of_mill = indexed("North Mill Ltd"), of_malley = indexed("O'Malley");
    EXPECT_EQ(filters_of_choice(true, u"North Mill Ltd"), (std::vector{of_mill, of_mill}))
        << "the probe, and the folder";
    EXPECT_EQ(filters_of_choice(false, u"North Mill Ltd"), (std::vector{of_mill, like}))
        << "a store without an index refuses the probe";
    EXPECT_EQ(filters_of_choice(true, u"O'Malley"), (std::vector{of_malley, like}))
        << "an apostrophe is left as it is, and the store refuses what it makes of the filter";
}

/// The turns of the message loop and the calls by which a launch can be followed, in their order.
std::vector<std::string> steps_of_launch(NativeWorld& world, const Item& mail) {
    constexpr std::string_view told[] = {"create Tarnwell.connect",
                                         "create TarnwellOMG.SafeMailItem",
                                         "NameSpace.GetFolderFromID",
                                         "SafeMailItem.SenderName",
                                         "Items.Find",
                                         "WshShell.Run"};
    std::vector<std::string> steps;
    world.boundary().before_call = [&](const std::string& member) {
        if (std::ranges::find(told, member) != std::end(told)) steps.push_back(member);
    };
    world.follow_yields([&](int) { steps.emplace_back("yield"); },
                        [&] {
                            world.desk().call(u"Select", {Value(mail)});
                            world.settle();
                        });
    world.boundary().before_call = nullptr;
    return steps;
}

TEST(QuickViewLaunch, GivesWayBetweenItsSteps) {
    const auto world = followed_world();
    const Item of_ann = world->deliver(message());
    const Item of_nobody = world->deliver(message({.from = "No One <no.one@nowhere.example>"}));
    using Steps = std::vector<std::string>;
    const Steps begins = {"yield", "yield",
                          "yield", "create Tarnwell.connect",
                          "yield", "create TarnwellOMG.SafeMailItem",
                          "yield", "NameSpace.GetFolderFromID",
                          "yield", "SafeMailItem.SenderName",
                          "yield", "Items.Find",
                          "yield", "Items.Find",
                          "yield"};
    const auto followed_by = [&](const Steps& rest) {
        Steps all = begins;
        all.insert(all.end(), rest.begin(), rest.end());
        return all;
    };
    EXPECT_EQ(steps_of_launch(*world, of_ann), followed_by({"yield", "yield", "create Tarnwell.connect",
                                                            "NameSpace.GetFolderFromID", "yield"}))
        << "the window that comes opens the database, too";
    EXPECT_EQ(steps_of_launch(*world, of_nobody), followed_by({"yield", "SafeMailItem.SenderName", "yield"}));
}

/// Quick View on a mail of Ann Lee's, with the row of an opportunity.
struct Followed {
    std::unique_ptr<NativeWorld> world = followed_world();
    Item mail = world->deliver(message());
    Item opportunity = acceptance::add_record(*world, u"Opportunities", u"IPM.Post.Opportunity", u"Row",
                                              acceptance::keys_of_ann);
    native::MemoryWindow* window = nullptr;

    Followed() {
        world->desk().call(u"Select", {Value(mail)});
        world->settle();
        window = world->engine().find(u"TW Quick View");
        forms::List& rows = list();
        rows.add(u"Row");
        rows.text(0, 2, opportunity.EntryID());
        rows.takes_drops(true);
    }
    forms::List& list() {
        return world->add_in()->rooms().quickview.QuickView.window()->control(u"lstItems").list();
    }
};

TEST(QuickViewDrop, TellsThatTheMailIsCopiedForASecond) {
    Followed followed;
    native::NativeDesktop& system = followed.world->system();
    const std::uint32_t slept_before = system.slept;
    std::set<Text> captions;
    std::set<forms::Pointer> pointers;
    followed.world->boundary().before_call = [&](const std::string&) {
        captions.insert(followed.window->caption());
        pointers.insert(system.shown_pointer);
    };
    ASSERT_TRUE(followed.window->control(u"lstItems").drop(0));
    followed.world->settle();
    followed.world->boundary().before_call = nullptr;
    EXPECT_EQ(captions, (std::set<Text>{u"Copying Email.", u"TW Quick View"}));
    EXPECT_TRUE(pointers.contains(forms::Pointer::hourglass));
    EXPECT_EQ(system.slept - slept_before, 1000U);
    EXPECT_EQ(followed.window->caption(), u"TW Quick View");
    EXPECT_EQ(system.shown_pointer, forms::Pointer::standard);
    EXPECT_EQ(system.beeps, 0);
}

TEST(QuickViewDrop, OnARowWithoutATextIsRefusedWithABeep) {
    Followed followed;
    followed.list().text(0, 0, u"");
    native::NativeDesktop& system = followed.world->system();
    ASSERT_TRUE(followed.window->control(u"lstItems").drop(0));
    followed.world->settle();
    EXPECT_EQ(system.beeps, 1);
    EXPECT_EQ(system.shown_pointer, forms::Pointer::standard);
    EXPECT_EQ(acceptance::count_in(*followed.world, u"Email"), 0);
}

TEST(QuickViewAdd, ReadsTheKeyOfTheRecordAgainAfterItIsShown) {
    Followed followed;
    followed.world->system().shown_pointer = forms::Pointer::hourglass;
    followed.world->add_in()
        ->rooms()
        .quickview.QuickView.window()
        ->control(u"cmbFolders")
        .text(u"Opportunities");
    bool displayed = false;
    std::vector<Text> read;
    followed.world->boundary().before_request = [&](const std::string& member,
                                                    const automation::Request& request) {
        displayed = displayed || member.ends_with(".Display");
        if (displayed && member == "UserProperties.Item") read.push_back(request.arguments.at(0).to_text());
    };
    ASSERT_TRUE(followed.window->control(u"cmdAdd").click());
    followed.world->settle();
    followed.world->boundary().before_request = nullptr;
    ASSERT_FALSE(read.empty());
    EXPECT_EQ(read.front(), u"OppID") << "the form may have given it another one";
    EXPECT_EQ(followed.world->system().shown_pointer, forms::Pointer::standard);
}

TEST(QuickViewMeanwhile, AnotherSelectionMayComeAtAnyYield) {
    at_every_call([](NativeWorld& world, const Item& other) { world.desk().call(u"Select", {Value(other)}); },
                  [](NativeWorld& world) {
                      const native::MemoryWindow* const shown = world.engine().find(u"TW Quick View");
                      ASSERT_NE(shown, nullptr);
                      EXPECT_TRUE(shown->visible());
                  });
}

TEST(QuickViewMeanwhile, ItsWindowMayGoAtAnyYield) {
    at_every_call(
        [](NativeWorld& world, const Item&) {
            if (world.add_in()) world.add_in()->rooms().quickview.QuickView.unload();
        },
        [](NativeWorld&) {});
}

TEST(QuickViewMeanwhile, TheAddInMayStopAtAnyYield) {
    at_every_call(
        [](NativeWorld& world, const Item&) {
            if (world.add_in()) world.add_in()->StopAddIn();
        },
        [](NativeWorld& world) { world.unload_add_in(1); });
}

TEST(QuickViewMeanwhile, ItMayEndInItsOwnEvents) {
    struct Case {
        const char* name;
        std::function<void(native::MemoryWindow&)> deed;
    };
    const Case cases[] = {
        {"a folder is chosen", [](native::MemoryWindow& w) { w.control(u"cmbFolders").choose(0); }},
        {"a record is made", [](native::MemoryWindow& w) { w.control(u"cmdAdd").click(); }},
        {"a mail is dropped", [](native::MemoryWindow& w) { w.control(u"lstItems").drop(0); }},
        {"a link is followed", [](native::MemoryWindow& w) { w.control(u"Contactname").click(); }},
        {"a row is opened", [](native::MemoryWindow& w) { w.control(u"lstItems").double_click(0); }},
    };
    for (const Case& one : cases) {
        const auto world = followed_world();
        const Item mail = world->deliver(message());
        const Item row = acceptance::add_record(*world, u"Opportunities", u"IPM.Post.Opportunity", u"Row",
                                                acceptance::keys_of_ann);
        SCOPED_TRACE(one.name);
        native::for_each_call([&](native::NthCall& call) {
            world->desk().call(u"Select", {Value(mail)});
            native::MemoryWindow* const shown = world->engine().find(u"TW Quick View");
            ASSERT_NE(shown, nullptr);
            addin::quickview::State& state = world->add_in()->rooms().quickview;
            forms::List& list = state.QuickView.window()->control(u"lstItems").list();
            list.add(u"row");
            list.text(0, 2, row.EntryID());
            list.takes_drops(true);
            call.with(
                *world, [&] { state.QuickView.unload(); },
                [&] {
                    one.deed(*shown);
                    world->settle();
                });
            EXPECT_EQ(call.came() && world->engine().find(u"TW Quick View") != nullptr, false)
                << "what has gone doesn't come back";
        });
    }
}

}  // namespace
}  // namespace addin_tests
