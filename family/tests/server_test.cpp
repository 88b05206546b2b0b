#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "automation/com/apartment.h"
#include "automation/failure.h"
#include "family/create.h"
#include "family/tests/support/test_key.h"
#include "family/windows/registry_list.h"

namespace {

using namespace family_test;
using automation::Value;
using windows::ComPtr;

/// The server file, loaded as COM loads it.
class ServerFile {
  public:
    ServerFile() : module_(LoadLibraryW(L"TarnwellFamily.dll")) {}
    ~ServerFile() { FreeLibrary(module_); }
    ServerFile(const ServerFile&) = delete;
    ServerFile& operator=(const ServerFile&) = delete;

    template <class Function>
    Function entry(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }
    HRESULT run(const char* name) const { return entry<HRESULT(WINAPI*)()>(name)(); }
    HRESULT class_object(const GUID& id, ComPtr<IClassFactory>& factory) const {
        using Entry = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
        return entry<Entry>("DllGetClassObject")(id, IID_IClassFactory, factory.put_void());
    }
    explicit operator bool() const { return module_ != nullptr; }

  private:
    HMODULE module_;
};

struct FamilyServer : testing::Test {
    ServerFile server;
    TestKey user{HKEY_CURRENT_USER};
    windows::Module module;
    std::shared_ptr<windows::Apartment> apartment = windows::Apartment::create(module, u"test");
    std::wstring key{family::family_key};

    void SetUp() override { ASSERT_TRUE(server); }

    ComPtr<IDispatch> make(automation::TextView prog_id) const {
        const auto classes = family::classes();
        const auto entry = std::ranges::find(classes, prog_id, &family::ClassEntry::prog_id);
        ComPtr<IClassFactory> factory;
        EXPECT_EQ(server.class_object(windows::to_guid(entry->id), factory), S_OK);
        ComPtr<IDispatch> object;
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, object.put_void()), S_OK);
        return object;
    }
    automation::Object asked(automation::TextView prog_id) const {
        return automation::Object(apartment->adapt(make(prog_id).get()));
    }
};

TEST_F(FamilyServer, MakesEachOfItsClasses) {
    const std::pair<automation::TextView, automation::TextView> members[] = {
        {u"Tarnwell.connect", u"generateid"},      {u"ContactList.List", u"slist"},
        {u"TarnwellReports.Reports", u"Initiate"}, {u"TarnwellOMG.SafeMailItem", u"Item"},
        {u"TarnwellOMG.SafeContactItem", u"Item"}, {u"TarnwellOMG.SafePostItem", u"Item"},
    };
    for (const auto& [prog_id, member] : members)
        EXPECT_NO_THROW(asked(prog_id).get(member)) << automation::to_utf8(prog_id);
}

