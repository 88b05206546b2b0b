// What the program for administrators asks of a host, on the desk's model, which answers all as is believed.
#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "admin/probe/questions.h"
#include "tests/native/admin_machine.h"

namespace {

using native::AdminMachine;
using native::AdminRun;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

std::size_t question_count() {
    std::size_t count = 0;
    for (const admin::Subject& subject : admin::subjects()) count += subject.questions.size();
    return count;
}

struct ProbedWorld {
    native::NativeWorld world{acceptance::WorldSetup{.database = "sample"}};
    AdminMachine machine{world};

    AdminRun probe(std::vector<std::string> options = {}) {
        options.insert(options.begin(), "probe");
        return native::run_admin(std::move(options), machine);
    }
    /// How many items each folder has, all of them in one text.
    std::string folders() {
        std::string told;
        for (const desk::FolderRow& row : world.model().folder_rows()) {
            told += automation::to_utf8(row.name) + " " +
                    std::to_string(world.model().contents(row.id).size()) + "\n";
        }
        return told;
    }
};

TEST(AdminProbe, FindsTheDeskAnsweringAllAsIsBelieved) {
    ProbedWorld probed;
    const AdminRun run = probed.probe();
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.output, StartsWith("This makes a folder \"Tarnwell probe\" below the Inbox"));
    EXPECT_EQ(run.output.find("WRONG"), std::string::npos) << run.output;
    EXPECT_THAT(run.output, EndsWith("\nThis host answers all " + std::to_string(question_count()) +
                                     " questions as the add-in believes.\n"));
}

TEST(AdminProbe, LeavesTheHostAsItWas) {
    ProbedWorld probed;
    const auto bars = [&] { return probed.world.application().ActiveExplorer().CommandBars().Count(); };
    const std::string folders = probed.folders();
    const std::int32_t bars_before = bars();
    probed.probe();
    EXPECT_EQ(probed.folders(), folders);
    EXPECT_EQ(bars(), bars_before);
}

TEST(AdminProbe, LeavesWhatBearsItsNameAlone) {
    ProbedWorld probed;
    const host::outlook::Folder own(
        probed.world.inbox().Folders().call(u"Add", {u"Tarnwell probe"}).to_object());
    own.Items().Add(u"IPM.Post").Save();
    EXPECT_EQ(probed.probe().code, 0);
    EXPECT_EQ(own.Items().Count(), 1);
    EXPECT_EQ(probed.world.inbox().Folders().Count(), 1);
}

TEST(AdminProbe, LeavesADeletedPostOfItsNameAlone) {
    ProbedWorld probed;
    const host::outlook::Item post = probed.world.inbox().Items().Add(u"IPM.Post");
    post.Subject(u"Tarnwell probe post");
    post.Body(u"a user's own");
    post.Save();
    post.call(u"Delete");
    const auto deleted =
        probed.world.name_space().GetDefaultFolder(host::outlook::default_folder::deleted_items).Items();
    ASSERT_EQ(deleted.Count(), 1);
    EXPECT_EQ(probed.probe().code, 0);
    ASSERT_EQ(deleted.Count(), 1);
    EXPECT_EQ(deleted.Item(1).Body(), u"a user's own");
}

TEST(AdminProbe, RemovesItsFolderWhateverEndsIt) {
    ProbedWorld probed;
    const std::string folders = probed.folders();
    try {
        admin::Probed folder(probed.machine);
        folder.post();
        ASSERT_NE(probed.folders(), folders);
        throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
        EXPECT_EQ(probed.folders(), folders);
    }
}

TEST(AdminProbe, TellsAnAnswerThatIsOtherThanBelieved) {
    ProbedWorld probed;
    probed.world.fail(u"Items.Restrict", 5);
    const AdminRun run = probed.probe();
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.output, HasSubstr("\nWRONG    "));
    EXPECT_THAT(run.output, HasSubstr(": an error ("));
    EXPECT_THAT(run.output, EndsWith("\nThis host answers 1 question of " + std::to_string(question_count()) +
                                     " otherwise than the add-in believes.\n"));
}

TEST(AdminProbe, TellsAProgramInJson) {
    ProbedWorld probed;
    const AdminRun run = probed.probe({"--json"});
    EXPECT_THAT(run.output, StartsWith("{"));
    EXPECT_THAT(run.errors, StartsWith("This makes a folder"));
}

TEST(AdminProbe, RefusesAHostThatLetsNoFolderBeMade) {
    ProbedWorld probed;
    probed.world.fail(u"Folders.Add");
    const AdminRun run = probed.probe();
    EXPECT_EQ(run.code, 3);
    EXPECT_THAT(run.errors,
                StartsWith("TarnwellAdmin: the folder for the questions can't be made or removed: "));
}

TEST(AdminProbe, ListsItsQuestionsAsThePageOfTheDocuments) {
    ProbedWorld probed;
    std::ifstream file(std::filesystem::path(TARNWELL_DATA_FOLDER) / "../docs/host-questions.md",
                       std::ios::binary);
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(probed.probe({"--list"}).output, page);
}

}  // namespace
