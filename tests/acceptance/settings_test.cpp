// The options in the registry, as the published operations read and write them.
#include "addin/ground/settings.h"

#include <cstring>

#include "tests/world/people.h"

namespace acceptance {
namespace {

using automation::Object;
using automation::Text;
using automation::TextView;
using automation::Value;
namespace type = host::registry_type;

constexpr TextView test_key = u"Software\\Tarnwell\\Test of settings";

class SettingsTest : public Acceptance {
  protected:
    Value read(TextView key, TextView name) {
        return world().connect().call(u"GetKeyValueEx", {host::current_user, Value(key), Value(name)});
    }
    bool write(TextView key, TextView name, const Value& value, std::uint32_t kind) {
        return world()
            .connect()
            .call(u"SetKeyValue",
                  {host::current_user, Value(key), Value(name), value, static_cast<std::int32_t>(kind)})
            .to_boolean();
    }

    /// Asks for a value of an open key; `found` is changed as the operation changes it.
    std::int32_t query(host::KeyHandle key, TextView name, Value& found) {
        constexpr std::uint32_t third = 1U << 2;
        automation::Request request{.access = automation::Access::call,
                                    .member = u"QueryValueEx",
                                    .arguments = {static_cast<std::int32_t>(key), Value(name), found},
                                    .by_reference = third};
        const std::int32_t status = world().connect().invoke(request).to_integer();
        found = request.arguments[2];
        return status;
    }

    /// Stores bytes as another program would.
    void store(TextView name, std::uint32_t kind, const std::string& bytes) {
        host::Registry& registry = world().registry();
        host::KeyHandle key = host::no_key;
        ASSERT_EQ(registry.create_key(host::current_user, automation::to_utf8(test_key), key), 0);
        EXPECT_EQ(registry.set_value(key, automation::to_utf8(name), kind, bytes.data(),
                                     static_cast<std::uint32_t>(bytes.size())),
                  0);
        registry.close_key(key);
    }

