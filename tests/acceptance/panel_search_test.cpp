// What the Search Panel's search lists, by the record that it is for.
#include "tests/world/host_numbers.h"
#include "tests/world/search_panel.h"

#include <algorithm>

#include "tests/world/item_state.h"
#include "tests/world/note_dialog.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::outlook::Item;

constexpr std::int32_t escape = 27, shift = 16, control_key = 17;

/// The two hosts: an old one that knows only plain comparisons, and a later one with a word index.
const WorldSetup old_host{.host_version = u"9.0.0.3821"};
const WorldSetup indexed_host{.instant_search = true};

class SearchOfThePanel : public Acceptance {
  protected:
    void TearDown() override { panel_.reset(); }
    /// A world in which the panel searches in one of the two forms.
    World& made(const WorldSetup& setup) {
        panel_.reset();
        World& made = with(setup);
        if (setup.instant_search) search_in_phrases(made);
        install_panel(made);
        panel_ = std::make_unique<SearchPanel>(made);
        return made;
    }
    SearchPanel& panel() { return *panel_; }
    void expect_message(std::int32_t before, TextView text, std::int32_t style) {
        ASSERT_EQ(message_texts(world(), before), Lines{shown(text)});
        const Object box =
            world().desk().get(u"Messages").to_object().call(u"Item", {before + 1}).to_object();
        EXPECT_EQ(box.get(u"Style").to_integer(), style);
        EXPECT_EQ(box.get(u"Title").to_text(), u"Tarnwell");
    }
    void answer(TextView fragment, std::int32_t button) {
        world().desk().call(u"Answer", {u"Tarnwell", Value(fragment), button});
    }
    /// Has a user who has chosen a target pick these rows; the picker takes several.
    void pick(TextView definition, std::initializer_list<std::int32_t> rows) {
        const Picker picker(world(), definition);
        ASSERT_TRUE(picker.comes_up());
        for (const std::int32_t row : rows) {
            picker.highlight(row);
            picker.click(u"cmdAdd");
        }
        picker.click(u"cmdOK");
        EXPECT_TRUE(picker.goes());
    }
    /// Double-clicks the first row of a subject.
    void open_row(TextView subject) {
        const Lines subjects = panel().column(2);
        const auto row = std::ranges::find(subjects, shown(subject));
        ASSERT_NE(row, subjects.end()) << shown(subject);
        panel().select(static_cast<std::int32_t>(row - subjects.begin()) + 1);
        panel().double_click();
    }
    /// The ids of the items that were shown since a count, once there are so many; they are closed again.
    Lines take_displayed(std::int32_t before, std::int32_t count) {
        EXPECT_TRUE(world().wait_until([&] { return world().displayed() >= before + count; }));
        world().settle();
        Lines ids = world().ids_displayed_since(before);
        for (const Item& item : world().displayed_since(before)) item.Close(host::outlook::discard_changes);
        return ids;
    }

  private:
    std::unique_ptr<SearchPanel> panel_;
};

