#include "automation/com/bridge.h"

#include "automation/com/connection_point.h"
#include "automation/com/failure.h"

namespace windows {

Bridge::Bridge(std::shared_ptr<Apartment> apartment, std::shared_ptr<automation::Invocable> object)
    : ComObject(apartment->module()), members_(std::move(apartment), std::move(object)) {
    this->apartment().add(*this);
    if (BridgeCounter* const counter = this->apartment().counter()) counter->made(members_.class_name());
}

Bridge::~Bridge() {
    apartment().remove(*this);
    if (BridgeCounter* const counter = apartment().counter()) counter->gone(members_.class_name());
}

void* Bridge::query(REFIID iid) noexcept {
    if (iid == IID_IUnknown || iid == IID_IDispatch) return static_cast<IDispatch*>(this);
    if (iid == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(this);
    return nullptr;
}

HRESULT Bridge::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT Bridge::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    if (!info) return E_POINTER;
    *info = nullptr;
    return E_NOTIMPL;
}

HRESULT Bridge::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
    const ComPtr<IDispatch> alive(this);
    return members_.identify(iid, names, count, ids);
}

HRESULT Bridge::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* answer,
                       EXCEPINFO* details, UINT* wrong_argument) noexcept {
    const ComPtr<IDispatch> alive(this);  // the call may let go of the last reference from outside
    return members_.invoke(id, iid, flags, parameters, answer, details, wrong_argument);
}

HRESULT Bridge::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
    if (!points) return E_POINTER;
    *points = nullptr;
    return E_NOTIMPL;
}

HRESULT Bridge::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
    if (!point) return E_POINTER;
    *point = nullptr;
    return guarded([&] {
        *point =
            ConnectionPoint::create(members_.apartment(), object(), ComPtr<IDispatch>(this), iid).detach();
        return *point ? S_OK : CONNECT_E_NOCONNECTION;
    });
}

}  // namespace windows
