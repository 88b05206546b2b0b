// The window of the settings where the add-in can't store them.
#include "family/settings_form.h"

#include <gtest/gtest.h>

#include "tests/unit/support/family_fakes.h"

namespace {

using namespace family_test;

/// A host with the add-in, whose values lie in a map. Some of them can't be written.
class ContextWithAddIn : public FakeContext {
  public:
    ContextWithAddIn() {
        auto published = fake();
        published->functions[u"GetKeyValueEx"] = [this](std::vector<Value>& arguments) -> Value {
            const auto found = values.find(arguments.at(2).to_text());
            return found == values.end() ? Value() : Value(found->second);
        };
        published->functions[u"SetKeyValue"] = [this](std::vector<Value>& arguments) -> Value {
            if (refused.contains(arguments.at(2).to_text())) throw Failure(automation::result::fail, u"No");
            values[arguments.at(2).to_text()] = arguments.at(3).to_text();
            return true;
        };
        auto add_ins = fake();
        add_ins->functions[u"Item"] = [published](std::vector<Value>&) -> Value {
            return Object(fake({{u"Object", Object(published)}}));
        };
        application_ = fake({{u"COMAddIns", Object(add_ins)}});
    }

    Object application() override { return Object(application_); }
    void tell(TextView text) override { told.push_back(automation::to_utf8(text)); }

    std::map<Text, Text> values;
    std::set<Text> refused;
    std::vector<std::string> told;

  private:
    std::shared_ptr<Fake> application_;
};

TEST(SettingsThatAreRefused, AreNamedAndTheOthersAreStored) {
    ContextWithAddIn around;
    around.refused = {u"SavedEmailFolder", u"NoContactButtons"};
    around.strands.run([&] { family::show_settings(around); });
    native::MemoryWindow* const window = around.windows.find(u"Settings of Create Note");
    ASSERT_TRUE(window);
    const std::vector<TextView> texts = {u"txtSavedEmailFolder", u"txtGlobalTasks"};
    for (const TextView name : texts) window->control(name).type(u"Elsewhere");
    window->control(u"chkNoContactButtons").click();
    window->control(u"cmdOK").click();
    EXPECT_EQ(around.told, std::vector<std::string>{
                               "Windows did not store this as it stands here: \"Folder for filed mail\", "
                               "\"Leave the template buttons out of contacts' windows\"."});
    EXPECT_EQ(around.values, (std::map<Text, Text>{{u"GlobalTasks", u"Elsewhere"}}));
    EXPECT_TRUE(around.shows_windows());

    around.refused.clear();
    window->control(u"cmdOK").click();
    EXPECT_FALSE(around.shows_windows());
    EXPECT_EQ(around.values.size(), 3U);
}

}  // namespace