TEST_F(SearchOfThePanel, ListsWhatBearsTheKeyInEveryFolderInBothForms) {
    for (const WorldSetup& setup : {old_host, indexed_host}) {
        World& same = made(setup);
        SCOPED_TRACE(shown(setup.host_version));
        const Item account = add_full_account(same);
        const Item contact = add_full_contact(same);
        const Text name = u"North Mill Ltd";
        const Item note =
            add_note(same, u"Of the contact",
                     {{u"AccountID", u"A-100"}, {u"ContactID", u"C-200"}, {u"Account Name", name}});
        add_note(same, u"Of the account", {{u"AccountID", u"A-100"}, {u"Account Name", name}});
        add_note(same, u"Of another",
                 {{u"AccountID", u"A-1000"}, {u"ContactID", u"C-2000"}, {u"Account Name", name}});
        add_record(same.below(u"Customer Service"), u"IPM.Post.CustomerService", u"An inquiry",
                   {{u"AccountID", u"A-100"}, {u"ContactID", u"C-200"}, {u"Account Name", name}});

        panel().open_new(contact);
        EXPECT_EQ(panel().column(1), (Lines{"Account Contacts", "Notes", "Customer Service"}));
        EXPECT_EQ(panel().column(2), (Lines{"Ann Lee", "Of the contact", "An inquiry"}));
        EXPECT_EQ(panel().cell(2, 6), shown(note.EntryID()));
        EXPECT_EQ(panel().cell(2, 7), "");
        EXPECT_EQ(statuses(same).front(), "Searching... ");

        panel().open_new(account);
        Lines found = panel().column(2);
        EXPECT_EQ(found,
                  (Lines{"North Mill Ltd", "Ann Lee", "Of the contact", "Of the account", "An inquiry"}));
        EXPECT_EQ(panel().column(1).front(), "Account Profiles") << "the walk begins above it";
        EXPECT_EQ(panel().text(u"StoreID"), "");
        EXPECT_EQ(panel().text(u"EntryID"), "");
        EXPECT_EQ(count_messages(same), 0);

        // at a record of an inquiry the key's name has a blank
        const Item inquiry =
            add_record(same.below(u"Customer Service"), u"IPM.Post.CustomerService", u"With an id",
                       {{u"AccountID", u"A-100"}, {u"Inquiry ID", u"I-7"}, {u"Account Name", name}});
        add_note(same, u"Of the inquiry", {{u"Inquiry ID", u"I-7"}, {u"Account Name", name}});
        panel().open_new(inquiry);
        EXPECT_EQ(panel().text(u"SearchMe"), "Inquiries");
        EXPECT_EQ(panel().column(2), (Lines{"Of the inquiry", "With an id"}));
    }
}

TEST_F(SearchOfThePanel, PairsTheKeyWithTheContactsCompanyNotWithItsAccountsName) {
    for (const WorldSetup& setup : {old_host, indexed_host}) {
        World& same = made(setup);
        SCOPED_TRACE(shown(setup.host_version));
        const Text company = u"North Mill Ltd", account = u"North Mill";
        const Item contact =
            add_contact(same, {.company = company,
                               .fields = {},
                               .properties = {{u"ContactID", u"C-200"}, {u"Account Name", account}}});
        add_note(same, u"Of the company", {{u"ContactID", u"C-200"}, {u"Account Name", company}});
        add_note(same, u"Of the account", {{u"ContactID", u"C-200"}, {u"Account Name", account}});
        panel().open_new(contact);
        EXPECT_EQ(panel().text(u"CompanyName"), shown(company));
        EXPECT_EQ(panel().column(2), setup.instant_search
                                         ? Lines{"Of the company"}
                                         : (Lines{"Ann Lee", "Of the company", "Of the account"}));
    }
}

