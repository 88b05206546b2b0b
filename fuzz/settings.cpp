// Values of the registry of any type, size and content, that change between two questions: an option is what
// is stored or nothing, and each key that was opened is closed.
#include "addin/ground/settings.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "fuzz/input.h"
#include "fuzz/quiet_desktop.h"
#include "fuzz/targets.h"

namespace {

using automation::Text;
using automation::Value;
namespace status = host::registry_status;
namespace type = host::registry_type;

/// Answers each question by what the input says is stored at that moment, as the system does: what has no
/// room is told by its size alone.
class AnyRegistry final : public host::Registry {
  public:
    explicit AnyRegistry(fuzz::Input& input) : input_(input) {}

    std::int32_t open_key(host::KeyHandle, const std::string&, host::KeyHandle& key) override {
        return hand_out(key);
    }
    std::int32_t create_key(host::KeyHandle, const std::string&, host::KeyHandle& key) override {
        return hand_out(key);
    }
    std::int32_t query_value(host::KeyHandle key, const std::string&, std::uint32_t& kind, void* data,
                             std::uint32_t& size) override {
        if (key == host::no_key) return status::invalid_handle;
        constexpr std::array<std::int32_t, 4> answers = {status::success, status::success,
                                                         status::file_not_found, status::more_data};
        const std::int32_t answer = answers[input_.choice(answers.size())];
        if (answer != status::success) return answer;
        constexpr std::uint32_t kinds = 12;
        kind = input_.byte() % kinds;
        const std::string_view stored = input_.line();
        const std::uint32_t room = std::exchange(size, static_cast<std::uint32_t>(stored.size()));
        if (!data) return status::success;
        if (room < size) return status::more_data;
        std::memcpy(data, stored.data(), stored.size());
        return status::success;
    }
    std::int32_t set_value(host::KeyHandle key, const std::string&, std::uint32_t kind, const void* data,
                           std::uint32_t size) override {
        if (key == host::no_key) return status::invalid_handle;
        fuzz::require(kind == type::text || size == sizeof(std::int32_t), "an integer has another size");
        written.assign(static_cast<const char*>(data), size);
        return status::success;
    }
    std::int32_t close_key(host::KeyHandle key) override {
        if (key == host::no_key) return status::invalid_handle;
        --open;
        return status::success;
    }

    int open = 0;
    std::string written;

  private:
    std::int32_t hand_out(host::KeyHandle& key) {
        if (input_.choice(8) == 7) return status::file_not_found;
        ++open;
        key = 100 + open;
        return status::success;
    }

    fuzz::Input& input_;
};

constexpr char ok = 0, missing = 7;

std::string answers(std::initializer_list<std::pair<char, std::string>> stored) {
    std::string input(1, ok);
    for (const auto& [kind, bytes] : stored) input += std::string{ok, kind} + bytes + '\n';
    return input;
}

}  // namespace

fuzz::Seeds fuzz::setting_seeds() {
    constexpr char text = 1, binary = 3, integer = 4;
    const std::string one("1\0", 2);
    return {answers({{text, one}, {text, one}}),
            answers({{text, "1"}, {text, "1"}}),
            answers({{text, one}, {text, "12345678"}}),
            answers({{text, "12345678"}, {integer, std::string("\1\0\0\0", 4)}}),
            answers({{integer, std::string("\1\0\0\0", 4)}, {integer, std::string("\1\0\0\0", 4)}}),
            answers({{integer, ""}, {integer, "\1"}}),
            answers({{integer, "\1"}, {text, "123456"}}),
            answers({{binary, "bytes"}}),
            answers({{text, ""}, {text, ""}}),
            answers({{text, "\xC3"}, {text, "\xC3"}}),
            {missing}};
}

bool fuzz::try_settings(std::string_view bytes) {
    Input input(bytes);
    AnyRegistry registry(input);
    QuietDesktop desktop(registry);
    addin::Settings settings(desktop);
    const Text option = settings.option(addin::setting::enable_quick_view);
    require(registry.open == 0, "a key stays open");
    settings.store(addin::setting::user_name, option);
    require(registry.open == 0, "a key stays open after a value was written");
    require(registry.written.empty() || registry.written == desktop.narrow(option),
            "a text is stored as another");
    const Value value = settings.GetKeyValueEx(host::current_user, u"key", u"name");
    require(value.is(Value::Type::empty) || value.is(Value::Type::text) || value.is(Value::Type::integer),
            "a value of another kind");
    settings.SetKeyValue(host::current_user, automation::from_utf8(input.line()), u"name", value,
                         input.byte() % 12);
    require(registry.open == 0, "a key stays open after a value that it does not take");
    return !option.empty();
}
