// A search of the Create Note dialog that is started inside of another one, at each yield of the first.
#include "addin/createnote/dlg_send.h"
#include "tests/native/native_world.h"
#include "tests/world/note_dialog.h"

namespace addin_tests {
namespace {

using acceptance::add_contact;
using acceptance::Lines;
using acceptance::NoteDialog;
using automation::TextView;
using native::NativeWorld;

const Lines names{"Ann One", "Ann Two", "Ann Three"};
const Lines keys{"C-1", "C-2", "C-3"};

/// A world with three contacts and a target that finds them, and a mail in a window.
class Searching {
  public:
    NativeWorld world{acceptance::WorldSetup{}};
    std::unique_ptr<acceptance::OpenedItem> mail;

    Searching() {
        for (std::size_t i = 0; i < names.size(); ++i) {
            add_contact(world, {.full_name = automation::from_utf8(names[i]),
                                .properties = {{u"ContactID", automation::from_utf8(keys[i])}}});
        }
        acceptance::install(world, {acceptance::SearchTarget{}});
        mail = std::make_unique<acceptance::OpenedItem>(world.deliver(acceptance::message()));
        mail->show();
    }

    /// The dialog over the mail, anew, with a text typed that is looked for among the people.
    NoteDialog& looking_for(TextView text) {
        dialog_.reset();
        dialog_ = std::make_unique<NoteDialog>(world);
        EXPECT_TRUE(dialog_->open(*mail));
        dialog_->choose(u"Combo2", u"People");
        dialog_->type(u"SearchString", text);
        return *dialog_;
    }

    /// Does something at the n-th yield of an action.
    void at_yield(int n, const std::function<void()>& deed, const std::function<void()>& action) {
        EXPECT_GE(world.at_yield(n, deed, action), n);
    }

