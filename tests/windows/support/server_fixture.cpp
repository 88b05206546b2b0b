#include "tests/windows/support/server_fixture.h"

#include "automation/com/module_file.h"

namespace windows::testing {

using automation::Use;

ServerTest::ServerTest() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    folder = module_file();
    folder.resize(folder.find_last_of(u'\\') + 1);
    dll = LoadLibraryW(wide(folder + u"TarnwellNote.dll"));
    EXPECT_TRUE(dll);
}

ServerTest::~ServerTest() {
    EXPECT_EQ(can_unload(), S_OK) << "something was left behind";
    FreeLibrary(dll);
    CoUninitialize();
}

ComPtr<IClassFactory> ServerTest::factory() {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(class_object(to_guid(connect_class), IID_IClassFactory, factory.put_void()), S_OK);
    return factory;
}

ComPtr<IDispatch> ServerTest::connect() {
    ComPtr<IDispatch> object;
    EXPECT_EQ(factory()->CreateInstance(nullptr, IID_IDispatch, object.put_void()), S_OK);
    return object;
}

const automation::Members<HostApplication>& HostApplication::members() {
    static const automation::Members<HostApplication> table{
        {u"COMAddIns", automation::no_id, Use::get,
         [](HostApplication& self) { return Object(self.shared_from_this()); }},
        {u"Item",
         automation::no_id,
         Use::method,
         {u"Index"},
         [](HostApplication& self, const Text& index) {
             self.asked.push_back(index);
             return Object(self.shared_from_this());
         }},
        {u"ProgId", automation::no_id, Use::get, [](HostApplication&) { return u"CreateNote.Connect"; }},
        {u"Object", automation::no_id, [](HostApplication& self) { return self.published; },
         [](HostApplication& self, const Value& given) { self.published = given; }},
    };
    return table;
}

}  // namespace windows::testing
