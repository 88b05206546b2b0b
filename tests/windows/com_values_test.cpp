#include <cmath>
#include <functional>

#include "automation/com/variant.h"
#include "tests/windows/support/com_sample.h"

namespace windows::testing {
namespace {

using automation::Array;
using Values = Border;

/// Two rows of two, from 1 and from -1.
Array grid() {
    Array array({1, 2}, {-1, 2});
    array.at(1, -1) = u"a";
    array.at(1, 0) = 2;
    array.at(2, -1) = automation::Null{};
    array.at(2, 0) = Array::of({true, 1.5});
    return array;
}

TEST_F(Values, EveryTypeComesBackAsItWent) {
    const Value cases[] = {
        {},
        automation::Null{},
        automation::Missing{},
        true,
        false,
        std::int32_t{0},
        std::numeric_limits<std::int32_t>::min(),
        -0.25,
        automation::Date{36526.5},
        u"",
        TextView(u"a\0b\xD83D\xDE00", 5),
        Object(),
        Array::of({}),
        Array::of({1, u"two", automation::Date{3}}),
        grid(),
    };
    const Object sample = seen(std::make_shared<Sample>());
    for (const Value& value : cases) {
        SCOPED_TRACE(static_cast<int>(value.type()));
        EXPECT_EQ(to_value(to_variant(value, *inside), *inside), value);
        EXPECT_EQ(sample.call(u"Echo", {value}), value);
        sample.put(u"Value", value);
        EXPECT_EQ(sample.get(u"Value"), value);
    }
}

TEST_F(Values, GoOutInAutomationsOwnTypes) {
    const std::pair<Value, VARTYPE> cases[] = {
        {{}, VT_EMPTY},
        {automation::Null{}, VT_NULL},
        {automation::Missing{}, VT_ERROR},
        {true, VT_BOOL},
        {7, VT_I4},
        {0.5, VT_R8},
        {automation::Date{1}, VT_DATE},
        {u"x", VT_BSTR},
        {Object(), VT_DISPATCH},
        {grid(), VT_ARRAY | VT_VARIANT},
    };
    for (const auto& [value, type] : cases) EXPECT_EQ(to_variant(value, *inside).vt, type);
    EXPECT_EQ(to_variant(true, *inside).boolVal, VARIANT_TRUE);
    EXPECT_EQ(to_variant(automation::Missing{}, *inside).scode, DISP_E_PARAMNOTFOUND);
}

/// A VARIANT of a type, filled by a function.
struct Foreign {
    VARTYPE type;
    std::function<void(VARIANT&)> fill;
    Value value;
};

TEST_F(Values, ForeignTypesAreUnderstood) {
    const Foreign cases[] = {
        {VT_I1, [](VARIANT& v) { v.cVal = -5; }, -5},
        {VT_UI1, [](VARIANT& v) { v.bVal = 200; }, 200},
        {VT_I2, [](VARIANT& v) { v.iVal = -300; }, -300},
        {VT_UI2, [](VARIANT& v) { v.uiVal = 65535; }, 65535},
        {VT_I4, [](VARIANT& v) { v.lVal = -70000; }, -70000},
        {VT_INT, [](VARIANT& v) { v.intVal = -70001; }, -70001},
        {VT_UI4, [](VARIANT& v) { v.ulVal = 70000; }, 70000},
        {VT_UI4, [](VARIANT& v) { v.ulVal = 4000000000U; }, 4000000000.0},
        {VT_UINT, [](VARIANT& v) { v.uintVal = 3; }, 3},
        {VT_I8, [](VARIANT& v) { v.llVal = -5; }, -5},
        {VT_I8, [](VARIANT& v) { v.llVal = -5000000000; }, -5000000000.0},
        {VT_UI8, [](VARIANT& v) { v.ullVal = 5000000000; }, 5000000000.0},
        {VT_R4, [](VARIANT& v) { v.fltVal = 0.5F; }, 0.5},
        {VT_R8, [](VARIANT& v) { v.dblVal = -2.25; }, -2.25},
        {VT_CY, [](VARIANT& v) { v.cyVal.int64 = 12345; }, 1.2345},
        {VT_DATE, [](VARIANT& v) { v.date = 2.5; }, automation::Date{2.5}},
        {VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_TRUE; }, true},
        {VT_BOOL, [](VARIANT& v) { v.boolVal = 1; }, true},
        {VT_ERROR, [](VARIANT& v) { v.scode = DISP_E_PARAMNOTFOUND; }, automation::Missing{}},
        {VT_BSTR, [](VARIANT& v) { v.bstrVal = SysAllocString(L"text"); }, u"text"},
        {VT_BSTR, [](VARIANT& v) { v.bstrVal = nullptr; }, u""},
        {VT_DISPATCH, [](VARIANT& v) { v.pdispVal = nullptr; }, Object()},
        {VT_UNKNOWN, [](VARIANT& v) { v.punkVal = nullptr; }, Object()},
    };
    for (const Foreign& foreign : cases) {
        SCOPED_TRACE(foreign.type);
        Variant plain;
        plain.vt = foreign.type;
        foreign.fill(plain);
        EXPECT_EQ(to_value(plain, *inside), foreign.value);

        VARIANT reference;
        VariantInit(&reference);
        reference.vt = static_cast<VARTYPE>(VT_BYREF | foreign.type);
        reference.byref = &plain.lVal;
        EXPECT_EQ(to_value(reference, *inside), foreign.value);

        reference.vt = VT_BYREF | VT_VARIANT;
        reference.pvarVal = &plain;
        EXPECT_EQ(to_value(reference, *inside), foreign.value);
    }
}

TEST_F(Values, DecimalsAreNumbers) {
    const std::pair<double, Value> cases[] = {{12, 12}, {-0.125, -0.125}, {5e9, 5e9}};
    for (const auto& [number, value] : cases) {
        VARIANT variant;
        VariantInit(&variant);
        ASSERT_EQ(VarDecFromR8(number, &variant.decVal), S_OK);
        variant.vt = VT_DECIMAL;
        EXPECT_EQ(to_value(variant, *inside), value);
    }
}

TEST_F(Values, ArraysOfEveryElementTypeAreUnderstood) {
    BYTE bytes[] = {1, 255};
    SHORT shorts[] = {-1, 2};
    VARIANT_BOOL booleans[] = {VARIANT_TRUE, VARIANT_FALSE};
    double dates[] = {1.5, 2};
    BSTR texts[] = {SysAllocString(L"a"), nullptr};
    CY money[] = {{.int64 = 15000}, {.int64 = -5000}};
    struct {
        VARTYPE type;
        void* elements[2];
        std::vector<Value> values;
    } cases[] = {
        {VT_UI1, {&bytes[0], &bytes[1]}, {1, 255}},
        {VT_I2, {&shorts[0], &shorts[1]}, {-1, 2}},
        {VT_BOOL, {&booleans[0], &booleans[1]}, {true, false}},
        {VT_DATE, {&dates[0], &dates[1]}, {automation::Date{1.5}, automation::Date{2}}},
        {VT_BSTR, {texts[0], texts[1]}, {u"a", u""}},
        {VT_CY, {&money[0], &money[1]}, {1.5, -0.5}},
    };
    for (auto& each : cases) {
        SCOPED_TRACE(each.type);
        Variant array;
        SAFEARRAYBOUND bounds{2, 0};
        array.parray = SafeArrayCreate(each.type, 1, &bounds);
        array.vt = static_cast<VARTYPE>(VT_ARRAY | each.type);
        for (LONG i = 0; i < 2; ++i) ASSERT_EQ(SafeArrayPutElement(array.parray, &i, each.elements[i]), S_OK);
        EXPECT_EQ(to_value(array, *inside), Value(Array::of(each.values)));

        VARIANT reference;
        VariantInit(&reference);
        reference.vt = static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | each.type);
        reference.pparray = &array.parray;
        EXPECT_EQ(to_value(reference, *inside), Value(Array::of(each.values)));
    }
    SysFreeString(texts[0]);
}

