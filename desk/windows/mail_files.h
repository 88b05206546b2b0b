// Mail files of the system: chosen in its dialog or dropped on a window, and delivered.
#pragma once

#include <functional>
#include <vector>

#include "automation/com/com_object.h"
#include "automation/com/com_ptr.h"
#include "desk/outlook/explorers.h"

namespace desk {

/// The paths of the mail files that a person chooses; none where the dialog is left.
std::vector<automation::Text> choose_mail_files(HWND owner);

/// Delivers each of the files to the Inbox. Those that can't be delivered keep no other back; they are told
/// of at the end, together.
void deliver_files(Desk& desk, const std::vector<automation::Text>& paths);

/// Takes files that are dropped on a window.
class FilesDropTarget final : public windows::ComObject<IDropTarget> {
  public:
    /// Whether files can be dropped at the moment, and what becomes of them.
    struct Taker {
        std::function<bool()> takes;
        std::function<void(std::vector<automation::Text>)> take;
    };
    static windows::ComPtr<IDropTarget> create(windows::Module& module, Taker taker);

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) noexcept override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) noexcept override;
    HRESULT STDMETHODCALLTYPE DragLeave() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) noexcept override;

  private:
    FilesDropTarget(windows::Module& module, Taker taker) : ComObject(module), taker_(std::move(taker)) {}
    void* query(REFIID iid) noexcept override;

    Taker taker_;
    bool are_files_ = false;  ///< what is dragged
};

}  // namespace desk
