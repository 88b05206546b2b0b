#include "desk/windows/mail_files.h"

#include <shellapi.h>
#include <shobjidl.h>

#include "automation/com/failure.h"
#include "desk/base/desk.h"

namespace desk {

using automation::Text;
using windows::ComPtr;

namespace {

constexpr std::uint32_t delivery_warning = 0x30;  // MB_ICONWARNING

/// The path of a file that was chosen; empty for what is no file.
Text path_of(IShellItem& item) {
    wchar_t* name = nullptr;
    if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &name))) return {};
    Text path(reinterpret_cast<const char16_t*>(name));
    CoTaskMemFree(name);
    return path;
}

/// What the system has handed over while it lives.
class Medium {
  public:
    Medium(IDataObject& data, FORMATETC& format) {
        if (FAILED(data.GetData(&format, &medium_))) medium_ = {};
    }
    ~Medium() { ReleaseStgMedium(&medium_); }
    Medium(const Medium&) = delete;
    Medium& operator=(const Medium&) = delete;

    HDROP files() const {
        return medium_.tymed == TYMED_HGLOBAL ? static_cast<HDROP>(medium_.hGlobal) : nullptr;
    }

  private:
    STGMEDIUM medium_{};
};

FORMATETC files_format() { return {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}; }

}  // namespace

std::vector<Text> choose_mail_files(HWND owner) {
    ComPtr<IFileOpenDialog> dialog;
    windows::check(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog,
                                    dialog.put_void()));
    constexpr COMDLG_FILTERSPEC filters[] = {{L"Mail files (*.eml)", L"*.eml"}, {L"All files", L"*.*"}};
    dialog->SetFileTypes(static_cast<UINT>(std::size(filters)), filters);
    dialog->SetTitle(L"Deliver Mail Files");
    dialog->SetOptions(FOS_ALLOWMULTISELECT | FOS_FILEMUSTEXIST | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR);
    ComPtr<IShellItemArray> chosen;
    if (FAILED(dialog->Show(owner)) || FAILED(dialog->GetResults(chosen.put()))) return {};
    DWORD count = 0;
    chosen->GetCount(&count);
    std::vector<Text> paths;
    for (DWORD i = 0; i < count; ++i) {
        ComPtr<IShellItem> item;
        if (FAILED(chosen->GetItemAt(i, item.put()))) continue;
        if (Text path = path_of(*item.get()); !path.empty()) paths.push_back(std::move(path));
    }
    return paths;
}

bool are_files(IDataObject* data) {
    FORMATETC format = files_format();
    return data && data->QueryGetData(&format) == S_OK;
}

std::vector<Text> dragged_files(IDataObject* data) {
    if (!are_files(data)) return {};
    FORMATETC format = files_format();
    const Medium medium(*data, format);
    std::vector<Text> paths;
    if (!medium.files()) return paths;
    const UINT count = DragQueryFileW(medium.files(), 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        Text path(DragQueryFileW(medium.files(), i, nullptr, 0), u'\0');
        DragQueryFileW(medium.files(), i, reinterpret_cast<wchar_t*>(path.data()),
                       static_cast<UINT>(path.size() + 1));
        paths.push_back(std::move(path));
    }
    return paths;
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