TEST_F(SearchOfThePanel, IsInPhrasesByTheOptionAlone) {
    struct Case {
        const char* name;
        WorldSetup setup;
        const char16_t* option;
        Lines found;
    };
    const Case cases[] = {
        {"a store that knows no words", old_host, u"1", {}},
        {"an index that isn't asked",
         indexed_host,
         u"0",
         {"North Mill Ltd", "Of this name", "Of another name"}},
        {"a system without a search",
         {.instant_search = true, .without = {"Search.CollatorDSO"}},
         u"1",
         {"North Mill Ltd", "Of this name"}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& same = made(one.setup);
        same.option(u"EnableDesktopSearch", one.option);
        const Item account = add_full_account(same);
        add_note(same, u"Of this name", {{u"AccountID", u"A-100"}, {u"Account Name", u"North Mill Ltd"}});
        add_note(same, u"Of another name", {{u"AccountID", u"A-100"}, {u"Account Name", u"Bell & Sons"}});
        same.deliver(message({.subject = "About North Mill Ltd"}));
        same.write_document("offer.txt", "An offer for North Mill Ltd.");
        panel().open_new(account);
        EXPECT_EQ(panel().column(2), one.found);
        EXPECT_EQ(panel().text(u"CompanyName"), one.found.empty() ? "Company Name" : "North Mill Ltd");
        EXPECT_EQ(panel().text(u"StoreID"), "") << "the search has ended as any";
        EXPECT_EQ(count_messages(same), 0);
    }
}

TEST_F(SearchOfThePanel, ShowsWhenAnItemWasReceivedOrMadeByTheRegionalSettings) {
    World& same = made(old_host);
    const Item contact = add_full_contact(same);
    const Item note = add_note(same, u"A note", {{u"ContactID", u"C-200"}});
    panel().open_new(contact);
    ASSERT_EQ(panel().count(), 2);
    const auto as_shown = [&](const Item& item, TextView member) {
        return shown(same.desktop().format(same.text(item, member), u"General Date"));
    };
    EXPECT_EQ(panel().cell(1, 4), as_shown(contact, u"CreationTime"));
    EXPECT_EQ(panel().cell(1, 5), as_shown(contact, u"LastModificationTime"));
    EXPECT_EQ(panel().cell(2, 4), as_shown(note, u"ReceivedTime"));
    EXPECT_EQ(panel().cell(2, 5), as_shown(note, u"LastModificationTime"));
}

TEST_F(SearchOfThePanel, WritesApostrophesTwiceButForTheAccountItself) {
    for (const WorldSetup& setup : {old_host, indexed_host}) {
        World& same = made(setup);
        SCOPED_TRACE(shown(setup.host_version));
        const Text name = u"O'Malley's";
        const Item account = add_full_account(same, name);
        const Item contact = add_full_contact(same, name);
        add_note(same, u"A note",
                 {{u"AccountID", u"A-100"}, {u"ContactID", u"C-200"}, {u"Account Name", name}});
        panel().open_new(account);
        if (setup.instant_search) {
            EXPECT_EQ(panel().text(u"CompanyName"), "Company Name") << "the account isn't found";
        } else {
            EXPECT_EQ(panel().text(u"CompanyName"), "O'Malley's");
        }
        EXPECT_EQ(panel().column(2), (Lines{"O'Malley's", "Ann Lee", "A note"}));
        panel().open_new(contact);
        EXPECT_EQ(panel().text(u"CompanyName"), "O'Malley's") << "the contact is found in both forms";
        EXPECT_EQ(panel().column(2), setup.instant_search ? Lines{} : (Lines{"Ann Lee", "A note"}))
            << "the company comes from the contact as it stands";
        EXPECT_EQ(count_messages(same), 0);
    }
}

TEST_F(SearchOfThePanel, ListsFiftyOneItemsOfAFolderAndGoesOn) {
    World& same = made(old_host);
    const Item contact = add_full_contact(same);
    for (int i = 0; i < 60; ++i) add_note(same, u"A note", {{u"ContactID", u"C-200"}});
    add_record(same.below(u"Customer Service"), u"IPM.Post.CustomerService", u"An inquiry",
               {{u"ContactID", u"C-200"}});
    panel().search_for(contact);
    EXPECT_EQ(panel().count(), 1 + 51 + 1);
    EXPECT_EQ(panel().cell(53, 2), "An inquiry");
    // sorted, they stay as many, in the next search too
    for (const int column : {1, 4, 4, 2}) panel().click_column(column);
    EXPECT_EQ(panel().count(), 53);
    panel().search_for(contact);
    const Lines subjects = panel().column(2);
    EXPECT_EQ(subjects.size(), 53U);
    EXPECT_TRUE(std::ranges::is_sorted(subjects)) << subjects.front();
}

TEST_F(SearchOfThePanel, FindsNothingWithoutARecordOrADefinition) {
    World& same = made(old_host);
    const Item contact = add_full_contact(same);
    const Item note = add_note(same, u"A note", {{u"ContactID", u"C-200"}});
    panel().open_new(note);
    EXPECT_EQ(panel().text(u"Contactname"), "Ann Lee") << "the contact of the note";
    EXPECT_EQ(panel().count(), 0) << "but nothing says what notes are searched by";
    EXPECT_EQ(panel().text(u"SearchMe"), "SearchMe");
    const Item mail = same.deliver(message());
    panel().open_new(mail);
    EXPECT_EQ(panel().header(), "|Company Name|Phone|Fax|Street1|City|State|Zip");
    EXPECT_EQ(panel().count(), 0);
    EXPECT_EQ(count_messages(same), 0);
}

// what the user picks

TEST_F(SearchOfThePanel, OfATargetIsForTheRecordThatTheUserPicks) {
    World& same = made(indexed_host);
    add_full_account(same);
    const Item other = add_full_account(same, u"Bell & Sons", u"A-7");
    add_note(same, u"Of Bell", {{u"AccountID", u"A-7"}, {u"Account Name", u"Bell & Sons"}});
    add_record(same.account_profiles(), u"IPM.Post.Tarnwell_2000", u"A branch",
               {{u"AccountID", u"A-8"}, {u"Account LocationID", u"A-7"}, {u"Account Name", u"Bell & Sons"}})
        .call(u"Post");
    panel().open();
    panel().choose(u"Accounts");
    pick(u"Accounts by id", {2});
    EXPECT_TRUE(panel().ends());
    EXPECT_EQ(panel().header(), "|Bell & Sons|555 100|555 101|1 Mill Lane|York|NY|12345");
    EXPECT_EQ(panel().ids(), "A-7|");
    EXPECT_EQ(panel().column(1), (Lines{"Account Profiles", "Account Profiles", "Notes"}))
        << "what is located there comes first, under the folder that was searched";
    EXPECT_EQ(panel().column(2), (Lines{"A branch", "Bell & Sons", "Of Bell"}));
    EXPECT_EQ(panel().column(3), (Lines{"Tarnwell User", "", ""})) << "the others were saved only";
    EXPECT_EQ(count_messages(same), 0);

    // cancelled, nothing is searched, and the rows stay
    panel().choose(u"Contacts");
    const Picker picker(same, u"Contacts by id");
    ASSERT_TRUE(picker.comes_up());
    picker.click(u"cmdCancel");
    EXPECT_TRUE(picker.goes());
    EXPECT_TRUE(panel().ends());
    EXPECT_EQ(panel().count(), 3);
    EXPECT_EQ(panel().ids(), "A-7|");

    // of an item that was pending no folder was searched under which the branch could stand
    panel().open_new(other);
    EXPECT_EQ(panel().column(2), (Lines{"Bell & Sons", "Of Bell"}));
}

TEST_F(SearchOfThePanel, ShowsNothingOfTheRecordBefore) {
    World& same = made(old_host);
    add_full_account(same);
    add_record(same.account_profiles(), u"IPM.Post.Tarnwell_2000", u"Bare Ltd",
               {{u"AccountID", u"A-9"},
                {u"Account Name", u"Bare Ltd"},
                {u"Account Fax", u"222"}});  // the name that only new contacts are filled from
    add_full_contact(same);
    add_record(same.below(u"Account Contacts"), u"IPM.Contact.Account Contact", u"Bare",
               {{u"ContactID", u"C-9"}, {u"Account Name", u"Bare Ltd"}});
    struct Case {
        const char* name;
        TextView target, definition;
        std::int32_t row;
        std::string header, ids;
    };
    const Case cases[] = {
        {"a contact", u"Contacts", u"Contacts by id", 1,
         "Ann Lee|North Mill Ltd|555 200|555 201|2 Mill Lane|Leeds|WA|98765", "A-100|C-200"},
        {"an account that tells only its name", u"Accounts", u"Accounts by id", 2, "|Bare Ltd||||||", "A-9|"},
        {"an account", u"Accounts", u"Accounts by id", 1,
         "|North Mill Ltd|555 100|555 101|1 Mill Lane|York|NY|12345", "A-100|"},
        {"a contact that tells only its id", u"Contacts", u"Contacts by id", 2, "|||||||", "|C-9"},
    };
    panel().open();
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        panel().choose(one.target);
        pick(one.definition, {one.row});
        EXPECT_TRUE(panel().ends());
        EXPECT_EQ(panel().header(), one.header);
        EXPECT_EQ(panel().ids(), one.ids);
    }
}

