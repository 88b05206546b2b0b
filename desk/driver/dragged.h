// What is dragged onto a window.
#pragma once

#include "automation/com/com_object.h"
#include "automation/com/com_ptr.h"

namespace desk {

/// Bears no data of its own: as with items of the host, whoever takes the drop looks at the selection. What
/// bears some is derived from it.
class Dragged : public windows::ComObject<IDataObject> {
  public:
    static windows::ComPtr<IDataObject> create(windows::Module& module) {
        return windows::ComPtr<IDataObject>::attach(new Dragged(module));
    }

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC*, STGMEDIUM*) noexcept override { return DV_E_FORMATETC; }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) noexcept override { return DV_E_FORMATETC; }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC*) noexcept override { return DV_E_FORMATETC; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) noexcept override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) noexcept override { return OLE_E_ADVISENOTSUPPORTED; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) noexcept override {
        return OLE_E_ADVISENOTSUPPORTED;
    }

  protected:
    explicit Dragged(windows::Module& module) : ComObject(module) {}

  private:
    void* query(REFIID iid) noexcept override {
        return iid == IID_IUnknown || iid == IID_IDataObject ? static_cast<IDataObject*>(this) : nullptr;
    }
};

}  // namespace desk
