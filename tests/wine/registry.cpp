#include "tests/wine/registry.h"

#include <array>

#include "automation/com/com_ptr.h"

namespace wine {

using automation::Text;
using windows::wide;

std::optional<Text> read_text(HKEY root, const Text& path, const Text& name) {
    std::array<wchar_t, 2048> buffer{};
    DWORD size = sizeof buffer;
    const wchar_t* const value = name.empty() ? nullptr : wide(name);
    if (RegGetValueW(root, wide(path), value, RRF_RT_REG_SZ, nullptr, buffer.data(), &size) !=
        ERROR_SUCCESS) {
        return std::nullopt;
    }
    return Text(reinterpret_cast<const char16_t*>(buffer.data()));
}

void write_text(HKEY root, const Text& path, const Text& name, const Text& value) {
    RegSetKeyValueW(root, wide(path), name.empty() ? nullptr : wide(name), REG_SZ, wide(value),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

void remove_key(HKEY root, const Text& path) { RegDeleteTreeW(root, wide(path)); }

}  // namespace wine