TEST_F(SearchOfThePanel, TakesTheFirstOfSeveralIfTheUserAgrees) {
    World& same = made(old_host);
    add_full_account(same);
    add_full_account(same, u"Bell & Sons", u"A-7");
    constexpr TextView question =
        u"You can only select 1 item. the first item will be selected.\rDo you wish to continue?";
    constexpr std::int32_t yes_no = 4, question_mark = 32, information = 64;
    panel().open();
    for (const std::int32_t button : {no, yes}) {
        SCOPED_TRACE(button);
        const std::int32_t before = count_messages(same);
        answer(u"You can only select 1 item.", button);
        panel().choose(u"Accounts");
        pick(u"Accounts by id", {2, 1});
        EXPECT_TRUE(same.wait_until([&] { return count_messages(same) > before; }));
        EXPECT_TRUE(panel().ends());
        expect_message(before, question, yes_no | question_mark);
        EXPECT_EQ(panel().ids(), button == yes ? "A-7|" : "AccountID|ContactID");
    }
    // done without a choice: there is no table
    const Item nobody = same.account_profiles().Items().Item(1);
    nobody.call(u"Delete");
    same.account_profiles().Items().Item(1).call(u"Delete");
    const std::int32_t before = count_messages(same);
    answer(u"Return value is empty.", ok);
    panel().choose(u"Accounts");
    pick(u"Accounts by id", {});
    EXPECT_TRUE(same.wait_until([&] { return count_messages(same) > before; }));
    EXPECT_TRUE(panel().ends());
    expect_message(before, u"Return value is empty.  Please re-select the item(s) from the list.",
                   information);
}

