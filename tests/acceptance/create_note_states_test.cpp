// The states of the Create Note dialog: each one, each way into it, and each way out of it.
#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::TextView;
using automation::Value;
using host::outlook::Item;

const Lines addresses{"ann.lee@northmill.example", "tom.prior@tarnwell.example"};
const Lines ann_found{"Ann Lee|North Mill Ltd||Mia Hart|Sales|North|C-200"};
constexpr TextView ask_for_target =
    u"Please select a folder to search (Create Note for: drop down on the right).";

class NoteDialogStates : public WithNoteDialog {
  protected:
    void SetUp() override {
        World& world = with({});
        add_contact(world);
        install(world, {SearchTarget{}});
        mail_ = world.deliver(message());
        dialog_ = &opened(mail_);
        ASSERT_TRUE(dialog_->is_open());
    }

    NoteDialog& dialog() { return *dialog_; }
    const Item& mail() const { return mail_; }

    void expect_addresses() {
        EXPECT_EQ(dialog().rows(), addresses);
        EXPECT_EQ(dialog().selected(), 1);
    }
    void expect_results() {
        EXPECT_EQ(dialog().rows(), ann_found);
        EXPECT_EQ(dialog().selected(), 1);
    }
    void expect_closed(TextView button) {
        dialog().click(button);
        EXPECT_TRUE(dialog().closes());
        EXPECT_EQ(count_in(world(), u"Email"), 0);
        EXPECT_EQ(count_messages(world()), 0);
    }
    void answer(TextView fragment, std::int32_t button) {
        world().desk().call(u"Answer", {u"Tarnwell", Value(fragment), button});
    }

  private:
    Item mail_;
    NoteDialog* dialog_ = nullptr;
};

// addresses listed

TEST_F(NoteDialogStates, AddressesAreListedByLoadOptionAndEmailTarget) {
    expect_addresses();
    EXPECT_FALSE(dialog().is_enabled(u"SearchString"));
    dialog().click(u"Option1");
    dialog().click(u"Option2");
    expect_addresses();
    EXPECT_FALSE(dialog().is_enabled(u"SearchString"));
    dialog().choose(u"Combo2", u"Search by Email");
    expect_addresses();
    EXPECT_TRUE(dialog().is_enabled(u"SearchString"));
    dialog().choose(u"Combo2", u"Search by Email");
    expect_addresses();
}

TEST_F(NoteDialogStates, TheEmailTargetLeavesTheHeadingsAsTheyAre) {
    const auto expect_kept = [&](const Lines& first_two) {
        dialog().choose(u"Combo2", u"Search by Email");
        expect_addresses();
        const Lines all = dialog().headings();
        EXPECT_EQ(Lines(all.begin(), all.begin() + 2), first_two);
    };
    expect_kept({"Contact Name", "Company Name"});
    dialog().click(u"Option1");
    expect_kept({"Company Name", "Company City"});
    dialog().choose(u"Combo2", u"People");
    expect_kept({"Full Name", "Company"});
    dialog().click(u"Option2");
    expect_kept({"Contact Name", "Company Name"});
}

TEST_F(NoteDialogStates, AddressesAreLeftByATarget) {
    dialog().choose(u"Combo2", u"People");
    EXPECT_EQ(dialog().rows(), Lines{});
}

TEST_F(NoteDialogStates, AddressesAreLeftByTheAccountsOption) {
    dialog().click(u"Option1");
    EXPECT_EQ(dialog().rows(), Lines{});
}

TEST_F(NoteDialogStates, AddressesAreLeftByClose) { expect_closed(u"cmdCancel"); }

TEST_F(NoteDialogStates, AddressesAreLeftByTheWindowsOwnCloseButton) {
    dialog().window().call(u"Close");
    EXPECT_TRUE(dialog().closes());
    EXPECT_EQ(count_messages(world()), 0);
}

TEST_F(NoteDialogStates, AddressesAreLeftByANote) {
    dialog().create();
    EXPECT_TRUE(dialog().closes());
    EXPECT_EQ(message_texts(world()), Lines{"Done - creating Note for ann.lee@northmill.example"});
    EXPECT_EQ(count_in(world(), u"Email"), 1);
}

// an empty list

TEST_F(NoteDialogStates, AnEmptyListRefusesToCreateUntilItIsFilled) {
    dialog().choose(u"Combo2", u"People");
    EXPECT_TRUE(dialog().is_enabled(u"SearchString"));
    EXPECT_EQ(dialog().headings(),
              (Lines{"Full Name", "Company", "Email", "Manager", "Team", "Alignment", "ContactID"}));
    for (const bool twice : {false, true}) {
        SCOPED_TRACE(twice);
        if (twice) {
            dialog().double_click();
        } else {
            dialog().click(u"cmdSend");
        }
        EXPECT_TRUE(dialog().header_becomes(no_row));
        EXPECT_TRUE(dialog().is_open());
    }
    EXPECT_EQ(count_in(world(), u"Email"), 0);
    EXPECT_EQ(count_messages(world()), 0);
}

