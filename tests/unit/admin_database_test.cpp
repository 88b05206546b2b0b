// The command that makes a database, on the desk's model.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/native/admin_machine.h"
#include "tests/unit/support/model_support.h"

namespace model_tests {
namespace {

using native::AdminMachine;
using native::AdminRun;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr auto place = "Public Folders\\All Public Folders\\Tarnwell";

/// A world with an `empty` database, which a test may take away, and what the program needs beside the host.
class AdminDatabase : public ModelTest {
  protected:
    AdminDatabase() {
        ini_folder = world.write_file("twsystemfolder.ini", "; none\r\n");
        ini_folder.resize(ini_folder.find_last_of(u"/\\"));
        world.family(u"SpecialFolder", ini_folder);
    }

    Folder public_folders() const {
        return name_space.Folders().Item(u"Public Folders").Folders().Item(u"All Public Folders");
    }
    Folder root() const { return public_folders().Folders().Item(u"Tarnwell"); }
    void take_database_away() const { root().call(u"Delete"); }
    AdminRun admin(std::vector<std::string> arguments) {
        return native::run_admin(std::move(arguments), machine);
    }
    AdminRun make() { return admin({"database", place}); }
    std::string ini() {
        return machine.read_file(ini_folder + u"\\twsystemfolder.ini", 1 << 16).value_or("none");
    }

    /// All folders below one, each as a line of what the store keeps of it, with its fields in their order.
    std::vector<std::string> tree(const Folder& folder, const std::string& path = {}) {
        std::vector<std::string> lines;
        const std::string own_path = path + "\\" + shown(folder.Name());
        std::string line = own_path + ": " + std::to_string(folder.DefaultItemType()) + " " +
                           shown(folder.DefaultMessageClass()) + " " + shown(text(folder, u"Description"));
        const Object fields = folder.get(u"UserDefinedProperties").to_object();
        for (std::int32_t i = 1; i <= integer(fields, u"Count"); ++i) {
            const Object field = fields.call(u"Item", {i}).to_object();
            line += ", " + shown(text(field, u"Name")) + " " + shown(text(field, u"Type"));
        }
        lines.push_back(line);
        for (std::int32_t i = 1; i <= folder.Folders().Count(); ++i) {
            const std::vector<std::string> below = tree(folder.Folders().Item(i), own_path);
            lines.insert(lines.end(), below.begin(), below.end());
        }
        return lines;
    }

