// The command that tells whether all is well, on the desk's model: a row for each way in which it is not.
#include <gmock/gmock.h>

#include <functional>
#include <nlohmann/json.hpp>

#include "addin/ground/product_version.h"
#include "tests/native/admin_machine.h"

namespace {

using admin::Bits;
using admin::Hive;
using automation::Text;
using automation::TextView;
using native::AdminMachine;
using native::AdminRun;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;

constexpr TextView host_key = u"Software\\Microsoft\\Office\\16.0\\Outlook";
constexpr TextView add_in_key = u"Software\\Microsoft\\Office\\Outlook\\Addins\\CreateNote.Connect";
constexpr TextView name_key = u"Software\\Classes\\CreateNote.Connect\\CLSID";
constexpr TextView server_key = u"Software\\Classes\\CLSID\\{1}\\InprocServer32";
constexpr auto place = "Public Folders\\All Public Folders\\Tarnwell";

/// The head of a program for a machine of this number.
std::string program_head(unsigned machine) {
    constexpr std::size_t place_of_head = 0x3C, head = 0x40;
    std::string bytes(head, '\0');
    bytes[place_of_head] = static_cast<char>(head);
    bytes += std::string("PE\0\0", 4) + static_cast<char>(machine & 0xFF) + static_cast<char>(machine >> 8);
    return bytes;
}
constexpr unsigned for_x64 = 0x8664, for_x86 = 0x014C;

/// A world and a machine in which all is well.
struct WellMachine {
    explicit WellMachine(const acceptance::WorldSetup& setup = {}) : world(setup) {
        file = world.write_file("TarnwellNote.dll", program_head(for_x64));
        for (const int number : addin::product_version)
            version += (version.empty() ? u"" : u".") + automation::to_text(number);
        machine.versions[file] = version;
        machine.enter(Hive::machine, Bits::x64, host_key, u"Bitness", u"x64");
        machine.enter(Hive::user, Bits::x64, name_key, u"", u"{1}");
        machine.enter(Hive::user, Bits::x64, server_key, u"", file);
        machine.enter(Hive::user, Bits::x64, add_in_key, u"LoadBehavior", 3);
        world.family(u"SpecialFolder", file.substr(0, file.find_last_of(u"/\\")));
        EXPECT_NE(native::run_admin({"database", place}, machine).code, 2);
    }

    AdminRun check(std::vector<std::string> options = {}) {
        options.insert(options.begin(), "check");
        return native::run_admin(std::move(options), machine);
    }
    void forget(Hive hive, TextView key) { machine.keys.erase(AdminMachine::place(hive, Bits::x64, key)); }
    void list(TextView name) {
        machine.enter_bytes(Hive::user, Bits::x64, Text(host_key) + u"\\Resiliency\\" + Text(name), u"2F7A",
                            "1234" + native::wide_bytes(u"C:\\Tarnwell\\tarnwellnote.DLL"));
    }

