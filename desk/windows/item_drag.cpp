#include "desk/windows/item_drag.h"

#include "automation/com/failure.h"
#include "desk/driver/dragged.h"

namespace desk {

using windows::ComPtr;

namespace {

/// Ends the drag as the mouse and the Escape key say.
class DragSource final : public windows::ComObject<IDropSource> {
  public:
    static ComPtr<IDropSource> create(windows::Module& module) {
        return ComPtr<IDropSource>::attach(new DragSource(module));
    }

    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escaped, DWORD keys) noexcept override {
        if (escaped) return DRAGDROP_S_CANCEL;
        return keys & MK_LBUTTON ? S_OK : DRAGDROP_S_DROP;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) noexcept override { return DRAGDROP_S_USEDEFAULTCURSORS; }

  private:
    explicit DragSource(windows::Module& module) : ComObject(module) {}
    void* query(REFIID iid) noexcept override {
        return iid == IID_IUnknown || iid == IID_IDropSource ? static_cast<IDropSource*>(this) : nullptr;
    }
};

}  // namespace

void drag_selection(windows::Module& module, Dragging& dragging, const std::shared_ptr<Explorer>& from) {
    if (dragging.from || from->selected().empty()) return;
    dragging.from = from;
    DWORD effect = DROPEFFECT_NONE;
    DoDragDrop(Dragged::create(module).get(), DragSource::create(module).get(),
               DROPEFFECT_COPY | DROPEFFECT_MOVE, &effect);
    dragging.from.reset();
}

ComPtr<IDropTarget> FolderDropTarget::create(windows::Module& module, HWND tree, const Dragging& dragging,
                                             FolderDropTarget::OnDrop drop) {
    return ComPtr<IDropTarget>::attach(new FolderDropTarget(module, tree, dragging, std::move(drop)));
}

void* FolderDropTarget::query(REFIID iid) noexcept {
    return iid == IID_IUnknown || iid == IID_IDropTarget ? static_cast<IDropTarget*>(this) : nullptr;
}

HTREEITEM FolderDropTarget::folder_at(POINTL point) const {
    TVHITTESTINFO hit{};
    hit.pt = {point.x, point.y};
    ScreenToClient(tree_, &hit.pt);
    const HTREEITEM item = TreeView_HitTest(tree_, &hit);
    return hit.flags & (TVHT_ONITEM | TVHT_ONITEMRIGHT) ? item : nullptr;
}

HRESULT FolderDropTarget::offer(DWORD keys, POINTL point, DWORD* effect) const {
    if (!effect) return E_POINTER;
    const HTREEITEM folder = dragging_.from ? folder_at(point) : nullptr;
    TreeView_SelectDropTarget(tree_, folder);
    if (!folder) {
        *effect = DROPEFFECT_NONE;
    } else {
        *effect &= keys & MK_CONTROL ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
    }
    return S_OK;
}

HRESULT FolderDropTarget::DragEnter(IDataObject*, DWORD keys, POINTL point, DWORD* effect) noexcept {
    return offer(keys, point, effect);
}

HRESULT FolderDropTarget::DragOver(DWORD keys, POINTL point, DWORD* effect) noexcept {
    return offer(keys, point, effect);
}

HRESULT FolderDropTarget::DragLeave() noexcept {
    TreeView_SelectDropTarget(tree_, nullptr);
    return S_OK;
}

HRESULT FolderDropTarget::Drop(IDataObject*, DWORD keys, POINTL point, DWORD* effect) noexcept {
    const HRESULT offered = offer(keys, point, effect);
    TreeView_SelectDropTarget(tree_, nullptr);
    if (FAILED(offered) || *effect == DROPEFFECT_NONE) return offered;
    return windows::guarded([&] {
        drop_(dragging_.from, folder_at(point), *effect == DROPEFFECT_COPY);
        return S_OK;
    });
}

}  // namespace desk
