// The search of the panel while each of its calls to the outside fails.
#include "addin/searchpanel/show_items.h"
#include "tests/native/native_world.h"
#include "tests/native/nth_call.h"
#include "tests/world/search_panel.h"

namespace addin_tests {
namespace {

using acceptance::SearchPanel;

TEST(PanelFailures, SearchOutlivesEveryOne) {
    for (const bool phrases : {false, true}) {
        native::NativeWorld world{acceptance::WorldSetup{}};
        acceptance::install_panel(world);
        const host::outlook::Item account = acceptance::add_full_account(world);
        acceptance::add_note(world, u"A note", {{u"AccountID", u"A-100"}});
        if (phrases) {
            acceptance::desk_option(world, u"InstantSearch", true);
            acceptance::search_in_phrases(world);
        }
        const int calls = native::for_each_call([&](native::NthCall& call) {
            SearchPanel panel(world);
            call.failing(world,
                         [&] { world.connect().call(u"ShowItemsMenu", {automation::Value(account)}); });
            ASSERT_EQ(panel.is_open(), call.member() != "make_window");
            if (!panel.is_open()) return;
            EXPECT_LE(panel.count(), 5);
            EXPECT_EQ(panel.text(u"StoreID"), "") << "the search came to its end";
            EXPECT_EQ(acceptance::count_messages(world), 0);
            world.add_in()->rooms().searchpanel.gSelectedEntryID.clear();
        });
        EXPECT_GT(calls, 100);
        EXPECT_EQ(world.engine().failures, std::vector<std::string>{});
    }
}

}  // namespace
}  // namespace addin_tests
