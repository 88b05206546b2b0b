#include "automation/com/event_sink.h"

#include "automation/com/failure.h"
#include "automation/com/incoming.h"

namespace windows {

EventSink::EventSink(std::shared_ptr<Apartment> apartment, std::shared_ptr<automation::Invocable> receiver,
                     const automation::Guid& interface_id)
    : ComObject(apartment->module()),
      apartment_(std::move(apartment)),
      receiver_(std::move(receiver)),
      interface_id_(to_guid(interface_id)) {}

ComPtr<IDispatch> EventSink::create(std::shared_ptr<Apartment> apartment,
                                    std::shared_ptr<automation::Invocable> receiver,
                                    const automation::Guid& interface_id) {
    return ComPtr<IDispatch>::attach(new EventSink(std::move(apartment), std::move(receiver), interface_id));
}

void* EventSink::query(REFIID iid) noexcept {
    const bool answered = iid == IID_IUnknown || iid == IID_IDispatch || iid == interface_id_;
    return answered ? static_cast<IDispatch*>(this) : nullptr;
}

HRESULT EventSink::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    if (!info) return E_POINTER;
    *info = nullptr;
    return E_NOTIMPL;
}

HRESULT EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept {
    return E_NOTIMPL;  // sources know the ids of their events
}

HRESULT EventSink::Invoke(DISPID id, REFIID iid, LCID, WORD, DISPPARAMS* parameters, VARIANT* answer,
                          EXCEPINFO* details, UINT*) noexcept {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_POINTER;
    if (answer) VariantInit(answer);
    IncomingArguments incoming(*parameters);
    if (const HRESULT wrong = incoming.validate(); FAILED(wrong)) return wrong;

    const ComPtr<IDispatch> alive(this);  // a handler may end the subscription that it came through
    return guarded(details, apartment_->source(), [&] {
        automation::Request request{.access = automation::Access::call, .member = {}, .id = id};
        incoming.bring_into(request, *apartment_);
        receiver_->invoke(request);
        incoming.write_back(request, *apartment_);
        return S_OK;
    });
}

}  // namespace windows
