// Where something that is dragged may be dropped.
#pragma once

#include <functional>

#include "automation/com/com_object.h"
#include "automation/com/com_ptr.h"

namespace windows {

/// Takes whatever is dropped on a window, as a copy. The data are not looked at.
class DropTarget final : public ComObject<IDropTarget> {
  public:
    /// `drop` is told where in the window, in pixels.
    static ComPtr<IDropTarget> create(Module& module, HWND window, std::function<void(int x, int y)> drop);

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD, POINTL, DWORD* effect) noexcept override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) noexcept override;
    HRESULT STDMETHODCALLTYPE DragLeave() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject*, DWORD, POINTL point, DWORD* effect) noexcept override;

  private:
    DropTarget(Module& module, HWND window, std::function<void(int, int)> drop)
        : ComObject(module), window_(window), drop_(std::move(drop)) {}
    void* query(REFIID iid) noexcept override;

    HWND window_;
    std::function<void(int, int)> drop_;
};

}  // namespace windows
