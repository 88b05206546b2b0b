// How the add-in is installed, and what the host makes of it.
#include <algorithm>

#include "addin/ground/product.h"
#include "addin/ground/product_version.h"
#include "admin/checked.h"

namespace admin {
namespace {

using automation::Failure;

constexpr TextView add_in_key = u"Software\\Microsoft\\Office\\Outlook\\Addins\\";
constexpr TextView classes_key = u"Software\\Classes\\";
constexpr std::size_t longest_head = 4096;  // of a program's file, in which its kind stands

constexpr const char* register_it = "run the installer's repair, or regsvr32 TarnwellNote.dll";

const char* words(Bits bits) { return bits == Bits::x64 ? "64-bit" : "32-bit"; }

/// A value of a key; nothing if there is none.
std::optional<RegistryValue> value_of(Machine& machine, Hive hive, Bits half, TextView key, TextView name) {
    for (RegistryValue& value : machine.values(hive, half, key)) {
        if (automation::same_ignoring_case(value.name, name)) return std::move(value);
    }
    return std::nullopt;
}

/// The key's own text, of the user's classes or else of the machine's.
Text class_text(Machine& machine, Bits half, const Text& key) {
    for (const Hive hive : {Hive::user, Hive::machine}) {
        const auto value = value_of(machine, hive, half, Text(classes_key) + key, u"");
        if (value && !value->text().empty()) return value->text();
    }
    return {};
}

/// The file that serves the add-in's class to programs of a kind; empty if it is not registered for them.
Text registered_file(Machine& machine, Bits half) {
    const Text class_id = class_text(machine, half, Text(addin::connect_prog_id) + u"\\CLSID");
    if (class_id.empty()) return {};
    return automation::replaced(class_text(machine, half, u"CLSID\\" + class_id + u"\\InprocServer32"), u"\"",
                                u"");
}

/// The host's version as its keys are called by it: "16.0".
Text key_version(const Text& version) { return version.substr(0, version.find(u'.')) + u".0"; }

Text host_key(const Checked& checked, TextView below) {
    return u"Software\\Microsoft\\Office\\" + key_version(checked.version) + u"\\Outlook" + Text(below);
}

/// For which kind of program a file is, by the head that all programs have.
std::optional<Bits> bits_of(const std::string& head) {
    const auto number = [&](std::size_t place, std::size_t size) {
        std::size_t whole = 0;
        for (std::size_t i = size; i-- > 0;) whole = whole << 8 | static_cast<unsigned char>(head[place + i]);
        return whole;
    };
    constexpr std::size_t place_of_head = 0x3C;
    if (head.size() < place_of_head + 4) return std::nullopt;
    const std::size_t place = number(place_of_head, 4);
    if (place + 6 > head.size() || head.compare(place, 4, "PE\0\0", 4) != 0) return std::nullopt;
    const std::size_t machine = number(place + 4, 2);
    if (machine == 0x8664) return Bits::x64;
    return machine == 0x014C ? std::optional(Bits::x86) : std::nullopt;
}

/// Whether bytes hold a text, 16 bits a character, in any case.
bool mentions(const std::string& bytes, TextView text) {
    Text units;
    for (std::size_t offset : {0, 1}) {
        for (; offset + 1 < bytes.size(); offset += 2) {
            units += static_cast<char16_t>(static_cast<unsigned char>(bytes[offset]) |
                                           static_cast<unsigned char>(bytes[offset + 1]) << 8);
        }
        units += u'\0';
    }
    return automation::folded(units).find(automation::folded(text)) != Text::npos;
}

/// Which of the host's lists name the add-in.
bool is_listed(Checked& checked, TextView list) {
    if (checked.version.empty()) return false;
    const std::vector<RegistryValue> values = checked.machine.values(
        Hive::user, checked.bits.value_or(Bits::x64), host_key(checked, u"\\Resiliency\\" + Text(list)));
    return std::ranges::any_of(values, [](const RegistryValue& value) {
        return mentions(value.bytes, addin::connect_prog_id) || mentions(value.bytes, u"TarnwellNote.dll") ||
               automation::folded(value.name).starts_with(automation::folded(addin::connect_prog_id));
    });
}

/// What the host has left in `LoadBehavior`, in words.
struct LoadRow {
    std::uint32_t number;
    const char* meaning;
};
constexpr LoadRow load_rows[] = {{0, "the add-in is switched off"},
                                 {1, "the add-in is connected by hand alone"},
                                 {2, "the host or the user has switched it off"},
                                 {8, "the add-in is loaded on demand"},
                                 {9, "the add-in is loaded on demand"},
                                 {16, "the add-in is loaded at the next start, and then on demand"}};
constexpr std::uint32_t connected_at_start = 3;

host::office::ComAddIn entry_of(const Checked& checked) {
    return checked.application.COMAddIns().Item(automation::Value(addin::connect_prog_id));
}

}  // namespace

void check_host(Checked& checked) {
    constexpr auto about = "host";
    try {
        checked.application = host_of(checked.machine);
        checked.version = checked.application.Version();
    } catch (const Refusal& refusal) {
        return checked.wrong(about, sentence(automation::from_utf8(refusal.what())),
                             "install or start Outlook");
    } catch (const Failure& failure) {
        return checked.wrong(about, "it does not tell its version: " + sentence(failure.description()),
                             "end Outlook, and start it again");
    }
    constexpr int first_with_two_kinds = 14;
    const bool has_two_kinds = std::atoi(shown(checked.version).c_str()) >= first_with_two_kinds;
    if (!has_two_kinds) checked.bits = Bits::x86;
    for (const Bits half : {Bits::x64, Bits::x86}) {
        if (checked.bits) break;
        const auto value = value_of(checked.machine, Hive::machine, half, host_key(checked, u""), u"Bitness");
        if (!value) continue;
        if (automation::same_ignoring_case(value->text(), u"x64")) checked.bits = Bits::x64;
        if (automation::same_ignoring_case(value->text(), u"x86")) checked.bits = Bits::x86;
    }
    const std::string version = "version " + shown(checked.version);
    if (!checked.bits) {
        return checked.wrong(about, version + ", and nothing tells whether it is a 64-bit or a 32-bit one",
                             "see File / Office Account / About Outlook, and repair Office");
    }
    checked.ok(about, version + ", " + words(*checked.bits));
}

void check_registration(Checked& checked) {
    constexpr auto about = "registration";
    const Bits own = checked.bits.value_or(Bits::x64);
    const Bits other = own == Bits::x64 ? Bits::x86 : Bits::x64;
    checked.file = registered_file(checked.machine, own);
    if (!checked.file.empty())
        return checked.ok(about, shown(addin::connect_prog_id) + " by " + shown(checked.file));
    if (!registered_file(checked.machine, other).empty()) {
        return checked.wrong(about, "only for " + std::string(words(other)) + " programs",
                             "install the package for " + std::string(words(own)) + " Outlook");
    }
    checked.wrong(about, "the class " + shown(addin::connect_prog_id) + " is not registered", register_it);
}

void check_file(Checked& checked) {
    constexpr auto about = "file";
    if (checked.file.empty()) return checked.not_asked(about, "no file is registered");
    try {
        checked.file_there = checked.machine.read_file(checked.file, 1).has_value();
    } catch (const Failure& failure) {
        return checked.wrong(about,
                             shown(checked.file) + " can't be read: " + sentence(failure.description()),
                             "give the user the right to read it");
    }
    if (checked.file_there) return checked.ok(about, shown(checked.file));
    checked.wrong(about, shown(checked.file) + " is not there", "run the installer's repair");
}

void check_bits(Checked& checked) {
    constexpr auto about = "bitness";
    if (!checked.file_there) return checked.not_asked(about, "the file is not there");
    if (!checked.bits) return checked.not_asked(about, "the host's is not known");
    const std::optional<Bits> bits =
        bits_of(checked.machine.read_file(checked.file, longest_head).value_or(""));
    if (bits == checked.bits) return checked.ok(about, words(*bits));
    checked.wrong(about,
                  bits ? "the file is for " + std::string(words(*bits)) + " programs, and the host is a " +
                             words(*checked.bits) + " one"
                       : "the file is no program",
                  "install the package for " + std::string(words(*checked.bits)) + " Outlook");
}

void check_version(Checked& checked) {
    constexpr auto about = "version";
    if (!checked.file_there) return checked.not_asked(about, "the file is not there");
    Text own;
    for (const int number : addin::product_version)
        own += (own.empty() ? u"" : u".") + automation::to_text(number);
    const Text found = checked.machine.file_version(checked.file);
    if (found == own) return checked.ok(about, shown(found));
    checked.wrong(about,
                  (found.empty() ? "the file tells none" : "the file's is " + shown(found)) +
                      ", and this program's is " + shown(own),
                  "install both from one package");
}

void check_load_behavior(Checked& checked) {
    constexpr auto about = "LoadBehavior";
    constexpr auto to_do = "switch the add-in on in the host's list of COM add-ins, or set LoadBehavior to 3";
    const auto value = value_of(checked.machine, Hive::user, checked.bits.value_or(Bits::x64),
                                Text(add_in_key) + Text(addin::connect_prog_id), u"LoadBehavior");
    const std::optional<std::uint32_t> number = value ? value->number() : std::nullopt;
    if (!number) return checked.wrong(about, "the add-in is not on the host's list", register_it);
    if (*number == connected_at_start) return checked.ok(about, "3, loaded at the host's start");
    const LoadRow* const row = std::ranges::find(load_rows, *number, &LoadRow::number);
    checked.wrong(
        about,
        std::to_string(*number) + ", " + (row == std::end(load_rows) ? "which no host writes" : row->meaning),
        to_do);
}

void check_disabled(Checked& checked) {
    constexpr auto about = "list of disabled add-ins";
    if (checked.version.empty()) return checked.not_asked(about, "no host answers");
    for (const TextView list : {u"DisabledItems", u"CrashingAddinList"}) {
        if (is_listed(checked, list)) {
            return checked.wrong(about, "the add-in is on the host's list " + shown(list),
                                 "take it off it by File / Options / Add-ins / Manage: Disabled Items");
        }
    }
    checked.ok(about, "the add-in is not on it");
}

void check_slow(Checked& checked) {
    constexpr auto about = "list of slow add-ins";
    if (checked.version.empty()) return checked.not_asked(about, "no host answers");
    if (is_listed(checked, u"NotificationReminderAddinData")) {
        return checked.wrong(about, "the host found the add-in slow",
                             "choose \"Always enable this add-in\" by File / Manage COM Add-ins");
    }
    checked.ok(about, "the add-in is not on it");
}

void check_connection(Checked& checked) {
    constexpr auto about = "connection";
    if (!checked.application) return checked.not_asked(about, "no host answers");
    try {
        if (entry_of(checked).get(u"Connect").to_boolean())
            return checked.ok(about, "the host has connected the add-in");
        checked.wrong(about, "the host has not connected the add-in",
                      "see to the lines above, and start the host again");
    } catch (const Failure&) {
        checked.wrong(about, "the host does not know the add-in",
                      "see to the lines above, and start the host again");
    }
}

void check_answer(Checked& checked) {
    constexpr auto about = "answer";
    if (!checked.application) return checked.not_asked(about, "no host answers");
    try {
        entry_of(checked).get(u"Object").to_object().call(u"FileExists", {u""});
        checked.ok(about, "the add-in answers");
    } catch (const Failure& failure) {
        checked.wrong(about, "the add-in does not answer: " + sentence(failure.description()),
                      "start the host again");
    }
}

}  // namespace admin
