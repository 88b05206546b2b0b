// The machine as the program for administrators sees it, around a native world.
#pragma once

#include <map>

#include "admin/machine.h"
#include "tests/native/native_world.h"

namespace native {

/// Keys of the registry and facts about programs are what a test says. Files are the world's own.
class AdminMachine final : public admin::Machine {
  public:
    explicit AdminMachine(NativeWorld& world) : world_(world) {}

    std::map<automation::Text, std::vector<admin::RegistryValue>> keys;  ///< by hive, half and path
    std::map<automation::Text, automation::Text> versions;               ///< of programs, by their paths
    bool disk_full = false;

    /// What `keys` has a key under.
    static automation::Text place(admin::Hive hive, admin::Bits half, automation::TextView key);

    /// Enters a value. An empty name is the key's own.
    void enter(admin::Hive hive, admin::Bits half, automation::TextView key, automation::TextView name,
               automation::TextView text);
    void enter(admin::Hive hive, admin::Bits half, automation::TextView key, automation::TextView name,
               std::uint32_t number);
    void enter_bytes(admin::Hive hive, admin::Bits half, automation::TextView key, automation::TextView name,
                     const std::string& bytes);

    host::Desktop& desktop() override { return world_.desktop(); }
    host::outlook::Application application() override { return world_.application(); }
    void let_events_come() override { world_.settle(); }
    std::vector<admin::RegistryValue> values(admin::Hive hive, admin::Bits half,
                                             automation::TextView key) override;
    std::optional<std::string> read_file(automation::TextView path, std::size_t most) override;
    void write_file(automation::TextView path, const std::string& bytes) override;
    automation::Text file_version(automation::TextView path) override { return versions[Text(path)]; }

  private:
    using Text = automation::Text;
    NativeWorld& world_;
};

/// The bytes of a text of 16 bits a character, with its terminator.
std::string wide_bytes(automation::TextView text);

/// What a run of the program has given.
struct AdminRun {
    int code = 0;
    std::string output, errors;
};
AdminRun run_admin(std::vector<std::string> arguments, admin::Machine& machine);

}  // namespace native
