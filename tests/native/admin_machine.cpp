#include "tests/native/admin_machine.h"

#include <fstream>
#include <sstream>

#include "admin/command_line.h"

namespace native {

using automation::Failure;
using automation::Text;
using automation::TextView;

Text AdminMachine::place(admin::Hive hive, admin::Bits half, TextView key) {
    return Text(hive == admin::Hive::user ? u"user " : u"machine ") +
           (half == admin::Bits::x64 ? u"64 " : u"32 ") + automation::folded(key);
}

void AdminMachine::enter(admin::Hive hive, admin::Bits half, TextView key, TextView name, TextView text) {
    keys[place(hive, half, key)].push_back({Text(name), host::registry_type::text, wide_bytes(text)});
}

void AdminMachine::enter(admin::Hive hive, admin::Bits half, TextView key, TextView name,
                         std::uint32_t number) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift);
    keys[place(hive, half, key)].push_back({Text(name), host::registry_type::dword, bytes});
}

void AdminMachine::enter_bytes(admin::Hive hive, admin::Bits half, TextView key, TextView name,
                               const std::string& bytes) {
    keys[place(hive, half, key)].push_back({Text(name), host::registry_type::binary, bytes});
}

std::vector<admin::RegistryValue> AdminMachine::values(admin::Hive hive, admin::Bits half, TextView key) {
    const auto found = keys.find(place(hive, half, key));
    return found == keys.end() ? std::vector<admin::RegistryValue>() : found->second;
}

std::optional<std::string> AdminMachine::read_file(TextView path, std::size_t most) {
    const std::filesystem::path file = local_path(path);
    if (!std::filesystem::exists(file)) return std::nullopt;
    if (std::filesystem::is_directory(file))
        throw Failure(automation::result::access_denied, u"\"" + Text(path) + u"\" is no file.");
    std::ifstream stream(file, std::ios::binary);
    std::string bytes(most, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(most));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

void AdminMachine::write_file(TextView path, const std::string& bytes) {
    if (disk_full) throw Failure(automation::result::code(0x80070070), u"The disk is full.");
    std::ofstream(local_path(path), std::ios::binary) << bytes;
}

std::string wide_bytes(TextView text) {
    std::string bytes;
    for (const char16_t unit : Text(text) + u'\0') {
        bytes += static_cast<char>(unit);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

AdminRun run_admin(std::vector<std::string> arguments, admin::Machine& machine) {
    std::ostringstream output, errors;
    const int code = admin::run(std::move(arguments), machine, output, errors);
    return {.code = code, .output = output.str(), .errors = errors.str()};
}

}  // namespace native
