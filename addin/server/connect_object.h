// The add-in object as COM sees it.
#pragma once

#include "addin/server/lifecycle.h"
#include "automation/com/bridge.h"
#include "automation/com/extensibility.h"

namespace windows {

/// One identity with two faces: the published operations as its IDispatch, and the host's interface.
class ConnectObject final : public Bridge {
  public:
    static ComPtr<IUnknown> create(const std::shared_ptr<Load>& load,
                                   const std::shared_ptr<addin::Connect>& connect);

  private:
    ConnectObject(const std::shared_ptr<Load>& load, const std::shared_ptr<addin::Connect>& connect)
        : Bridge(load->apartment, connect),
          extensibility_(*this, std::make_shared<Lifecycle>(load, connect)) {}
    void* query(REFIID iid) noexcept override;

    class Extensibility final : public IDTExtensibility2 {
      public:
        Extensibility(ConnectObject& whole, std::shared_ptr<Lifecycle> lifecycle)
            : whole_(whole),
              lifecycle_(*lifecycle),
              members_(whole.shared_apartment(), std::move(lifecycle)) {}

        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) noexcept override;
        ULONG STDMETHODCALLTYPE AddRef() noexcept override;
        ULONG STDMETHODCALLTYPE Release() noexcept override;

        HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
        HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
        HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                                DISPID* ids) noexcept override;
        HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags,
                                         DISPPARAMS* parameters, VARIANT* answer, EXCEPINFO* details,
                                         UINT* wrong_argument) noexcept override;

        HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, long mode, IDispatch* add_in,
                                               SAFEARRAY** custom) noexcept override;
        HRESULT STDMETHODCALLTYPE OnDisconnection(long mode, SAFEARRAY** custom) noexcept override;
        HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) noexcept override;
        HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) noexcept override;
        HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) noexcept override;

      private:
        /// Runs an operation while the whole object stays alive.
        template <class Operation>
        HRESULT run(Operation&& operation) noexcept;

        ConnectObject& whole_;
        Lifecycle& lifecycle_;
        LateBinding members_;
    };
    Extensibility extensibility_;
};

}  // namespace windows
