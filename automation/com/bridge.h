// Objects of our own, offered to COM.
#pragma once

#include "automation/com/com_object.h"
#include "automation/com/late_binding.h"

namespace windows {

/// One of our objects as IDispatch, with its events as connection points. Made by `Apartment::bridge`; a
/// server that offers more interfaces on the same identity derives from it.
class Bridge : public ComObject<IDispatch, IConnectionPointContainer> {
  public:
    /// Enters itself as the one bridge of the object.
    Bridge(std::shared_ptr<Apartment> apartment, std::shared_ptr<automation::Invocable> object);

    const std::shared_ptr<automation::Invocable>& object() const { return members_.object(); }
    IUnknown* identity() { return static_cast<IDispatch*>(this); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* answer, EXCEPINFO* details,
                                     UINT* wrong_argument) noexcept override;

    /// The object's events can't be listed: they are asked for by their id.
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;

  protected:
    ~Bridge() override;
    void* query(REFIID iid) noexcept override;

    Apartment& apartment() const { return *members_.apartment(); }
    const std::shared_ptr<Apartment>& shared_apartment() const { return members_.apartment(); }

  private:
    LateBinding members_;
};

}  // namespace windows
