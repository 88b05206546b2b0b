#include <gmock/gmock.h>

#include "family/create.h"
#include "tests/unit/support/family_fakes.h"

namespace {

using namespace family_test;
using native::MemoryControl;
using native::MemoryWindow;
using testing::ElementsAre;

/// A record with user properties, besides its id.
Object record(TextView id, const std::map<Text, Value>& values) {
    auto made = fake({{u"EntryID", id}});
    auto properties = fake();
    properties->functions[u"Item"] = [values](std::vector<Value>& arguments) -> Value {
        const auto found = values.find(arguments.at(0).to_text());
        if (found == values.end()) return Object();
        return Object(fake({{u"Value", found->second}}));
    };
    made->properties[u"UserProperties"] = Object(properties);
    return Object(made);
}

Object account(TextView id, TextView name, TextView city, TextView phone) {
    return record(id, {{u"Account Name", name},
                       {u"AccountCity", city},
                       {u"AccountPhone", phone},
                       {u"AccountID", Text(u"of ") + Text(id)}});
}

struct ListPickerTest : testing::Test {
    std::shared_ptr<FakeContext> around = std::make_shared<FakeContext>(std::vector<Profile::Node>{
        {u"Tarnwell",
         {{.name = u"Account Profiles",
           .items = {account(u"E1", u"Cooper & Sons", u"Arden", u"111"),
                     account(u"E2", u"Arden Mills", u"Marlow", u"222"),
                     account(u"E3", u"Baker Ltd", u"Dover", u"333")},
           .message_class = u"IPM.Post.Tarnwell_2000"},
          {.name = u"Opportunities",
           .items = {record(u"E9", {{u"Account Name", u"Baker Ltd"}, {u"Team", u"North"}})},
           .message_class = u"IPM.Post.Opportunity"}}}});
    Object picker = family::create(u"ContactList.List", around);

    MemoryWindow& window(TextView caption = u"Account List") {
        MemoryWindow* const found = around->windows.find(caption);
        if (!found) throw std::runtime_error("there is no such window");
        return *found;
    }
    MemoryControl& at(TextView name) { return window().control(name); }
    bool is_open() { return around->windows.find(u"Account List") != nullptr; }

    /// Opens the search form, and comes back when it is shown.
    void open(std::vector<Value> arguments = {u"Account", u"Account List"}) {
        around->strands.run([this, arguments = std::move(arguments)]() mutable {
            Request request{
                .access = Access::call, .member = u"searchany", .arguments = std::move(arguments)};
            picker.invoke(request);
        });
    }