TEST_F(NoteDialogStates, AnEmptyListIsLeftByASearch) {
    dialog().click(u"Option1");
    dialog().search(u"People", u"Ann");
    expect_results();
}

TEST_F(NoteDialogStates, AnEmptyListIsLeftByTheContactsOption) {
    dialog().choose(u"Combo2", u"People");
    dialog().click(u"Option1");
    EXPECT_EQ(dialog().rows(), Lines{});
    dialog().click(u"Option2");
    expect_addresses();
}

TEST_F(NoteDialogStates, AnEmptyListIsLeftByTheEmailTarget) {
    dialog().choose(u"Combo2", u"People");
    dialog().choose(u"Combo2", u"Search by Email");
    expect_addresses();
}

TEST_F(NoteDialogStates, AnEmptyListIsLeftByClose) {
    dialog().click(u"Option1");
    expect_closed(u"cmdCancel");
}

// searching

TEST_F(NoteDialogStates, ASearchNeedsATargetAndAText) {
    answer(ask_for_target, 1);
    dialog().click(u"cmdSearch");
    EXPECT_EQ(message_texts(world()), Lines{shown(ask_for_target)});
    expect_addresses();
    EXPECT_EQ(dialog().text(u"lblHeader"), shown(invitation));

    dialog().choose(u"Combo2", u"People");
    dialog().click(u"cmdSearch");
    EXPECT_TRUE(dialog().header_becomes(u"You must enter a valid search string!"));
    EXPECT_EQ(count_messages(world()), 1);
}

TEST_F(NoteDialogStates, ASearchIsStartedByEnterWithAText) {
    constexpr std::int32_t enter = 13;
    dialog().choose(u"Combo2", u"People");
    dialog().control(u"SearchString").call(u"Key", {enter});
    world().settle();
    EXPECT_EQ(dialog().text(u"lblHeader"), shown(invitation)) << "without a text it does nothing";
    dialog().type(u"SearchString", u"Ann");
    dialog().control(u"SearchString").call(u"Key", {enter});
    EXPECT_TRUE(dialog().header_becomes(u"Search Complete for Ann"));
    expect_results();
    EXPECT_EQ(dialog().text(u"SearchString"), "Ann") << "so that it can be repeated";
    EXPECT_EQ(dialog().text(u"Combo2"), "People");
}

TEST_F(NoteDialogStates, ASearchTakesTheWidthOfBothHiddenColumns) {
    EXPECT_GT(dialog().width(8), 0);
    dialog().search(u"People", u"Ann");
    EXPECT_EQ(dialog().width(7), 0);
    EXPECT_EQ(dialog().width(8), 0);
}

TEST_F(NoteDialogStates, TheSearchTextGetsTheFocusWithATargetOnceItIsEnabled) {
    constexpr std::int32_t letter_a = 65;
    for (int i = 0; i < 2; ++i) dialog().choose(u"Combo2", u"People");
    dialog().window().call(u"Key", {letter_a});
    EXPECT_TRUE(world().wait_until([&] { return dialog().text(u"SearchString") == "a"; }));
}

// results listed

TEST_F(NoteDialogStates, ResultsAreReplacedByTheNextSearch) {
    add_contact(world(), {.full_name = u"Bob Ray", .properties = {{u"ContactID", u"C-300"}}});
    dialog().search(u"People", u"Ann");
    expect_results();
    dialog().type(u"SearchString", u"Bob");
    dialog().click(u"cmdSearch");
    EXPECT_TRUE(dialog().header_becomes(u"Search Complete for Bob"));
    EXPECT_EQ(dialog().rows(), Lines{"Bob Ray|North Mill Ltd|||||C-300"});
}

TEST_F(NoteDialogStates, ResultsAreThrownAwayByOptionsAndTargets) {
    struct Way {
        const char* name;
        std::function<void(const NoteDialog&)> go;
        Lines rows;
    };
    const Way ways[] = {
        {"contacts' option",
         [](const NoteDialog& d) {
             d.click(u"Option1");
             d.click(u"Option2");
         },
         addresses},
        {"accounts' option", [](const NoteDialog& d) { d.click(u"Option1"); }, {}},
        {"a new target", [](const NoteDialog& d) { d.choose(u"Combo2", u"People"); }, {}},
        {"the email target", [](const NoteDialog& d) { d.choose(u"Combo2", u"Search by Email"); }, addresses},
    };
    for (const Way& way : ways) {
        SCOPED_TRACE(way.name);
        dialog().search(u"People", u"Ann");
        expect_results();
        way.go(dialog());
        EXPECT_EQ(dialog().rows(), way.rows);
    }
}

TEST_F(NoteDialogStates, ResultsAreLeftByANoteOrByClose) {
    dialog().search(u"People", u"Ann");
    dialog().create();
    EXPECT_TRUE(dialog().closes());
    EXPECT_EQ(message_texts(world()), Lines{"Done - creating Note for Ann Lee"});
    EXPECT_EQ(count_in(world(), u"Email"), 1);
}

