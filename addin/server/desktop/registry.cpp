#include "addin/server/desktop/registry.h"

#include "automation/com/platform.h"

namespace windows {
namespace {

HKEY handle(host::KeyHandle key) { return reinterpret_cast<HKEY>(key); }

}  // namespace

std::int32_t SystemRegistry::open_key(host::KeyHandle root, const std::string& path, host::KeyHandle& key) {
    HKEY opened = nullptr;
    const LSTATUS status = RegOpenKeyA(handle(root), path.c_str(), &opened);
    key = reinterpret_cast<host::KeyHandle>(opened);
    return status;
}

std::int32_t SystemRegistry::create_key(host::KeyHandle root, const std::string& path, host::KeyHandle& key) {
    HKEY made = nullptr;
    const LSTATUS status = RegCreateKeyA(handle(root), path.c_str(), &made);
    key = reinterpret_cast<host::KeyHandle>(made);
    return status;
}

std::int32_t SystemRegistry::query_value(host::KeyHandle key, const std::string& name, std::uint32_t& type,
                                         void* data, std::uint32_t& size) {
    DWORD its_type = type, its_size = size;
    const LSTATUS status =
        RegQueryValueExA(handle(key), name.c_str(), nullptr, &its_type, static_cast<BYTE*>(data), &its_size);
    type = its_type;
    size = its_size;
    return status;
}

std::int32_t SystemRegistry::set_value(host::KeyHandle key, const std::string& name, std::uint32_t type,
                                       const void* data, std::uint32_t size) {
    return RegSetValueExA(handle(key), name.c_str(), 0, type, static_cast<const BYTE*>(data), size);
}

std::int32_t SystemRegistry::close_key(host::KeyHandle key) { return RegCloseKey(handle(key)); }

}  // namespace windows