    std::vector<std::string> names(TextView list = u"lstItems") {
        std::vector<std::string> all;
        for (int row = 0; row < at(list).list().count(); ++row) {
            all.push_back(automation::to_utf8(at(list).list().text(row, 0)));
        }
        return all;
    }
    bool cancelled() { return picker.get(u"dialogcancel").to_boolean(); }
    automation::Array chosen() { return picker.get(u"slist").to_array(); }
};

TEST_F(ListPickerTest, KeepsWhereItIsToLook) {
    for (const TextView member : {u"FolderId", u"accountfolderid", u"StoreID"}) {
        EXPECT_EQ(picker.get(member), Value(u""));
        picker.put(member, Text(u"of ") + Text(member));
    }
    for (const TextView member : {u"FolderId", u"accountfolderid", u"StoreID"}) {
        EXPECT_EQ(picker.get(member), Value(Text(u"of ") + Text(member)));
    }
}

TEST_F(ListPickerTest, RecordsHowItIsAsked) {
    picker.put(u"FolderId", u"ID:/Tarnwell/Account Profiles");
    around->strands.run([&] {
        picker.call(u"loaddialog");
        picker.call(u"refreshaccounts");
        picker.call(u"showdialog");
    });
    window().close();
    open();
    window().close();
    open({u"Contact", u"Account List", false});
    window().close();
    EXPECT_THAT(readable(around->calls),
                ElementsAre("ListPicker.FolderId = ID:/Tarnwell/Account Profiles", "ListPicker.loaddialog",
                            "ListPicker.refreshaccounts", "ListPicker.showdialog",
                            "ListPicker.searchany(Account, Account List)",
                            "ListPicker.searchany(Contact, Account List, False)"));
}

TEST_F(ListPickerTest, HasChosenNothingBeforeItIsAsked) {
    EXPECT_TRUE(cancelled());
    ASSERT_EQ(chosen().dimensions().size(), 2u);
    EXPECT_EQ(chosen().dimensions()[0].count, 0);
    EXPECT_EQ(failure_of([&] { chosen().at(0, 7); }), automation::result::bad_index);
}

TEST_F(ListPickerTest, ListsTheAccounts) {
    open();
    EXPECT_TRUE(window().visible());
    EXPECT_THAT(names(), ElementsAre("Cooper & Sons", "Arden Mills", "Baker Ltd"));
    const forms::List& list = at(u"lstItems").list();
    EXPECT_EQ(list.selected(), 0);
    EXPECT_EQ(list.heading(1), u"City");
    EXPECT_EQ(list.text(0, 1), u"Arden");
    EXPECT_EQ(list.text(0, 2), u"111");
    EXPECT_EQ(list.text(0, 7), u"E1");
    EXPECT_EQ(list.width(7), 0);
    EXPECT_EQ(window().find(u"lstChosen"), nullptr);
    EXPECT_EQ(window().focused(), window().find(u"txtSearch"));
}

TEST_F(ListPickerTest, ASearchAnswersRowsThenColumns) {
    open();
    EXPECT_TRUE(at(u"lstItems").select(1));
    EXPECT_TRUE(at(u"cmdOK").click());
    EXPECT_FALSE(is_open());
    EXPECT_FALSE(cancelled());
    ASSERT_EQ(chosen().dimensions().size(), 2u);
    EXPECT_EQ(chosen().dimensions()[0].count, 2) << "the row, and an empty one";
    EXPECT_EQ(chosen().dimensions()[1].count, 8);
    EXPECT_EQ(chosen().at(0, 0), Value(u"Arden Mills"));
    EXPECT_EQ(chosen().at(0, 1), Value(u"Marlow"));
    EXPECT_EQ(chosen().at(0, 6), Value(u"of E2"));
    EXPECT_EQ(chosen().at(0, 7), Value(u"E2"));
    EXPECT_EQ(chosen().at(1, 7), Value());
}

TEST_F(ListPickerTest, TheDialogAnswersColumnsThenRows) {
    around->strands.run([&] {
        picker.call(u"loaddialog");
        picker.call(u"refreshaccounts");
        picker.call(u"showdialog");
    });
    EXPECT_TRUE(at(u"lstItems").double_click(2));
    EXPECT_FALSE(cancelled());
    EXPECT_EQ(chosen().dimensions()[0].count, 8);
    EXPECT_EQ(chosen().dimensions()[1].count, 1);
    EXPECT_EQ(chosen().at(7, 0), Value(u"E3"));
    EXPECT_EQ(chosen().at(0, 0), Value(u"Baker Ltd"));
}

TEST_F(ListPickerTest, TheDialogNeedsNothingButToBeShown) {
    around->strands.run([&] { picker.call(u"showdialog"); });
    EXPECT_EQ(names().size(), 3u);
    EXPECT_TRUE(window().close());
    EXPECT_TRUE(cancelled());
}

TEST_F(ListPickerTest, SearchesAsOneTypes) {
    struct Case {
        TextView typed;
        std::vector<std::string> found;
    };
    const Case cases[] = {
        {u"arden", {"Cooper & Sons", "Arden Mills"}},
        {u"  ", {}},
        {u"333", {"Baker Ltd"}},
        {u"of E2", {}},  // what isn't shown isn't searched
        {u"", {"Cooper & Sons", "Arden Mills", "Baker Ltd"}},
    };
    open();
    for (const Case& each : cases) {
        ASSERT_TRUE(at(u"txtSearch").type(each.typed));
        EXPECT_EQ(names(), each.found) << automation::to_utf8(each.typed);
        EXPECT_EQ(at(u"lstItems").list().selected(), each.found.empty() ? -1 : 0);
    }
}

TEST_F(ListPickerTest, EnterTakesTheFirstThatIsFound) {
    constexpr int enter = 13;
    open();
    at(u"txtSearch").type(u"mill");
    EXPECT_TRUE(at(u"txtSearch").key(enter));
    EXPECT_EQ(chosen().at(0, 7), Value(u"E2"));
}

TEST_F(ListPickerTest, EscapeCancels) {
    constexpr int escape = 27;
    open();
    EXPECT_TRUE(window().key(escape));
    EXPECT_FALSE(is_open());
    EXPECT_TRUE(cancelled());
    EXPECT_EQ(chosen().dimensions()[0].count, 0);
}

TEST_F(ListPickerTest, ANewSearchForgetsTheLastChoice) {
    open();
    at(u"cmdOK").click();
    EXPECT_FALSE(cancelled());
    open();
    at(u"cmdCancel").click();
    EXPECT_TRUE(cancelled());
    EXPECT_EQ(chosen().dimensions()[0].count, 0);
}

TEST_F(ListPickerTest, IsDoneWithoutATableWhenNothingIsFound) {
    open();
    at(u"txtSearch").type(u"nobody");
    at(u"lstItems").double_click(-1);
    ASSERT_TRUE(is_open()) << "a double click beside the rows takes nothing";
    at(u"cmdOK").click();
    EXPECT_FALSE(cancelled());
    EXPECT_EQ(picker.get(u"slist"), Value());
}

TEST_F(ListPickerTest, SortsByAColumnAndTakesTheRowThatIsSeen) {
    open();
    EXPECT_TRUE(at(u"lstItems").column_click(0));
    EXPECT_THAT(names(), ElementsAre("Arden Mills", "Baker Ltd", "Cooper & Sons"));
    EXPECT_EQ(at(u"lstItems").memory_list().mark(0), 1);
    EXPECT_TRUE(at(u"lstItems").column_click(0));
    EXPECT_THAT(names(), ElementsAre("Cooper & Sons", "Baker Ltd", "Arden Mills"));
    EXPECT_EQ(at(u"lstItems").memory_list().mark(0), 0);
    at(u"txtSearch").type(u"a");
    EXPECT_THAT(names(), ElementsAre("Cooper & Sons", "Baker Ltd", "Arden Mills")) << "the order stays";
    at(u"lstItems").double_click(2);
    EXPECT_EQ(chosen().at(0, 7), Value(u"E2"));
}

TEST_F(ListPickerTest, TakesSeveralWhereTheCallerAllowsIt) {
    open({u"Accounts", u"Account List", false});
    at(u"lstItems").select(2);
    at(u"cmdAdd").click();
    at(u"cmdAdd").click();
    EXPECT_THAT(names(u"lstChosen"), ElementsAre("Baker Ltd"));
    at(u"lstItems").select(0);
    at(u"cmdAdd").click();
    at(u"lstItems").select(1);
    at(u"cmdAdd").click();
    at(u"lstChosen").select(0);
    at(u"cmdRemove").click();
    EXPECT_THAT(names(u"lstChosen"), ElementsAre("Cooper & Sons", "Arden Mills"));
    at(u"cmdOK").click();
    EXPECT_EQ(chosen().dimensions()[0].count, 3) << "its upper bound is the number of rows";
    EXPECT_EQ(chosen().at(0, 7), Value(u"E1"));
    EXPECT_EQ(chosen().at(1, 7), Value(u"E2"));
    EXPECT_EQ(chosen().at(2, 7), Value());
}

TEST_F(ListPickerTest, TakesTheHighlightedOneWhereNoneWasAdded) {
    open({u"Accounts", u"Account List", false});
    at(u"lstItems").select(1);
    at(u"cmdOK").click();
    EXPECT_EQ(chosen().dimensions()[0].count, 2);
    EXPECT_EQ(chosen().at(0, 7), Value(u"E2"));
}

TEST_F(ListPickerTest, ListsTheFolderThatItIsGiven) {
    picker.put(u"FolderId", u"ID:/Tarnwell/Opportunities");
    picker.put(u"accountfolderid", u"ID:/Tarnwell/Account Profiles");
    picker.put(u"StoreID", u"STORE1");
    open({u"Opportunities", u"Account List"});
    const forms::List& list = at(u"lstItems").list();
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.heading(1), u"Account");
    EXPECT_EQ(list.text(0, 0), u"") << "it has no subject";
    EXPECT_EQ(list.text(0, 1), u"Baker Ltd");
    EXPECT_EQ(list.text(0, 4), u"North");
}