TEST_F(NoteDialogStates, ResultsAreLeftByClose) {
    dialog().search(u"People", u"Ann");
    expect_closed(u"cmdCancel");
}

// created, and left open

TEST_F(NoteDialogStates, ANoteLeavesTheDialogOpenIfThatIsChecked) {
    dialog().click(u"Check1");
    EXPECT_TRUE(dialog().is_chosen(u"Check1"));
    dialog().create();
    EXPECT_TRUE(dialog().is_open());
    EXPECT_TRUE(dialog().header_becomes(invitation));
    expect_addresses();
    dialog().create();
    EXPECT_EQ(count_in(world(), u"Email"), 2) << "a second one of the same row";
    dialog().click(u"Check1");
    dialog().create();
    EXPECT_TRUE(dialog().closes());
    EXPECT_EQ(count_in(world(), u"Email"), 3);
}

TEST_F(NoteDialogStates, ANoteIsMadeByADoubleClick) {
    dialog().select(1);
    answer(u"Done - creating Note for ", 1);
    dialog().double_click();
    EXPECT_TRUE(dialog().closes());
    EXPECT_EQ(count_in(world(), u"Email"), 1);
}

// refused or not found

TEST_F(NoteDialogStates, AStrangerLeavesTheDialogOpenWhateverIsChecked) {
    dialog().select(2);
    for (const bool checked : {false, true}) {
        SCOPED_TRACE(checked);
        if (checked) dialog().click(u"Check1");
        answer(u" NOT FOUND!", 7);
        dialog().click(u"cmdSend");
        EXPECT_TRUE(dialog().header_becomes(u"Please Wait - creating Note for tom.prior@tarnwell.example"))
            << "only a success brings the usual text back";
        EXPECT_TRUE(dialog().is_open());
        EXPECT_EQ(dialog().rows(), addresses);
    }
    EXPECT_EQ(count_messages(world()), 2);
    EXPECT_EQ(count_in(world(), u"Email"), 0);
}

TEST_F(NoteDialogStates, ASuccessAfterARefusalClosesAsUsual) {
    dialog().select(2);
    answer(u" NOT FOUND!", 7);
    dialog().click(u"cmdSend");
    dialog().select(1);
    dialog().create();
    EXPECT_TRUE(dialog().closes());
}

// sorting

TEST_F(NoteDialogStates, ColumnsAreSortedByAClickAndMarked) {
    using Marks = std::vector<std::int32_t>;
    const Lines rising{"ann.lee@northmill.example", "tom.prior@tarnwell.example"};
    const Lines falling{"tom.prior@tarnwell.example", "ann.lee@northmill.example"};
    struct Click {
        int column;
        Marks marks;
        Lines rows;
    };
    const Click clicks[] = {
        {1, {0, -1, -1, -1, -1, -1, -1, -1}, falling},  // the first column counts as the last one sorted by
        {1, {1, -1, -1, -1, -1, -1, -1, -1}, rising},  {1, {0, -1, -1, -1, -1, -1, -1, -1}, falling},
        {2, {-1, 1, -1, -1, -1, -1, -1, -1}, falling},  // nothing tells them apart there
        {2, {-1, 0, -1, -1, -1, -1, -1, -1}, falling}, {1, {1, -1, -1, -1, -1, -1, -1, -1}, rising},
    };
    for (const Click& click : clicks) {
        dialog().click_column(click.column);
        EXPECT_EQ(dialog().marks(), click.marks);
        if (click.column == 1) {
            EXPECT_EQ(dialog().rows(), click.rows);
        }
    }
}

TEST_F(NoteDialogStates, TheLastSortedColumnOutlivesTheDialog) {
    dialog().click_column(3);
    dialog().click(u"cmdCancel");
    ASSERT_TRUE(dialog().closes());
    OpenedItem again(mail());
    ASSERT_TRUE(dialog().open(again));
    EXPECT_EQ(dialog().marks(), std::vector<std::int32_t>(8, -1)) << "the marks don't";
    dialog().click_column(3);
    EXPECT_EQ(dialog().marks().at(2), 0) << "so the first click on it sorts the other way round";
}

// a second click

TEST_F(NoteDialogStates, ASecondClickWhileANoteIsMadeMakesAnother) {
    const Item other = world().deliver(message({.from = "Bob Ray <bob@ray.example>"}));
    for (int i = 0; i < 2; ++i) {
        answer(u"Done - creating Note for ", 1);
        world().desk().call(u"Meanwhile", {u"SelectionChange", Value(dialog().control(u"cmdSend")), u"Click",
                                           automation::Missing{}});
    }
    world().desk().call(u"Select", {Value(other)});
    EXPECT_TRUE(world().wait_until([&] { return count_in(world(), u"Email") == 2; }));
    EXPECT_TRUE(dialog().closes());
    EXPECT_EQ(count_messages(world()), 2);
}

}  // namespace
}  // namespace acceptance
