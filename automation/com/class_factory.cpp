#include "automation/com/class_factory.h"

#include "automation/com/failure.h"

namespace windows {

ComPtr<IClassFactory> ClassFactory::create(Module& module, Make make) {
    return ComPtr<IClassFactory>::attach(new ClassFactory(module, std::move(make)));
}

void* ClassFactory::query(REFIID iid) noexcept {
    return iid == IID_IUnknown || iid == IID_IClassFactory ? static_cast<IClassFactory*>(this) : nullptr;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** answer) noexcept {
    if (!answer) return E_POINTER;
    *answer = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return guarded([&] { return make_()->QueryInterface(iid, answer); });
}

HRESULT ClassFactory::LockServer(BOOL lock) noexcept {
    if (lock) {
        module().lock();
    } else {
        module().unlock();
    }
    return S_OK;
}

}  // namespace windows
