#include "automation/com/module_file.h"

#include "automation/com/failure.h"

namespace windows {

HMODULE own_module() {
    constexpr DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(flags, reinterpret_cast<const wchar_t*>(&own_module), &module)) {
        check(HRESULT_FROM_WIN32(GetLastError()));
    }
    return module;
}

automation::Text module_file() {
    automation::Text path(MAX_PATH, u'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(own_module(), reinterpret_cast<wchar_t*>(path.data()),
                                                static_cast<DWORD>(path.size()));
        if (length == 0) check(HRESULT_FROM_WIN32(GetLastError()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

}  // namespace windows
