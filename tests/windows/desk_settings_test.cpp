// The desk's settings, from a file into the registry and out of it.
#include "desk/setup/desk_settings.h"

#include <gtest/gtest.h>

#include <fstream>

#include "automation/failure.h"

namespace {

using desk::DeskSettings;

/// What the desk of these surroundings starts with comes back with the end of a test.
class DeskSettingsTest : public testing::Test {
  protected:
    ~DeskSettingsTest() override {
        desk::write_settings(before_);
        std::filesystem::remove(file_);
    }

    DeskSettings settings_of(const std::string& lines) const {
        std::ofstream(file_, std::ios::binary) << lines;
        return desk::settings_of(file_);
    }

  private:
    DeskSettings before_ = desk::read_settings();
    std::filesystem::path file_ = std::filesystem::temp_directory_path() / "desk.settings";
};

TEST_F(DeskSettingsTest, OfAFileAreReadBackAsTheyWereWritten) {
    desk::write_settings(
        settings_of("Database=Z:\\a \xC3\xA4=b\\tarnwell.db\nHostVersion=9.0.0.3821\nLanguage=1031\n"
                    "EventOrder=at-once\nInstantSearch=1\nUnattended=0\nFirstPage=1\n"));
    const DeskSettings read = desk::read_settings();
    EXPECT_TRUE(read.database == u"Z:\\a \u00E4=b\\tarnwell.db");
    EXPECT_TRUE(read.log_file.empty());
    EXPECT_TRUE(read.options.host_version == u"9.0.0.3821");
    EXPECT_EQ(read.options.language, 1031);
    EXPECT_TRUE(read.options.at_once == desk::AtOnce::of(desk::EventOrder::at_once));
    EXPECT_TRUE(read.options.instant_search);
    EXPECT_FALSE(read.options.unattended);
    EXPECT_TRUE(read.first_page);
}

TEST_F(DeskSettingsTest, AreAsUsualWhereAFileSaysNothing) {
    const DeskSettings usual, read = settings_of("");
    EXPECT_TRUE(read.options.host_version == usual.options.host_version);
    EXPECT_EQ(read.options.language, usual.options.language);
    EXPECT_TRUE(read.options.at_once == usual.options.at_once);
    EXPECT_TRUE(read.options.unattended);
    EXPECT_FALSE(read.first_page) << "scripts and tests are to meet no window that they have not asked for";
}

TEST_F(DeskSettingsTest, HaveNamesThatTheDeskKnows) {
    EXPECT_THROW(settings_of("Databases=x\n"), automation::Failure);
    EXPECT_THROW(settings_of("Database\n"), automation::Failure);
    EXPECT_THROW(desk::settings_of("no such file"), automation::Failure);
}

}  // namespace