  private:
    std::unique_ptr<NoteDialog> dialog_;
};

TEST(DialogSearchInside, ListsWhatItFindsAndLeavesTheFirstNothingMore) {
    Searching searching;
    NoteDialog& dialog = searching.looking_for(u"Ann");
    struct Case {
        const char* moment;
        std::size_t empty_rows;  // of the first search, behind those of the second
        const char* key;         // which they bear: that of the last item whose own could be read
    };
    const Case cases[] = {{"before the first reads anything", 0, ""},
                          {"before the first has its filter", 0, ""},
                          {"after its first row", 2, "C-1"},
                          {"after its second row", 1, "C-2"},
                          {"after its last row", 0, ""},
                          {"at its end", 0, ""}};
    int yield = 0;
    for (const Case& one : cases) {
        SCOPED_TRACE(one.moment);
        const auto press = [&] { dialog.control(u"cmdSearch").call(u"Click"); };
        searching.at_yield(++yield, press, press);
        EXPECT_EQ(dialog.text(u"lblHeader"), "Search Complete for Ann");
        EXPECT_EQ(dialog.column(1), acceptance::joined({names, Lines(one.empty_rows, "")}));
        EXPECT_EQ(dialog.column(7), acceptance::joined({keys, Lines(one.empty_rows, one.key)}));
    }
    EXPECT_EQ(acceptance::count_messages(searching.world), 0);
}

TEST(DialogSearchInside, EndsWithTheWindow) {
    Searching searching;
    constexpr int yields_of_a_search = 6;
    for (int yield = 1; yield <= yields_of_a_search; ++yield) {
        SCOPED_TRACE(yield);
        NoteDialog& dialog = searching.looking_for(u"Ann");
        const std::int32_t held = acceptance::held(searching.world, u"Items");
        searching.at_yield(
            yield, [&] { dialog.window().call(u"Close"); },
            [&] { dialog.control(u"cmdSearch").call(u"Click"); });
        EXPECT_FALSE(dialog.window()) << "nothing brings it back";
        EXPECT_EQ(acceptance::held(searching.world, u"Items"), held) << "and nothing of the search is left";
    }
    EXPECT_EQ(acceptance::count_messages(searching.world), 0);
}

TEST(DialogSearchInside, GoesOnInNoWindowThatWasClosedAndOpenedAgain) {
    Searching searching;
    constexpr int yields_of_a_search = 6;
    for (int yield = 1; yield <= yields_of_a_search; ++yield) {
        SCOPED_TRACE(yield);
        const auto dialog =
            std::make_shared<addin::createnote::dlgSend>(searching.world.add_in()->rooms().createnote);
        dialog->show();
        const auto window = [&] { return searching.world.engine().find(u"Tarnwell Create Note"); };
        struct Shown {
            int rows;
            automation::Text first_row, header;
            bool operator==(const Shown&) const = default;
        };
        const auto shown = [&] {
            const forms::List& list = window()->control(u"lstRecipients").list();
            return Shown{list.count(), list.text(0, 0), window()->control(u"lblHeader").text()};
        };
        const Shown as_loaded = shown();
        native::MemoryControl& targets = window()->control(u"Combo2");
        int place = 0;
        while (place < targets.choice().count() && targets.choice().entry(place) != u"People") ++place;
        ASSERT_TRUE(targets.choose(place));
        ASSERT_TRUE(window()->control(u"SearchString").type(u"Ann"));
        const auto open_again = [&] {
            dialog->unload();
            dialog->show();
        };
        searching.at_yield(yield, open_again, [&] { window()->control(u"cmdSearch").click(); });
        ASSERT_TRUE(window());
        EXPECT_TRUE(shown() == as_loaded) << automation::to_utf8(shown().header);
        dialog->unload();
    }
    EXPECT_EQ(acceptance::count_messages(searching.world), 0);
}

TEST(DialogSearchInside, OfAWindowThatIsClosedWhileItsMessageIsShownDoesntBringItBack) {
    Searching searching;
    NoteDialog& dialog = searching.looking_for(u"Nobody of this name");
    searching.world.system().on_message_box = [&] { dialog.window().call(u"Close"); };
    dialog.control(u"cmdSearch").call(u"Click");
    EXPECT_EQ(acceptance::message_texts(searching.world), Lines{"No Items Found!"});
    EXPECT_FALSE(dialog.window());
}

TEST(DialogSearchInside, StopsWhereItIsCancelledAndKeepsTheRowsSoFar) {
    Searching searching;
    NoteDialog& dialog = searching.looking_for(u"Ann");
    addin::createnote::State& dialogs = searching.world.add_in()->rooms().createnote;
    const auto cancel = [&] { dialogs.gSearchCancelled = true; };
    const auto search = [&] { dialog.control(u"cmdSearch").call(u"Click"); };
    constexpr int before_the_rows = 2, after_the_second_row = 4;
    searching.at_yield(before_the_rows, cancel, search);
    EXPECT_EQ(dialog.column(1), names) << "what was cancelled before is none of its business";
    EXPECT_EQ(acceptance::count_messages(searching.world), 0);
    searching.at_yield(after_the_second_row, cancel, search);
    EXPECT_EQ(dialog.column(1), (Lines{"Ann One", "Ann Two"}));
    EXPECT_EQ(acceptance::message_texts(searching.world), Lines{"Search Cancelled!"});
    EXPECT_EQ(dialog.text(u"lblHeader"), "Search Complete for Ann");
    EXPECT_EQ(dialog.width(8), 0);
}

TEST(DialogSearchInside, LooksForTheTextThatStandsThereWhenItHasGivenWay) {
    Searching searching;
    NoteDialog& dialog = searching.looking_for(u"Ann");
    for (const int yield : {1, 2}) {
        SCOPED_TRACE(yield);
        dialog.type(u"SearchString", u"Ann One");
        searching.at_yield(
            yield, [&] { dialog.type(u"SearchString", u"Ann Two"); },
            [&] { dialog.control(u"cmdSearch").call(u"Click"); });
        EXPECT_EQ(dialog.column(1), Lines{"Ann Two"});
    }
}

TEST(DialogSearchInside, AsksForTheFoldersKindBeforeItSearchesAndAtEachItem) {
    Searching searching;
    NoteDialog& dialog = searching.looking_for(u"Ann");
    Lines order;
    searching.world.boundary().before_call = [&](const std::string& member) {
        if (member == "MAPIFolder.DefaultItemType") order.emplace_back("kind");
        if (member == "Items.Restrict") order.emplace_back("search");
        if (member == "create TarnwellOMG.SafeContactItem") order.emplace_back("wrapper");
    };
    dialog.control(u"cmdSearch").call(u"Click");
    searching.world.boundary().before_call = nullptr;
    EXPECT_EQ(order, (Lines{"kind", "search", "kind", "wrapper", "kind", "wrapper", "kind", "wrapper"}));
}

TEST(DialogSearch, GoesOnBehindARowThatCantBeAdded) {
    Searching searching;
    NativeWorld& world = searching.world;
    NoteDialog& dialog = searching.looking_for(u"Ann");
    world.boundary().before_call = [rows = 0](const std::string& member) mutable {
        if (member == "list_add" && ++rows == 2) throw automation::Failure(automation::result::fail);
    };
    dialog.control(u"cmdSearch").call(u"Click");
    world.boundary().before_call = nullptr;
    EXPECT_EQ(dialog.column(1), (Lines{"Ann One", "Ann Three"}));
    EXPECT_EQ(dialog.text(u"lblHeader"), "Search Complete for Ann");
    EXPECT_EQ(world.system().shown_pointer, forms::Pointer::standard);
}

// a row that goes while the note is made

/// Clears the list at the first yield of a creation.
void create_while_the_list_is_cleared(Searching& searching, NoteDialog& dialog) {
    searching.at_yield(
        1, [&] { dialog.control(u"Option1").call(u"Click"); },
        [&] { dialog.control(u"cmdSend").call(u"Click"); });
}

TEST(CreateNoteOfARowThatGoes, AsksAboutNobodyAndEnds) {
    Searching searching;
    NativeWorld& world = searching.world;
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(*searching.mail));
    constexpr std::int32_t no = 7;
    world.desk().call(u"Answer", {u"Tarnwell", u"Tarnwell Account/Contact  NOT FOUND!", no});
    create_while_the_list_is_cleared(searching, dialog);
    EXPECT_EQ(acceptance::message_texts(world),
              Lines{"Tarnwell Account/Contact  NOT FOUND!\rWould you like to Create an Account/Contact"});
    EXPECT_EQ(world.system().shown_pointer, forms::Pointer::standard);
    EXPECT_TRUE(dialog.is_open());
    EXPECT_EQ(acceptance::count_in(world, u"Email"), 0);
}

TEST(CreateNoteOfARowThatGoes, OfARecordEndsAsUsualWithoutItsMessage) {
    Searching searching;
    NativeWorld& world = searching.world;
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(*searching.mail));
    dialog.search(u"People", u"Ann");
    create_while_the_list_is_cleared(searching, dialog);
    EXPECT_EQ(acceptance::count_messages(world), 0) << "its text can't be put together";
    EXPECT_EQ(world.system().shown_pointer, forms::Pointer::standard);
    EXPECT_TRUE(dialog.closes()) << "it counts as created";
    EXPECT_EQ(acceptance::count_in(world, u"Email"), 1);
    EXPECT_TRUE(acceptance::is_marked_by_user(searching.mail->item));
}

TEST(CreateNoteOfARecord, IsReportedAsDoneButNotMadeWhereNoTargetIsChosenAnyMore) {
    Searching searching;
    NativeWorld& world = searching.world;
    NoteDialog dialog(world);
    ASSERT_TRUE(dialog.open(*searching.mail));
    dialog.search(u"People", u"Ann");
    world.engine().find(u"Tarnwell Create Note")->control(u"Combo2").choice().choose(-1);
    ASSERT_EQ(dialog.text(u"Combo2"), "");
    dialog.create();
    EXPECT_TRUE(dialog.closes());
    EXPECT_EQ(acceptance::message_texts(world), Lines{"Done - creating Note for Ann One"});
    EXPECT_EQ(acceptance::count_in(world, u"Email"), 0);
    EXPECT_EQ(searching.mail->item.BillingInformation(), u"");
}

}  // namespace
}  // namespace addin_tests
