#include <gmock/gmock.h>

#include "family/create.h"
#include "tests/unit/support/family_fakes.h"

namespace {

using namespace family_test;
using testing::ElementsAre;

Profile::Node sample_store() {
    return {u"Database",
            {{u"Account Profiles",
              {{u"Account Contacts"}, {u"Drop Downs"}, {u"Customer Service", {{u"Actions"}}}}},
             {u"Leads"},
             {u"System Folder"}}};
}

struct MainAddInTest : testing::Test {
    std::shared_ptr<FakeContext> around =
        std::make_shared<FakeContext>(std::vector<Profile::Node>{{u"Mailbox", {{u"Inbox"}}}, sample_store()});
    Object main = family::create(u"Tarnwell.connect", around);

    Text ask(TextView member, std::initializer_list<Value> arguments = {}) const {
        return main.call(member, arguments).to_text();
    }
    std::vector<Text> drop_downs(TextView list) const {
        const Value answer = main.call(u"GetDropDownsCache", {Value(list)});
        std::vector<Text> texts;
        for (std::int32_t i = 0; i < answer.to_array().dimensions().at(0).count; ++i) {
            texts.push_back(answer.to_array().at(i).to_text());
        }
        return texts;
    }
};

TEST(Family, MakesItsClassesByTheirNamesInAnyCase) {
    for (const family::ClassEntry& entry : family::classes()) {
        EXPECT_TRUE(family::create(entry.prog_id, std::make_shared<FakeContext>()));
        EXPECT_TRUE(family::create(automation::upper(entry.prog_id), std::make_shared<FakeContext>()));
    }
    EXPECT_FALSE(family::create(u"Tarnwell.other", std::make_shared<FakeContext>()));
    EXPECT_FALSE(family::create(u"", std::make_shared<FakeContext>()));
}

TEST(Family, ItsClassesHaveIdsOfTheirOwn) {
    std::set<automation::Guid> ids;
    for (const family::ClassEntry& entry : family::classes()) ids.insert(entry.id);
    EXPECT_EQ(ids.size(), 6u);
}

struct SettingCase {
    TextView member, setting;
};
class MainAddInSetting : public testing::TestWithParam<SettingCase> {};

TEST_P(MainAddInSetting, IsReadAnewAtEachCall) {
    auto around = std::make_shared<FakeContext>();
    const Object main = family::create(u"Tarnwell.connect", around);
    EXPECT_EQ(main.call(GetParam().member), Value(u""));
    around->settings[Text(GetParam().setting)] = u"first";
    EXPECT_EQ(main.call(GetParam().member), Value(u"first"));
    around->settings[Text(GetParam().setting)] = u"second";
    EXPECT_EQ(main.call(GetParam().member), Value(u"second"));
}

INSTANTIATE_TEST_SUITE_P(Members, MainAddInSetting,
                         testing::Values(SettingCase{u"GetUserName", u"UserName"},
                                         SettingCase{u"getcurrentusername", u"CurrentUserName"},
                                         SettingCase{u"GetAlignment", u"Alignment"},
                                         SettingCase{u"getEmailAutoFile", u"EmailAutoFile"},
                                         SettingCase{u"getspecialfolderlocation", u"SpecialFolder"},
                                         SettingCase{u"GetDLLPath", u"ProgramFolder"}),
                         [](const auto& tested) { return automation::to_utf8(tested.param.setting); });

TEST_F(MainAddInTest, FindsTheDatabaseFoldersByTheirExactNames) {
    EXPECT_EQ(ask(u"GetFolderId", {u"Account Profiles"}), u"ID:/Database/Account Profiles");
    EXPECT_EQ(ask(u"GetFolderId", {u"System Folder"}), u"ID:/Database/System Folder");
    EXPECT_EQ(ask(u"GetFolderId", {u"Actions"}), u"ID:/Database/Account Profiles/Customer Service/Actions");
    EXPECT_EQ(ask(u"GetFolderId", {u"Inbox"}), u"ID:/Mailbox/Inbox");
    EXPECT_EQ(ask(u"GetFolderId", {u"account profiles"}), u"");
    EXPECT_EQ(ask(u"GetFolderId", {u"Nowhere"}), u"");
}

TEST_F(MainAddInTest, LooksForOtherFoldersBesideAccountProfilesFirst) {
    around->profile.stores().front().children.push_back({u"System Folder"});
    around->profile.stores().back().children.front().children.push_back({u"System Folder"});
    EXPECT_EQ(ask(u"GetFolderId", {u"System Folder"}), u"ID:/Database/System Folder");

    around->profile.stores().back().children.pop_back();
    around->memory() = {};
    EXPECT_EQ(ask(u"GetFolderId", {u"System Folder"}), u"ID:/Database/Account Profiles/System Folder");
}

TEST_F(MainAddInTest, TestsAFolderBeforeThoseBelowIt) {
    around->profile.stores().back().children.front().children.push_back({u"Account Profiles"});
    EXPECT_EQ(ask(u"GetFolderId", {u"Account Profiles"}), u"ID:/Database/Account Profiles");
}

TEST_F(MainAddInTest, PassesOverAStoreThatIsOffline) {
    around->profile.offline = {u"Mailbox"};
    EXPECT_EQ(ask(u"GetFolderId", {u"Account Profiles"}), u"ID:/Database/Account Profiles");
    around->profile.offline = {u"Database"};
    around->memory() = {};
    EXPECT_EQ(ask(u"GetFolderId", {u"Account Profiles"}), u"");
}

TEST_F(MainAddInTest, RemembersWhereAFolderIs) {
    ask(u"GetFolderId", {u"Account Profiles"});
    around->profile.listed = 0;
    EXPECT_EQ(ask(u"GetFolderId", {u"Account Profiles"}), u"ID:/Database/Account Profiles");
    EXPECT_EQ(around->profile.listed, 0);
    EXPECT_EQ(around->profile.opened, 1);
}

TEST_F(MainAddInTest, LooksAnewForAFolderThatIsNoLongerWhereItWas) {
    ask(u"GetFolderId", {u"Leads"});
    around->profile.stores().back().children.at(1).name = u"Old Leads";
    around->profile.stores().front().children.push_back({u"Leads"});
    EXPECT_EQ(ask(u"GetFolderId", {u"Leads"}), u"ID:/Mailbox/Leads");
}

TEST_F(MainAddInTest, LooksAnewForAFolderThatWasRenamed) {
    Profile::Node& leads = around->profile.stores().back().children.at(1);
    leads.id = u"00A1";
    EXPECT_EQ(ask(u"GetFolderId", {u"Leads"}), u"00A1");
    leads.name = u"Old Leads";
    EXPECT_EQ(ask(u"GetFolderId", {u"Leads"}), u"");
    EXPECT_EQ(ask(u"GetFolderId", {u"Old Leads"}), u"00A1");
}

TEST_F(MainAddInTest, AnswersTheStoreThatHoldsTheDatabase) {
    EXPECT_EQ(ask(u"GetStoreId"), u"STORE2");
    around->settings[u"StoreID"] = u"";
    EXPECT_EQ(ask(u"GetStoreId"), u"STORE2");
    around->settings[u"StoreID"] = u"ABCD";
    EXPECT_EQ(ask(u"GetStoreId"), u"ABCD");
    around->settings[u"StoreID"] = u"-";
    EXPECT_EQ(ask(u"GetStoreId"), u"");
}

TEST_F(MainAddInTest, HasNoStoreWhereThereIsNoDatabase) {
    around->profile.stores().pop_back();
    EXPECT_EQ(ask(u"GetStoreId"), u"");
}

TEST_F(MainAddInTest, PrefersTheStoreThatTheSettingNames) {
    around->profile.stores().push_back({u"Second", {{u"Account Profiles"}, {u"System Folder"}}});
    EXPECT_EQ(ask(u"GetFolderId", {u"System Folder"}), u"ID:/Database/System Folder");
    around->settings[u"StoreID"] = u"STORE3";
    EXPECT_EQ(ask(u"GetFolderId", {u"Account Profiles"}), u"ID:/Second/Account Profiles");
    EXPECT_EQ(ask(u"GetFolderId", {u"System Folder"}), u"ID:/Second/System Folder");
}

TEST_F(MainAddInTest, FailsWithoutAHostWhereItNeedsOne) {
    around->with_application = false;
    EXPECT_EQ(failure_of([&] { ask(u"GetFolderId", {u"Account Profiles"}); }),
              automation::result::bad_prog_id);
    EXPECT_EQ(failure_of([&] { ask(u"GetStoreId"); }), automation::result::bad_prog_id);
    EXPECT_EQ(failure_of([&] { ask(u"generateid"); }), 0);
}

struct PathCase {
    const char* what;
    TextView path;
    TextView folder;  ///< its entry id; empty for Nothing
};
class ReturnFolderFromPath : public testing::TestWithParam<PathCase> {};

TEST_P(ReturnFolderFromPath, FollowsTheChainOfNames) {
    auto around = std::make_shared<FakeContext>(std::vector<Profile::Node>{
        {u"Mailbox", {{u"Inbox"}}}, sample_store(), {u"Database", {{u"Only here"}}}});
    const Object main = family::create(u"Tarnwell.connect", around);
    const Object folder = main.call(u"ReturnFolderFromPath", {Value(GetParam().path)}).to_object();
    ASSERT_EQ(static_cast<bool>(folder), !GetParam().folder.empty());
    EXPECT_EQ(folder ? readable(folder.get(u"EntryID")) : "", automation::to_utf8(GetParam().folder));
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ReturnFolderFromPath,
    testing::Values(
        PathCase{"Usual", u"\\\\Database\\Account Profiles", u"ID:/Database/Account Profiles"},
        PathCase{"NoLeadingBackslash", u"Database\\Account Profiles", u"ID:/Database/Account Profiles"},
        PathCase{"OneLeadingBackslash", u"\\Database\\Leads", u"ID:/Database/Leads"},
        PathCase{"TrailingBackslash", u"\\\\Database\\Account Profiles\\", u"ID:/Database/Account Profiles"},
        PathCase{"ManyBackslashes", u"\\\\\\Database\\Leads\\\\\\", u"ID:/Database/Leads"},
        PathCase{"StoreAlone", u"\\\\Mailbox", u"ID:/Mailbox"},
        PathCase{"Deep", u"\\\\Database\\Account Profiles\\Customer Service\\Actions",
                 u"ID:/Database/Account Profiles/Customer Service/Actions"},
        PathCase{"OtherCase", u"\\\\database\\LEADS", u"ID:/Database/Leads"},
        PathCase{"SecondStoreOfThatName", u"\\\\Database\\Only here", u"ID:/Database/Only here"},
        PathCase{"UnknownStore", u"\\\\Elsewhere\\Leads", u""},
        PathCase{"UnknownFolder", u"\\\\Database\\Nowhere", u""},
        PathCase{"BelowALeaf", u"\\\\Database\\Leads\\Below", u""},
        PathCase{"EmptyNameInside", u"\\\\Database\\\\Leads", u""},
        PathCase{"NotFromTheRoot", u"\\\\Account Profiles", u""},
        PathCase{"BlanksCount", u"\\\\Database \\Leads", u""}),
    [](const auto& tested) { return tested.param.what; });

TEST_F(MainAddInTest, RefusesAPathWithoutAName) {
    for (const TextView path : {u"", u"\\", u"\\\\\\"}) {
        EXPECT_EQ(failure_of([&] { main.call(u"ReturnFolderFromPath", {Value(path)}); }),
                  automation::result::invalid_argument);
    }
}

Object drop_down(TextView subject, TextView record_type, TextView message_class = u"IPM.Post.Drop Down") {
    auto properties = fake();
    const Object property = record_type.empty() ? Object() : Object(fake({{u"Value", record_type}}));
    properties->functions[u"Find"] = [property](std::vector<Value>& arguments) -> Value {
        return arguments.at(0) == Value(u"RecordType") ? property : Object();
    };
    return Object(fake({{u"Subject", subject},
                        {u"EntryID", u"ID " + Text(subject)},
                        {u"MessageClass", message_class},
                        {u"UserProperties", Object(properties)}}));
}

TEST_F(MainAddInTest, ListsTheDropDownRecordsOfAKindInTheirOrder) {
    around->profile.stores().back().children.front().children.at(1).items = {
        drop_down(u"Phone call", u"Note Type"),
        drop_down(u"A list", u"Email Blast"),
        drop_down(u"Meeting", u"Note Type", u"ipm.post.drop down"),
        drop_down(u"No type", u""),
        drop_down(u"A note", u"Note Type", u"IPM.Post.Note"),
        drop_down(u"Another case", u"note type"),
        drop_down(u"Fax", u"Note Type"),
    };
    EXPECT_THAT(drop_downs(u"Note Type"), ElementsAre(u"Phone call", u"Meeting", u"Fax"));
    EXPECT_THAT(drop_downs(u"Email Blast"), ElementsAre(u"A list"));
    EXPECT_THAT(drop_downs(u"Unknown"), ElementsAre());
}

TEST_F(MainAddInTest, HasNoDropDownsWithoutTheirFolder) {
    around->profile.stores().back().children.front().children.clear();
    EXPECT_THAT(drop_downs(u"Note Type"), ElementsAre());
    around->profile.stores().clear();
    around->memory() = {};
    EXPECT_THAT(drop_downs(u"Note Type"), ElementsAre());
}

TEST_F(MainAddInTest, RecordsWhatItWouldShow) {
    main.put(u"messageid", u"00A1");
    main.call(u"ShowMailer");
    main.call(u"Showlist", {u"Document"});
    main.call(u"reloadtoolbar", {u"UNLOAD"});
    main.call(u"reloadtoolbar", {u"RELOAD"});
    EXPECT_THAT(
        readable(around->calls),
        ElementsAre("MainAddIn.messageid = 00A1", "MainAddIn.ShowMailer", "MainAddIn.Showlist(Document)",
                    "MainAddIn.reloadtoolbar(UNLOAD)", "MainAddIn.reloadtoolbar(RELOAD)"));
}

TEST_F(MainAddInTest, KeepsTheIdOfAMail) {
    EXPECT_EQ(ask(u"messageid"), u"");
    main.put(u"messageid", u"00A1");
    EXPECT_EQ(ask(u"messageid"), u"00A1");
    EXPECT_EQ(family::create(u"Tarnwell.connect", around).get(u"messageid"), Value(u""))
        << "each has its own";
}

TEST_F(MainAddInTest, ListsTheTemplatesOfAKindInAWindow) {
    around->profile.stores().back().children.front().children[1].items = {
        drop_down(u"Phone call", u"Note Type"), drop_down(u"Spring letter", u"Email Blast"),
        drop_down(u"Offer", u"Document"), drop_down(u"Autumn letter", u"Email Blast")};
    main.call(u"ShowMailer");
    main.call(u"Showlist", {u"Document"});
    main.call(u"Showlist", {u"Spreadsheet"});
    const auto listed = [&](TextView caption) {
        std::vector<Text> subjects;
        native::MemoryWindow* const window = around->windows.find(caption);
        if (!window || !window->visible()) return subjects;
        const forms::List& list = window->control(u"lstTemplates").list();
        for (int row = 0; row < list.count(); ++row) subjects.push_back(list.text(row, 0));
        return subjects;
    };
    EXPECT_THAT(listed(u"Email Templates"), ElementsAre(u"Spring letter", u"Autumn letter"));
    EXPECT_THAT(listed(u"Document Templates"), ElementsAre(u"Offer"));
    EXPECT_THAT(listed(u"Spreadsheet Templates"), ElementsAre());
    EXPECT_TRUE(around->shows_windows());
    around->close_windows();
    EXPECT_FALSE(around->shows_windows());
}

TEST_F(MainAddInTest, MembersThatTheSettingListsFail) {
    around->settings[u"Fail"] = u"GetFolderId; MainAddIn.generateid ;SafeMailItem.GetStoreId;showmailer";
    EXPECT_EQ(failure_of([&] { ask(u"GetFolderId", {u"Account Profiles"}); }), automation::result::fail);
    EXPECT_EQ(failure_of([&] { ask(u"generateid"); }), automation::result::fail);
    EXPECT_EQ(failure_of([&] { main.call(u"ShowMailer"); }), automation::result::fail);
    EXPECT_EQ(failure_of([&] { ask(u"GetStoreId"); }), 0);
    EXPECT_THAT(around->calls, ElementsAre());
    EXPECT_FALSE(around->shows_windows());
    around->settings[u"Fail"] = u";;";
    EXPECT_EQ(failure_of([&] { ask(u"generateid"); }), 0);
}

TEST_F(MainAddInTest, AMemberThatItDoesNotHaveIsUnknown) {
    EXPECT_EQ(failure_of([&] { main.call(u"Nonsense"); }), automation::result::unknown_name);
}

}  // namespace