    native::NativeWorld world;
    AdminMachine machine{world};
    Text file, version;
};

TEST(AdminCheck, TellsThatAllIsWell) {
    WellMachine well;
    const AdminRun checked = well.check();
    EXPECT_EQ(checked.code, 0);
    EXPECT_THAT(
        checked.output,
        AllOf(testing::StartsWith("ok       host: version 16.0.0.0, 64-bit\n"),
              HasSubstr("ok       LoadBehavior: 3, loaded at the host's start\n"),
              HasSubstr("ok       Account Profiles: Public Folders\\All Public Folders\\Tarnwell\\Account "
                        "Profiles\n"),
              EndsWith("\nAll is well.\n")));
    EXPECT_EQ(checked.output.find("WRONG"), std::string::npos) << checked.output;
}

TEST(AdminCheck, TellsWhatEachSettingWithAValueMeans) {
    WellMachine well;
    well.world.option(u"EnableQuickView", 1);
    well.world.option(u"EnableGlobalTasks", u"0");
    well.world.option(u"UserName", u"Pat");
    const AdminRun checked = well.check();
    EXPECT_EQ(checked.code, 0);
    EXPECT_THAT(
        checked.output,
        AllOf(HasSubstr("setting EnableQuickView: \"1\", which is on; Quick View follows the selected mail."),
              HasSubstr("setting EnableGlobalTasks: \"0\", which is off; Linked tasks are copied"),
              HasSubstr("setting UserName: \"Pat\"; The name of the user in the database")));
}

TEST(AdminCheck, TellsAProgramByJson) {
    WellMachine well;
    const AdminRun checked = well.check({"--json"});
    const nlohmann::json told = nlohmann::json::parse(checked.output);
    EXPECT_EQ(told["well"], true);
    EXPECT_EQ(told["lines"][0]["about"], "host");
    EXPECT_EQ(told["lines"][0]["told"], "version 16.0.0.0, 64-bit");
}

TEST(AdminCheck, KnowsThatAnEarlyHostIsA32BitOne) {
    WellMachine well({.host_version = u"9.0.0.3821"});
    well.forget(Hive::machine, host_key);
    EXPECT_THAT(well.check().output, testing::StartsWith("ok       host: version 9.0.0.3821, 32-bit\n"));
}

TEST(AdminCheck, SeesTheDesktopsIndex) {
    WellMachine well({.instant_search = true});
    well.world.option(u"EnableDesktopSearch", u"1");
    EXPECT_THAT(well.check().output, HasSubstr("ok       indexed search: there, and asked"));
}

/// One thing that is not well, and the line that says so.
struct IllCase {
    const char* line;
    std::function<void(WellMachine&)> harm;
    acceptance::WorldSetup setup{};
};

void leave(WellMachine&) {}

const IllCase ill_cases[] = {
    {"host: No host answers", [](WellMachine& ill) { ill.world.quit(); }},
    {"host: version 16.0.0.0, and nothing tells whether it is a 64-bit",
     [](WellMachine& ill) { ill.forget(Hive::machine, host_key); }},
    {"registration: the class CreateNote.Connect is not registered -> run the installer's repair",
     [](WellMachine& ill) { ill.forget(Hive::user, name_key); }},
    {"registration: only for 32-bit programs -> install the package for 64-bit Outlook",
     [](WellMachine& ill) {
         ill.forget(Hive::user, name_key);
         ill.machine.enter(Hive::user, Bits::x86, name_key, u"", u"{1}");
         ill.machine.enter(Hive::user, Bits::x86, server_key, u"", ill.file);
     }},
    {"TarnwellNote.dll is not there -> run the installer's repair",
     [](WellMachine& ill) { ill.world.remove_file(ill.file); }},
    {"TarnwellNote.dll can't be read",
     [](WellMachine& ill) {
         ill.world.remove_file(ill.file);
         std::filesystem::create_directory(native::local_path(ill.file));
     }},
    {"bitness: the file is for 32-bit programs, and the host is a 64-bit one",
     [](WellMachine& ill) { ill.world.write_file("TarnwellNote.dll", program_head(for_x86)); }},
    {"bitness: the file is no program",
     [](WellMachine& ill) { ill.world.write_file("TarnwellNote.dll", "text"); }},
    {"version: the file's is 6.0.1, and this program's is",
     [](WellMachine& ill) { ill.machine.versions[ill.file] = u"6.0.1"; }},
    {"version: the file tells none", [](WellMachine& ill) { ill.machine.versions.clear(); }},
    {"LoadBehavior: 2, the host or the user has switched it off -> switch the add-in on",
     [](WellMachine& ill) {
         ill.forget(Hive::user, add_in_key);
         ill.machine.enter(Hive::user, Bits::x64, add_in_key, u"LoadBehavior", 2);
     }},
    {"LoadBehavior: the add-in is not on the host's list",
     [](WellMachine& ill) { ill.forget(Hive::user, add_in_key); }},
    {"list of disabled add-ins: the add-in is on the host's list DisabledItems",
     [](WellMachine& ill) { ill.list(u"DisabledItems"); }},
    {"list of disabled add-ins: the add-in is on the host's list CrashingAddinList",
     [](WellMachine& ill) { ill.list(u"CrashingAddinList"); }},
    {"list of slow add-ins: the host found the add-in slow",
     [](WellMachine& ill) {
         ill.machine.enter(Hive::user, Bits::x64,
                           Text(host_key) + u"\\Resiliency\\NotificationReminderAddinData",
                           u"CreateNote.Connect\\dtype", 1);
     }},
    {"connection: the host has not connected the add-in",
     [](WellMachine& ill) {
         ill.world.application().COMAddIns().Item(u"CreateNote.Connect").put(u"Connect", false);
     }},
    {"connection: the host does not know the add-in", leave, {.add_in = false}},
    {"answer: the add-in does not answer",
     [](WellMachine& ill) {
         ill.world.application().COMAddIns().Item(u"CreateNote.Connect").put(u"Object", automation::Object());
     }},
    {"sibling Tarnwell.connect: the main add-in is not registered", leave, {.without = {"Tarnwell.connect"}}},
    {"sibling ContactList.List: the picker", leave, {.without = {"ContactList.List"}}},
    {"sibling TarnwellReports.Reports: the reports", leave, {.without = {"TarnwellReports.Reports"}}},
    {"sibling TarnwellOMG.SafeMailItem: the safe wrapper", leave, {.without = {"TarnwellOMG.SafeMailItem"}}},
    {"sibling TarnwellOMG.SafeContactItem: the safe wrapper",
     leave,
     {.without = {"TarnwellOMG.SafeContactItem"}}},
    {"sibling TarnwellOMG.SafePostItem: the safe wrapper", leave, {.without = {"TarnwellOMG.SafePostItem"}}},
    {"store: the main add-in knows no database",
     [](WellMachine& ill) { ill.world.family(u"StoreID", u"-"); }},
    {"Account Profiles: the folder is not found",
     [](WellMachine& ill) { ill.world.account_profiles().put(u"Name", u"Profiles"); }},
    {"ini file: the main add-in does not tell its folder",
     [](WellMachine& ill) { ill.world.family(u"SpecialFolder", u""); }},
    {"setting EnableQuickView: \"yes\", which is off; Quick View follows the selected mail. -> write 1 or 0",
     [](WellMachine& ill) { ill.world.option(u"EnableQuickView", u"yes"); }},
    {"setting EnableGlobalCalendar: \"no\", which is on",
     [](WellMachine& ill) { ill.world.option(u"EnableGlobalCalendar", u"no"); }},
    {"setting UserName: its value is neither text nor number",
     [](WellMachine& ill) {
         ill.world.option(u"UserName", u"Pat");
         host::KeyHandle key = host::no_key;
         host::Registry& registry = ill.world.registry();
         registry.open_key(host::current_user, "Software\\Microsoft\\Office\\9.0\\Outlook\\Options\\Tarnwell",
                           key);
         registry.set_value(key, "UserName", host::registry_type::binary, "abc", 3);
         registry.close_key(key);
     }},
    {"indexed search: not there", [](WellMachine& ill) { ill.world.option(u"EnableDesktopSearch", u"1"); }},
};

TEST(AdminCheck, TellsEachThingThatIsNotWell) {
    for (const IllCase& one : ill_cases) {
        SCOPED_TRACE(one.line);
        WellMachine machine(one.setup);
        one.harm(machine);
        const AdminRun checked = machine.check();
        EXPECT_EQ(checked.code, 1);
        bool told = false;
        std::istringstream lines(checked.output);
        for (std::string line; std::getline(lines, line);)
            told = told || (line.starts_with("WRONG ") && line.find(one.line) != std::string::npos);
        EXPECT_TRUE(told) << checked.output;
        EXPECT_THAT(checked.output, EndsWith(" not well.\n"));
        EXPECT_EQ(machine.world.memory_registry().open_keys(), 0);
    }
}

TEST(AdminCheck, TellsWhatTheDatabaseLacks) {
    WellMachine ill;
    host::outlook::Folder(ill.world.account_profiles().Parent()).Folders().Item(u"Leads").call(u"Delete");
    const AdminRun checked = ill.check();
    EXPECT_EQ(checked.code, 1);
    EXPECT_THAT(checked.output, AllOf(HasSubstr("MISSING  folder \"Tarnwell\\Leads\""),
                                      EndsWith("1 line of 20 is not well.\n")));
}

}  // namespace
