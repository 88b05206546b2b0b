#include "admin/machine.h"

#include "admin/report.h"

namespace admin {
namespace {

constexpr std::uint32_t text_type = 1, expandable_type = 2, number_type = 4;  // REG_SZ and so on

std::uint32_t byte_at(const std::string& bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes[index]);
}

}  // namespace

Text RegistryValue::text() const {
    Text text;
    if (type != text_type && type != expandable_type) return text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto unit = static_cast<char16_t>(byte_at(bytes, i) | byte_at(bytes, i + 1) << 8);
        if (unit == 0) break;
        text += unit;
    }
    return text;
}

std::optional<std::uint32_t> RegistryValue::number() const {
    if (type != number_type || bytes.size() != 4) return std::nullopt;
    return byte_at(bytes, 0) | byte_at(bytes, 1) << 8 | byte_at(bytes, 2) << 16 | byte_at(bytes, 3) << 24;
}

host::outlook::Application host_of(Machine& machine) {
    try {
        return machine.application();
    } catch (const automation::Failure& failure) {
        throw Refusal("No host answers: " + sentence(failure.description()) + ".");
    }
}

}  // namespace admin
