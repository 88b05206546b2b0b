// The registry of the system.
#pragma once

#include "addin/host/desktop.h"

namespace windows {

/// The system's own calls, one for one.
class SystemRegistry final : public host::Registry {
  public:
    std::int32_t open_key(host::KeyHandle root, const std::string& path, host::KeyHandle& key) override;
    std::int32_t create_key(host::KeyHandle root, const std::string& path, host::KeyHandle& key) override;
    std::int32_t query_value(host::KeyHandle key, const std::string& name, std::uint32_t& type, void* data,
                             std::uint32_t& size) override;
    std::int32_t set_value(host::KeyHandle key, const std::string& name, std::uint32_t type, const void* data,
                           std::uint32_t size) override;
    std::int32_t close_key(host::KeyHandle key) override;
};

}  // namespace windows
