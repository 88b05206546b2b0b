// A registry in memory that keeps what the system's keeps: types, sizes and terminators.
#pragma once

#include <map>

#include "addin/host/desktop.h"

namespace native {

/// Keys below the current user. Names of keys and values are compared without regard to case.
class MemoryRegistry final : public host::Registry {
  public:
    std::int32_t open_key(host::KeyHandle root, const std::string& path, host::KeyHandle& key) override;
    std::int32_t create_key(host::KeyHandle root, const std::string& path, host::KeyHandle& key) override;
    std::int32_t query_value(host::KeyHandle key, const std::string& name, std::uint32_t& type, void* data,
                             std::uint32_t& size) override;
    std::int32_t set_value(host::KeyHandle key, const std::string& name, std::uint32_t type, const void* data,
                           std::uint32_t size) override;
    std::int32_t close_key(host::KeyHandle key) override;

    /// How many keys are open: none may stay so.
    std::size_t open_keys() const { return handles_.size(); }

  private:
    struct StoredValue {
        std::uint32_t type = 0;
        std::string bytes;
    };
    using Key = std::map<std::string, StoredValue>;  ///< by the value's name in lower case

    /// The whole path of what a handle and a path below it name, in lower case; nothing for a closed handle.
    bool locate(host::KeyHandle root, const std::string& path, std::string& place) const;
    Key* key_of(host::KeyHandle key);
    host::KeyHandle hand_out(const std::string& place);

    std::map<std::string, Key> keys_{{"", {}}};  ///< by path; the empty one is the root itself
    std::map<host::KeyHandle, std::string> handles_;
    host::KeyHandle last_handle_ = 0;
};

}  // namespace native
