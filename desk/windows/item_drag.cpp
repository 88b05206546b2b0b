#include "desk/windows/item_drag.h"

#include "automation/com/failure.h"
#include "desk/driver/dragged.h"
#include "desk/windows/dragged_files.h"

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

void drag_files(windows::Module& module, const std::vector<automation::Text>& paths) {
    DWORD effect = DROPEFFECT_NONE;
    DoDragDrop(files_to_drag(module, paths).get(), DragSource::create(module).get(), DROPEFFECT_COPY,
               &effect);
}

ComPtr<IDropTarget> FolderDropTarget::create(windows::Module& module, HWND tree, const Dragging& dragging,
                                             FolderDropTarget::OnDrop drop, Files files) {
    return ComPtr<IDropTarget>::attach(
        new FolderDropTarget(module, tree, dragging, std::move(drop), std::move(files)));
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

DWORD FolderDropTarget::offered_to(HTREEITEM folder, DWORD keys) const {
    if (!folder) return DROPEFFECT_NONE;
    if (dragging_.from) return keys & MK_CONTROL ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
    return are_files_ && files_.takes(folder) ? DROPEFFECT_COPY : DROPEFFECT_NONE;
}

HRESULT FolderDropTarget::offer(DWORD keys, POINTL point, DWORD* effect) const {
    if (!effect) return E_POINTER;
    return windows::guarded([&] {
        const HTREEITEM folder = folder_at(point);
        *effect &= offered_to(folder, keys);
        TreeView_SelectDropTarget(tree_, *effect == DROPEFFECT_NONE ? nullptr : folder);
        return S_OK;
    });
}

HRESULT FolderDropTarget::DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) noexcept {
    are_files_ = are_files(data);
    return offer(keys, point, effect);
}

HRESULT FolderDropTarget::DragOver(DWORD keys, POINTL point, DWORD* effect) noexcept {
    return offer(keys, point, effect);
}

HRESULT FolderDropTarget::DragLeave() noexcept {
    TreeView_SelectDropTarget(tree_, nullptr);
    return S_OK;
}

HRESULT FolderDropTarget::Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) noexcept {
    const ComPtr<FolderDropTarget> alive(this);  // what is dropped may end the window
    const HRESULT offered = DragEnter(data, keys, point, effect);
    TreeView_SelectDropTarget(tree_, nullptr);
    if (FAILED(offered) || *effect == DROPEFFECT_NONE) return offered;
    return windows::guarded([&] {
        if (dragging_.from) {
            drop_(dragging_.from, folder_at(point), *effect == DROPEFFECT_COPY);
        } else {
            files_.take(dragged_files(data));
        }
        return S_OK;
    });
}

}  // namespace desk