TEST_F(SearchOfThePanel, FindsNothingWithoutThePicker) {
    World& same = made({.without = {"ContactList.List"}});
    add_full_account(same);
    panel().open();
    panel().choose(u"Accounts");
    EXPECT_TRUE(panel().ends());
    EXPECT_EQ(panel().count(), 0);
    EXPECT_EQ(panel().ids(), "AccountID|ContactID");
    EXPECT_EQ(count_messages(same), 0);
}

// while it runs

TEST_F(SearchOfThePanel, SaysAtTheFiftyFirstItemOfAFolderThatItStopsThere) {
    World& same = made(old_host);
    const Item account = add_full_account(same);
    constexpr std::int32_t most = 51;
    for (int i = 0; i < most; ++i) add_note(same, u"A note", {{u"AccountID", u"A-100"}});
    panel().search_for(account);
    EXPECT_EQ(panel().count(), 1 + most);
    // at the folder that comes next a dialog opens, and the search waits for its end
    const Lines told = statuses(same);
    const auto notes = std::ranges::find(told, "Searching... Notes");
    ASSERT_LT(notes, told.end() - 1);
    OpenedItem mail(same.deliver(message()));
    mail.show();
    const Object button = find_control(mail.window, u"TarnwellCreateNote", u"CreateNoteButton");
    same.desk().call(u"Meanwhile", {Value(automation::from_utf8(notes[1])), Value(button), u"Execute"});
    panel().open_second(account);
    panel().choose(u"Accounts");
    {
        const NoteDialog dialog(same);
        EXPECT_TRUE(same.wait_until([&] { return dialog.is_open(); }));
        EXPECT_EQ(panel().text(u"StoreID"), "Found 51 items in folder Notes. Stopping at 50.");
    }
    EXPECT_TRUE(panel().ends());
    EXPECT_EQ(panel().count(), 1 + most);
}

TEST_F(SearchOfThePanel, TellsAtEachFurtherItemThatItWasCancelledAndGoesOn) {
    World& same = made(old_host);
    const Item account = add_full_account(same);
    for (int i = 0; i < 3; ++i) add_note(same, u"A note", {{u"AccountID", u"A-100"}});
    panel().open_second(Item());
    panel().open_second(account);
    constexpr int most = 60;
    for (int i = 0; i < most; ++i) answer(u"Search Cancelled!", ok);
    for (const std::int32_t key : {escape, shift, control_key}) {  // the others take nothing back
        same.desk().call(u"Meanwhile", {u"Searching... Notes", Value(panel().window()), u"Key", key});
    }
    panel().choose(u"Accounts");
    EXPECT_TRUE(panel().ends());
    EXPECT_EQ(panel().column(2), (Lines{"North Mill Ltd", "A note", "A note", "A note"}));
    const Lines told = boxes(same);
    EXPECT_GT(told.size(), 4U) << "of the folder, of each item in it, and of the folders after it";
    EXPECT_EQ(told, Lines(told.size(), "Tarnwell, 64: Search Cancelled!"));
    // the next search begins anew
    const std::int32_t before = count_messages(same);
    panel().search_for(account);
    EXPECT_EQ(panel().count(), 4);
    EXPECT_EQ(count_messages(same), before);
}

