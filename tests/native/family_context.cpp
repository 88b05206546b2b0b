#include "tests/native/family_context.h"

#include <array>
#include <cstdio>

namespace native {

using automation::Text;
using automation::TextView;
namespace status = host::registry_status;

namespace {

/// A key that is closed again.
class OpenKey {
  public:
    OpenKey(host::Registry& registry, TextView path, bool make) : registry_(registry) {
        const std::string name = automation::to_utf8(path);
        const std::int32_t opened = make ? registry.create_key(host::current_user, name, key_)
                                         : registry.open_key(host::current_user, name, key_);
        is_open_ = opened == status::success;
    }
    ~OpenKey() {
        if (is_open_) registry_.close_key(key_);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

    std::optional<std::string> text(const std::string& name) const {
        std::uint32_t type = 0, size = 0;
        if (!is_open_ || registry_.query_value(key_, name, type, nullptr, size) != status::success ||
            type != host::registry_type::text) {
            return std::nullopt;
        }
        std::string bytes(size, '\0');
        registry_.query_value(key_, name, type, bytes.data(), size);
        return bytes.substr(0, bytes.find('\0'));
    }

    void text(const std::string& name, const std::string& bytes) {
        registry_.set_value(key_, name, host::registry_type::text, bytes.data(),
                            static_cast<std::uint32_t>(bytes.size()));
    }

  private:
    host::Registry& registry_;
    host::KeyHandle key_ = host::no_key;
    bool is_open_ = false;
};

}  // namespace

std::optional<Text> FamilyContext::read_setting(TextView name) {
    const OpenKey key(registry_, family_key, false);
    const std::optional<std::string> bytes = key.text(automation::to_utf8(name));
    return bytes ? std::optional(automation::from_utf8(*bytes)) : std::nullopt;
}

void FamilyContext::record(Text call) { append_to_family_list(registry_, u"Calls", call); }

void append_to_family_list(host::Registry& registry, TextView list, TextView text) {
    OpenKey key(registry, Text(family_key) + u"\\" + Text(list), true);
    std::array<char, 16> name{};
    for (unsigned number = 1;; ++number) {
        std::snprintf(name.data(), name.size(), "%04u", number);
        if (!key.text(name.data())) break;
    }
    key.text(name.data(), automation::to_utf8(text));
}

}  // namespace native
