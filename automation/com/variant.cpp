#include "automation/com/variant.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <new>

#include "automation/com/failure.h"

namespace windows {
namespace {

using automation::Array;
using automation::Value;

[[noreturn]] void mismatch() {
    throw automation::Failure(automation::result::type_mismatch, u"Type mismatch");
}

/// A whole number, in the narrowest type of ours that holds it.
Value whole(long long number) {
    if (number >= std::numeric_limits<std::int32_t>::min() &&
        number <= std::numeric_limits<std::int32_t>::max()) {
        return static_cast<std::int32_t>(number);
    }
    return static_cast<double>(number);
}

Value whole(unsigned long long number) {
    if (number <= static_cast<unsigned long long>(std::numeric_limits<std::int32_t>::max())) {
        return static_cast<std::int32_t>(number);
    }
    return static_cast<double>(number);
}

class ArrayLock {
  public:
    explicit ArrayLock(SAFEARRAY* array) : array_(array) { check(SafeArrayLock(array)); }
    ArrayLock(const ArrayLock&) = delete;
    ArrayLock& operator=(const ArrayLock&) = delete;
    ~ArrayLock() { SafeArrayUnlock(array_); }

  private:
    SAFEARRAY* array_;
};

Array::Bounds bounds_of(SAFEARRAY* array, UINT dimension) {
    LONG lower = 0, upper = 0;
    check(SafeArrayGetLBound(array, dimension, &lower));
    check(SafeArrayGetUBound(array, dimension, &upper));
    return {static_cast<std::int32_t>(lower), static_cast<std::int32_t>(upper - lower + 1)};
}

/// An element is read as a value by reference: that is how VARIANT names every element type.
Value element(SAFEARRAY* array, VARTYPE type, LONG* indices, Apartment& apartment) {
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = static_cast<VARTYPE>(type | VT_BYREF);
    check(SafeArrayPtrOfIndex(array, indices, &reference.byref));
    return to_value(reference, apartment);
}

Value array_value(SAFEARRAY* array, VARTYPE type, Apartment& apartment) {
    if (!array) return Array();
    const ArrayLock lock(array);
    const UINT dimensions = SafeArrayGetDim(array);
    if (dimensions == 1) {
        const Array::Bounds only = bounds_of(array, 1);
        Array values(only);
        for (std::int32_t i = 0; i < only.count; ++i) {
            LONG index = only.lower + i;
            values.at(only.lower + i) = element(array, type, &index, apartment);
        }
        return values;
    }
    if (dimensions != 2) mismatch();
    const Array::Bounds first = bounds_of(array, 1), second = bounds_of(array, 2);
    Array values(first, second);
    for (std::int32_t i = 0; i < first.count; ++i) {
        for (std::int32_t j = 0; j < second.count; ++j) {
            LONG indices[] = {first.lower + i, second.lower + j};
            values.at(first.lower + i, second.lower + j) = element(array, type, indices, apartment);
        }
    }
    return values;
}

Value decimal_value(DECIMAL decimal) {
    double number = 0;
    check(VarR8FromDec(&decimal, &number));
    const bool fits = std::abs(number) <= std::numeric_limits<std::int32_t>::max();
    return decimal.scale == 0 && fits ? Value(static_cast<std::int32_t>(number)) : Value(number);
}

Value unknown_value(IUnknown* unknown, Apartment& apartment) {
    if (!unknown) return automation::Object();
    const auto dispatch = ComPtr<IUnknown>(unknown).as<IDispatch>(IID_IDispatch);
    if (!dispatch) mismatch();
    return apartment.adapt(dispatch.get());
}

Value plain_value(const VARIANT& variant, Apartment& apartment) {
    switch (variant.vt) {
        case VT_EMPTY:
            return {};
        case VT_NULL:
            return automation::Null{};
        case VT_ERROR:
            return automation::Missing{};
        case VT_I1:
            return std::int32_t{static_cast<signed char>(variant.cVal)};
        case VT_UI1:
            return std::int32_t{variant.bVal};
        case VT_I2:
            return std::int32_t{variant.iVal};
        case VT_UI2:
            return std::int32_t{variant.uiVal};
        case VT_I4:
            return static_cast<std::int32_t>(variant.lVal);
        case VT_INT:
            return std::int32_t{variant.intVal};
        case VT_UI4:
            return whole(static_cast<unsigned long long>(variant.ulVal));
        case VT_UINT:
            return whole(static_cast<unsigned long long>(variant.uintVal));
        case VT_I8:
            return whole(static_cast<long long>(variant.llVal));
        case VT_UI8:
            return whole(static_cast<unsigned long long>(variant.ullVal));
        case VT_R4:
            return double{variant.fltVal};
        case VT_R8:
            return variant.dblVal;
        case VT_CY:
            return static_cast<double>(variant.cyVal.int64) / 10000;  // currency counts ten-thousandths
        case VT_DECIMAL:
            return decimal_value(variant.decVal);
        case VT_DATE:
            return automation::Date{variant.date};
        case VT_BOOL:
            return variant.boolVal != VARIANT_FALSE;
        case VT_BSTR:
            return from_wide(variant.bstrVal, SysStringLen(variant.bstrVal));
        case VT_DISPATCH:
            return apartment.adapt(variant.pdispVal);
        case VT_UNKNOWN:
            return unknown_value(variant.punkVal, apartment);
        default:
            mismatch();
    }
}

SAFEARRAY* safe_array(const Array& values, Apartment& apartment) {
    std::vector<SAFEARRAYBOUND> bounds;
    for (const Array::Bounds& dimension : values.dimensions()) {
        bounds.push_back({static_cast<ULONG>(dimension.count > 0 ? dimension.count : 0), dimension.lower});
    }
    Variant owner;
    owner.parray = SafeArrayCreate(VT_VARIANT, static_cast<UINT>(bounds.size()), bounds.data());
    if (!owner.parray) throw std::bad_alloc();
    owner.vt = VT_ARRAY | VT_VARIANT;
    const auto store = [&](LONG* indices, const Value& value) {
        Variant variant = to_variant(value, apartment);
        check(SafeArrayPutElement(owner.parray, indices, &variant));  // copies
    };
    const Array::Bounds first = values.dimensions().front();
    for (std::int32_t i = 0; i < first.count; ++i) {
        LONG indices[] = {first.lower + i, 0};
        if (values.dimensions().size() == 1) {
            store(indices, values.at(first.lower + i));
            continue;
        }
        const Array::Bounds second = values.dimensions()[1];
        for (std::int32_t j = 0; j < second.count; ++j) {
            indices[1] = second.lower + j;
            store(indices, values.at(first.lower + i, second.lower + j));
        }
    }
    return owner.detach().parray;
}

/// The size of a value of a type that is copied as its bytes; 0 for every other type.
std::size_t plain_size(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        default:
            return 0;
    }
}

}  // namespace

