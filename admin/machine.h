// The machine that is looked after, as far as neither host nor add-in tell of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "addin/host/desktop.h"
#include "addin/host/outlook.h"

namespace admin {

using automation::Text;
using automation::TextView;

/// For which kind of program something is: the registry has a half for each.
enum class Bits { x64, x86 };

enum class Hive { user, machine };

/// A value of the registry as it is stored.
struct RegistryValue {
    Text name;  ///< empty for the key's own value
    std::uint32_t type = 0;
    std::string bytes;

    Text text() const;  ///< of a value of type `REG_SZ` or `REG_EXPAND_SZ`, 16 bits a character; else empty
    std::optional<std::uint32_t> number() const;  ///< of a value of type `REG_DWORD`
};

class Machine {
  public:
    Machine() = default;
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;
    virtual ~Machine() = default;

    virtual host::Desktop& desktop() = 0;

    /// The host that runs, or one that is started. Throws `Failure` if there is none.
    virtual host::outlook::Application application() = 0;

    /// Lets the host go on and its events come, for some milliseconds.
    virtual void let_events_come() = 0;

    /// The values of a key; none if it is not there.
    virtual std::vector<RegistryValue> values(Hive hive, Bits half, TextView key) = 0;

    /// A file's first bytes, so many at the most; nothing if it is not there. Throws `Failure` if it can't be
    /// read.
    virtual std::optional<std::string> read_file(TextView path, std::size_t most) = 0;
    /// Writes a whole file, or throws `Failure` and leaves what was there.
    virtual void write_file(TextView path, const std::string& bytes) = 0;
    /// A program's version of three numbers, apart by dots; empty if it tells none.
    virtual Text file_version(TextView path) = 0;
};

/// The machine's host. Throws `Refusal` if there is none.
host::outlook::Application host_of(Machine& machine);

}  // namespace admin
