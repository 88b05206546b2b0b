#include "automation/com/late_binding.h"

#include <algorithm>
#include <cwchar>
#include <optional>
#include <typeinfo>

#include "automation/com/enumerator.h"
#include "automation/com/failure.h"
#include "automation/com/incoming.h"
#include "automation/com/named.h"
#include "automation/com/variant.h"

namespace windows {
namespace {

using automation::Access;
using automation::Request;

constexpr automation::TextView enumerator_name = u"_NewEnum";
constexpr WORD puts = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
constexpr WORD reads = DISPATCH_PROPERTYGET | DISPATCH_METHOD;

std::string class_name_of(const automation::Invocable& object) {
    if (const auto* named = dynamic_cast<const Named*>(&object)) return std::string(named->class_name());
    return typeid(object).name();
}

automation::TextView view(const wchar_t* name) { return from_wide(name, std::wcslen(name)); }

}  // namespace

LateBinding::LateBinding(std::shared_ptr<Apartment> apartment, std::shared_ptr<automation::Invocable> object)
    : apartment_(std::move(apartment)), object_(std::move(object)), class_name_(class_name_of(*object_)) {}

HRESULT LateBinding::identify(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (count == 0) return E_INVALIDARG;
    if (!names || !ids) return E_POINTER;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    for (UINT i = 0; i < count; ++i) {
        if (!names[i]) return E_INVALIDARG;
    }
    return guarded([&] {
        const automation::TextView member = view(names[0]);
        if (automation::same_ignoring_case(member, enumerator_name)) {
            ids[0] = DISPID_NEWENUM;
            return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
        }
        std::vector<automation::Text> parameters;
        for (UINT i = 1; i < count; ++i) parameters.emplace_back(view(names[i]));
        const std::optional<automation::MemberIds> known = object_->identify(member, parameters);
        if (!known) return DISP_E_UNKNOWNNAME;
        ids[0] = static_cast<DISPID>(known->id);
        std::ranges::copy(known->places, ids + 1);
        if (BridgeCounter* const counter = apartment_->counter())
            counter->identified(class_name_, member, known->id);
        const bool all = std::ranges::find(known->places, automation::no_id) == known->places.end();
        return all ? S_OK : DISP_E_UNKNOWNNAME;
    });
}

HRESULT LateBinding::enumerate(VARIANT* answer) {
    ComPtr<IEnumVARIANT> enumerator = Enumerator::create(apartment_, object_);
    if (!enumerator) return DISP_E_MEMBERNOTFOUND;
    if (answer) {
        answer->punkVal = enumerator.detach();
        answer->vt = VT_UNKNOWN;
    }
    return S_OK;
}

HRESULT LateBinding::run(DISPID id, WORD flags, const DISPPARAMS& parameters, VARIANT* answer) {
    Request request{.access = Access::call, .member = {}, .id = static_cast<std::int32_t>(id)};
    if ((flags & puts) != 0) request.access = Access::put;
    if (flags == DISPATCH_PROPERTYGET) request.access = Access::get;

    IncomingArguments incoming(parameters);
    incoming.bring_into(request, *apartment_);
    const automation::Value value = object_->invoke(request);
    incoming.write_back(request, *apartment_);
    if (answer && request.access != Access::put) *answer = to_variant(value, *apartment_).detach();
    return S_OK;
}

HRESULT LateBinding::invoke(DISPID id, REFIID iid, WORD flags, DISPPARAMS* parameters, VARIANT* answer,
                            EXCEPINFO* details, UINT* wrong_argument) noexcept {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_POINTER;
    if ((flags & (reads | puts)) == 0) return E_INVALIDARG;
    if (answer) VariantInit(answer);
    if (wrong_argument) *wrong_argument = 0;
    if (const HRESULT wrong = IncomingArguments(*parameters).validate(); FAILED(wrong)) return wrong;
    if (id == DISPID_UNKNOWN) return DISP_E_MEMBERNOTFOUND;

    return guarded(details, apartment_->source(), [&] {
        if (BridgeCounter* const counter = apartment_->counter()) counter->invoked(class_name_, id);
        const bool enumerates = id == DISPID_NEWENUM && (flags & reads) != 0;
        return enumerates ? enumerate(answer) : run(id, flags, *parameters, answer);
    });
}

}  // namespace windows
