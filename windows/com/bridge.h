// Objects of our own, offered to COM.
#pragma once

#include "windows/com/apartment.h"
#include "windows/com/com_object.h"

namespace windows {

/// One of our objects as IDispatch, with its events as connection points. Made by `Apartment::bridge`; a
/// server that offers more interfaces on the same identity derives from it.
class Bridge : public ComObject<IDispatch, IConnectionPointContainer> {
  public:
    /// Enters itself as the one bridge of the object.
    Bridge(std::shared_ptr<Apartment> apartment, std::shared_ptr<host::Invocable> object);

    const std::shared_ptr<host::Invocable>& object() const { return object_; }
    IUnknown* identity() { return static_cast<IDispatch*>(this); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    /// Failures come as DISP_E_EXCEPTION with their number and text; IDispatch's own codes as they are.
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* answer, EXCEPINFO* details,
                                     UINT* wrong_argument) noexcept override;

    /// The object's events can't be listed: they are asked for by their id.
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;

  protected:
    ~Bridge() override;
    void* query(REFIID iid) noexcept override;

    Apartment& apartment() const { return *apartment_; }

  private:
    HRESULT enumerate(VARIANT* answer);
    HRESULT run(DISPID id, WORD flags, const DISPPARAMS& parameters, VARIANT* answer);

    std::shared_ptr<Apartment> apartment_;
    std::shared_ptr<host::Invocable> object_;
    std::string class_name_;  ///< under which it is counted
};

}  // namespace windows
