// Where a client connects to the events of one of our objects.
#pragma once

#include "automation/com/apartment.h"
#include "automation/com/com_object.h"

namespace windows {

/// The connection point of one event interface. It keeps no list of its own: connections and their cookies
/// belong to the object, so every connection point for the same events answers alike. An object's cookies are
/// integers.
class ConnectionPoint final : public ComObject<IConnectionPoint> {
  public:
    /// Empty if the object has no such events.
    static ComPtr<IConnectionPoint> create(std::shared_ptr<Apartment> apartment,
                                           std::shared_ptr<automation::Invocable> object,
                                           ComPtr<IDispatch> bridge, const IID& interface_id);

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) noexcept override;
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    /// CONNECT_E_CANNOTCONNECT for a sink that doesn't answer for the interface, nor comes from elsewhere.
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) noexcept override;

  private:
    ConnectionPoint(std::shared_ptr<Apartment> apartment, std::shared_ptr<automation::Invocable> object,
                    ComPtr<IDispatch> bridge, const IID& interface_id);
    void* query(REFIID iid) noexcept override;

    std::shared_ptr<Apartment> apartment_;
    std::shared_ptr<automation::Invocable> object_;
    ComPtr<IDispatch> bridge_;
    IID interface_id_;
};

}  // namespace windows
