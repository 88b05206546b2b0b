#include <gmock/gmock.h>

#include "family/create.h"
#include "family_fakes.h"

namespace {

using namespace family_test;
using testing::ElementsAre;

struct ListPickerTest : testing::Test {
    std::shared_ptr<Surroundings> around = std::make_shared<Surroundings>();
    Object picker = family::create(u"ContactList.List", around);
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
    picker.put(u"FolderId", u"00A1");
    picker.call(u"loaddialog");
    picker.call(u"refreshaccounts");
    picker.call(u"showdialog");
    picker.call(u"searchany", {u"Account", u"Account List"});
    picker.call(u"searchany", {u"Contact", u"Contact", false});
    EXPECT_THAT(readable(around->calls), ElementsAre("ListPicker.FolderId = 00A1", "ListPicker.loaddialog",
                                                     "ListPicker.refreshaccounts", "ListPicker.showdialog",
                                                     "ListPicker.searchany(Account, Account List)",
                                                     "ListPicker.searchany(Contact, Contact, False)"));
}

TEST_F(ListPickerTest, ReportsThatNothingWasChosen) {
    picker.call(u"showdialog");
    EXPECT_EQ(picker.get(u"dialogcancel"), Value(true));
    const Value rows = picker.get(u"slist");
    ASSERT_EQ(rows.to_array().dimensions().size(), 2u);
    EXPECT_EQ(rows.to_array().dimensions()[0].count, 0);
    EXPECT_EQ(rows.to_array().dimensions()[1].count, 0);
    EXPECT_EQ(failure_of([&] { rows.to_array().at(0, 7); }), host::result::bad_index);
}

TEST_F(ListPickerTest, RefusesASearchWithoutATitle) {
    EXPECT_EQ(failure_of([&] { picker.call(u"searchany", {u"Account"}); }), host::result::bad_count);
}

TEST(ReportsHost, RecordsThatItWasStarted) {
    auto around = std::make_shared<Surroundings>();
    family::create(u"TarnwellReports.Reports", around).call(u"Initiate");
    EXPECT_THAT(readable(around->calls), ElementsAre("ReportsHost.Initiate"));
}

}  // namespace
