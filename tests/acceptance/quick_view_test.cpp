// What Quick View does once it is open: its lists, their order, its links, and what goes with it.
#include <algorithm>

#include "tests/world/quick_view.h"
#include "tests/world/search_panel.h"

namespace acceptance {
namespace {

using automation::Text;
using automation::TextView;
using host::outlook::Item;
namespace default_folder = host::outlook::default_folder;

/// The hosts that the lists must be right on: the oldest, which knows no words in filters, and one that does.
const WorldSetup hosts[] = {{.host_version = u"9.0.0.3821"},
                            {.host_version = u"16.0.0.0", .instant_search = true}};

class QuickViewWindow : public SideView {
  protected:
    static Item add_own(World& world, std::int32_t folder, TextView message_class, TextView subject,
                        const Fields& properties) {
        const Item item = new_item(world, folder, message_class);
        item.Subject(subject);
        for (const auto& [name, value] : properties) item.UserProperties().Item(name).value(value);
        item.Save();
        return item;
    }

    Lines sorted_subjects() {
        Lines subjects = view().column(1);
        std::ranges::sort(subjects);
        return subjects;
    }
};

TEST_F(QuickViewWindow, ListsTheRelatedItemsOfEachFolder) {
    for (const WorldSetup& setup : hosts) {
        SCOPED_TRACE(shown(setup.host_version));
        World& world = viewing(setup);
        add_folders();
        show_ann();
        EXPECT_EQ(view().entries(u"cmbFolders"),
                  (Lines{"Notes", "Opportunities", "My Calendar", "My Tasks", "Customer Service", "Email"}));
        const Fields of_bob = {
            {u"AccountID", u"A-300"}, {u"ContactID", u"C-400"}, {u"Account Name", u"North Mill Ltd"}};
        Fields opportunity = keys_of_ann;
        opportunity.emplace_back(u"Name", u"  Cold store");
        add_record(world, u"Notes", u"IPM.Post.Note", u"  A call", keys_of_ann);
        add_record(world, u"Notes", u"IPM.Post.Note", u"A visit", keys_of_ann);
        add_record(world, u"Notes", u"IPM.Post.Note", u"Bob's", of_bob);
        add_record(world, u"Opportunities", u"IPM.Post.Opportunity", u"not shown", opportunity);
        add_record(world, u"Customer Service", u"IPM.Post.CustomerService", u" A question", keys_of_ann);
        add_record(world, u"Email", u"IPM.Post.Note", u"A mail", keys_of_ann);
        add_own(world, default_folder::calendar, u"IPM.Appointment.TarnwellAppt", u"A meeting", keys_of_ann);
        add_own(world, default_folder::calendar, u"IPM.Appointment", u"My own", {});
        add_own(world, default_folder::tasks, u"IPM.Task.TarnwellTask", u"A duty", keys_of_ann);
        struct Case {
            TextView folder;
            Lines subjects;
            bool takes_drops;
        };
        const Case cases[] = {
            {u"Notes", {"A call", "A visit"}, false}, {u"Opportunities", {"Cold store"}, true},
            {u"My Calendar", {"A meeting"}, false},   {u"Customer Service", {"A question"}, true},
            {u"My Tasks", {"A duty"}, false},         {u"Email", {"A mail"}, false},
        };
        for (const Case& one : cases) {
            SCOPED_TRACE(shown(one.folder));
            const QuickView window = view();
            window.choose_folder(one.folder);
            EXPECT_EQ(sorted_subjects(), one.subjects);
            if (!one.takes_drops) {
                EXPECT_TRUE(window.refuses_drops());
            }
        }
        const QuickView window = view();
        window.choose_folder(u"Opportunities");
        const Item item = only_item(world, u"Opportunities");
        EXPECT_EQ(window.cell(1, 2), shown(world.desktop().text_of(item.LastModificationTime())));
        EXPECT_EQ(window.cell(1, 3), shown(item.EntryID()));
        EXPECT_EQ(window.width(3), 0);
    }
}

TEST_F(QuickViewWindow, OffersTheFoldersThatTheDatabaseHas) {
    World& world = viewing();
    show_ann();
    EXPECT_EQ(view().entries(u"cmbFolders"), (Lines{"Notes", "Opportunities", "My Calendar", "My Tasks"}));
    view().close();
    add_folders();
    world.below(u"Email").put(u"Name", u"Post");
    select(world.deliver(message()));
    EXPECT_EQ(view().entries(u"cmbFolders"),
              (Lines{"Notes", "Opportunities", "My Calendar", "My Tasks", "Customer Service"}));
}

TEST_F(QuickViewWindow, AsksForTheAccountsNameOnlyWhereTheStoreKnowsWords) {
    struct Case {
        const char* name;
        Text company;
        bool instant_search;
        Lines subjects;
    };
    // an item of the contact that names another company tells which form was used
    const Lines both{"Of another", "Of this one"}, one_only{"Of this one"};
    const Case cases[] = {
        {"no index", u"North Mill Ltd", false, both},
        {"an index", u"North Mill Ltd", true, one_only},
        {"a part of the name", u"Mill", true, one_only},
        {"an apostrophe, which the store can't read", u"North Mill's", true, both},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        World& world = viewing({.instant_search = one.instant_search});
        ContactPlan contact = full_contact();
        contact.company = one.company;
        show_ann(contact);
        Fields other = keys_of_ann;
        other.back().second = u"Cooper & Sons";
        add_record(world, u"Notes", u"IPM.Post.Note", u"Of this one", keys_of_ann);
        add_record(world, u"Notes", u"IPM.Post.Note", u"Of another", other);
        view().choose_folder(u"Notes");
        EXPECT_EQ(sorted_subjects(), one.subjects);
    }
}

TEST_F(QuickViewWindow, ListsNothingWithoutAContactsId) {
    for (const WorldSetup& setup : hosts) {
        World& world = viewing(setup);
        ContactPlan contact = full_contact();
        contact.properties = {{u"AccountID", u"A-100"}};
        show_ann(contact);
        add_record(world, u"Notes", u"IPM.Post.Note", u"Of the account", {{u"AccountID", u"A-100"}});
        view().choose_folder(u"Notes");
        EXPECT_EQ(view().count(), 0);
    }
}

TEST_F(QuickViewWindow, LeavesTheRowBeforeAsItIsWhereAnItemCannotBeRead) {
    World& world = viewing();
    show_ann();
    const Item first = add_record(world, u"Notes", u"IPM.Post.Note", u"A call", keys_of_ann);
    add_record(world, u"Notes", u"IPM.Post.Note", u"A visit", keys_of_ann);
    const QuickView window = view();
    constexpr std::int32_t second = 1;
    world.fail(u"PostItem.Subject", second);
    window.choose_folder(u"Notes");
    EXPECT_EQ(sorted_subjects(), Lines{"A call"});
    EXPECT_EQ(window.cell(1, 2), shown(world.desktop().text_of(first.LastModificationTime())));
    EXPECT_EQ(window.cell(1, 3), shown(first.EntryID())) << "it opens what it names";
}

TEST_F(QuickViewWindow, ReadsAFolderAtEachClickAndOnlyThen) {
    World& world = viewing();
    const Item mail = show_ann();
    const QuickView window = view();
    add_record(world, u"Notes", u"IPM.Post.Note", u"First", keys_of_ann);
    window.choose_folder(u"Notes");
    EXPECT_EQ(window.column(1), Lines{"First"});
    add_record(world, u"Notes", u"IPM.Post.Note", u"Second", keys_of_ann);
    world.settle();
    EXPECT_EQ(window.count(), 1);
    window.choose_folder(u"Notes");
    EXPECT_EQ(window.count(), 2);
    world.below(u"Opportunities").put(u"Name", u"Chances");
    window.choose_folder(u"Opportunities");
    EXPECT_EQ(window.count(), 0) << "a folder that isn't there empties the list";
    window.choose_folder(u"Notes");
    world.fail(u"Items.Restrict", 0, 3);
    window.choose_folder(u"Notes");
    EXPECT_EQ(window.count(), 0) << "and so does a search that fails";
    window.choose_folder(u"Notes");
    select(world.deliver(message()));
    EXPECT_EQ(window.count(), 0) << "another mail empties it, too";
    EXPECT_EQ(window.text(u"cmbFolders"), "Choose Folder");
}

TEST_F(QuickViewWindow, SortsByAClickOnAHeading) {
    World& world = viewing();
    show_ann();
    Lines by_date;
    Text last;
    for (const TextView subject : {u"b", u"C", u"a"}) {
        const Item record = add_record(world, u"Notes", u"IPM.Post.Note", subject, keys_of_ann);
        // dates are shown by the second: each is to bear another one
        constexpr int rounds = 100000;
        for (int i = 0; i < rounds && world.text(record, u"LastModificationTime") == last; ++i) {
            record.Body(automation::to_text(static_cast<long long>(i)));
            record.Save();
        }
        last = world.text(record, u"LastModificationTime");
        by_date.push_back(shown(subject));
    }
    const QuickView window = view();
    window.choose_folder(u"Notes");
    EXPECT_EQ(window.headings(), (Lines{"Subject", "Modified Date"}));
    window.click_column(1);
    EXPECT_EQ(window.column(1), (Lines{"a", "b", "C"}));
    window.click_column(1);
    EXPECT_EQ(window.column(1), (Lines{"C", "b", "a"}));
    window.click_column(2);
    // the flag is off: what was changed later comes first
    EXPECT_EQ(window.column(1), (Lines{"a", "C", "b"}));
    window.click_column(2);
    EXPECT_EQ(window.column(1), by_date);
    window.click_column(3);
    EXPECT_EQ(window.column(1), by_date) << "nothing more than the key changes";
    EXPECT_EQ(window.marks(), (std::vector<std::int32_t>{-1, -1, -1}));

    // whatever order a comparison that knows no "less" leaves among many of the same second, no row gets lost
    constexpr int many = 50;
    for (int i = 0; i < many; ++i) add_record(world, u"Notes", u"IPM.Post.Note", u"one of many", keys_of_ann);
    window.choose_folder(u"Notes");
    const auto sorted_ids = [&] {
        Lines ids = window.column(3);
        std::ranges::sort(ids);
        return ids;
    };
    const Lines ids = sorted_ids();
    EXPECT_EQ(ids.size(), by_date.size() + many);
    for (const int click : {1, 2}) {
        SCOPED_TRACE(click);
        window.click_column(2);
        EXPECT_EQ(sorted_ids(), ids);
    }
}

TEST_F(QuickViewWindow, OpensWhatItsLinksAndRowsStandFor) {
    World& world = viewing();
    const Item account =
        add_account(world, {{u"AccountID", u"A-100"}, {u"Account Name", u"North Mill Ltd"}}, u"North Mill");
    show_ann();
    const Item contact = only_item(world, u"Account Contacts");
    const Item note = add_record(world, u"Notes", u"IPM.Post.Note", u"A call", keys_of_ann);
    const QuickView window = view();
    const std::int32_t before = world.displayed();
    window.click(u"CompanyName");
    window.click(u"Contactname");
    window.choose_folder(u"Notes");
    window.select(1);
    window.double_click();
    EXPECT_EQ(world.ids_displayed_since(before),
              (Lines{shown(account.EntryID()), shown(contact.EntryID()), shown(note.EntryID())}));
    EXPECT_EQ(count_in(world, u"Email"), 0) << "a double click never files";

    add_contact(world, {.full_name = u"Bob Ray",
                        .fields = {{u"Email1Address", u"bob@ray.example"}},
                        .properties = {{u"AccountID", u"A-1"}, {u"ContactID", u"C-1"}}});
    select(world.deliver(message({.from = "Bob Ray <bob@ray.example>"})));
    const Item bob = world.below(u"Account Contacts").Items().Item(2);
    bob.UserProperties().Item(u"ContactID").value(u"C-2");
    bob.Save();
    window.click(u"CompanyName");
    window.click(u"Contactname");
    window.double_click();
    EXPECT_EQ(world.ids_displayed_since(before).size(), 3U) << "what isn't found isn't opened";
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(QuickViewWindow, OpensTheSearchPanelOnTheRecordThatItWasLastTold) {
    World& world = viewing();
    install_panel(world);
    world.option(u"EnableQuickView", u"0");
    add_contact(world, full_contact());
    add_contact(world, {.full_name = u"Bob Ray",
                        .fields = {{u"Email1Address", u"bob@ray.example"}},
                        .properties = {{u"AccountID", u"A-300"}, {u"ContactID", u"C-400"}}});
    add_record(world, u"Notes", u"IPM.Post.Note", u"A call", keys_of_ann);
    const Item of_ann = world.deliver(message());
    const Item of_bob = world.deliver(message({.from = "Bob Ray <bob@ray.example>"}));
    const SearchPanel panel(world);
    struct Case {
        const char* name;
        TextView operation;  ///< one of them doesn't tell the record
        Item mail;
        std::string header;
        Lines found;
    };
    const std::string ann = "Ann Lee|North Mill Ltd|111|222|1 Mill Lane|York|Yorkshire|YO1";
    const Case cases[] = {
        {"nothing was told yet",
         u"ShowTarnwell",
         of_bob,
         "Contact Name|Company Name|Phone|Fax|Street1|City|State|Zip",
         {}},
        {"the record that is shown", u"ShowQuickView", of_ann, ann, {"Ann Lee", "A call"}},
        {"another one is shown", u"ShowTarnwell", of_bob, ann, {"Ann Lee", "A call"}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        select(one.mail);
        call(one.operation);
        view().click(u"cmdSearchpanel");
        ASSERT_TRUE(world.wait_until([&] { return panel.is_open(); }));
        EXPECT_TRUE(panel.ends());
        EXPECT_EQ(panel.header(), one.header);
        EXPECT_EQ(panel.column(2), one.found);
        EXPECT_EQ(panel.text(u"SearchMe"), one.found.empty() ? "SearchMe" : "Contacts");
        panel.close();
        EXPECT_TRUE(view().is_open());
    }
    EXPECT_EQ(count_messages(world), 0);
}

TEST_F(QuickViewWindow, TakesTheStickyNotesOfItsAccountWithIt) {
    World& world = viewing();
    show_ann();
    const auto sticky_note = [&](TextView account) { return new_sticky_note(world, account); };
    OpenedItem of_account(sticky_note(u"A-100")), second(sticky_note(u"A-100")),
        of_another(sticky_note(u"A-300")), mail(new_item(world, item_type::mail)),
        own(new_item(world, item_type::note));  // the user's own belongs to no account
    for (OpenedItem* const opened : {&of_account, &of_another, &mail, &second, &own}) opened->show();
    own.item.Body(u"Milk, not yet saved");
    ASSERT_EQ(world.application().Inspectors().Count(), 5);
    view().close();
    EXPECT_EQ(world.application().Inspectors().Count(), 3);
    EXPECT_EQ(own.item.Body(), u"Milk, not yet saved");
    show_folder(world, world.inbox());
    select(world.deliver(message()));
    EXPECT_EQ(world.application().Inspectors().Count(), 3);
    EXPECT_TRUE(view().is_open()) << "it comes up anew";
}

}  // namespace
}  // namespace acceptance
