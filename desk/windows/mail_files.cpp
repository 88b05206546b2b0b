#include "desk/windows/mail_files.h"

#include "automation/com/failure.h"
#include "desk/base/desk.h"
#include "desk/windows/dragged_files.h"
#include "desk/windows/file_dialogs.h"

namespace desk {

using automation::Text;
using windows::ComPtr;

namespace {

constexpr std::uint32_t delivery_warning = 0x30;  // MB_ICONWARNING

}  // namespace

std::vector<Text> choose_mail_files(HWND owner) {
    constexpr FileKind mails[] = {{L"Mail files (*.eml)", L"*.eml"}};
    return choose_files(owner, L"Deliver Mail Files", mails);
}

void deliver_files(Desk& desk, const std::vector<Text>& paths) {
    Text failures;
    for (const Text& path : paths) {
        if (desk.explorers()->open.empty()) return;  // closed while a mail was being read
        try {
            desk.deliver(path);
        } catch (const automation::Failure& failure) {
            failures += (failures.empty() ? u"" : u"\n\n") + path + u":\n" + failure.description();
        }
    }
    if (failures.empty()) return;
    desk.surroundings().ask(u"These files were not delivered.\n\n" + failures, u"Outlook", delivery_warning);
}

ComPtr<IDropTarget> FilesDropTarget::create(windows::Module& module, Taker taker) {
    return ComPtr<IDropTarget>::attach(new FilesDropTarget(module, std::move(taker)));
}

void* FilesDropTarget::query(REFIID iid) noexcept {
    return iid == IID_IUnknown || iid == IID_IDropTarget ? static_cast<IDropTarget*>(this) : nullptr;
}

HRESULT FilesDropTarget::DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) noexcept {
    are_files_ = are_files(data);
    return DragOver(keys, point, effect);
}

HRESULT FilesDropTarget::DragOver(DWORD, POINTL, DWORD* effect) noexcept {
    if (!effect) return E_POINTER;
    return windows::guarded([&] {
        *effect = are_files_ && taker_.takes() ? *effect & DROPEFFECT_COPY : DROPEFFECT_NONE;
        return S_OK;
    });
}

HRESULT FilesDropTarget::Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) noexcept {
    const ComPtr<FilesDropTarget> alive(this);  // what is dropped may end the window
    const HRESULT offered = DragEnter(data, keys, point, effect);
    if (FAILED(offered) || *effect == DROPEFFECT_NONE) return offered;
    return windows::guarded([&] {
        taker_.take(dragged_files(data));
        return S_OK;
    });
}

}  // namespace desk