    /// The bytes of a stored value, and its type; empty if there is none.
    std::string stored(TextView key_name, TextView name, std::uint32_t& kind) {
        host::Registry& registry = world().registry();
        host::KeyHandle key = host::no_key;
        if (registry.open_key(host::current_user, automation::to_utf8(key_name), key) != 0) return {};
        std::string bytes(64, '\0');
        auto size = static_cast<std::uint32_t>(bytes.size());
        if (registry.query_value(key, automation::to_utf8(name), kind, bytes.data(), size) != 0) size = 0;
        registry.close_key(key);
        return bytes.substr(0, size);
    }
};

TEST_F(SettingsTest, ReadWhatIsStoredWhoeverStoredIt) {
    using namespace std::string_literals;
    struct Case {
        const char* name;
        std::uint32_t kind;
        std::string bytes;
        Value read;
    };
    const Case cases[] = {
        {"a text with its terminator", type::text, "Mail\0"s, u"Mail"},
        {"a text without", type::text, "Mail"s, u"Mail"},
        {"an empty text with its terminator", type::text, "\0"s, u""},
        {"a number", type::dword, "\x01\0\0\0"s, 1},
        {"the largest number", type::dword, "\xFF\xFF\xFF\xFF"s, -1},
        {"bytes", type::binary, "\x01"s, {}},
        {"an expandable text", 2, "Mail\0"s, {}},
        {"several texts", 7, "Mail\0\0"s, {}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        store(u"Value", one.kind, one.bytes);
        EXPECT_EQ(read(test_key, u"Value"), one.read);
    }
    EXPECT_EQ(read(test_key, u"No such value"), Value());
    EXPECT_EQ(read(u"Software\\Tarnwell\\No such key", u"Value"), Value());
}

TEST_F(SettingsTest, CutOneTerminatorOnly) {
    using namespace std::string_literals;
    store(u"Value", type::text, "Mail\0\0"s);
    EXPECT_EQ(read(test_key, u"Value"), Value(Text(u"Mail\0", 5)));
}

TEST_F(SettingsTest, QueryAnOpenKeyAndTellTheStatus) {
    // the root is a key that is always open
    Value found = u"untouched";
    EXPECT_EQ(query(host::current_user, u"Tarnwell no such value", found),
              host::registry_status::file_not_found);
    EXPECT_EQ(found, Value(u"untouched"));
    constexpr host::KeyHandle closed = 0;
    EXPECT_EQ(query(closed, u"Value", found), host::registry_status::invalid_handle);
    EXPECT_EQ(found, Value(u"untouched"));

    host::Registry& registry = world().registry();
    const auto put = [&](std::uint32_t kind, const std::string& bytes) {
        registry.set_value(host::current_user, "Tarnwell test", kind, bytes.data(),
                           static_cast<std::uint32_t>(bytes.size()));
    };
    put(type::binary, "x");
    EXPECT_EQ(query(host::current_user, u"Tarnwell test", found), -1);
    EXPECT_EQ(found, Value(u"untouched"));
    put(type::dword, std::string("\x07\0\0\0", 4));
    EXPECT_EQ(query(host::current_user, u"Tarnwell test", found), 0);
    EXPECT_EQ(found, Value(7));
    put(type::text, std::string("Mail\0", 5));
    EXPECT_EQ(query(host::current_user, u"Tarnwell test", found), 0);
    EXPECT_EQ(found, Value(Text(u"Mail\0", 5))) << "with its terminator";
}

TEST_F(SettingsTest, WriteTextsAndNumbers) {
    EXPECT_TRUE(write(test_key, u"Text", u"Mail", type::text));
    EXPECT_EQ(read(test_key, u"Text"), Value(u"Mail"));
    EXPECT_TRUE(write(test_key, u"Text", 12, type::text));
    EXPECT_EQ(read(test_key, u"Text"), Value(u"12"));
    EXPECT_TRUE(write(test_key, u"Number", 12, type::dword));
    EXPECT_EQ(read(test_key, u"Number"), Value(12));
    EXPECT_TRUE(write(test_key, u"Number", u"-3", type::dword));
    EXPECT_EQ(read(test_key, u"Number"), Value(-3));
    EXPECT_TRUE(write(test_key, u"Number", u"no number", type::dword)) << "the write was tried";
    EXPECT_EQ(read(test_key, u"Number"), Value(-3));
}

TEST_F(SettingsTest, WriteOfAnotherTypeMakesTheKeyAndNothingInIt) {
    constexpr TextView key = u"Software\\Tarnwell\\Test of a new key";
    EXPECT_TRUE(write(key, u"Value", u"x", type::binary));
    host::KeyHandle opened = host::no_key;
    EXPECT_EQ(world().registry().open_key(host::current_user, automation::to_utf8(key), opened), 0);
    world().registry().close_key(opened);
    std::uint32_t kind = 0;
    EXPECT_EQ(stored(key, u"Value", kind), "");
    EXPECT_EQ(read(key, u"Value"), Value());
}

TEST_F(SettingsTest, DropALeadingBackslashOfTheKeysName) {
    EXPECT_TRUE(write(u"\\Software\\Tarnwell\\Test of settings", u"Below", u"here", type::text));
    EXPECT_EQ(read(test_key, u"Below"), Value(u"here"));
}

TEST_F(SettingsTest, RefuseAnEmptyKeysNameButNotABackslash) {
    EXPECT_FALSE(write(u"", u"Tarnwell empty key", u"x", type::text));
    EXPECT_EQ(read(u"", u"Tarnwell empty key"), Value());
    EXPECT_TRUE(write(u"\\", u"Tarnwell backslash key", u"x", type::text))
        << "an empty path is the root itself";
    std::uint32_t kind = 0;
    EXPECT_EQ(stored(u"", u"Tarnwell backslash key", kind).substr(0, 1), "x");
}

TEST_F(SettingsTest, SetAValueOfAnOpenKey) {
    const Object connect = world().connect();
    const auto set = [&](const Value& value, std::int32_t kind) {
        return connect.call(u"SetValueEx", {host::current_user, u"Tarnwell set", kind, value}).to_integer();
    };
    EXPECT_EQ(set(u"Mail", 1), 0);
    std::uint32_t kind = 0;
    EXPECT_EQ(stored(u"", u"Tarnwell set", kind).substr(0, 4), "Mail");
    EXPECT_EQ(kind, type::text);
    EXPECT_EQ(set(automation::to_date({2009, 12, 31, 22, 30, 0}), 1), 0);
    EXPECT_EQ(stored(u"", u"Tarnwell set", kind).substr(0, 22), "12/31/2009 10:30:00 PM");
    EXPECT_EQ(set(5, 4), 0);
    EXPECT_EQ(stored(u"", u"Tarnwell set", kind), std::string("\x05\0\0\0", 4));
    EXPECT_EQ(kind, type::dword);
    EXPECT_EQ(set(u"other", 3), 0) << "nothing is written of another type";
    EXPECT_EQ(stored(u"", u"Tarnwell set", kind), std::string("\x05\0\0\0", 4));
    constexpr std::int32_t closed = 0;
    EXPECT_EQ(connect.call(u"SetValueEx", {closed, u"Tarnwell set", 1, u"x"}).to_integer(),
              host::registry_status::invalid_handle);
}

TEST_F(SettingsTest, AreReadAsTextUnderOneKey) {
    World& made = world();
    addin::Settings settings(made.desktop());
    EXPECT_EQ(addin::Settings::key_name, u"Software\\Microsoft\\Office\\9.0\\Outlook\\Options\\Tarnwell");
    for (const TextView name : {u"EnableGlobalCalendar", u"EnableQuickView", u"SavedEmailFolder"}) {
        EXPECT_EQ(settings.option(name), u"") << shown(name) << " isn't stored";
    }
    made.option(u"EnableQuickView", 1);
    EXPECT_EQ(settings.option(u"EnableQuickView"), u"1");
    EXPECT_EQ(read(addin::Settings::key_name, u"EnableQuickView"), Value(1));
    made.option(u"EnableQuickView", u"1");
    EXPECT_EQ(settings.option(u"EnableQuickView"), u"1");
    made.option(u"EnableQuickView", u" 1");
    EXPECT_EQ(settings.option(u"EnableQuickView"), u" 1");
    EXPECT_EQ(read(addin::Settings::key_name, u"enablequickview"), Value(u" 1"));
}

TEST_F(SettingsTest, HaveTheirNames) {
    namespace setting = addin::setting;
    struct Row {
        TextView name, literal;
    };
    constexpr Row rows[] = {
        {setting::enable_global_calendar, u"EnableGlobalCalendar"},
        {setting::global_calendar, u"GlobalCalendar"},
        {setting::enable_global_tasks, u"EnableGlobalTasks"},
        {setting::global_tasks, u"GlobalTasks"},
        {setting::enable_quick_view, u"EnableQuickView"},
        {setting::enable_power_panel, u"EnablePowerPanel"},
        {setting::enable_desktop_search, u"EnableDesktopSearch"},
        {setting::auto_file_sent_emails, u"AutoFileSentEmails"},
        {setting::save_exchange_email, u"SaveExchangeEmail"},
        {setting::saved_email_folder, u"SavedEmailFolder"},
        {setting::no_contact_buttons, u"NoContactButtons"},
        {setting::pda_contact_sync, u"PDAContactSync"},
        {setting::store_id, u"TarnwellStoreID"},
        {setting::folder_id, u"AccountProfileFolderID"},
        {setting::folder_name, u"AccountProfileFolderName"},
        {setting::user_name, u"UserName"},
    };
    for (const Row& row : rows) EXPECT_EQ(row.name, row.literal) << shown(row.literal);
}

}  // namespace
}  // namespace acceptance
