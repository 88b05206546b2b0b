// Dragging the selection of a main window or files, and dropping what is dragged on a folder.
#pragma once

#include <functional>
#include <vector>

#include "automation/com/com_object.h"
#include "automation/com/com_ptr.h"
#include "desk/outlook/explorers.h"
#include "forms/windows/common_controls.h"

namespace desk {

/// What is dragged at the moment, if something is.
struct Dragging {
    std::shared_ptr<Explorer> from;
};

/// Drags the selection of an explorer until the mouse button is released or Escape is pressed. Messages are
/// handled meanwhile.
void drag_selection(windows::Module& module, Dragging& dragging, const std::shared_ptr<Explorer>& from);

/// Drags files in the same way: what they are dropped on gets copies of them.
void drag_files(windows::Module& module, const std::vector<automation::Text>& paths);

/// Takes what is dragged out of a main window onto a folder of a tree: moves it, with the control key copies
/// it. Files of the system are taken, too, by some of the folders.
class FolderDropTarget final : public windows::ComObject<IDropTarget> {
  public:
    using OnDrop = std::function<void(const std::shared_ptr<Explorer>& from, HTREEITEM folder, bool copies)>;
    struct Files {
        std::function<bool(HTREEITEM folder)> takes;
        std::function<void(std::vector<automation::Text> paths)> take;
    };
    static windows::ComPtr<IDropTarget> create(windows::Module& module, HWND tree, const Dragging& dragging,
                                               OnDrop drop, Files files);

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL point,
                                        DWORD* effect) noexcept override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL point, DWORD* effect) noexcept override;
    HRESULT STDMETHODCALLTYPE DragLeave() noexcept override;
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL point,
                                   DWORD* effect) noexcept override;

  private:
    FolderDropTarget(windows::Module& module, HWND tree, const Dragging& dragging, OnDrop drop, Files files)
        : ComObject(module),
          tree_(tree),
          dragging_(dragging),
          drop_(std::move(drop)),
          files_(std::move(files)) {}
    void* query(REFIID iid) noexcept override;
    HTREEITEM folder_at(POINTL point) const;
    HRESULT offer(DWORD keys, POINTL point, DWORD* effect) const;
    DWORD offered_to(HTREEITEM folder, DWORD keys) const;

    HWND tree_;
    const Dragging& dragging_;
    OnDrop drop_;
    Files files_;
    bool are_files_ = false;  ///< what is dragged
};

}  // namespace desk