Bstr::Bstr(automation::TextView text)
    : text_(
          SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()))) {
    if (!text_) throw std::bad_alloc();
}

Variant to_variant(const Value& value, Apartment& apartment) {
    Variant variant;
    switch (value.type()) {
        case Value::Type::empty:
            break;
        case Value::Type::null:
            variant.vt = VT_NULL;
            break;
        case Value::Type::missing:
            variant.vt = VT_ERROR;
            variant.scode = DISP_E_PARAMNOTFOUND;
            break;
        case Value::Type::boolean:
            variant.vt = VT_BOOL;
            variant.boolVal = value.to_boolean() ? VARIANT_TRUE : VARIANT_FALSE;
            break;
        case Value::Type::integer:
            variant.vt = VT_I4;
            variant.lVal = value.to_integer();
            break;
        case Value::Type::number:
            variant.vt = VT_R8;
            variant.dblVal = value.to_number();
            break;
        case Value::Type::date:
            variant.vt = VT_DATE;
            variant.date = value.to_date().days;
            break;
        case Value::Type::text:
            variant.bstrVal = Bstr(value.to_text()).detach();
            variant.vt = VT_BSTR;
            break;
        case Value::Type::object:
            variant.pdispVal = apartment.bridge(value.to_object().target()).detach();
            variant.vt = VT_DISPATCH;
            break;
        case Value::Type::array:
            variant.parray = safe_array(value.to_array(), apartment);
            variant.vt = VT_ARRAY | VT_VARIANT;
            break;
    }
    return variant;
}

Value to_value(const VARIANT& variant, Apartment& apartment) {
    const bool reference = (variant.vt & VT_BYREF) != 0;
    if (reference && !variant.byref) mismatch();
    if ((variant.vt & VT_ARRAY) != 0) {
        const auto type = static_cast<VARTYPE>(variant.vt & VT_TYPEMASK);
        return array_value(reference ? *variant.pparray : variant.parray, type, apartment);
    }
    if (!reference) return plain_value(variant, apartment);
    if (variant.vt == (VT_BYREF | VT_VARIANT)) {
        const VARIANT& inner = *variant.pvarVal;
        if (inner.vt == (VT_BYREF | VT_VARIANT)) mismatch();  // may lead in a circle
        return to_value(inner, apartment);
    }
    Variant copy;
    VARIANT source = variant;
    check(VariantCopyInd(&copy, &source));
    return plain_value(copy, apartment);
}

void write_back(const VARIANT& reference, const Value& value, Apartment& apartment) {
    if ((reference.vt & VT_BYREF) == 0 || !reference.byref) mismatch();
    Variant changed = to_variant(value, apartment);
    const auto type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
    if (type == VT_VARIANT) {
        VariantClear(reference.pvarVal);
        *reference.pvarVal = changed.detach();
        return;
    }
    if (changed.vt != type) {
        // an empty object reference is one of every interface
        const bool nothing = changed.vt == VT_DISPATCH && !changed.pdispVal && type == VT_UNKNOWN;
        if (!nothing) check(VariantChangeType(&changed, &changed, 0, type));
    }
    if (const std::size_t size = plain_size(type)) {
        std::memcpy(reference.byref, &changed.byref, size);
    } else if (type == VT_DECIMAL) {
        *reference.pdecVal = changed.decVal;
    } else if (type == VT_BSTR) {
        SysFreeString(*reference.pbstrVal);
        *reference.pbstrVal = changed.detach().bstrVal;
    } else if (type == VT_DISPATCH || type == VT_UNKNOWN) {
        if (IUnknown* const before = *reference.ppunkVal) before->Release();
        *reference.ppunkVal = changed.detach().punkVal;
    } else if (type == (VT_ARRAY | VT_VARIANT)) {
        SafeArrayDestroy(*reference.pparray);
        *reference.pparray = changed.detach().parray;
    } else {
        mismatch();
    }
}

}  // namespace windows