    AdminMachine machine{world};
    Text ini_folder;
};

TEST_F(AdminDatabase, IsMadeAsTheEmptyOneIs) {
    const std::vector<std::string> wanted = tree(root());
    take_database_away();
    const AdminRun made = make();
    EXPECT_EQ(made.code, 0) << made.errors;
    EXPECT_EQ(tree(root()), wanted);
    EXPECT_THAT(made.output,
                AllOf(HasSubstr("made     folder \"Tarnwell\\Account Profiles\\Email\": holds posts"),
                      HasSubstr("\"Activity Date\""), HasSubstr("record \"Leads\" of the system folder"),
                      HasSubstr("ini file"), EndsWith("26 things were made.\n")));
}

TEST_F(AdminDatabase, HoldsTheSampleCompanysDefinitions) {
    take_database_away();
    ASSERT_EQ(make().code, 0);
    native::NativeWorld company({.database = "sample", .add_in = false});
    const auto records = [](acceptance::World& of) {
        std::vector<std::string> lines;
        const Folder system(
            host::outlook::Folder(of.account_profiles().Parent()).Folders().Item(u"System Folder"));
        for (std::int32_t i = 1; i <= system.Items().Count(); ++i) {
            const Item item = system.Items().Item(i);
            std::string line =
                shown(item.MessageClass()) + " " + shown(item.Subject()) + " " + shown(item.Body());
            const host::outlook::UserProperties properties = item.UserProperties();
            for (std::int32_t p = 1; p <= properties.Count(); ++p) {
                const Object property = properties.Item(p);
                line += ", " + shown(text(property, u"Name")) + "=" + shown(text(property, u"Value"));
            }
            lines.push_back(line);
        }
        return lines;
    };
    EXPECT_EQ(records(world), records(company));
}

TEST_F(AdminDatabase, MadeAgainMakesNothing) {
    take_database_away();
    ASSERT_EQ(make().code, 0);
    const std::string before = ini();
    const AdminRun again = make();
    EXPECT_EQ(again.code, 0);
    EXPECT_EQ(again.output, "All was there already; nothing was made.\n");
    EXPECT_EQ(ini(), before);
}

TEST_F(AdminDatabase, LeavesWhatIsThereAndAddsWhatIsMissing) {
    ASSERT_EQ(make().code, 0);
    const Folder email = world.below(u"Email");
    const Item note = email.Items().Add(u"IPM.Post.Note");
    note.Subject(u"Kept");
    note.Post();
    email.get(u"UserDefinedProperties").to_object().call(u"Remove", {1});
    const Object definitions = root().Folders().Item(u"System Folder").Items();
    Items(definitions).Item(1).call(u"Delete");
    root().Folders().Item(u"Leads").call(u"Delete");
    const AdminRun made = make();
    EXPECT_EQ(made.code, 0) << made.errors;
    EXPECT_THAT(made.output,
                AllOf(HasSubstr("made     field \"AccountID\" of \"Tarnwell\\Account Profiles\\Email\""),
                      HasSubstr("made     folder \"Tarnwell\\Leads\""),
                      HasSubstr("record \"Account Contacts\""), EndsWith("3 things were made.\n")));
    EXPECT_EQ(subjects(email.Items()), (std::vector<Text>{u"Kept"}));
}

TEST_F(AdminDatabase, AddsToTheIniFileOnlyWhatItLacks) {
    world.write_file("twsystemfolder.ini", "[leads]\r\nDisplay in=mine");
    ASSERT_EQ(make().code, 0);
    EXPECT_THAT(
        ini(),
        AllOf(
            testing::StartsWith("[leads]\r\nDisplay in=mine\r\n\r\n[Account Contacts]\r\nDisplay in=Find"),
            Not(HasSubstr("[Leads]")),
            HasSubstr("Folder Name=\\\\Public Folders\\All Public Folders\\Tarnwell\\Account Profiles\r\n")));
}

TEST_F(AdminDatabase, LeavesAnIniFileAloneToWhichNothingCanBeAdded) {
    const std::string files[] = {"[Mine]\r\n" + std::string(3 << 20, ';'), std::string("\xFF\xFE[\0M\0", 6)};
    for (const std::string& file : files) {
        world.write_file("twsystemfolder.ini", file);
        const AdminRun made = make();
        EXPECT_EQ(made.code, 1);
        EXPECT_THAT(made.output, AllOf(HasSubstr("WRONG    ini file"), HasSubstr("put it right by hand")));
        EXPECT_EQ(machine.read_file(ini_folder + u"\\twsystemfolder.ini", 4 << 20), file);
    }
}

TEST_F(AdminDatabase, CanBeMadeElsewhere) {
    take_database_away();
    const AdminRun made = admin({"database", "\\\\mailbox - tarnwell\\Customers"});
    ASSERT_EQ(made.code, 0) << made.errors;
    const Folder customers = name_space.Folders().Item(1).Folders().Item(u"Customers");
    EXPECT_EQ(customers.Folders().Item(u"Account Profiles").DefaultMessageClass(), u"IPM.Post.Tarnwell_2000");
    EXPECT_THAT(ini(), HasSubstr("Folder Name=\\\\Mailbox - Tarnwell\\Customers\\Leads\r\n"));
    EXPECT_EQ(admin({"database", "Mailbox - Tarnwell\\Customers", "--check"}).output, "All is there.\n");
}

TEST_F(AdminDatabase, HasTheFoldersThatTheOptionsName) {
    world.option(u"SavedEmailFolder", u"Letters");
    world.option(u"GlobalTasks", u"Our Tasks");
    take_database_away();
    ASSERT_EQ(make().code, 0);
    EXPECT_EQ(world.below(u"Letters").DefaultMessageClass(), u"IPM.Post.Note");
    EXPECT_EQ(root().Folders().Item(u"Our Tasks").DefaultMessageClass(), u"IPM.Task.TarnwellTask");
    EXPECT_EQ(failure_of([&] { world.below(u"Email"); }), result::not_found);
}

TEST_F(AdminDatabase, IsOnlyLookedAtWhereThatIsAskedFor) {
    const std::vector<std::string> before = tree(public_folders());
    root().Folders().Item(u"Leads").call(u"Delete");
    const AdminRun checked = admin({"database", place, "--check"});
    EXPECT_EQ(checked.code, 1);
    EXPECT_THAT(checked.output, AllOf(HasSubstr("MISSING  folder \"Tarnwell\\Leads\""),
                                      EndsWith("14 things are missing or of the wrong kind.\n")));
    EXPECT_LT(tree(public_folders()).size(), before.size());
    EXPECT_EQ(ini(), "; none\r\n");
}

TEST_F(AdminDatabase, TellsAProgramByJson) {
    const nlohmann::json told = nlohmann::json::parse(admin({"database", "--json", "--check", place}).output);
    EXPECT_EQ(told["well"], false);
    EXPECT_EQ(told["lines"][0]["state"], "missing");
    EXPECT_EQ(told["lines"][0]["about"], "record \"Account Contacts\" of the system folder");
}

TEST_F(AdminDatabase, IsNotTouchedWhereSomethingIsOfTheWrongKind) {
    root().Folders().Item(u"Leads").call(u"Delete");
    root().Folders().Item(u"Global Tasks").call(u"Delete");
    root().Folders().call(u"Add", {u"Leads", folder_number::tasks});
    const std::vector<std::string> before = tree(root());
    const AdminRun refused = make();
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.output,
              "WRONG    folder \"Tarnwell\\Leads\": holds tasks, not contacts -> give it another name, and "
              "let a new one "
              "be made\nNothing was made, since what is there is of the wrong kind.\n");
    EXPECT_EQ(tree(root()), before);
}

TEST_F(AdminDatabase, TellsFieldsAndClassesOfTheWrongKind) {
    ASSERT_EQ(make().code, 0);
    const Object fields = world.below(u"Email").get(u"UserDefinedProperties").to_object();
    fields.call(u"Find", {u"Activity Date"}).to_object().call(u"Delete");
    fields.call(u"Add", {u"Activity Date", 1});
    world.below(u"Notes")
        .get(u"PropertyAccessor")
        .to_object()
        .call(u"SetProperty", {u"http://schemas.microsoft.com/mapi/proptag/0x36E5001F", u"IPM.Post"});
    const AdminRun checked = admin({"database", place, "--check"});
    EXPECT_EQ(checked.code, 1);
    EXPECT_THAT(
        checked.output,
        AllOf(
            HasSubstr(
                "WRONG    field \"Activity Date\" of \"Tarnwell\\Account Profiles\\Email\": type 1, not 5"),
            HasSubstr(
                "WRONG    folder \"Tarnwell\\Account Profiles\\Notes\": is for items of class \"IPM.Post\", "
                "not \"IPM.Post.Note\"")));
}

/// What goes wrong on the way, and the one sentence for it.
struct Mishap {
    const char* name;
    TextView member;     ///< fails
    std::int32_t after;  ///< so many calls
    const char* sentence;
};
constexpr Mishap mishaps[] = {
    {"no rights", u"Folders.Add", 3, "what had been made is taken back"},
    {"no fields", u"UserDefinedProperties.Add", 40, "what had been made is taken back"},
    {"no record", u"PostItem.Post", 2, "what had been made is taken back"}};

TEST_F(AdminDatabase, IsTakenBackWhereItCanNotBeFinished) {
    take_database_away();
    const std::vector<std::string> before = tree(public_folders());
    for (const Mishap& mishap : mishaps) {
        world.fail(mishap.member, mishap.after);
        const AdminRun failed = make();
        EXPECT_EQ(failed.code, 3) << mishap.name;
        EXPECT_EQ(failed.output, "") << mishap.name;
        EXPECT_THAT(failed.errors, HasSubstr(mishap.sentence)) << mishap.name;
        EXPECT_EQ(tree(public_folders()), before) << mishap.name;
    }
    machine.disk_full = true;
    EXPECT_THAT(make().errors, "TarnwellAdmin: The disk is full; what had been made is taken back.\n");
    EXPECT_EQ(tree(public_folders()), before);
    EXPECT_EQ(ini(), "; none\r\n");
}

TEST_F(AdminDatabase, RefusesAWrongCallInOneSentence) {
    struct Case {
        std::vector<std::string> arguments;
        int code;
        const char* sentence;
    };
    const Case cases[] = {
        {{}, 2, "subcommand"},
        {{"sing"}, 2, "there is no command \"sing\""},
        {{"database"}, 2, "STORE\\FOLDER"},
        {{"database", place, "--loud"}, 2, "--loud"},
        {{"database", "Public Folders"}, 3, "does not name a folder in a store"},
        {{"database", "Elsewhere\\Tarnwell"}, 3, "There is no store \"Elsewhere\" in this profile."},
        {{"database", "Public Folders\\All\\Tarnwell"},
         3,
         "There is no folder \"All\" in \"Public Folders\"."},
    };
    for (const Case& one : cases) {
        const AdminRun refused = admin(one.arguments);
        EXPECT_EQ(refused.code, one.code) << one.sentence;
        EXPECT_EQ(refused.output, "");
        EXPECT_THAT(refused.errors, HasSubstr(one.sentence));
        EXPECT_EQ(std::ranges::count(refused.errors, '\n'), 1) << refused.errors;
    }
}

TEST_F(AdminDatabase, NeedsAHostThatKnowsFieldsOfFolders) {
    world.fail(u"MAPIFolder.UserDefinedProperties");
    const AdminRun refused = make();
    EXPECT_EQ(refused.code, 3);
    EXPECT_THAT(refused.errors, HasSubstr("Outlook 2007 or a later one"));
}

TEST_F(AdminDatabase, NeedsToBeToldWhereTheIniFileIs) {
    world.family(u"SpecialFolder", u"");
    EXPECT_THAT(make().errors, HasSubstr("give its folder by --ini"));
    const AdminRun made = admin({"database", place, "--ini", shown(ini_folder)});
    EXPECT_EQ(made.code, 0) << made.errors;
    EXPECT_THAT(ini(), HasSubstr("[Opportunities]"));
}

TEST_F(AdminDatabase, LeavesAFolderInTheIniFilesPlaceAlone) {
    world.remove_file(ini_folder + u"\\twsystemfolder.ini");
    std::filesystem::create_directory(native::local_path(ini_folder + u"\\twsystemfolder.ini"));
    const AdminRun refused = make();
    EXPECT_EQ(refused.code, 3);
    EXPECT_THAT(refused.errors, HasSubstr("is no file"));
}

TEST_F(AdminDatabase, NeedsAHost) {
    name_space = {};
    application = {};
    desk = {};
    world.quit();
    const AdminRun refused = make();
    EXPECT_EQ(refused.code, 3);
    EXPECT_EQ(refused.errors, "TarnwellAdmin: No host answers: The host does not run.\n");
    world.start();
}

TEST_F(AdminDatabase, TellsWhatItCanDo) {
    EXPECT_THAT(admin({"--help"}).output, AllOf(HasSubstr("database"), HasSubstr("Ends with 0")));
    EXPECT_THAT(admin({"database", "--help"}).output, AllOf(HasSubstr("--check"), HasSubstr("--json")));
}

/// The add-in in a database that the program has made.
TEST(AdminDatabaseInUse, IsWhatTheAddInWorksIn) {
    native::NativeWorld world(acceptance::WorldSetup{.started = false});
    world.start();
    const Text ini = world.write_file("twsystemfolder.ini", "");
    world.family(u"SpecialFolder", ini.substr(0, ini.find_last_of(u"/\\")));
    world.family(u"EmailAutoFile", u"1");
    world.name_space()
        .Folders()
        .Item(u"Public Folders")
        .Folders()
        .Item(u"All Public Folders")
        .Folders()
        .Item(u"Tarnwell")
        .call(u"Delete");
    AdminMachine machine(world);
    ASSERT_EQ(native::run_admin({"database", place}, machine).code, 0);
    world.quit();
    world.start();
    const Item contact = world.below(u"Account Contacts").Items().Add(u"IPM.Contact.Account Contact");
    contact.FullName(u"Siobhan O'Brien");
    contact.Email1Address(u"siobhan@one.example");
    contact.Save();
    world.settle();
    const Item mail =
        world.deliver("From: siobhan@one.example\nTo: pat@tarnwell.example\nSubject: Hello\n\nText");
    acceptance::World::read(mail);
    EXPECT_EQ(mail.BillingInformation(), u"TW Auto Filed");
    EXPECT_EQ(world.below(u"Email").Items().Item(1).Subject(), u"Hello");
}

}  // namespace
}  // namespace model_tests
