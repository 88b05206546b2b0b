#include "family/new_id.h"

#include <array>
#include <chrono>

#include "family/hexadecimal.h"

namespace family {

automation::Text new_id(Context& context) {
    const auto time = std::chrono::system_clock::now().time_since_epoch();
    std::array<std::uint8_t, 16> random{};
    context.random_bytes(random);
    automation::Text id;
    append_hexadecimal(id, static_cast<std::uint64_t>(std::chrono::nanoseconds(time).count()), 16);
    for (const std::uint8_t byte : random) append_hexadecimal(id, byte, 2);
    return id;
}

}  // namespace family
