// The four entry points of the DLL. Nothing is thrown out of them.
#include "addin/server/registration.h"
#include "addin/server/server.h"
#include "automation/com/failure.h"
#include "automation/com/module_file.h"

namespace {

/// One for each load of the DLL: the entry points are handed nothing that could hold it.
windows::Server& server() {
    static windows::Server instance;
    return instance;
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID class_id, REFIID iid, void** answer) {
    return server().class_object(class_id, iid, answer);
}

STDAPI DllCanUnloadNow() { return server().may_unload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
    return windows::guarded([] { return windows::register_server(windows::module_file()); });
}

STDAPI DllUnregisterServer() {
    return windows::guarded([] { return windows::unregister_server(); });
}
