// The object that a source of events calls.
#pragma once

#include "automation/com/apartment.h"
#include "automation/com/com_object.h"

namespace windows {

/// Answers for one event interface and hands its events on to a receiver inside.
class EventSink final : public ComObject<IDispatch> {
  public:
    static ComPtr<IDispatch> create(std::shared_ptr<Apartment> apartment,
                                    std::shared_ptr<automation::Invocable> receiver,
                                    const automation::Guid& interface_id);

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* answer, EXCEPINFO* details,
                                     UINT* wrong_argument) noexcept override;

  private:
    EventSink(std::shared_ptr<Apartment> apartment, std::shared_ptr<automation::Invocable> receiver,
              const automation::Guid& interface_id);
    void* query(REFIID iid) noexcept override;

    std::shared_ptr<Apartment> apartment_;
    std::shared_ptr<automation::Invocable> receiver_;
    IID interface_id_;
};

}  // namespace windows
