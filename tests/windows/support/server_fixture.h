// The add-in's DLL, loaded as COM loads it, from beside the test program.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "addin/server/class_id.h"
#include "automation/automated.h"
#include "automation/com/apartment.h"
#include "automation/com/com_object.h"
#include "automation/com/extensibility.h"

namespace windows::testing {

using automation::Object;
using automation::Text;
using automation::Value;

/// The DLL and its entry points. Every test loads it anew.
class ServerTest : public ::testing::Test {
  protected:
    ServerTest();
    ~ServerTest() override;

    template <class Function>
    Function* entry(const char* name) {
        const FARPROC address = GetProcAddress(dll, name);
        EXPECT_TRUE(address) << name;
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
    }
    HRESULT can_unload() { return entry<decltype(DllCanUnloadNow)>("DllCanUnloadNow")(); }
    HRESULT class_object(const GUID& class_id, const IID& iid, void** answer) {
        return entry<decltype(DllGetClassObject)>("DllGetClassObject")(class_id, iid, answer);
    }
    HRESULT register_server() { return entry<decltype(DllRegisterServer)>("DllRegisterServer")(); }
    HRESULT unregister_server() { return entry<decltype(DllUnregisterServer)>("DllUnregisterServer")(); }

    /// The class object, and an add-in object made by it.
    ComPtr<IClassFactory> factory();
    ComPtr<IDispatch> connect();

    static ComPtr<IDTExtensibility2> extensibility(const ComPtr<IDispatch>& object) {
        return object.as<IDTExtensibility2>(to_guid(extensibility_id));
    }

    Text folder;  ///< that the DLL lies in, with a backslash at its end
    HMODULE dll = nullptr;
    Module module;
    std::shared_ptr<Apartment> apartment = Apartment::create(module, u"Host");
};

/// As much of a host as the start of the add-in asks for: it takes the published object.
class HostApplication : public automation::Automated<HostApplication> {
  public:
    static const automation::Members<HostApplication>& members();

    Value published;
    std::vector<Text> asked;  ///< names of add-ins
};

}  // namespace windows::testing
