// The registry routines against a registry that answers what a test wants.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "addin/ground/settings.h"

namespace addin_tests {
namespace {

using addin::Settings;
using automation::Text;
using automation::TextView;
using automation::Value;
using host::KeyHandle;
namespace status = host::registry_status;
namespace type = host::registry_type;

constexpr std::int32_t busy = 170;

/// Answers from a script and notes the calls.
class ScriptedRegistry : public host::Registry {
  public:
    struct Answer {
        std::int32_t status = status::success;
        std::uint32_t type = host::registry_type::text;
        std::string bytes{};
    };
    std::int32_t open_status = status::success, create_status = status::success, set_status = status::success;
    std::vector<Answer> answers{};  ///< of the queries, in order
    std::vector<std::string> calls{};
    static constexpr KeyHandle handle = 77;

    std::int32_t open_key(KeyHandle root, const std::string& path, KeyHandle& key) override {
        note("open " + std::to_string(root == host::current_user) + " " + path);
        if (open_status == 0) key = handle;
        return open_status;
    }
    std::int32_t create_key(KeyHandle, const std::string& path, KeyHandle& key) override {
        note("create " + path);
        if (create_status == 0) key = handle;
        return create_status;
    }
    std::int32_t query_value(KeyHandle key, const std::string& name, std::uint32_t& kind, void* data,
                             std::uint32_t& size) override {
        note("query " + std::to_string(key) + " " + name + (data ? " into " + std::to_string(size) : ""));
        if (key == host::no_key) return status::invalid_handle;
        const Answer answer = answers.at(asked_++);
        kind = answer.type;
        if (answer.status == 0 && data)
            std::memcpy(data, answer.bytes.data(), std::min<std::size_t>(size, answer.bytes.size()));
        size = static_cast<std::uint32_t>(answer.bytes.size());
        return answer.status;
    }
    std::int32_t set_value(KeyHandle key, const std::string& name, std::uint32_t kind, const void* data,
                           std::uint32_t size) override {
        note("set " + std::to_string(key) + " " + name + " type " + std::to_string(kind) + " '" +
             std::string(static_cast<const char*>(data), size) + "'");
        return set_status;
    }
    std::int32_t close_key(KeyHandle key) override {
        note("close " + std::to_string(key));
        return status::success;
    }

  private:
    void note(std::string call) { calls.push_back(std::move(call)); }
    std::size_t asked_ = 0;
};

/// A desktop that has a registry and nothing else.
class RegistryOnly : public host::Desktop {
  public:
    ScriptedRegistry scripted;

