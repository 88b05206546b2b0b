#include "automation/com/connection_point.h"

#include "automation/com/failure.h"

namespace windows {
namespace {

/// What a sink receives the events of an interface by. A sink in another process or apartment comes as a
/// proxy, and only a type library makes proxies of event interfaces, which an object of ours has none of.
/// Such a sink is told by its `IDispatch`.
ComPtr<IDispatch> receiver_of(const ComPtr<IUnknown>& sink, const IID& interface_id) {
    ComPtr<IDispatch> receiver = sink.as<IDispatch>(interface_id);
    const bool is_proxy = static_cast<bool>(sink.as<IMultiQI>(IID_IMultiQI));
    if (!receiver && is_proxy) receiver = sink.as<IDispatch>(IID_IDispatch);
    return receiver;
}

}  // namespace

ConnectionPoint::ConnectionPoint(std::shared_ptr<Apartment> apartment,
                                 std::shared_ptr<automation::Invocable> object, ComPtr<IDispatch> bridge,
                                 const IID& interface_id)
    : ComObject(apartment->module()),
      apartment_(std::move(apartment)),
      object_(std::move(object)),
      bridge_(std::move(bridge)),
      interface_id_(interface_id) {}

ComPtr<IConnectionPoint> ConnectionPoint::create(std::shared_ptr<Apartment> apartment,
                                                 std::shared_ptr<automation::Invocable> object,
                                                 ComPtr<IDispatch> bridge, const IID& interface_id) {
    if (!object->has_events(from_guid(interface_id))) return {};
    return ComPtr<IConnectionPoint>::attach(
        new ConnectionPoint(std::move(apartment), std::move(object), std::move(bridge), interface_id));
}

void* ConnectionPoint::query(REFIID iid) noexcept {
    return iid == IID_IUnknown || iid == IID_IConnectionPoint ? static_cast<IConnectionPoint*>(this)
                                                              : nullptr;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) noexcept {
    if (!iid) return E_POINTER;
    *iid = interface_id_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
    if (!container) return E_POINTER;
    return bridge_->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container));
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    if (!sink || !cookie) return E_POINTER;
    *cookie = 0;
    const ComPtr<IDispatch> receiver = receiver_of(ComPtr<IUnknown>(sink), interface_id_);
    if (!receiver) return CONNECT_E_CANNOTCONNECT;
    return guarded([&] {
        *cookie = static_cast<DWORD>(
            object_->subscribe(from_guid(interface_id_), apartment_->adapt_sink(receiver.get())));
        return S_OK;
    });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) noexcept {
    return guarded([&] {
        object_->unsubscribe(from_guid(interface_id_), static_cast<std::int32_t>(cookie));
        return S_OK;
    });
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
    if (!connections) return E_POINTER;
    *connections = nullptr;
    return E_NOTIMPL;
}

}  // namespace windows
