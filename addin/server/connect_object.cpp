#include "addin/server/connect_object.h"

#include "automation/com/failure.h"

namespace windows {

ComPtr<IUnknown> ConnectObject::create(const std::shared_ptr<Load>& load,
                                       const std::shared_ptr<addin::Connect>& connect) {
    return ComPtr<IUnknown>::attach((new ConnectObject(load, connect))->identity());
}

void* ConnectObject::query(REFIID iid) noexcept {
    if (iid == to_guid(extensibility_id)) return static_cast<IDTExtensibility2*>(&extensibility_);
    return Bridge::query(iid);
}

HRESULT ConnectObject::Extensibility::QueryInterface(REFIID iid, void** answer) noexcept {
    return whole_.QueryInterface(iid, answer);
}

ULONG ConnectObject::Extensibility::AddRef() noexcept { return whole_.AddRef(); }

ULONG ConnectObject::Extensibility::Release() noexcept { return whole_.Release(); }

HRESULT ConnectObject::Extensibility::GetTypeInfoCount(UINT* count) noexcept {
    return whole_.GetTypeInfoCount(count);
}

HRESULT ConnectObject::Extensibility::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept {
    return whole_.GetTypeInfo(index, locale, info);
}

HRESULT ConnectObject::Extensibility::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                                    DISPID* ids) noexcept {
    return members_.identify(iid, names, count, ids);
}

HRESULT ConnectObject::Extensibility::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                                             VARIANT* answer, EXCEPINFO* details,
                                             UINT* wrong_argument) noexcept {
    const ComPtr<IUnknown> alive(whole_.identity());
    return members_.invoke(id, iid, flags, parameters, answer, details, wrong_argument);
}

template <class Operation>
HRESULT ConnectObject::Extensibility::run(Operation&& operation) noexcept {
    const ComPtr<IUnknown> alive(whole_.identity());
    return guarded([&] {
        operation();
        return S_OK;
    });
}

HRESULT ConnectObject::Extensibility::OnConnection(IDispatch* application, long mode, IDispatch* add_in,
                                                   SAFEARRAY**) noexcept {
    return run([&] {
        Apartment& apartment = whole_.apartment();
        lifecycle_.on_connection(apartment.adapt(application), static_cast<std::int32_t>(mode),
                                 apartment.adapt(add_in));
    });
}

HRESULT ConnectObject::Extensibility::OnDisconnection(long mode, SAFEARRAY**) noexcept {
    return run([&] { lifecycle_.on_disconnection(static_cast<std::int32_t>(mode)); });
}

HRESULT ConnectObject::Extensibility::OnAddInsUpdate(SAFEARRAY**) noexcept {
    return run([&] { lifecycle_.on_add_ins_update(); });
}

HRESULT ConnectObject::Extensibility::OnStartupComplete(SAFEARRAY**) noexcept {
    return run([&] { lifecycle_.on_startup_complete(); });
}

HRESULT ConnectObject::Extensibility::OnBeginShutdown(SAFEARRAY**) noexcept {
    return run([&] { lifecycle_.on_begin_shutdown(); });
}

}  // namespace windows