    host::Registry& registry() override { return scripted; }
    automation::Object create(TextView) override { return {}; }
    automation::Object application() override { return {}; }
    int message_box(TextView, TextView, std::uint32_t) override { return 0; }
    void yield() override {}
    void sleep(std::uint32_t) override {}
    void pointer(forms::Pointer) override {}
    int dots_per_inch() override { return 96; }
    Text find_file(TextView) override { return {}; }
    void delete_file(TextView) override {}
    std::intptr_t shell_execute(const host::ShellRequest&) override { return 0; }
    Text section_names(TextView, std::uint32_t) override { return {}; }
    Text profile_text(TextView, TextView, TextView, std::uint32_t) override { return {}; }
    void beep() override {}
    Text own_folder() override { return {}; }
    Text text_of(const automation::Value& value) override { return value.to_text(); }
    automation::Date date_of(TextView text) override { return Value(text).to_date(); }
    Text format(TextView value, TextView) override { return Text(value); }
    std::string narrow(TextView text) override { return automation::to_utf8(text); }
    Text widen(const std::string& bytes) override { return automation::from_utf8(bytes); }
};

class SettingsCalls : public ::testing::Test {
  protected:
    RegistryOnly desktop;
    ScriptedRegistry& registry = desktop.scripted;
    Settings settings{desktop};
    using Calls = std::vector<std::string>;
};

TEST_F(SettingsCalls, OfATextAskForItsSizeFirst) {
    registry.answers = {{.bytes = "Mail"}, {.bytes = "Mail"}};
    Value found = 5;
    EXPECT_EQ(settings.QueryValueEx(3, u"Name", found), 0);
    EXPECT_EQ(found, Value(u"Mail"));
    EXPECT_EQ(registry.calls, (Calls{"query 3 Name", "query 3 Name into 4"}));
}

TEST_F(SettingsCalls, OfATextThatCannotBeReadTheSecondTimeEmptyTheValue) {
    registry.answers = {{.bytes = "Mail"}, {.status = busy}};
    Value found = 5;
    EXPECT_EQ(settings.QueryValueEx(3, u"Name", found), busy);
    EXPECT_EQ(found, Value());
}

TEST_F(SettingsCalls, OfATextThatGrewMeanwhileEmptyTheValue) {
    registry.answers = {{.bytes = "Mail"}, {.status = status::more_data, .bytes = "Mailbox"}};
    Value found = 5;
    EXPECT_EQ(settings.QueryValueEx(3, u"Name", found), status::more_data);
    EXPECT_EQ(found, Value());
}

TEST_F(SettingsCalls, OfATextThatShrankTakeWhatIsThere) {
    registry.answers = {{.bytes = "Mailbox"}, {.bytes = "Mail"}};
    Value found;
    EXPECT_EQ(settings.QueryValueEx(3, u"Name", found), 0);
    EXPECT_EQ(found, Value(u"Mail"));
}

TEST_F(SettingsCalls, OfANumberThatCannotBeReadLeaveTheValue) {
    registry.answers = {{.type = type::dword, .bytes = "abcd"}, {.status = busy, .type = type::dword}};
    Value found = u"before";
    EXPECT_EQ(settings.QueryValueEx(3, u"Name", found), busy);
    EXPECT_EQ(found, Value(u"before"));
    EXPECT_EQ(registry.calls.back(), "query 3 Name into 4");
}

TEST_F(SettingsCalls, OfANumberTakeFourBytesWhateverSizeIsTold) {
    for (const char* const stored : {"ab", "abcdefgh"}) {
        registry.answers.push_back({.type = type::dword, .bytes = stored});
        registry.answers.push_back({.status = status::more_data, .type = type::dword, .bytes = stored});
        Value found = u"before";
        EXPECT_EQ(settings.QueryValueEx(3, u"Name", found), status::more_data);
        EXPECT_EQ(registry.calls.back(), "query 3 Name into 4");
        EXPECT_EQ(found, Value(u"before"));
    }
}

TEST_F(SettingsCalls, OfAnotherTypeAskOnceOnly) {
    for (const std::uint32_t kind : {0U, 2U, 3U, 5U, 7U, 11U}) {
        registry.calls.clear();
        registry.answers.push_back({.type = kind, .bytes = "abcd"});
        Value found = u"before";
        EXPECT_EQ(settings.QueryValueEx(3, u"Name", found), -1) << kind;
        EXPECT_EQ(found, Value(u"before"));
        EXPECT_EQ(registry.calls.size(), 1U);
    }
}

TEST_F(SettingsCalls, OfAKeyThatIsNotThereGoOnWithNone) {
    registry.open_status = status::file_not_found;
    EXPECT_EQ(settings.GetKeyValueEx(host::current_user, u"Key", u"Name"), Value());
    EXPECT_EQ(registry.calls, (Calls{"open 1 Key", "query 0 Name", "close 0"}));
}

TEST_F(SettingsCalls, OpenReadAndClose) {
    registry.answers = {{.bytes = std::string("Mail\0", 5)}, {.bytes = std::string("Mail\0", 5)}};
    EXPECT_EQ(settings.GetKeyValueEx(host::current_user, u"Key", u"Name"), Value(u"Mail"));
    EXPECT_EQ(registry.calls, (Calls{"open 1 Key", "query 77 Name", "query 77 Name into 5", "close 77"}));
}

TEST_F(SettingsCalls, WriteATextWithoutItsTerminator) {
    EXPECT_EQ(settings.SetValueEx(3, u"Name", type::text, u"Mail"), 0);
    EXPECT_EQ(settings.SetValueEx(3, u"Name", type::text, u""), 0);
    EXPECT_EQ(settings.SetValueEx(3, u"Name", type::text, 12.5), 0);
    EXPECT_EQ(registry.calls,
              (Calls{"set 3 Name type 1 'Mail'", "set 3 Name type 1 ''", "set 3 Name type 1 '12.5'"}));
}

TEST_F(SettingsCalls, WriteANumberInFourBytes) {
    EXPECT_EQ(settings.SetValueEx(3, u"Name", type::dword, 0x41424344), 0);
    EXPECT_EQ(registry.calls, (Calls{"set 3 Name type 4 'DCBA'"}));
}

TEST_F(SettingsCalls, TellTheStatusOfAWrite) {
    registry.set_status = busy;
    EXPECT_EQ(settings.SetValueEx(3, u"Name", type::text, u"Mail"), busy);
    EXPECT_EQ(settings.SetValueEx(3, u"Name", 9, u"Mail"), 0);
    EXPECT_EQ(registry.calls.size(), 1U);
    EXPECT_TRUE(settings.SetKeyValue(host::current_user, u"Key", u"Name", u"Mail", type::text))
        << "that the write was tried is what counts";
}

TEST_F(SettingsCalls, MakeTheKeyWriteAndClose) {
    EXPECT_TRUE(settings.SetKeyValue(host::current_user, u"Key", u"Name", u"Mail", type::text));
    EXPECT_EQ(registry.calls, (Calls{"create Key", "set 77 Name type 1 'Mail'", "close 77"}));
    registry.calls.clear();
    EXPECT_TRUE(settings.SetKeyValue(host::current_user, u"\\Key", u"Name", u"x", 3));
    EXPECT_EQ(registry.calls, (Calls{"create Key", "close 77"}));
    registry.calls.clear();
    EXPECT_TRUE(settings.SetKeyValue(host::current_user, u"\\\\Key", u"Name", u"x", 3));
    EXPECT_EQ(registry.calls.front(), "create \\Key") << "one backslash is dropped";
    registry.calls.clear();
    EXPECT_FALSE(settings.SetKeyValue(host::current_user, u"", u"Name", u"x", type::text));
    EXPECT_TRUE(registry.calls.empty());
    EXPECT_TRUE(settings.SetKeyValue(host::current_user, u"\\", u"Name", u"x", 3));
    EXPECT_EQ(registry.calls.front(), "create ");
}

TEST_F(SettingsCalls, StoreAnOptionUnderItsKey) {
    settings.store(u"UserName", u"Mia");
    EXPECT_EQ(registry.calls, (Calls{"create Software\\Microsoft\\Office\\9.0\\Outlook\\Options\\Tarnwell",
                                     "set 77 UserName type 1 'Mia'", "close 77"}));
}

}  // namespace
}  // namespace addin_tests
