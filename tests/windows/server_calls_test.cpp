#include "automation/com/variant.h"
#include "tests/windows/support/server_fixture.h"

namespace windows::testing {
namespace {

using ServerCalls = ServerTest;

TEST_F(ServerCalls, ClassesAndInterfacesThatAreNotThereAreRefused) {
    const GUID id = to_guid(connect_class);
    void* answer = this;
    EXPECT_EQ(class_object(IID_IPersist, IID_IClassFactory, &answer), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(answer, nullptr);
    EXPECT_EQ(class_object(id, IID_IDispatch, &answer), E_NOINTERFACE);
    EXPECT_EQ(class_object(id, IID_IClassFactory, nullptr), E_POINTER);

    const auto maker = factory();
    ComPtr<IUnknown> object;
    EXPECT_EQ(maker->CreateInstance(nullptr, IID_IPersist, object.put_void()), E_NOINTERFACE);
    EXPECT_EQ(maker->CreateInstance(maker.get(), IID_IUnknown, object.put_void()), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(maker->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_FALSE(object);
}

TEST_F(ServerCalls, TheDllStaysAsLongAsItIsNeeded) {
    EXPECT_EQ(can_unload(), S_OK);
    auto maker = factory();
    EXPECT_EQ(can_unload(), S_FALSE) << "the class object";
    maker->LockServer(TRUE);
    maker.reset();
    EXPECT_EQ(can_unload(), S_FALSE) << "a lock";
    factory()->LockServer(FALSE);
    EXPECT_EQ(can_unload(), S_OK);
    {
        const auto first = connect(), second = connect();
        EXPECT_NE(first.get(), second.get());
        EXPECT_EQ(can_unload(), S_FALSE) << "add-in objects";
    }
    EXPECT_EQ(can_unload(), S_OK);
}

TEST_F(ServerCalls, TheDllStaysWithItsObjectsAlsoIfItIsFreedWithoutAQuestion) {
    auto object = connect();
    FreeLibrary(dll);
    EXPECT_TRUE(GetModuleHandleW(L"TarnwellNote.dll"));
    object.reset();
    EXPECT_TRUE(GetModuleHandleW(L"TarnwellNote.dll"))
        << "nothing of it can know that its code has been left";

    dll = LoadLibraryW(wide(folder + u"TarnwellNote.dll"));
    EXPECT_EQ(can_unload(), S_OK);
    FreeLibrary(dll);
    EXPECT_FALSE(GetModuleHandleW(L"TarnwellNote.dll"))
        << "who was told that it may go is the last to hold it";
    dll = LoadLibraryW(wide(folder + u"TarnwellNote.dll"));
}

TEST_F(ServerCalls, AllInterfacesAreOfOneObject) {
    const auto object = connect();
    const auto add_in = extensibility(object);
    ASSERT_TRUE(add_in);
    EXPECT_EQ(add_in.as<IUnknown>(IID_IUnknown).get(), object.as<IUnknown>(IID_IUnknown).get());
    EXPECT_EQ(add_in.as<IDispatch>(IID_IDispatch).get(), object.get())
        << "its own operations are the default";
    EXPECT_TRUE(object.as<IConnectionPointContainer>(IID_IConnectionPointContainer));
    EXPECT_FALSE(object.as<IUnknown>(IID_IPersist));
}

/// A late-bound call of a member by its name.
HRESULT call(IDispatch& object, const wchar_t* name, std::vector<Value> arguments, Apartment& apartment,
             Value* answer = nullptr) {
    auto* spelling = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    const HRESULT known = object.GetIDsOfNames(IID_NULL, &spelling, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(known)) return known;
    std::vector<Variant> row;
    for (std::size_t i = arguments.size(); i-- > 0;) row.push_back(to_variant(arguments[i], apartment));
    DISPPARAMS parameters{row.data(), nullptr, static_cast<UINT>(row.size()), 0};
    Variant result;
    const HRESULT done = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                       &result, nullptr, nullptr);
    if (answer) *answer = to_value(result, apartment);
    return done;
}

TEST_F(ServerCalls, TheHostsOperationsHaveTheirIds) {
    const auto add_in = extensibility(connect());
    const wchar_t* names[] = {L"OnConnection", L"OnDisconnection", L"OnAddInsUpdate", L"OnStartupComplete",
                              L"OnBeginShutdown"};
    for (int i = 0; i < 5; ++i) {
        auto* name = const_cast<wchar_t*>(names[i]);
        DISPID id = DISPID_UNKNOWN;
        EXPECT_EQ(add_in->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        EXPECT_EQ(id, i + 1);
    }
}

TEST_F(ServerCalls, BadCallsHaveTheirResults) {
    const auto object = connect();
    const auto add_in = extensibility(object);
    const struct {
        IDispatch* object;
        const wchar_t* member;
        std::vector<Value> arguments;
        HRESULT result;
    } cases[] = {
        {add_in.get(), L"Nowhere", {}, DISP_E_UNKNOWNNAME},
        {add_in.get(), L"OnConnection", {}, DISP_E_BADPARAMCOUNT},
        {add_in.get(), L"OnConnection", {u"text", 1, Object(), {}}, DISP_E_TYPEMISMATCH},
        {add_in.get(), L"OnDisconnection", {1, {}, 3}, DISP_E_BADPARAMCOUNT},
        {add_in.get(), L"OnDisconnection", {u"soon"}, DISP_E_TYPEMISMATCH},
        {add_in.get(), L"FileExists", {u"x"}, DISP_E_UNKNOWNNAME},
        {object.get(), L"Nowhere", {}, DISP_E_UNKNOWNNAME},
        {object.get(), L"OnConnection", {}, DISP_E_UNKNOWNNAME},
        {object.get(), L"FileExists", {}, DISP_E_BADPARAMCOUNT},
        {object.get(), L"FileExists", {u"x", u"y"}, DISP_E_BADPARAMCOUNT},
        {object.get(), L"GetKeyValueEx", {u"no key", u"a", u"b"}, DISP_E_TYPEMISMATCH},
        {object.get(), L"FileExists", {automation::Null{}}, DISP_E_TYPEMISMATCH},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(::testing::Message() << each.member);
        EXPECT_EQ(call(*each.object, each.member, each.arguments, *apartment), each.result);
    }
    DISPPARAMS none{};
    for (IDispatch* const face : {static_cast<IDispatch*>(add_in.get()), object.get()}) {
        EXPECT_EQ(face->Invoke(0x7777, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
                  DISP_E_MEMBERNOTFOUND);
        EXPECT_EQ(face->Invoke(3, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
                  DISP_E_UNKNOWNINTERFACE);
        EXPECT_EQ(face->Invoke(3, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
                  E_POINTER);
        EXPECT_EQ(face->GetTypeInfoCount(nullptr), E_POINTER);
    }
}

TEST_F(ServerCalls, PublishedOperationsWork) {
    const auto object = connect();
    Value answer;
    EXPECT_EQ(call(*object.get(), L"FileExists", {folder + u"TarnwellNote.dll"}, *apartment, &answer), S_OK);
    EXPECT_EQ(answer, Value(true));
    EXPECT_EQ(call(*object.get(), L"fileexists", {folder + u"nothing"}, *apartment, &answer), S_OK);
    EXPECT_EQ(answer, Value(false));
}

/// The file that keeps a first start from running the programs of the family.
class FirstStart : public ServerTest {
  protected:
    FirstStart() {
        const HANDLE file = CreateFileW(wide(marker), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        EXPECT_NE(file, INVALID_HANDLE_VALUE);
        CloseHandle(file);
    }
    ~FirstStart() override { DeleteFileW(wide(marker)); }

    bool marker_is_there() const { return GetFileAttributesW(wide(marker)) != INVALID_FILE_ATTRIBUTES; }

    Text marker = folder + u"initial.txt";
    std::shared_ptr<HostApplication> application = std::make_shared<HostApplication>();
};

TEST_F(FirstStart, PublishesTheAddInObjectItself) {
    const auto object = connect();
    const auto add_in = extensibility(object);
    const auto host = apartment->bridge(application);
    EXPECT_EQ(add_in->OnConnection(host.get(), 1, host.get(), nullptr), S_OK);
    EXPECT_EQ(application->asked, std::vector<Text>{u"CreateNote.Connect"});
    EXPECT_EQ(apartment->bridge(application->published.to_object().target()).get(), object.get());
    EXPECT_FALSE(marker_is_there()) << "the rest of the start ran: the marker beside the DLL is used up";

    EXPECT_EQ(add_in->OnAddInsUpdate(nullptr), S_OK);
    EXPECT_EQ(add_in->OnStartupComplete(nullptr), S_OK);
    EXPECT_EQ(add_in->OnBeginShutdown(nullptr), S_OK);
    EXPECT_EQ(add_in->OnDisconnection(0, nullptr), S_OK);
    application->published = {};
}

TEST_F(FirstStart, WorksByNameAsWell) {
    const auto object = connect();
    const auto add_in = extensibility(object);
    const Value host = Object(application);
    EXPECT_EQ(call(*add_in.get(), L"OnConnection", {host, 1, host, automation::Array::of({})}, *apartment),
              S_OK);
    EXPECT_EQ(apartment->bridge(application->published.to_object().target()).get(), object.get());
    EXPECT_EQ(call(*add_in.get(), L"OnDisconnection", {0}, *apartment), S_OK);
    application->published = {};
}

TEST_F(FirstStart, WithNothingForAnArgumentFailsSilently) {
    const auto add_in = extensibility(connect());
    const Object host(application);
    const std::pair<Object, Object> cases[] = {{Object(), host}, {host, Object()}, {Object(), Object()}};
    for (const auto& [given, entry] : cases) {
        const auto given_pointer = apartment->bridge(given.target()),
                   entry_pointer = apartment->bridge(entry.target());
        EXPECT_EQ(add_in->OnConnection(given_pointer.get(), 1, entry_pointer.get(), nullptr), S_OK);
        EXPECT_EQ(call(*add_in.get(), L"OnConnection", {Value(given), 1, Value(entry)}, *apartment), S_OK);
        EXPECT_TRUE(marker_is_there()) << "nothing was started";
    }
}

TEST_F(FirstStart, WithoutAHostFailsSilently) {
    const auto add_in = extensibility(connect());
    const auto stranger = connect();
    EXPECT_EQ(add_in->OnConnection(stranger.get(), 1, stranger.get(), nullptr), S_OK);
    EXPECT_TRUE(marker_is_there()) << "what has no name of an add-in does not start it";
}

}  // namespace
}  // namespace windows::testing