TEST_F(FamilyServer, HasNoOtherClass) {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(server.class_object(IID_IDispatch, factory), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_FALSE(factory);
}

TEST_F(FamilyServer, StaysLoadedWhileItsObjectsLive) {
    EXPECT_EQ(server.run("DllCanUnloadNow"), S_OK);
    ComPtr<IDispatch> object = make(u"Tarnwell.connect");
    EXPECT_EQ(server.run("DllCanUnloadNow"), S_FALSE);
    object.reset();
    EXPECT_EQ(server.run("DllCanUnloadNow"), S_OK);
}

TEST_F(FamilyServer, ReadsItsSettingsFromTheRegistryAtEachCall) {
    const automation::Object main = asked(u"Tarnwell.connect");
    EXPECT_EQ(main.call(u"GetUserName"), Value(u""));
    write_text(HKEY_CURRENT_USER, key, L"UserName", L"Ann L\u00e9e");
    EXPECT_EQ(main.call(u"GetUserName"), Value(u"Ann L\u00e9e"));
    write_text(HKEY_CURRENT_USER, key, L"UserName", std::wstring(500, L'x'));
    EXPECT_EQ(main.call(u"GetUserName"), Value(automation::Text(500, u'x')));
    for (const std::size_t length : {126u, 127u, 128u}) {
        write_text(HKEY_CURRENT_USER, key, L"UserName", std::wstring(length, L'y'));
        EXPECT_EQ(main.call(u"GetUserName"), Value(automation::Text(length, u'y')));
    }
    write_text(HKEY_CURRENT_USER, key, L"UserName", L"");
    EXPECT_EQ(main.call(u"GetUserName"), Value(u""));
}

TEST_F(FamilyServer, FailsAsTheSettingSays) {
    write_text(HKEY_CURRENT_USER, key, L"Fail", L"generateid");
    try {
        asked(u"Tarnwell.connect").call(u"generateid");
        FAIL();
    } catch (const automation::Failure& failure) {
        EXPECT_EQ(failure.number(), automation::result::fail);
        EXPECT_EQ(failure.description(), u"MainAddIn.generateid is among the members that fail");
    }
}

TEST_F(FamilyServer, RecordsCallsInTheRegistry) {
    const automation::Object main = asked(u"Tarnwell.connect");
    main.put(u"messageid", u"00A1");
    main.call(u"reloadtoolbar", {u"UNLOAD"});
    EXPECT_EQ(read_text(HKEY_CURRENT_USER, key + L"\\Calls", L"0001"), L"MainAddIn.messageid = 00A1");
    EXPECT_EQ(read_text(HKEY_CURRENT_USER, key + L"\\Calls", L"0002"), L"MainAddIn.reloadtoolbar(UNLOAD)");
    EXPECT_EQ(read_text(HKEY_CURRENT_USER, key + L"\\Calls", L"0003"), L"(none)");
}

TEST_F(FamilyServer, GivesAnItemBackAsItCame) {
    const automation::Object safe = asked(u"TarnwellOMG.SafeMailItem");
    const ComPtr<IDispatch> item = make(u"ContactList.List");
    const automation::Object object(apartment->adapt(item.get()));
    safe.put(u"Item", object);
    EXPECT_EQ(safe.get(u"Item"), Value(object));
    safe.put(u"FolderId", u"00A1");
    EXPECT_EQ(object.get(u"FolderId"), Value(u"00A1"));
    EXPECT_EQ(safe.get(u"dialogcancel"), Value(true));
}

TEST_F(FamilyServer, ServesEachThreadForItself) {
    std::thread([&] {
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        {
            const auto other = windows::Apartment::create(module, u"other");
            const automation::Object main(other->adapt(make(u"Tarnwell.connect").get()));
            EXPECT_EQ(main.call(u"generateid").to_text().size(), 48u);
        }
        CoUninitialize();
    }).join();
    EXPECT_EQ(asked(u"Tarnwell.connect").call(u"generateid").to_text().size(), 48u);
}

TEST_F(FamilyServer, RegistersItsClassesAndTakesThemOutAgain) {
    const TestKey classes(HKEY_CLASSES_ROOT);
    ASSERT_EQ(server.run("DllRegisterServer"), S_OK);
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(GetModuleHandleW(L"TarnwellFamily.dll"), path.data(), MAX_PATH));
    for (const family::ClassEntry& entry : family::classes()) {
        const std::wstring prog_id(entry.prog_id.begin(), entry.prog_id.end());
        const std::wstring id = read_text(HKEY_CLASSES_ROOT, prog_id + L"\\CLSID", L"");
        const std::wstring of_class = L"CLSID\\" + id;
        GUID guid{};
        EXPECT_EQ(CLSIDFromString(id.c_str(), &guid), S_OK);
        EXPECT_EQ(windows::from_guid(guid), entry.id);
        EXPECT_EQ(read_text(HKEY_CLASSES_ROOT, of_class + L"\\ProgID", L""), prog_id);
        EXPECT_EQ(read_text(HKEY_CLASSES_ROOT, of_class + L"\\InprocServer32", L""), path);
        EXPECT_EQ(read_text(HKEY_CLASSES_ROOT, of_class + L"\\InprocServer32", L"ThreadingModel"),
                  L"Apartment");
    }
    EXPECT_EQ(server.run("DllUnregisterServer"), S_OK);
    EXPECT_EQ(read_text(HKEY_CLASSES_ROOT, L"Tarnwell.connect\\CLSID", L""), L"(none)");
    DWORD left = 99;
    HKEY ids = nullptr;
    RegOpenKeyExW(HKEY_CLASSES_ROOT, L"CLSID", 0, KEY_READ, &ids);
    RegQueryInfoKeyW(ids, nullptr, nullptr, nullptr, &left, nullptr, nullptr, nullptr, nullptr, nullptr,
                     nullptr, nullptr);
    RegCloseKey(ids);
    EXPECT_EQ(left, 0u);
    EXPECT_EQ(server.run("DllUnregisterServer"), S_OK);
}

}  // namespace
