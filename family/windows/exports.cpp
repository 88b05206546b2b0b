// The entry points of the server.

#include "automation/com/failure.h"
#include "family/windows/registration.h"
#include "family/windows/server.h"

namespace {

/// Made by the first call, gone with the module.
family::Server& server() {
    static family::Server only;
    return only;
}

/// The path of the file that this code stands in.
automation::Text own_file() {
    HMODULE module = nullptr;
    constexpr DWORD by_address =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    GetModuleHandleExW(by_address, reinterpret_cast<LPCWSTR>(&own_file), &module);
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) return automation::Text(windows::from_wide(path.data(), length));
        path.resize(path.size() * 2);
    }
}

}  // namespace

extern "C" HRESULT WINAPI DllGetClassObject(REFCLSID id, REFIID iid, LPVOID* answer) {
    if (!answer) return E_POINTER;
    *answer = nullptr;
    return windows::guarded([&] { return server().class_object(id, iid, answer); });
}

extern "C" HRESULT WINAPI DllCanUnloadNow() { return server().may_unload() ? S_OK : S_FALSE; }

extern "C" HRESULT WINAPI DllRegisterServer() {
    return windows::guarded([] { return family::register_classes(family::classes(), own_file()); });
}

extern "C" HRESULT WINAPI DllUnregisterServer() {
    return windows::guarded([] { return family::unregister_classes(family::classes()); });
}
