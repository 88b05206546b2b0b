// The interface through which the host tells an add-in of its life.
#pragma once

#include "automation/com/com_ptr.h"

namespace windows {

inline constexpr automation::Guid extensibility_id =
    automation::guid("{B65AD801-ABAF-11D0-BB8B-00A0C90F2744}");

/// A dual interface: its own operations follow those of IDispatch, in this order. `custom` may be null.
class IDTExtensibility2 : public IDispatch {
  public:
    virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, long mode, IDispatch* add_in,
                                                   SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDisconnection(long mode, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;
};

}  // namespace windows