TEST_F(Values, WhatIsNoneOfAutomationsTypesIsATypeMismatch) {
    Variant cube;
    SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}, {1, 0}};
    cube.parray = SafeArrayCreate(VT_I4, 3, bounds);
    cube.vt = VT_ARRAY | VT_I4;
    VARIANT circle, nowhere, strange;
    VariantInit(&circle);
    circle.vt = VT_BYREF | VT_VARIANT;
    circle.pvarVal = &circle;
    VariantInit(&nowhere);
    nowhere.vt = VT_BYREF | VT_BSTR;
    VariantInit(&strange);
    strange.vt = VT_FILETIME;
    for (const VARIANT* variant : {static_cast<VARIANT*>(&cube), &circle, &nowhere, &strange}) {
        EXPECT_EQ(failure_number([&] { to_value(*variant, *inside); }), automation::result::type_mismatch);
    }
}

TEST_F(Values, AChangeIsStoredInTheCallersType) {
    VARIANT_BOOL boolean = VARIANT_FALSE;
    SHORT number = 1;
    double date = 0;
    BSTR text = SysAllocString(L"before");
    Variant any;
    struct {
        VARTYPE type;
        void* place;
        Value value;
    } cases[] = {{VT_BOOL, &boolean, true},
                 {VT_I2, &number, u"42"},
                 {VT_DATE, &date, automation::Date{1.25}},
                 {VT_BSTR, &text, 17},
                 {VT_VARIANT, static_cast<VARIANT*>(&any), u"any"}};
    for (const auto& each : cases) {
        VARIANT reference;
        VariantInit(&reference);
        reference.vt = static_cast<VARTYPE>(VT_BYREF | each.type);
        reference.byref = each.place;
        write_back(reference, each.value, *inside);
    }
    EXPECT_EQ(boolean, VARIANT_TRUE);
    EXPECT_EQ(number, 42);
    EXPECT_EQ(date, 1.25);
    EXPECT_EQ(from_wide(text, SysStringLen(text)), u"17");
    EXPECT_EQ(to_value(any, *inside), Value(u"any"));

    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_I2;
    reference.piVal = &number;
    EXPECT_EQ(failure_number([&] { write_back(reference, u"no number", *inside); }),
              automation::result::type_mismatch);
    EXPECT_EQ(number, 42);
    SysFreeString(text);
}

}  // namespace
}  // namespace windows::testing