TEST_F(SearchOfThePanel, LetsAnotherBeginInTheSameListAndTheWindowBeResized) {
    World& same = made(old_host);
    const Item account = add_full_account(same);
    const Item other = add_full_account(same, u"Bell & Sons", u"A-7");
    add_note(same, u"Of the mill", {{u"AccountID", u"A-100"}});
    add_note(same, u"Of Bell", {{u"AccountID", u"A-7"}});
    panel().open_second(Item());
    panel().open_second(account);
    same.desk().call(u"Meanwhile", {u"Searching... Account Profiles", Value(same.connect()),
                                    u"ShowItemsMenu2", Value(other)});
    same.desk().call(u"Meanwhile",
                     {u"Searching... Account Contacts", Value(panel().control(u"SearchMe")), u"Select", 1});
    panel().choose(u"Accounts");
    EXPECT_TRUE(panel().ends());
    EXPECT_EQ(panel().ids(), "A-7|");
    EXPECT_EQ(panel().column(2), (Lines{"Bell & Sons", "Of Bell", "Of the mill"}))
        << "the second one clears the list, and the first one goes on in it";

    panel().close();
    panel().open_second(Item());
    const std::int32_t usual_width = panel().widths().front();
    same.desk().call(u"Meanwhile", {u"Searching... Account Contacts", Value(panel().window()), u"Resize",
                                    Value(automation::Array::of({1200, 600}))});
    panel().search_for(account);
    EXPECT_GT(panel().widths().front(), usual_width);
    EXPECT_EQ(panel().column(2), (Lines{"North Mill Ltd", "Of the mill"}));
    EXPECT_EQ(count_messages(same), 0);
}

TEST_F(SearchOfThePanel, EndsWithItsWindow) {
    World& same = made(old_host);
    const Item account = add_full_account(same);
    add_note(same, u"A note", {{u"AccountID", u"A-100"}});
    panel().open_second(Item());
    panel().open_second(account);
    const std::int32_t held_before = held(same, u"Items");
    same.desk().call(u"Meanwhile",
                     {u"Searching... Notes", Value(panel().window()), u"Close", automation::Missing{}});
    panel().choose(u"Accounts");
    EXPECT_TRUE(same.wait_until([&] { return !panel().is_open(); }));
    same.settle();
    EXPECT_FALSE(window_of(same, panel_caption)) << "nothing brings it back";
    EXPECT_EQ(held(same, u"Items"), held_before);
    panel().open_new(account);
    EXPECT_EQ(panel().column(2), (Lines{"North Mill Ltd", "A note"}));
}

// results

TEST_F(SearchOfThePanel, OpensTheItemOfARowByADoubleClick) {
    World& same = made(old_host);
    const Item contact = add_full_contact(same);
    const Item note = add_note(same, u"A note", {{u"ContactID", u"C-200"}});
    panel().open_new(contact);
    panel().select(2);
    panel().double_click();
    EXPECT_EQ(take_displayed(0, 1), Lines{shown(note.EntryID())});
    EXPECT_EQ(count_messages(same), 0);
}

