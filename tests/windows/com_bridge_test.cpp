// A bridge as a client sees it that keeps to no good manners.
#include "automation/com/variant.h"
#include "tests/windows/support/com_sample.h"

namespace windows::testing {
namespace {

/// A raw late-bound call.
struct RawCall {
    DISPID id = DISPID_UNKNOWN;
    WORD flags = DISPATCH_METHOD;
    std::vector<Value> arguments{};  ///< in their order
    std::vector<DISPID> named{};     ///< the ids of the last ones, in reverse order

    Value answer{};
    EXCEPINFO details{};
};

class BridgeTest : public Border {
  protected:
    HRESULT run(RawCall& call) {
        std::vector<Variant> row;
        for (std::size_t i = call.arguments.size(); i-- > 0;)
            row.push_back(to_variant(call.arguments[i], *outside));
        DISPPARAMS parameters{row.data(), call.named.data(), static_cast<UINT>(row.size()),
                              static_cast<UINT>(call.named.size())};
        Variant answer;
        const HRESULT result = bridge->Invoke(call.id, IID_NULL, LOCALE_USER_DEFAULT, call.flags, &parameters,
                                              &answer, &call.details, nullptr);
        call.answer = to_value(answer, *outside);
        return result;
    }

    DISPID id_of(const wchar_t* name) {
        DISPID id = DISPID_UNKNOWN;
        auto* spelling = const_cast<wchar_t*>(name);
        EXPECT_EQ(bridge->GetIDsOfNames(IID_NULL, &spelling, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        return id;
    }

    std::shared_ptr<Sample> sample = std::make_shared<Sample>();
    ComPtr<IDispatch> bridge = inside->bridge(sample);
};

TEST_F(BridgeTest, NamesOfAMemberAndItsParametersHaveIds) {
    wchar_t member[] = L"join", third[] = L"THIRD", first[] = L"First", nowhere[] = L"Nowhere";
    wchar_t* names[] = {member, third, nowhere, first};
    DISPID ids[4]{};
    EXPECT_EQ(bridge->GetIDsOfNames(IID_NULL, names, 2, 0, ids), S_OK);
    EXPECT_EQ(ids[1], 2);
    EXPECT_EQ(bridge->GetIDsOfNames(IID_NULL, names, 4, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], id_of(L"Join"));
    EXPECT_EQ(ids[1], 2);
    EXPECT_EQ(ids[2], DISPID_UNKNOWN);
    EXPECT_EQ(ids[3], 0);
    EXPECT_EQ(bridge->GetIDsOfNames(IID_NULL, &names[2], 1, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], DISPID_UNKNOWN);
}

TEST_F(BridgeTest, NamedArgumentsGoToTheirPlaces) {
    RawCall call{.id = id_of(L"Join"), .arguments = {u"a", u"b", u"c"}, .named = {1, 2}};
    EXPECT_EQ(run(call), S_OK);
    EXPECT_EQ(call.answer, Value(u"a;c;b;"));

    RawCall twice{.id = id_of(L"Join"), .arguments = {u"a", u"b"}, .named = {0}};
    EXPECT_EQ(run(twice), DISP_E_PARAMNOTFOUND);
    RawCall nowhere{.id = id_of(L"Join"), .arguments = {u"a", u"b"}, .named = {9}};
    EXPECT_EQ(run(nowhere), DISP_E_BADPARAMCOUNT);
    RawCall far_away{.id = id_of(L"Join"), .arguments = {u"a", u"b"}, .named = {0x7FFFFFFF}};
    EXPECT_EQ(run(far_away), DISP_E_PARAMNOTFOUND);
}

TEST_F(BridgeTest, PropertiesAreAssignedInEveryWay) {
    constexpr WORD put = DISPATCH_PROPERTYPUT, put_reference = DISPATCH_PROPERTYPUTREF,
                   either = put | put_reference;
    for (const WORD flags : {put, put_reference, either}) {
        sample->value = {};
        RawCall call{
            .id = DISPID_VALUE, .flags = flags, .arguments = {u"new"}, .named = {DISPID_PROPERTYPUT}};
        EXPECT_EQ(run(call), S_OK);
        EXPECT_EQ(sample->value, Value(u"new"));
    }
}

TEST_F(BridgeTest, BadCallsHaveTheirResults) {
    DISPPARAMS none{}, missing{nullptr, nullptr, 1, 0}, too_many_names{nullptr, nullptr, 0, 1};
    const DISPID id = DISPID_VALUE;
    const auto invoke = [&](DISPID member, REFIID iid, WORD flags, DISPPARAMS* parameters) {
        return bridge->Invoke(member, iid, 0, flags, parameters, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(invoke(id, IID_IDispatch, DISPATCH_METHOD, &none), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(invoke(id, IID_NULL, DISPATCH_METHOD, nullptr), E_POINTER);
    EXPECT_EQ(invoke(id, IID_NULL, 0, &none), E_INVALIDARG);
    EXPECT_EQ(invoke(id, IID_NULL, DISPATCH_METHOD, &missing), E_INVALIDARG);
    EXPECT_EQ(invoke(id, IID_NULL, DISPATCH_METHOD, &too_many_names), E_INVALIDARG);
    EXPECT_EQ(invoke(DISPID_UNKNOWN, IID_NULL, DISPATCH_METHOD, &none), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(0x12345, IID_NULL, DISPATCH_METHOD, &none), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(id, IID_NULL, DISPATCH_PROPERTYPUT, &none), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(id, IID_NULL, DISPATCH_METHOD, &none), S_OK) << "no place for the answer is no fault";

    wchar_t value[] = L"Value";
    wchar_t* names[] = {value, nullptr};
    DISPID ids[2]{};
    EXPECT_EQ(bridge->GetIDsOfNames(IID_IDispatch, names, 1, 0, ids), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(bridge->GetIDsOfNames(IID_NULL, nullptr, 1, 0, ids), E_POINTER);
    EXPECT_EQ(bridge->GetIDsOfNames(IID_NULL, names, 1, 0, nullptr), E_POINTER);
    EXPECT_EQ(bridge->GetIDsOfNames(IID_NULL, names, 0, 0, ids), E_INVALIDARG);
    EXPECT_EQ(bridge->GetIDsOfNames(IID_NULL, names, 2, 0, ids), E_INVALIDARG);
    EXPECT_EQ(bridge->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(bridge->GetTypeInfoCount(nullptr), E_POINTER);
    void* other = &other;
    EXPECT_EQ(bridge->QueryInterface(IID_IPersist, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
}

TEST_F(BridgeTest, FailuresTellNumberTextAndSource) {
    RawCall call{.id = id_of(L"Fail"), .arguments = {automation::result::not_found}};
    ASSERT_EQ(run(call), DISP_E_EXCEPTION);
    EXPECT_EQ(call.details.scode, automation::result::not_found);
    EXPECT_STREQ(call.details.bstrDescription, L"Refused on purpose");
    EXPECT_STREQ(call.details.bstrSource, L"Sample program");
    SysFreeString(call.details.bstrDescription);
    SysFreeString(call.details.bstrSource);
}

TEST_F(BridgeTest, AClientsReferencesAreWrittenBack) {
    BSTR left = SysAllocString(L"left");
    Variant right = to_variant(u"right", *outside);
    VARIANT row[2];  // in reverse order
    VariantInit(&row[0]);
    row[0].vt = VT_BYREF | VT_VARIANT;
    row[0].pvarVal = &right;
    VariantInit(&row[1]);
    row[1].vt = VT_BYREF | VT_BSTR;
    row[1].pbstrVal = &left;
    DISPPARAMS parameters{row, nullptr, 2, 0};
    EXPECT_EQ(
        bridge->Invoke(id_of(L"Swap"), IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
        S_OK);
    EXPECT_STREQ(left, L"right");
    EXPECT_EQ(to_value(right, *outside), Value(u"left"));
    SysFreeString(left);
}

TEST_F(BridgeTest, WhatStaysAsItWasIsNotWrittenBack) {
    Variant bytes;
    SAFEARRAYBOUND bounds{2, 0};
    bytes.parray = SafeArrayCreate(VT_UI1, 1, &bounds);
    bytes.vt = VT_ARRAY | VT_UI1;
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_ARRAY | VT_UI1;  // of a type that has no way back
    reference.pparray = &bytes.parray;
    DISPPARAMS parameters{&reference, nullptr, 1, 0};
    EXPECT_EQ(
        bridge->Invoke(id_of(L"Echo"), IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
        S_OK);
}

/// Answers whatever it is asked.
class Yes : public automation::Invocable {
  public:
    Value invoke(Request&) override { return true; }
};

TEST_F(BridgeTest, TheIdOfNothingIsNeverAsked) {
    const auto yes = inside->bridge(std::make_shared<Yes>());
    DISPPARAMS none{};
    EXPECT_EQ(yes->Invoke(DISPID_UNKNOWN, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
}

/// The rest of a walk, item by item.
std::vector<Value> walked(IEnumVARIANT& walk, Apartment& apartment) {
    std::vector<Value> items;
    Variant item;
    while (walk.Next(1, &item, nullptr) == S_OK) {
        items.push_back(to_value(item, apartment));
        item.clear();
    }
    return items;
}

class Walk : public BridgeTest {
  protected:
    ComPtr<IEnumVARIANT> start() {
        DISPPARAMS none{};
        Variant answer;
        EXPECT_EQ(bridge->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &answer, nullptr,
                                 nullptr),
                  S_OK);
        EXPECT_EQ(answer.vt, VT_UNKNOWN);
        return ComPtr<IUnknown>(answer.punkVal).as<IEnumVARIANT>(IID_IEnumVARIANT);
    }
};

TEST_F(Walk, GoesFromTheFirstItemToTheLast) {
    sample->items = {u"a", 2, u"c"};
    EXPECT_EQ(walked(*start().get(), *outside), sample->items);
    EXPECT_EQ(id_of(L"_NewEnum"), DISPID_NEWENUM);
}

TEST_F(Walk, SeesTheCollectionAsItIsByThen) {
    sample->items = {u"a", u"b", u"c"};
    const auto walk = start();
    Variant item;
    EXPECT_EQ(walk->Next(1, &item, nullptr), S_OK);
    sample->items = {u"x", u"y"};
    EXPECT_EQ(walked(*walk.get(), *outside), std::vector<Value>{u"y"});
    sample->items = {u"x", u"y", u"z"};
    EXPECT_EQ(walked(*walk.get(), *outside), std::vector<Value>{u"z"});
}

TEST_F(Walk, SkipsResetsAndIsCloned) {
    sample->items = {1, 2, 3, 4};
    const auto walk = start();
    EXPECT_EQ(walk->Skip(2), S_OK);
    ComPtr<IEnumVARIANT> clone;
    EXPECT_EQ(walk->Clone(clone.put()), S_OK);
    Variant items[3];
    ULONG fetched = 9;
    EXPECT_EQ(walk->Next(3, items, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 2U);
    EXPECT_EQ(to_value(items[1], *outside), Value(4));
    EXPECT_EQ(walked(*clone.get(), *outside), (std::vector<Value>{3, 4}))
        << "the clone stands where it was made";
    EXPECT_EQ(walk->Skip(1), S_FALSE);
    EXPECT_EQ(walk->Reset(), S_OK);
    EXPECT_EQ(walked(*walk.get(), *outside).size(), 4U);
    EXPECT_EQ(walk->Next(2, items, nullptr), E_POINTER);
    EXPECT_EQ(walk->Next(1, nullptr, nullptr), E_POINTER);
}

TEST_F(Walk, ThatFailsHandsOutNothingAndStaysWhereItWas) {
    sample->items = {u"a", Object(std::make_shared<LaterSample>()), Value(Sample::broken)};
    const auto walk = start();
    Variant items[3];
    ULONG fetched = 9;
    EXPECT_EQ(walk->Next(3, items, &fetched), automation::result::object_deleted);
    EXPECT_EQ(fetched, 0U);
    EXPECT_EQ(items[0].vt, VT_EMPTY);
    EXPECT_EQ(items[1].vt, VT_EMPTY);
    sample->items.pop_back();
    EXPECT_EQ(walked(*walk.get(), *outside).size(), 2U);
}

TEST_F(Walk, IsRefusedByWhatIsNoCollection) {
    const auto other = inside->bridge(std::make_shared<LaterSample>());
    DISPPARAMS none{};
    EXPECT_EQ(
        other->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
        DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace windows::testing