TEST_F(ListPickerTest, FailsWhereItIsAskedBadly) {
    EXPECT_EQ(failure_of([&] { picker.call(u"searchany", {u"Account"}); }), automation::result::bad_count);
    EXPECT_EQ(failure_of([&] {
                  picker.call(u"searchany", {u"Account", u"List", u"perhaps"});
              }),
              automation::result::type_mismatch);
    picker.put(u"FolderId", u"nowhere");
    EXPECT_EQ(failure_of([&] {
                  picker.call(u"searchany", {u"Account", u"List"});
              }),
              automation::result::not_found);
    EXPECT_EQ(failure_of([&] { picker.call(u"refreshaccounts"); }), automation::result::not_found);
    EXPECT_EQ(failure_of([&] { picker.call(u"showdialog"); }), automation::result::not_found);
    EXPECT_TRUE(cancelled());
}

TEST_F(ListPickerTest, FailsWithoutAnyFolderOfAccounts) {
    around->profile.stores().clear();
    EXPECT_EQ(failure_of([&] { picker.call(u"showdialog"); }), automation::result::not_found);
}

TEST_F(ListPickerTest, IsNotShownTwiceAtATime) {
    open();
    EXPECT_EQ(failure_of([&] {
                  picker.call(u"searchany", {u"Account", u"List"});
              }),
              automation::result::fail);
    EXPECT_EQ(failure_of([&] { picker.call(u"showdialog"); }), automation::result::fail);
    at(u"cmdOK").click();
    EXPECT_FALSE(cancelled());
}

TEST(ReportsHost, RecordsThatItWasStarted) {
    auto around = std::make_shared<FakeContext>();
    family::create(u"TarnwellReports.Reports", around).call(u"Initiate");
    EXPECT_THAT(readable(around->calls), ElementsAre("ReportsHost.Initiate"));
}

}  // namespace