TEST_F(SearchOfThePanel, ListsMailAndFilesThatTheSystemsIndexKnowsAndOpensThem) {
    World& same = made(indexed_host);
    const Item account = add_full_account(same);
    const Item mail = same.deliver(message({.subject = "About North Mill Ltd"}));
    same.deliver(message({.subject = "About the mill"}));
    same.write_document("offer.txt", "An offer for North Mill Ltd.");
    panel().open_new(account);
    ASSERT_EQ(panel().column(1), (Lines{"Account Profiles", "Inbox", "File Search"}));
    EXPECT_EQ(panel().column(2), (Lines{"North Mill Ltd", "About North Mill Ltd", "offer.txt"}));
    EXPECT_EQ(panel().cell(2, 3), "Ann Lee");
    EXPECT_EQ(panel().cell(3, 3), panel().cell(3, 6));
    EXPECT_TRUE(panel().cell(2, 6).starts_with("/Mailbox")) << panel().cell(2, 6);
    panel().select(2);
    panel().double_click();
    EXPECT_EQ(take_displayed(0, 1), Lines{shown(mail.EntryID())});
    panel().select(3);
    panel().double_click();
    const auto files = [&] { return texts_of(same, u"Opened"); };
    EXPECT_TRUE(same.wait_until([&] { return files().size() == 1; }));
    for (const std::string& file : files()) EXPECT_TRUE(file.ends_with("\\offer.txt")) << file;
    EXPECT_EQ(count_messages(same), 0);
}

TEST_F(SearchOfThePanel, OpensFiveMailsOfASubjectAndSenderAndAsksForMore) {
    World& same = made(indexed_host);
    const Item account = add_full_account(same);
    const std::string subject = "About North Mill Ltd";
    Lines mails;
    const auto deliver = [&] {
        mails.push_back(shown(same.deliver(message({.subject = subject})).EntryID()));
    };
    constexpr std::int32_t unasked = 5;
    for (int i = 0; i < unasked; ++i) deliver();
    same.deliver(message({.from = "Zoe <zoe@quill.example>", .subject = subject}));
    panel().open_new(account);
    std::int32_t shown_before = world().displayed();
    open_row(automation::from_utf8(subject));
    EXPECT_EQ(take_displayed(shown_before, unasked), mails);
    EXPECT_EQ(count_messages(same), 0);

    deliver();
    const Lines first_five(mails.begin(), mails.begin() + unasked);
    constexpr std::int32_t yes_no = 4;
    for (const std::int32_t button : {no, yes}) {
        SCOPED_TRACE(button);
        const Lines& opened = button == yes ? mails : first_five;
        const std::int32_t before = count_messages(same);
        shown_before = world().displayed();
        answer(u"There are 6 items", button);
        open_row(automation::from_utf8(subject));
        EXPECT_EQ(take_displayed(shown_before, static_cast<std::int32_t>(opened.size())), opened);
        expect_message(before,
                       u"There are 6 items in this conversation.\r\rAbout North Mill Ltd\r\r"
                       u"Do you want to open all items? Selecting No will open 5 items.",
                       yes_no);
    }
}

TEST_F(SearchOfThePanel, OpensNothingOfWhatCannotBeFoundAgain) {
    World& same = made(indexed_host);
    const Item account = add_full_account(same);
    const Item note =
        add_note(same, u"A note", {{u"AccountID", u"A-100"}, {u"Account Name", u"North Mill Ltd"}});
    same.deliver(message({.subject = "O'Neill of North Mill Ltd"}));
    // a mail is no file, though its place holds a backslash
    const host::outlook::Folder offers(same.inbox().Folders().call(u"Add", {u"Offers\\Mill"}).to_object());
    same.deliver(message({.subject = "Offer to North Mill Ltd"})).call(u"Move", {Value(offers)});
    const Text file = same.write_document("offer.txt", "An offer for North Mill Ltd.");
    panel().open_new(account);
    EXPECT_EQ(panel().column(1),
              (Lines{"Account Profiles", "Notes", "Inbox", "Inbox/Offers\\Mill", "File Search"}));

    open_row(u"O'Neill of North Mill Ltd");
    note.call(u"Delete");
    open_row(u"A note");
    same.remove_file(file);
    open_row(u"offer.txt");
    EXPECT_EQ(count_messages(same), 0) << "an apostrophe, a record and a file that have gone: silently";
    answer(u"Item is not in a default folder.", ok);
    open_row(u"Offer to North Mill Ltd");
    EXPECT_TRUE(same.wait_until([&] { return count_messages(same) > 0; }));
    expect_message(0, u"Item is not in a default folder. Please navigate to the folder to open the item", 0);
    EXPECT_EQ(world().displayed(), 0);
    EXPECT_EQ(texts_of(same, u"Opened"), Lines{});
}

}  // namespace
}  // namespace acceptance
