#include "desk/setup/registry_text.h"

#include "automation/com/com_ptr.h"
#include "automation/com/failure.h"

namespace desk::registry {

using automation::Text;
using windows::wide;

namespace {

const wchar_t* value_name(const Text& name) { return name.empty() ? nullptr : wide(name); }

}  // namespace

std::optional<Text> read_text(HKEY root, const Text& path, const Text& name) {
    DWORD size = 0;
    const auto read = [&](void* buffer) {
        return RegGetValueW(root, wide(path), value_name(name), RRF_RT_REG_SZ, nullptr, buffer, &size) ==
               ERROR_SUCCESS;
    };
    if (!read(nullptr)) return std::nullopt;
    Text text(size / sizeof(char16_t), u'\0');
    if (!read(text.data())) return std::nullopt;
    return Text(text.c_str());
}

void write_text(HKEY root, const Text& path, const Text& name, const Text& value) {
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    const LSTATUS status = RegSetKeyValueW(root, wide(path), value_name(name), REG_SZ, wide(value), size);
    windows::check(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

void remove_key(HKEY root, const Text& path) { RegDeleteTreeW(root, wide(path)); }

}  // namespace desk::registry
