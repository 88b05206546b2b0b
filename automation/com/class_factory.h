// The class object through which COM makes our objects.
#pragma once

#include <functional>

#include "automation/com/com_object.h"
#include "automation/com/com_ptr.h"

namespace windows {

/// A class object that makes objects by a function of the server's.
class ClassFactory final : public ComObject<IClassFactory> {
  public:
    using Make = std::function<ComPtr<IUnknown>()>;

    /// `make` may throw; what it throws becomes the result of CreateInstance.
    static ComPtr<IClassFactory> create(Module& module, Make make);

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** answer) noexcept override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override;

  private:
    ClassFactory(Module& module, Make make) : ComObject(module), make_(std::move(make)) {}
    void* query(REFIID iid) noexcept override;

    Make make_;
};

}  // namespace windows
