// Base of our COM objects: the reference count, and the object's part in the count of its module.
#pragma once

#include <atomic>

#include "automation/com/module.h"
#include "automation/com/platform.h"

namespace windows {

/// Implements IUnknown for a class with these interfaces. A new object has one reference, its maker's.
template <class... Interfaces>
class ComObject : public Interfaces... {
  public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) noexcept override {
        if (!answer) return E_POINTER;
        *answer = query(iid);
        if (!*answer) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

  protected:
    explicit ComObject(Module& module) : module_(module) { module_.object_made(); }
    virtual ~ComObject() { module_.object_gone(); }

    /// The interface of that id, not counted; null if the object has none.
    virtual void* query(REFIID iid) noexcept = 0;

    Module& module() const { return module_; }

  private:
    Module& module_;
    std::atomic<ULONG> references_ = 1;
};

}  // namespace windows
