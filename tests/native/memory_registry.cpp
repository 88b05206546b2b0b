#include "tests/native/memory_registry.h"

#include <algorithm>

namespace native {

using host::KeyHandle;
namespace status = host::registry_status;

namespace {

std::string in_lower_case(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

bool is_root(KeyHandle key) { return key == host::current_user; }

}  // namespace

bool MemoryRegistry::locate(KeyHandle root, const std::string& path, std::string& place) const {
    if (is_root(root)) {
        place.clear();
    } else if (const auto handle = handles_.find(root); handle != handles_.end()) {
        place = handle->second;
    } else {
        return false;
    }
    std::string below = in_lower_case(path);
    while (!below.empty() && below.back() == '\\') below.pop_back();
    if (!place.empty() && !below.empty()) place += '\\';
    place += below;
    return true;
}

KeyHandle MemoryRegistry::hand_out(const std::string& place) {
    if (place.empty()) return host::current_user;
    handles_[++last_handle_] = place;
    return last_handle_;
}

std::int32_t MemoryRegistry::open_key(KeyHandle root, const std::string& path, KeyHandle& key) {
    std::string place;
    if (!locate(root, path, place)) return status::invalid_handle;
    if (!keys_.contains(place)) return status::file_not_found;
    key = hand_out(place);
    return status::success;
}

std::int32_t MemoryRegistry::create_key(KeyHandle root, const std::string& path, KeyHandle& key) {
    std::string place;
    if (!locate(root, path, place)) return status::invalid_handle;
    for (std::size_t end = place.find('\\'); end != std::string::npos; end = place.find('\\', end + 1)) {
        keys_.try_emplace(place.substr(0, end));
    }
    keys_.try_emplace(place);
    key = hand_out(place);
    return status::success;
}

MemoryRegistry::Key* MemoryRegistry::key_of(KeyHandle key) {
    std::string place;
    if (!locate(key, {}, place)) return nullptr;
    return &keys_.at(place);
}

std::int32_t MemoryRegistry::query_value(KeyHandle key, const std::string& name, std::uint32_t& type,
                                         void* data, std::uint32_t& size) {
    const Key* const values = key_of(key);
    if (!values) return status::invalid_handle;
    const auto value = values->find(in_lower_case(name));
    if (value == values->end()) return status::file_not_found;
    const std::string& bytes = value->second.bytes;
    type = value->second.type;
    const std::uint32_t room = size;
    size = static_cast<std::uint32_t>(bytes.size());
    if (!data) return status::success;
    if (room < size) return status::more_data;
    std::ranges::copy(bytes, static_cast<char*>(data));
    return status::success;
}

std::int32_t MemoryRegistry::set_value(KeyHandle key, const std::string& name, std::uint32_t type,
                                       const void* data, std::uint32_t size) {
    Key* const values = key_of(key);
    if (!values) return status::invalid_handle;
    (*values)[in_lower_case(name)] = {type, std::string(static_cast<const char*>(data), size)};
    return status::success;
}

std::int32_t MemoryRegistry::close_key(KeyHandle key) {
    if (is_root(key)) return status::success;
    return handles_.erase(key) == 1 ? status::success : status::invalid_handle;
}

}  // namespace native
