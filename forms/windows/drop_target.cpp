#include "forms/windows/drop_target.h"

#include "automation/com/failure.h"

namespace windows {
namespace {

HRESULT offer_copy(DWORD* effect) {
    if (!effect) return E_POINTER;
    *effect &= DROPEFFECT_COPY;
    return S_OK;
}

}  // namespace

ComPtr<IDropTarget> DropTarget::create(Module& module, HWND window, std::function<void(int, int)> drop) {
    return ComPtr<IDropTarget>::attach(new DropTarget(module, window, std::move(drop)));
}

void* DropTarget::query(REFIID iid) noexcept {
    return iid == IID_IUnknown || iid == IID_IDropTarget ? static_cast<IDropTarget*>(this) : nullptr;
}

HRESULT DropTarget::DragEnter(IDataObject*, DWORD, POINTL, DWORD* effect) noexcept {
    return offer_copy(effect);
}

HRESULT DropTarget::DragOver(DWORD, POINTL, DWORD* effect) noexcept { return offer_copy(effect); }

HRESULT DropTarget::Drop(IDataObject*, DWORD, POINTL point, DWORD* effect) noexcept {
    const HRESULT offered = offer_copy(effect);
    if (FAILED(offered)) return offered;
    const ComPtr<DropTarget> alive(this);  // what is dropped may end the window
    POINT place{point.x, point.y};
    ScreenToClient(window_, &place);
    return guarded([&] {
        drop_(place.x, place.y);
        return S_OK;
    });
}

}  // namespace windows
